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
#include "tests/unit/framework/ui/kestrix/logs/reference/PlainReaders.h"

#include <algorithm>
#include <set>

using namespace Fuzz;

namespace
{

constexpr std::size_t MostCompared = 3; // records that follow each other
constexpr std::size_t MostShown = 6;
constexpr std::size_t LinesOfText = 25; // of a sample
constexpr std::size_t MostTokens = 16;  // of a line
constexpr std::size_t MostTold = 30;    // of the count of records, by which inputs are told apart
constexpr std::size_t Columns = 8;      // more than any list has

// The first character of an input says the kind.
constexpr wchar_t FirstKind = L'A';

const LogKind& KindOf(wchar_t letter)
{
    return LogKinds()[static_cast<std::size_t>(letter - FirstKind) % LogKinds().size()];
}

using Lines = std::vector<std::wstring>;

std::wstring Joined(const std::vector<std::wstring>& tokens)
{
    std::wstring line;
    for (const std::wstring& token : tokens)
    {
        line += (&token == tokens.data() ? L"" : L"|") + token;
    }
    return line;
}

// What each token of a good line is replaced by: nothing, numbers that sizes, signs and bases tell apart, a date,
// escapes, what is no text, bars, and a text that is longer than any room for one.
const std::wstring AwkwardTokens[] = {L"",
                                      L"0",
                                      L"0x1",
                                      L"-1",
                                      L"258",
                                      L"-4294967295",
                                      L"1\xFF11",
                                      L"2026/11/20",
                                      L"%Ia%%\"%x%",
                                      std::wstring(L"1\0002", 3),
                                      std::wstring(300, L'|'),
                                      std::wstring(600, L'x')};
constexpr std::size_t LongToken = 100'000; // of the first line alone

// The lines of the golden days of a kind, of both forms: with each token as every other line has it, with a zero in
// front of each token, with each token awkward, and cut before each token; and the first with each token very long.
Lines DayLines(const LogKind& kind)
{
    std::vector<std::vector<std::wstring>> days;
    for (const std::string& name : GoldenDayFile::Names())
    {
        const GoldenDayFile day(name);
        if (std::wstring(day.extension.begin(), day.extension.end()) == kind.extension)
        {
            std::ranges::transform(day.Lines(), std::back_inserter(days), &Plain::Tokens);
        }
    }
    std::vector<std::vector<std::wstring>> replacements = days;
    for (const std::wstring& token : AwkwardTokens)
    {
        replacements.emplace_back(MostTokens, token);
    }
    replacements.emplace_back(); // which cuts
    std::set<std::wstring> lines;
    for (const std::vector<std::wstring>& others : replacements)
    {
        for (const std::vector<std::wstring>& tokens : days)
        {
            for (std::size_t i = 0; i < tokens.size(); ++i)
            {
                std::vector<std::wstring> line = tokens;
                i < others.size() ? void(line[i] = others[i]) : line.resize(i);
                if (others == tokens)
                {
                    line[i].insert(0, 1, L'0');
                }
                lines.insert(Joined(line));
            }
        }
    }
    for (std::size_t i = 0; i < days.front().size(); ++i)
    {
        std::vector<std::wstring> line = days.front();
        line[i].assign(LongToken, L'x');
        lines.insert(Joined(line));
    }
    return {lines.begin(), lines.end()};
}

// Lines of a log of any kind, read by its class and by its reference.
class LogReader : private WithCategoryService, public TextReader
{
protected:
    explicit LogReader(bool fromDatabase) : m_bFromDatabase(fromDatabase) {}

private:
    // What the class made of the text, with a log that has just been made, up to its first bad line.
    virtual void Load(CZPTLogBase& log, const std::wstring& extension, std::wstring_view text) = 0;

    // The lines that the class is given of the text.
    virtual Lines LinesOf(std::wstring_view text) const = 0;

    // The lines of each kind, dealt out to texts one by one.
    std::vector<std::wstring> Samples() const override
    {
        std::vector<std::wstring> texts;
        for (std::size_t kind = 0; kind < LogKinds().size(); ++kind)
        {
            const Lines lines = DayLines(LogKinds()[kind]);
            const std::size_t first = texts.size();
            const std::size_t count = lines.size() / LinesOfText + 1;
            texts.resize(first + count, std::wstring(1, static_cast<wchar_t>(FirstKind + kind)));
            for (std::size_t i = 0; i < lines.size(); ++i)
            {
                texts[first + i % count] += lines[i] + (m_bFromDatabase && i % 3 != 0 ? L"\n" : L"\r\n");
            }
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
        text.remove_prefix(1);
        if (kind.type == LogTypeUrlFilter)
        {
            CZPTLogURL().PutRecode(L"||||||first|", CZPTLogBase::AnyLine); // the address goes from one log to the next
        }
        const std::unique_ptr<CZPTLogBase> log = CreateLog(kind.type);
        log->m_bUseDBMgr = m_bFromDatabase;
        log->SetLocalAddress(LocalAddressOf(m_bFromDatabase));
        log->SetInfoDialog(&m_pane);
        const std::vector<ExpectedRecord> expected = ReadLines(*log, kind, text);
        ExpectRecords(*log, expected);
        ExpectOrder(*log, kind, expected);
        ExpectExport(*log, kind.type, expected);
        ShowAll(*log);
        return 1 + 1000 * kind.type +
               (expected.empty() ? 0 : 10 * std::min(expected.size(), MostTold) + expected.back().icon);
    }

    // Reads the text up to its first bad line, and the lines after it one by one: a log goes on with another day, and
    // keeps what a line that it refused has left. Returns the records that the lines should become.
    std::vector<ExpectedRecord> ReadLines(CZPTLogBase& log, const LogKind& kind, std::wstring_view text)
    {
        const LogReference reference = ReferenceOf(kind.type, m_bFromDatabase, m_service.Offered());
        std::vector<ExpectedRecord> expected;
        Load(log, std::wstring(kind.extension), text);
        bool isRead = true;
        for (const std::wstring& line : LinesOf(text))
        {
            const std::optional<ExpectedRecord> record = reference(line);
            if (record)
            {
                expected.push_back(*record);
            }
            if (isRead)
            {
                isRead = record.has_value();
            }
            else
            {
                ExpectSame(log.PutRecode(line, CZPTLogBase::AnyLine), record.has_value(),
                           "whether a line after a bad one is good");
            }
        }
        return expected;
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

    // Each record with itself and with those after it.
    void ExpectOrder(const CZPTLogBase& log, const LogKind& kind, const std::vector<ExpectedRecord>& records) const
    {
        const auto sign = [](int order) { return (order > 0) - (order < 0); };
        for (std::size_t column = 0; column <= static_cast<std::size_t>(kind.lastColumn); ++column)
        {
            std::vector<int> found;
            std::vector<int> expected;
            for (std::size_t pair = 0; pair < MostCompared * records.size(); ++pair)
            {
                const std::size_t first = pair / MostCompared;
                const std::size_t second = std::min(first + pair % MostCompared, records.size() - 1);
                for (const bool isUp : {true, false})
                {
                    const PFNLVCOMPARE compare = isUp ? log.m_pfnCompareUp : log.m_pfnCompareDn;
                    found.push_back(
                        sign(compare(reinterpret_cast<LPARAM>(log.GetLogRecord(first)),
                                     reinterpret_cast<LPARAM>(log.GetLogRecord(second)), static_cast<LPARAM>(column))));
                    expected.push_back(
                        PlainOrder(kind.type, records[first].fields, records[second].fields, column, isUp));
                }
            }
            ExpectSame(found, expected,
                       "the orders of each record, up and down, with itself and those after it by column " +
                           std::to_string(column));
        }
    }

    void ExpectExport(CZPTLogBase& log, std::uint32_t type, const std::vector<ExpectedRecord>& records) const
    {
        for (std::size_t i = 0; i < records.size(); i += 3)
        {
            ExpectSame(log.ExportLine(*log.GetLogRecord(i), false), PlainExport(type, records[i].fields),
                       "the exported line of record " + std::to_string(i));
        }
    }

    // What the page asks for, after all else, since it may complete a record. A record that is shorter than its class
    // expects may say so.
    void ShowAll(CZPTLogBase& log)
    {
        log.SetInfoLabel();
        for (std::size_t i = 0; i < std::min(log.GetLogCount(), MostShown); ++i)
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

    Lines LinesOf(std::wstring_view text) const override { return Plain::Lines(text); }

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

    // A line may have anything in it but the line feed at which the input is cut, and may be empty. Its end stays with
    // it where it has both characters.
    Lines LinesOf(std::wstring_view text) const override
    {
        Lines lines = Pieces(text, L'\n');
        for (std::wstring& line : lines)
        {
            line += line.ends_with(L'\r') ? L"\n" : L"";
        }
        return lines;
    }
};

const Registration<DayFileReader> DayFile({.name = "dayfile",
                                           .reads = "daily files of every kind: records, order of columns, export",
                                           .inputs = 3'500,
                                           .separators = L"|\r\n",
                                           .words = LogWords});

const Registration<ProviderReader> Provider({.name = "provider",
                                             .reads = "records of every kind as the database library answers",
                                             .inputs = 5'500,
                                             .separators = L"|\r\n",
                                             .words = LogWords});

} // namespace
