// The export file: a title line, the class's label line, and a line per record with quoted fields between tabs.

#include "common/VdCommon/VdComn_DebugLog.h"
#include "framework/ui/kestrix/logs/ExportStream.h"
#include "framework/ui/kestrix/logs/ExportText.h"
#include "framework/ui/kestrix/logs/FindCharacter.h"
#include "framework/ui/kestrix/logs/ZPTLogBase.h"
#include "platform/dialog/ResourceText.h"

#include <algorithm>

namespace
{

std::wstring LabelText(const ExportLabel& label)
{
    std::wstring text = label.text == 0 ? std::wstring(label.literal) : LoadText(label.text);
    if (label.colons == Colons::AllRemoved)
    {
        std::erase(text, L':');
    }
    else if (label.colons == Colons::LastRemoved && text.ends_with(L':'))
    {
        text.pop_back();
    }
    return text;
}

// Deletes the new file again, whatever ended the export, unless it is complete and has taken its place.
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

    bool Complete() { return m_bComplete = m_stream.Close(); }

private:
    ExportStream& m_stream;
    const std::wstring& m_path;
    bool m_bComplete = false;
};

// Writes records field by field, and keeps the room that a field's copy takes from one to the next.
class RecordWriter
{
public:
    // The type says which fields are written.
    RecordWriter(const CZPTLogBase& log, ExportWriter& writer, std::uint32_t logType)
        : m_log(log), m_writer(writer), m_fields(FieldsOf(logType))
    {
    }

    bool Write(const LogRec& record)
    {
        return m_fields.only.empty() ? WriteAll(record, m_fields.leftOut) : WriteOnly(record, m_fields.only);
    }

private:
    // All fields in order; the one to be left out is written all the same where it is the last.
    bool WriteAll(const LogRec& record, std::size_t leftOut)
    {
        const std::size_t count = record.strData.size();
        for (std::size_t i = 0; i < count; ++i)
        {
            const bool isLast = i + 1 == count;
            if ((i != leftOut || isLast) && !WriteField(record.strData[i], isLast))
            {
                return false;
            }
        }
        return true;
    }

    // These fields; one that a record of another log does not have is empty.
    bool WriteOnly(const LogRec& record, std::span<const std::size_t> fields)
    {
        for (const std::size_t& field : fields)
        {
            if (!WriteField(record.FieldOrEmpty(field), &field == &fields.back()))
            {
                return false;
            }
        }
        return true;
    }

    // Without a copy of a field that has no quote to double, as nearly none has.
    bool WriteField(std::wstring_view field, bool isLast)
    {
        const wchar_t* const fieldEnd = field.data() + field.size();
        if (FindCharacter(field.data(), fieldEnd, L'"') != fieldEnd)
        {
            m_strField = field;
            m_log.EscapeQuote(m_strField);
            field = m_strField;
        }
        return m_writer.WriteLabel(field, isLast ? L'\n' : L'\t');
    }

    static ExportFields FieldsOf(std::uint32_t logType)
    {
        const LogKind* const kind = FindLogKind(logType);
        return kind == nullptr ? ExportFields{} : kind->exportFields;
    }

    const CZPTLogBase& m_log;
    ExportWriter& m_writer;
    const ExportFields m_fields;
    std::wstring m_strField;
};

} // namespace

bool CZPTLogBase::WriteExportHeader(ExportWriter& writer)
{
    const auto labels = m_pLayout == nullptr ? std::span<const ExportLabel>() : m_pLayout->exportLabels;
    return std::ranges::all_of(labels,
                               [&](const ExportLabel& label) {
                                   return writer.WriteLabel(LabelText(label), &label == &labels.back() ? L'\n' : L'\t');
                               });
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
    return guard.Complete();
}

bool CZPTLogBase::ExportRecords(ExportStream& stream, std::uint32_t logType) const
{
    RecordWriter writer(*this, stream, logType);
    return std::ranges::all_of(m_arrRecord, [&](const LogRec* record) { return writer.Write(*record); });
}

std::wstring CZPTLogBase::ExportLine(const LogRec& record, bool withLabels)
{
    ExportText text;
    if (withLabels)
    {
        WriteExportHeader(text);
    }
    RecordWriter(*this, text, m_nLogType).Write(record);
    return text.Text();
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
