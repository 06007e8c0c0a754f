// The export file: a title line, the class's label line, and a line per record with quoted fields between tabs.

#include "common/VdCommon/VdComn_DebugLog.h"
#include "framework/ui/kestrix/logs/ExportStream.h"
#include "framework/ui/kestrix/logs/FindCharacter.h"
#include "framework/ui/kestrix/logs/ZPTLogBase.h"
#include "platform/dialog/ModuleState.h"

namespace
{

// The two logs that leave out fields have their rule here and their labels in their class.
constexpr std::size_t PhishingFields[] = {0, 2, 3, 4, 5};
constexpr std::size_t DirectionNumber = 3; // of a firewall record

// Deletes the file again, whatever ended the export, unless it is complete.
class ExportGuard
{
public:
    ExportGuard(ExportStream& stream, const std::wstring& path) : m_stream(stream), m_path(path) {}

    ~ExportGuard()
    {
        if (!m_bComplete)
        {
            const bool deleted = m_stream.Delete();
            VD_TRACE(Flow, L"DeleteFile(%s) returned %d", m_path, static_cast<int>(deleted));
        }
    }

    ExportGuard(const ExportGuard&) = delete;
    ExportGuard& operator=(const ExportGuard&) = delete;

    void Complete()
    {
        m_stream.Close();
        m_bComplete = true;
    }

private:
    ExportStream& m_stream;
    const std::wstring& m_path;
    bool m_bComplete = false;
};

// Writes records field by field, and keeps the room that a field's copy takes from one to the next.
class RecordWriter
{
public:
    RecordWriter(const CZPTLogBase& log, ExportStream& stream) : m_log(log), m_stream(stream) {}

    // All fields in order; a firewall record loses its direction, unless it ends with it.
    bool Write(const LogRec& record, std::uint32_t logType)
    {
        const std::size_t count = record.strData.size();
        for (std::size_t i = 0; i < count; ++i)
        {
            const bool isLast = i + 1 == count;
            const bool isLeftOut = logType == LogTypeFirewall && i == DirectionNumber && !isLast;
            if (!isLeftOut && !WriteField(record.strData[i], isLast))
            {
                return false;
            }
        }
        return true;
    }

    // The five fields of a phishing record; one that a record of another log does not have is empty.
    bool WritePhishing(const LogRec& record)
    {
        for (const std::size_t& field : PhishingFields)
        {
            const std::wstring_view text = field < record.strData.size() ? record.strData[field] : std::wstring_view();
            if (!WriteField(text, &field + 1 == std::end(PhishingFields)))
            {
                return false;
            }
        }
        return true;
    }

private:
    bool WriteField(std::wstring_view field, bool isLast)
    {
        m_strField = field;
        if (!m_strField.empty())
        {
            m_log.EscapeQuote(m_strField);
        }
        return m_stream.WriteLabel(m_strField, isLast ? L'\n' : L'\t');
    }

    const CZPTLogBase& m_log;
    ExportStream& m_stream;
    std::wstring m_strField;
};

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
    ExportGuard guard(stream, path);
    bool written = stream.WriteLabel(LoadText(ExportTitle(logType)), L'\t') && stream.WriteLabel(dateText, L'\t') &&
                   stream.WriteLabel(localAddress, L'\n');
    if (written && !WriteExportHeader(stream))
    {
        return false;
    }
    written = written && ExportRecords(stream, logType) && stream.Flush();
    if (!written)
    {
        VD_TRACE(Error, L"Disk has no space to export file(%s).", path);
        if (error != nullptr)
        {
            *error = ExportDiskFull;
        }
        return false;
    }
    guard.Complete();
    return true;
}

bool CZPTLogBase::ExportRecords(ExportStream& stream, std::uint32_t logType) const
{
    RecordWriter writer(*this, stream);
    for (std::size_t i = 0; i < GetLogCount(); ++i)
    {
        const LogRec& record = *m_arrRecord[i];
        if (!(logType == LogTypePhishing ? writer.WritePhishing(record) : writer.Write(record, logType)))
        {
            return false;
        }
    }
    return true;
}

void CZPTLogBase::EscapeQuote(std::wstring& text) const
{
    const auto next = [&text](std::size_t start)
    {
        const wchar_t* const first = text.data();
        const wchar_t* const end = first + text.size();
        return static_cast<std::size_t>(FindCharacter(first + start, end, L'"') - first);
    };
    for (std::size_t found = next(0); found != text.size(); found = next(found + 2))
    {
        text.insert(found, 1, L'"');
    }
}
