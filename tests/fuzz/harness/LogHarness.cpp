#include "tests/fuzz/harness/LogHarness.h"

#include "framework/ui/kestrix/app/LogFactory.h"
#include "framework/ui/kestrix/logs/ZPTLogURL.h"
#include "tests/support/GoldenDayFile.h"

#include <algorithm>

namespace Fuzz
{

namespace
{

constexpr std::size_t MostCompared = 6; // records, each with each
constexpr std::size_t Columns = 8;      // more than any list has

// The first character of an input: a letter for each kind, a small one where the log is exported as well, which takes
// longer than all else.
constexpr wchar_t FirstKind = L'A';
constexpr wchar_t FirstExported = L'a';

const LogKind& KindOf(wchar_t letter)
{
    const int number = letter - (letter < FirstExported ? FirstKind : FirstExported);
    return LogKinds()[static_cast<std::size_t>(number) % LogKinds().size()];
}

std::vector<Fields> FieldsOf(const std::vector<ExpectedRecord>& records)
{
    std::vector<Fields> fields;
    std::ranges::transform(records, std::back_inserter(fields), &ExpectedRecord::fields);
    return fields;
}

// The text of the file after its first two lines.
std::wstring WithoutHead(const std::wstring& text)
{
    return text.substr(text.find(L"\r\n", text.find(L"\r\n") + 2) + 2);
}

} // namespace

LogReader::LogReader(bool fromDatabase) : m_bFromDatabase(fromDatabase) {}

std::vector<std::wstring> LogReader::Texts() const
{
    std::vector<std::wstring> texts;
    for (const std::string& name : GoldenDayFile::Names())
    {
        const GoldenDayFile day(name);
        const std::wstring extension(day.extension.begin(), day.extension.end());
        const auto kind = std::ranges::find(LogKinds(), extension, &LogKind::extension);
        const wchar_t first = day.isFromDatabase == m_bFromDatabase ? FirstKind : FirstExported;
        std::wstring text(1, static_cast<wchar_t>(first + (kind - LogKinds().begin())));
        for (const std::wstring& line : day.Lines())
        {
            text += line + L"\r\n";
        }
        texts.push_back(text);
    }
    return texts;
}

std::size_t LogReader::ReadText(std::wstring_view text)
{
    if (text.empty())
    {
        return 0;
    }
    const LogKind& kind = KindOf(text.front());
    const bool isExported = text.front() >= FirstExported;
    text.remove_prefix(1);
    CZPTLogURL().PutRecode(L"||||||first|", CZPTLogBase::AnyLine); // its last address goes from one log to the next
    const std::vector<ExpectedRecord> expected = Expected(kind.type, text);
    const std::unique_ptr<CZPTLogBase> log = CreateLog(kind.type);
    log->m_bUseDBMgr = m_bFromDatabase;
    log->SetLocalAddress(LocalAddress);
    log->SetInfoDialog(&m_pane);
    Load(*log, std::wstring(kind.extension), text);
    ExpectRecords(*log, expected);
    ExpectOrder(*log, kind, expected);
    if (isExported)
    {
        ExpectExport(*log, kind.type, expected);
    }
    ShowAll(*log);
    return expected.empty() ? kind.type : 1000 * kind.type + 10 * expected.size() + expected.back().icon;
}

std::vector<ExpectedRecord> LogReader::Expected(std::uint32_t type, std::wstring_view text) const
{
    const LogReference reference = ReferenceOf(type, m_bFromDatabase, m_service.Offered());
    std::vector<ExpectedRecord> records;
    for (const std::wstring& line : LinesOf(text))
    {
        const std::optional<ExpectedRecord> record = reference(line);
        if (!record)
        {
            break;
        }
        records.push_back(*record);
    }
    return records;
}

void LogReader::ExpectRecords(const CZPTLogBase& log, const std::vector<ExpectedRecord>& expected) const
{
    ExpectSame(log.GetLogCount(), expected.size(), "the count of records");
    for (std::size_t i = 0; i < expected.size(); ++i)
    {
        const LogRec& record = *log.GetLogRecord(i);
        const std::string which = " of record " + std::to_string(i);
        ExpectSame(Fields(record.strData.begin(), record.strData.end()), expected[i].fields, "the fields" + which);
        ExpectSame(record.nImage, expected[i].icon, "the icon" + which);
    }
}

void LogReader::ExpectOrder(const CZPTLogBase& log, const LogKind& kind,
                            const std::vector<ExpectedRecord>& records) const
{
    const auto sign = [](int order) { return (order > 0) - (order < 0); };
    const std::size_t count = std::min(records.size(), MostCompared);
    for (std::size_t place = 0; place < count * count * static_cast<std::size_t>(kind.lastColumn + 1); ++place)
    {
        const std::size_t first = place % count;
        const std::size_t second = place / count % count;
        const std::size_t column = place / count / count;
        for (const bool isUp : {true, false})
        {
            const PFNLVCOMPARE compare = isUp ? log.m_pfnCompareUp : log.m_pfnCompareDn;
            const int order = compare(reinterpret_cast<LPARAM>(log.GetLogRecord(first)),
                                      reinterpret_cast<LPARAM>(log.GetLogRecord(second)), static_cast<LPARAM>(column));
            ExpectSame(sign(order), PlainOrder(kind.type, records[first].fields, records[second].fields, column, isUp),
                       "the order of records " + std::to_string(first) + " and " + std::to_string(second) +
                           " by column " + std::to_string(column));
        }
    }
}

void LogReader::ExpectExport(CZPTLogBase& log, std::uint32_t type, const std::vector<ExpectedRecord>& records) const
{
    const std::wstring path = m_folder.File(L"export.csv");
    std::uint32_t error = 0;
    Expect(log.ExportLog(path, type, L"date", LocalAddress, &error), "the export fails");
    ExpectSame(WithoutHead(ReadUtf16(path)), PlainExport(type, FieldsOf(records)), "the lines of the export");
}

// What the page asks for, after all else, since it may complete a record. A record that is shorter than its class
// expects may say so.
void LogReader::ShowAll(CZPTLogBase& log)
{
    log.SetInfoLabel();
    for (std::size_t i = 0; i < std::min(log.GetLogCount(), MostCompared); ++i)
    {
        try
        {
            std::wstring text;
            for (std::size_t column = 0; column < Columns; ++column)
            {
                log.GetColumnText(log.GetLogRecord(i), text, static_cast<int>(column));
            }
            log.SetLogInfo(log.GetLogRecord(i));
        }
        catch (const std::out_of_range&)
        {
        }
    }
}

} // namespace Fuzz
