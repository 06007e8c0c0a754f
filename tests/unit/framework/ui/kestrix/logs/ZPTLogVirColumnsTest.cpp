// What the virus log shows in the list's columns, how it sorts by them, and its labels in the export file.

#include "framework/ui/kestrix/logs/ZPTLogVir.h"
#include "tests/support/LogFixture.h"
#include "tests/support/TraceRecorder.h"

#include <gtest/gtest.h>

#include <stdexcept>
#include <string>
#include <vector>

namespace
{

class ZPTLogVirColumnsTest : public LogFixture<CZPTLogVir>
{
protected:
    // A record with these actions and results.
    const LogRec& PutActions(std::wstring_view actions)
    {
        return Put(L"x|103015|1048576|x|0|0|name|path|" + std::wstring(actions) + L"|detail");
    }
};

} // namespace

TEST_F(ZPTLogVirColumnsTest, GetColumnTextShowsTimeOutcomeAndNameAndLeavesOtherColumns)
{
    const LogRec& record = PutActions(L"4|1|0|0");
    EXPECT_EQ(Cell(record, 0), L"10:30");
    EXPECT_EQ(Cell(record, 1), Text(800));
    EXPECT_EQ(Cell(record, 2), L"name");
    EXPECT_EQ(Cell(record, 3), L"before");
    EXPECT_EQ(Cell(record, -1), L"before");
}

TEST_F(ZPTLogVirColumnsTest, ARecordShorterThanItsColumnsIsTheVectorsOutOfRangeError)
{
    const LogRec record(std::pmr::new_delete_resource());
    std::wstring text;
    EXPECT_THROW(m_log.GetColumnText(&record, text, 0), std::out_of_range);
    EXPECT_THROW(m_log.GetColumnText(&record, text, 1), std::out_of_range);
}

// A failed quarantine that was followed by a renaming, and a failed renaming: field 5 orders the two one way, what the
// column shows the other.
TEST_F(ZPTLogVirColumnsTest, TheComparePairComparesWhatTheColumnsShow)
{
    const auto order = [](UINT first, UINT second) { return Text(first).compare(Text(second)) > 0; };
    ASSERT_NE(order(805, 803), order(802, 803)) << "with these texts the test says nothing";
    const LogRec& renamedAfterAll = PutActions(L"2|0|1|1");
    const LogRec& notRenamed = PutActions(L"1|0|0|0");
    EXPECT_EQ(CompareUp(renamedAfterAll, notRenamed, 1) > 0, order(802, 803));
    EXPECT_EQ(CompareDown(renamedAfterAll, notRenamed, 1) < 0, order(802, 803));
}

TEST_F(ZPTLogVirColumnsTest, TheComparePairChoosesBetweenTheOutcomesForEachRecordByItself)
{
    const LogRec& failedThenRenamed = PutActions(L"2|0|1|1");
    const LogRec& renamed = PutActions(L"1|1|0|0");
    EXPECT_EQ(CompareUp(failedThenRenamed, renamed, 1), 0);
    EXPECT_EQ(CompareDown(renamed, failedThenRenamed, 1), 0);
}

TEST_F(ZPTLogVirColumnsTest, TheComparePairOrdersByTimeNameAndAnyOtherFieldByCodeUnits)
{
    const LogRec& early = Put(L"x|0900|1048576|x|0|0|Zeta|b|1|1|0|0|d");
    const LogRec& late = Put(L"x|1030|1048576|x|0|0|alpha|a|1|1|0|0|d");
    EXPECT_TRUE(IsBefore(early, late, 0));
    EXPECT_TRUE(IsBefore(early, late, 2)) << "capital letters come first";
    EXPECT_TRUE(IsBefore(late, early, 4));
    EXPECT_EQ(CompareUp(early, late, 7), 0);
}

TEST_F(ZPTLogVirColumnsTest, TheComparePairTakesRecordsTooShortForTheColumnForEqual)
{
    const LogRec& record = PutActions(L"1|1|0|0");
    const LogRec empty(std::pmr::new_delete_resource());
    for (const int column : {0, 1, 2, 5})
    {
        EXPECT_EQ(CompareUp(record, empty, column), 0) << column;
        EXPECT_EQ(CompareDown(empty, record, column), 0) << column;
    }
    EXPECT_EQ(CompareUp(record, record, 8), 0);
    EXPECT_EQ(CompareUp(record, record, -1), 0);
}

// The result and the threat are not compared by the field of their column's number, and records that lack the field are
// not compared at all.
TEST_F(ZPTLogVirColumnsTest, OnlyTheCompareOfTwoFieldsOfTheColumnsNumberTracesItsEnd)
{
    const LogRec& record = PutActions(L"1|1|0|0");
    const LogRec empty(std::pmr::new_delete_resource());

    struct
    {
        const LogRec& first;
        const LogRec& second;
        int column;
        bool endIsTraced;
    } const cases[] = {
        {record, record, 0, true}, {record, record, 1, false}, {record, record, 2, false},
        {record, record, 3, true}, {record, record, 7, true},  {record, record, 8, false},
        {record, empty, 0, false}, {empty, record, 0, false},  {empty, record, 1, false},
    };

    TraceRecorder trace;
    for (const auto& each : cases)
    {
        std::vector<std::wstring> up = {L"[Enter]CALLBACK CZPTLogVir::CompareFuncUp()..."};
        std::vector<std::wstring> down = {L"[Enter]CALLBACK CZPTLogVir::CompareFuncDn()..."};
        if (each.endIsTraced)
        {
            up.push_back(L"[Leave]CALLBACK CZPTLogVir::CompareFuncUp()...");
            down.push_back(L"[Leave]CALLBACK CZPTLogVir::CompareFuncDn()...");
        }
        trace.Clear();
        CompareUp(each.first, each.second, each.column);
        EXPECT_EQ(trace.Texts(), up) << each.column;
        trace.Clear();
        CompareDown(each.first, each.second, each.column);
        EXPECT_EQ(trace.Texts(), down) << each.column;
    }
}

TEST_F(ZPTLogVirColumnsTest, TheExportHasALabelForEachOfFields0To7)
{
    std::wstring expected;
    for (const UINT label : {432, 183, 194, 81, 577, 141, 142})
    {
        expected += L"\"" + Text(label) + L"\"\t";
    }
    std::wstring detail = Text(89);
    ASSERT_NE(detail.find(L':'), detail.npos) << "nothing to remove, so the test would say nothing";
    std::erase(detail, L':');
    EXPECT_EQ(LabelLine(), expected + L"\"" + detail + L"\"\r\n");
}
