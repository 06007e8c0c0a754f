// Which records a search wants, and the way that it takes through the rows.

#include "framework/ui/kestrix/app/page/RecordSearch.h"

#include "framework/ui/kestrix/app/LogFactory.h"
#include "framework/ui/kestrix/logs/ZPTLogBase.h"
#include "platform/dialog/FindTextDialog.h"
#include "tests/support/LogFixture.h"
#include "tests/support/PlainLog.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace
{

// A log with a record of the database.
template <class Log>
bool IsInLine(Log& log, std::wstring_view line, FindRequest request)
{
    return log.PutRecode(line, CZPTLogBase::AnyLine) &&
           CRecordSearch(log, request).IsIn(log.GetLogRecord(log.GetLogCount() - 1));
}

class RecordSearchTest : public ::testing::Test
{
protected:
    bool Has(std::wstring_view line, std::wstring text) { return IsInLine(m_log, line, {.text = std::move(text)}); }

    const LanguageFile m_language;
    PlainLog m_log{3};
};

struct Way
{
    std::vector<int> rows; // in the order in which they are asked
    FoundRow found;
};

// The way through so many rows, none of which or one of which is wanted.
Way WayOf(int count, int from, bool down, int wanted = FoundRow::None)
{
    Way way;
    way.found = FindRow(count, from, down,
                        [&](int row)
                        {
                            way.rows.push_back(row);
                            return row == wanted;
                        });
    return way;
}

using Rows = std::vector<int>;

} // namespace

TEST_F(RecordSearchTest, ATextIsFoundInEveryColumn)
{
    EXPECT_TRUE(Has(L"08:15|Blocked|Worm.Saltpan", L"8:1"));
    EXPECT_TRUE(Has(L"08:15|Blocked|Worm.Saltpan", L"blocked"));
    EXPECT_TRUE(Has(L"08:15|Blocked|Worm.Saltpan", L"SALT"));
    EXPECT_FALSE(Has(L"08:15|Blocked|Worm.Saltpan", L"pepper"));
}

TEST_F(RecordSearchTest, AFieldThatIsNotShownIsNotSearched)
{
    EXPECT_FALSE(Has(L"08:15|Blocked|Worm.Saltpan|hidden", L"hidden"));
}

TEST_F(RecordSearchTest, ATextIsNotFoundAcrossTwoColumns)
{
    EXPECT_FALSE(Has(L"08:15|Blocked|Worm.Saltpan", L"15Blocked"));
}

TEST_F(RecordSearchTest, ATextLongerThanTheRecordIsNotFound)
{
    EXPECT_FALSE(Has(L"a|b|c", std::wstring(255, L'a')));
}

// The list shows the two ends of a text of more than 255 characters.
TEST_F(RecordSearchTest, ATextIsFoundWhereTheListAndThePaneCutIt)
{
    const std::wstring middle = std::wstring(200, L'a') + L"needle" + std::wstring(200, L'b');
    EXPECT_TRUE(Has(L"08:15|" + middle + L"|x", L"needle"));
}

TEST_F(RecordSearchTest, CaseAndWholeWordsCountWhenTheyAreTo)
{
    EXPECT_TRUE(IsInLine(m_log, L"a|Worms|c", {.text = L"worm"}));
    EXPECT_FALSE(IsInLine(m_log, L"a|Worms|c", {.text = L"worm", .matchCase = true}));
    EXPECT_FALSE(IsInLine(m_log, L"a|Worms|c", {.text = L"worm", .wholeWords = true}));
    EXPECT_TRUE(IsInLine(m_log, L"a|Worms|worm", {.text = L"worm", .matchCase = true, .wholeWords = true}));
}

TEST_F(RecordSearchTest, NoRecordHasTheEmptyTextAndNullHasNone)
{
    EXPECT_FALSE(Has(L"a|b|c", L""));
    EXPECT_FALSE(CRecordSearch(m_log, {.text = L"a"}).IsIn(nullptr));
}

TEST_F(RecordSearchTest, ARecordThatIsTooShortForItsColumnsIsNotWanted)
{
    const auto log = CreateLog(LogTypeVirus);
    const LogRec record(std::pmr::new_delete_resource());
    EXPECT_FALSE(CRecordSearch(*log, {.text = L"a"}).IsIn(&record));
}

TEST(FindRow, GoesDownFromTheNeighbourRoundTheEndToTheRowItself)
{
    EXPECT_EQ(WayOf(5, 2, true).rows, (Rows{3, 4, 0, 1, 2}));
    EXPECT_EQ(WayOf(5, 4, true).rows, (Rows{0, 1, 2, 3, 4}));
    EXPECT_EQ(WayOf(5, 0, true).rows, (Rows{1, 2, 3, 4, 0}));
}

TEST(FindRow, GoesUpFromTheNeighbourRoundTheEndToTheRowItself)
{
    EXPECT_EQ(WayOf(5, 2, false).rows, (Rows{1, 0, 4, 3, 2}));
    EXPECT_EQ(WayOf(5, 0, false).rows, (Rows{4, 3, 2, 1, 0}));
    EXPECT_EQ(WayOf(5, 4, false).rows, (Rows{3, 2, 1, 0, 4}));
}

TEST(FindRow, WithoutARowGoesFromTheBeginningToTheEndOnce)
{
    EXPECT_EQ(WayOf(3, FoundRow::None, true).rows, (Rows{0, 1, 2}));
    EXPECT_EQ(WayOf(3, FoundRow::None, false).rows, (Rows{2, 1, 0}));
}

TEST(FindRow, AnEmptyListAsksForNoRow)
{
    for (const bool down : {true, false})
    {
        const Way way = WayOf(0, FoundRow::None, down);
        EXPECT_EQ(way.rows, Rows());
        EXPECT_EQ(way.found.row, FoundRow::None);
    }
}

TEST(FindRow, TheOnlyRowIsAskedWhetherItIsTheFirstOrTheOneToGoOnFrom)
{
    for (const bool down : {true, false})
    {
        EXPECT_EQ(WayOf(1, FoundRow::None, down).rows, Rows{0});
        EXPECT_EQ(WayOf(1, 0, down).rows, Rows{0});
    }
}

TEST(FindRow, StopsAtTheWantedRowAndTellsWhetherItWentRoundTheEnd)
{
    const struct
    {
        int from;
        bool down;
        int wanted;
        bool wentRound;
    } ways[] = {
        {2, true, 4, false},  {2, true, 1, true},  {2, true, 2, true},
        {2, false, 0, false}, {2, false, 3, true}, {FoundRow::None, true, 4, false},
    };

    for (const auto& expected : ways)
    {
        const Way way = WayOf(5, expected.from, expected.down, expected.wanted);
        EXPECT_EQ(way.found.row, expected.wanted);
        EXPECT_EQ(way.rows.back(), expected.wanted);
        EXPECT_EQ(way.found.wentRound, expected.wentRound) << expected.wanted;
    }
}
