// The made-up records as the logs read them: what the sample program writes, to files and to the database, is what a
// log takes and a person can read.

#include "framework/ui/kestrix/app/LogFactory.h"
#include "framework/ui/kestrix/logs/ZPTLogBase.h"
#include "platform/dialog/ResourceText.h"
#include "suite/database/LogLine.h"
#include "suite/samples/Month.h"
#include "tests/support/CategoryService.h"
#include "tests/support/InfoPaneDouble.h"
#include "tests/support/LanguageFile.h"

#include <gtest/gtest.h>

#include <map>
#include <set>

namespace
{

constexpr unsigned Days = 30;
constexpr std::uint64_t Seed = 1;
constexpr Samples::Date End = std::chrono::sys_days(std::chrono::year(2026) / std::chrono::March / 7);

// The share of the rows of a column whose cell may be empty, since the logs have no text for a code of the samples or
// the record has no such field. All other columns have a text in every row.
struct EmptyCells
{
    std::wstring_view extension;
    int column;
    double most;
};

constexpr EmptyCells MayBeEmpty[] = {
    {L"VLG", 1, 0.1},  // the result of an action without a name
    {L"SPG", 1, 0.1},  // the same, and that of a scan
    {L"UPG", 1, 0.02}, // a kind of result without a name
    {L"UPG", 2, 0.15}, // an event without a name, and one that gives its place to an error without a text
    {L"UFG", 2, 0.1},  // a reason without a name
    {L"PTG", 1, 0.15}, // a result without a name
    {L"STC", 1, 0.1},  // a step without a name
};

// A range of numbers of texts that codes and empty tokens of a kind stand for.
struct FieldTexts
{
    std::wstring_view extension;
    UINT first;
    UINT last;
};

constexpr FieldTexts TextsOfCodes[] = {
    {L"VLG", 144, 153},   {L"VLG", 30, 30},   {L"VLG", 317, 317}, {L"VLG", 800, 809}, {L"SPG", 299, 311},
    {L"SPG", 182, 182},   {L"SPG", 316, 317}, {L"SPG", 144, 149}, {L"SPG", 152, 153}, {L"SPG", 800, 801},
    {L"SPG", 806, 813},   {L"UPG", 622, 708}, {L"UPG", 211, 214}, {L"UPG", 171, 171}, {L"UPG", 175, 175},
    {L"UPG", 819, 822},   {L"UPG", 763, 763}, {L"UPG", 406, 406}, {L"UPG", 408, 408}, {L"UPG", 760, 762},
    {L"UPG", 750, 757},   {L"UPG", 772, 772}, {L"PFG", 490, 516}, {L"PFG", 518, 540}, {L"PFG", 342, 343},
    {L"PFG", 338, 338},   {L"PFG", 345, 345}, {L"PFG", 357, 360}, {L"PFG", 363, 366}, {L"PFG", 370, 371},
    {L"PFG", 176, 176},   {L"PFG", 489, 489}, {L"HLG", 50, 50},   {L"HLG", 58, 59},   {L"HLG", 341, 341},
    {L"HLG", 1319, 1321}, {L"UFG", 422, 423}, {L"UFG", 339, 340}, {L"PTG", 379, 380}, {L"PPG", 436, 437},
    {L"VAG", 328, 328},   {L"VAG", 331, 337}, {L"VAG", 347, 350}, {L"VAG", 361, 362}, {L"SCG", 299, 299},
    {L"SCG", 568, 573},   {L"SCG", 300, 303}, {L"SCG", 103, 103}, {L"SCG", 767, 768}, {L"STC", 104, 125},
    {L"STC", 156, 156},   {L"STC", 170, 170}, {L"SCI", 93, 97},   {L"SKP", 221, 226},
};

// What a log keeps to itself and its classes.
struct OpenLog : CZPTLogBase
{
    using CZPTLogBase::m_arrColumn;
};

// What became of a month of one kind.
struct Month
{
    explicit Month(const LogKind& kind)
    {
        for (const FieldTexts& range : TextsOfCodes)
        {
            for (UINT text = range.first; range.extension == kind.extension && text <= range.last; ++text)
            {
                missingTexts.insert(LoadText(text));
            }
        }
    }

    void Add(const CZPTLogBase& log)
    {
        const int columns = static_cast<int>((log.*&OpenLog::m_arrColumn).size());
        for (std::size_t i = 0; i < log.GetLogCount(); ++i)
        {
            ++rows;
            const LogRec& record = *log.GetLogRecord(i);
            for (const std::wstring_view field : record.strData)
            {
                if (const auto found = missingTexts.find(field); found != missingTexts.end())
                {
                    missingTexts.erase(found);
                }
            }
            for (int column = 0; column < columns; ++column)
            {
                emptyCells[column] += CellOf(log, record, column).empty() ? 1 : 0;
            }
        }
    }

    static std::wstring CellOf(const CZPTLogBase& log, const LogRec& record, int column)
    {
        std::wstring text;
        try
        {
            log.GetColumnText(&record, text, column);
        }
        catch (const std::out_of_range&)
        {
            text.clear(); // so it shows
        }
        return text;
    }

    std::size_t rows = 0;
    std::map<int, std::size_t> emptyCells; // by column
    std::set<std::wstring, std::less<>> missingTexts;
};

class SampleMonthTest : private WithCategoryService, public ::testing::TestWithParam<bool>
{
protected:
    // A month of the kind, each day in a log of its own as a daily file has it.
    Month MonthOf(const LogKind& kind)
    {
        const Samples::Kind* const samples[] = {Samples::FindKind(kind.extension)};
        Month month(kind);
        const auto put = [&](const Samples::Kind&, Samples::Date, std::span<const std::wstring> lines)
        {
            const std::unique_ptr<CZPTLogBase> log = CreateLog(kind.type);
            log->m_bUseDBMgr = GetParam();
            log->SetInfoDialog(&m_pane);
            for (const std::wstring& line : lines)
            {
                EXPECT_TRUE(log->PutRecode(GetParam() ? EventLog::DatabaseForm(kind.querySubType, line) : line,
                                           CZPTLogBase::AnyLine))
                    << line;
            }
            month.Add(*log);
            log->SetInfoDialog(nullptr);
        };
        Samples::MakeMonth(samples, End, Days, Seed, put);
        return month;
    }

    // The share of empty cells that a column may have.
    static double MostEmpty(const LogKind& kind, int column)
    {
        for (const EmptyCells& row : MayBeEmpty)
        {
            if (row.extension == kind.extension && row.column == column)
            {
                return row.most;
            }
        }
        return 0;
    }

    const LanguageFile m_language;
    InfoPaneDouble m_pane;
};

} // namespace

TEST_P(SampleMonthTest, EveryLineIsARecordWithTheTextsOfItsRowAndEveryTextComesUp)
{
    for (const LogKind& kind : LogKinds())
    {
        SCOPED_TRACE(std::wstring(kind.extension));
        const Month month = MonthOf(kind);
        EXPECT_GT(month.rows, 0u);
        for (const auto& [column, empty] : month.emptyCells)
        {
            const double share = static_cast<double>(empty) / static_cast<double>(month.rows);
            EXPECT_LE(share, MostEmpty(kind, column)) << "column " << column;
            EXPECT_TRUE(MostEmpty(kind, column) == 0 || empty > 0) << "column " << column << " has all its texts";
        }
        EXPECT_EQ(month.missingTexts, (std::set<std::wstring, std::less<>>()));
    }
}

INSTANTIATE_TEST_SUITE_P(Forms, SampleMonthTest, ::testing::Values(false, true),
                         [](const auto& info) { return info.param ? "OfTheDatabase" : "OfFiles"; });
