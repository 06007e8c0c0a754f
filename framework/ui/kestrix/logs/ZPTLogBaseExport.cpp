// The export file: a title line, the class's label line, and a line per record with quoted fields between tabs.

#include "common/VdCommon/VdComn_DebugLog.h"
#include "framework/ui/kestrix/logs/ExportStream.h"
#include "framework/ui/kestrix/logs/ZPTLogBase.h"
#include "platform/dialog/ModuleState.h"

#include <numeric>

namespace
{

// The fields of a record line, by number; the two logs that leave some out have their rule here and their labels in
// their class.
std::vector<std::size_t> ExportedFields(std::uint32_t logType, std::size_t fieldCount)
{
    if (logType == LogTypePhishing)
    {
        return {0, 2, 3, 4, 5};
    }
    std::vector<std::size_t> fields(fieldCount);
    std::iota(fields.begin(), fields.end(), std::size_t{0});
    constexpr std::size_t directionNumber = 3;
    // The last field is always written, so a firewall record that ends with its direction keeps it.
    if (logType == LogTypeFirewall && fieldCount > directionNumber + 1)
    {
        fields.erase(fields.begin() + directionNumber);
    }
    return fields;
}

} // namespace

bool CZPTLogBase::WriteExportHeader(ExportStream&)
{
    return true;
}

bool CZPTLogBase::ExportLog(const std::wstring& path, std::uint32_t logType, const wchar_t* dateText,
                            const wchar_t* localAddress, std::uint32_t* error)
{
    if (dateText == nullptr || localAddress == nullptr)
    {
        return false;
    }
    ExportStream stream;
    if (!stream.Open(path))
    {
        return false;
    }
    bool written = stream.WriteLabel(LoadText(ExportTitle(logType)), L'\t') && stream.WriteLabel(dateText, L'\t') &&
                   stream.WriteLabel(localAddress, L'\n');
    bool headerDone = true;
    if (written)
    {
        headerDone = WriteExportHeader(stream);
        for (std::size_t i = 0; headerDone && written && i < GetLogCount(); ++i)
        {
            written = ExportRecord(stream, logType, *m_arrRecord[i]);
        }
        written = written && (!headerDone || stream.Flush());
    }
    if (!written)
    {
        VD_TRACE(Error, L"Disk has no space to export file(%s).", path);
        if (error != nullptr)
        {
            *error = ExportDiskFull;
        }
    }
    stream.Close();
    const bool done = written && headerDone;
    if (!done)
    {
        const BOOL deleted = DeleteFileW(path.c_str());
        VD_TRACE(Flow, L"DeleteFile(%s) returned %d", path, deleted);
    }
    return done;
}

bool CZPTLogBase::ExportRecord(ExportStream& stream, std::uint32_t logType, const LogRec& record) const
{
    const std::vector<std::size_t> fields = ExportedFields(logType, record.strData.size());
    std::wstring text;
    for (std::size_t i = 0; i < fields.size(); ++i)
    {
        text = record.Field(fields[i]);
        if (!text.empty())
        {
            EscapeQuote(text);
        }
        if (!stream.WriteLabel(text, i + 1 < fields.size() ? L'\t' : L'\n'))
        {
            return false;
        }
    }
    return true;
}

void CZPTLogBase::EscapeQuote(std::wstring& text) const
{
    for (std::size_t found = text.find(L'"'); found != text.npos; found = text.find(L'"', found + 2))
    {
        text.insert(found, 1, L'"');
    }
}
