// Lines of logs of every kind: daily files on the disk, and the answers of the database library.

#include "framework/ui/kestrix/app/LogFactory.h"
#include "framework/ui/kestrix/logs/ZPTLogURL.h"
#include "platform/dialog/OleDateTime.h"
#include "tests/fuzz/Harness.h"
#include "tests/fuzz/LogReferences.h"
#include "tests/support/GoldenDayFile.h"
#include "tests/support/InfoPaneDouble.h"
#include "tests/support/LanguageFile.h"
#include "tests/support/ProviderDouble.h"
#include "tests/support/TemporaryFolder.h"
#include "tests/unit/framework/ui/kestrix/logs/reference/PlainLines.h"

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

// Lines of a log of any kind, read by its class and by its reference. The first character of an input says the kind.
class LogReader : private WithCategoryService, public TextReader
{
protected:
    explicit LogReader(bool fromDatabase) : m_bFromDatabase(fromDatabase) {}

private:
    // What the class made of the text, with a log that has just been made, up to its first bad line.
    virtual void Load(CZPTLogBase& log, const std::wstring& extension, std::wstring_view text) = 0;

    // The lines that the class is given of the text.
    virtual std::vector<std::wstring> LinesOf(std::wstring_view text) const = 0;

    std::vector<std::wstring> Samples() const override
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
        for (std::size_t kind = 0; kind < LogKinds().size(); ++kind)
        {
            texts.push_back(static_cast<wchar_t>(FirstKind + kind) +
                            std::wstring(L"|||||||\n|||||||\n")); // short lines
        }
        return texts;
    }

    std::size_t ReadText(std::wstring_view text) override
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
        // Lines of a day of the other harness may be refused from the first on.
        return 1 + 1000 * kind.type + (expected.empty() ? 0 : 10 * expected.size() + expected.back().icon);
    }

    std::vector<ExpectedRecord> Expected(std::uint32_t type, std::wstring_view text) const
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

    void ExpectRecords(const CZPTLogBase& log, const std::vector<ExpectedRecord>& expected) const
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

    void ExpectOrder(const CZPTLogBase& log, const LogKind& kind, const std::vector<ExpectedRecord>& records) const
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
                const int order =
                    compare(reinterpret_cast<LPARAM>(log.GetLogRecord(first)),
                            reinterpret_cast<LPARAM>(log.GetLogRecord(second)), static_cast<LPARAM>(column));
                ExpectSame(sign(order),
                           PlainOrder(kind.type, records[first].fields, records[second].fields, column, isUp),
                           "the order of records " + std::to_string(first) + " and " + std::to_string(second) +
                               " by column " + std::to_string(column));
            }
        }
    }

    void ExpectExport(CZPTLogBase& log, std::uint32_t type, const std::vector<ExpectedRecord>& records) const
    {
        const std::wstring path = m_folder.File(L"export.csv");
        std::uint32_t error = 0;
        Expect(log.ExportLog(path, type, L"date", LocalAddress, &error), "the export fails");
        ExpectSame(WithoutHead(ReadUtf16(path)), PlainExport(type, FieldsOf(records)), "the lines of the export");
    }

    // What the page asks for, after all else, since it may complete a record. A record that is shorter than its class
    // expects may say so.
    void ShowAll(CZPTLogBase& log)
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

    const bool m_bFromDatabase;
    const LanguageFile m_language;
    const TemporaryFolder m_folder;
    InfoPaneDouble m_pane;
};

class DayFileReader : public LogReader
{
public:
    DayFileReader() : LogReader(false) {}

private:
    void Load(CZPTLogBase& log, const std::wstring& extension, std::wstring_view text) override
    {
        const std::wstring path = m_folder.File(L"20261121." + extension);
        WriteUtf16(path, text);
        Expect(log.ReadLogW(path), "the file cannot be read");
    }

    std::vector<std::wstring> LinesOf(std::wstring_view text) const override { return Plain::Lines(text); }

    const TemporaryFolder m_folder;
};

class ProviderReader : public LogReader
{
public:
    ProviderReader() : LogReader(true) {}

private:
    void Load(CZPTLogBase& log, const std::wstring&, std::wstring_view text) override
    {
        ProviderAnswer answer;
        bool isElsewhere = false; // every other line, however short it is
        for (const std::wstring& line : LinesOf(text))
        {
            isElsewhere ? answer.AddElsewhere(line, std::max(OrlInlineCapacity, line.size())) : answer.Add(line);
            isElsewhere = !isElsewhere;
        }
        ProviderDouble provider;
        provider.m_answer = answer.Address();
        log.m_pIDBManagerProvider = &provider;
        log.ReadLogDBMgr(COleDateTime(2026, 11, 21, 0, 0, 0));
        log.m_pIDBManagerProvider = nullptr;
    }

    // A line may have anything in it but the line feed at which the input is cut, and may be empty.
    std::vector<std::wstring> LinesOf(std::wstring_view text) const override { return Pieces(text, L'\n'); }
};

const Registration<DayFileReader> DayFile({.name = "dayfile",
                                           .reads = "daily files of every kind: records, order of columns, export",
                                           .inputs = 2'000,
                                           .separators = L"|\r\n",
                                           .words = LogWords});

const Registration<ProviderReader> Provider({.name = "provider",
                                             .reads = "records of every kind as the database library answers",
                                             .inputs = 2'000,
                                             .separators = L"|\r\n",
                                             .words = LogWords});

} // namespace

} // namespace Fuzz
