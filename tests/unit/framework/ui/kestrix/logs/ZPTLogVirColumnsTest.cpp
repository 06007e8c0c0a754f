// What the virus log shows in the list's columns, how it sorts by them, and its labels in the export file.

#include "framework/ui/kestrix/logs/ExportStream.h"
#include "framework/ui/kestrix/logs/ZPTLogVir.h"
#include "tests/support/LanguageFile.h"
#include "tests/support/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <stdexcept>
#include <string>

namespace
{

int Compare(PFNLVCOMPARE compare, const LogRec& first, const LogRec& second, int column)
{
    return compare(reinterpret_cast<LPARAM>(&first), reinterpret_cast<LPARAM>(&second), column);
}

class ZPTLogVirColumnsTest : public ::testing::Test
{
protected:
    const LogRec& PutLine(std::wstring_view line)
    {
        if (!m_log.PutRecode(line, CZPTLogBase::AnyLine))
        {
            throw std::runtime_error("the line was refused");
        }
        return *m_log.GetLogRecord(m_log.GetLogCount() - 1);
    }

    // A record with these actions and results.
    const LogRec& Put(std::wstring_view actions)
    {
        return PutLine(L"x|103015|1048576|x|0|0|name|path|" + std::wstring(actions) + L"|detail");
    }

    std::wstring ColumnText(const LogRec& record, int column, std::wstring before = L"before") const
    {
        m_log.GetColumnText(&record, before, column);
        return before;
    }

    const LanguageFile m_language;
    CZPTLogVir m_log;
};

} // namespace

TEST_F(ZPTLogVirColumnsTest, GetColumnTextShowsTimeOutcomeAndNameAndLeavesOtherColumns)
{
    const LogRec& record = Put(L"4|1|0|0");
    EXPECT_EQ(ColumnText(record, 0), L"10:30");
    EXPECT_EQ(ColumnText(record, 1), Text(800));
    EXPECT_EQ(ColumnText(record, 2), L"name");
    EXPECT_EQ(ColumnText(record, 3), L"before");
    EXPECT_EQ(ColumnText(record, -1), L"before");
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
    const LogRec& renamedAfterAll = Put(L"2|0|1|1");
    const LogRec& notRenamed = Put(L"1|0|0|0");
    EXPECT_EQ(Compare(m_log.m_pfnCompareUp, renamedAfterAll, notRenamed, 1) > 0, order(802, 803));
    EXPECT_EQ(Compare(m_log.m_pfnCompareDn, renamedAfterAll, notRenamed, 1) < 0, order(802, 803));
}

TEST_F(ZPTLogVirColumnsTest, TheComparePairChoosesBetweenTheOutcomesForEachRecordByItself)
{
    const LogRec& failedThenRenamed = Put(L"2|0|1|1");
    const LogRec& renamed = Put(L"1|1|0|0");
    EXPECT_EQ(Compare(m_log.m_pfnCompareUp, failedThenRenamed, renamed, 1), 0);
    EXPECT_EQ(Compare(m_log.m_pfnCompareDn, renamed, failedThenRenamed, 1), 0);
}

TEST_F(ZPTLogVirColumnsTest, TheComparePairOrdersByTimeNameAndAnyOtherFieldByCodeUnits)
{
    const LogRec& early = PutLine(L"x|0900|1048576|x|0|0|Zeta|b|1|1|0|0|d");
    const LogRec& late = PutLine(L"x|1030|1048576|x|0|0|alpha|a|1|1|0|0|d");
    EXPECT_LT(Compare(m_log.m_pfnCompareUp, early, late, 0), 0);
    EXPECT_GT(Compare(m_log.m_pfnCompareDn, early, late, 0), 0);
    EXPECT_LT(Compare(m_log.m_pfnCompareUp, early, late, 2), 0) << "capital letters come first";
    EXPECT_GT(Compare(m_log.m_pfnCompareDn, early, late, 2), 0);
    EXPECT_GT(Compare(m_log.m_pfnCompareUp, early, late, 4), 0);
    EXPECT_EQ(Compare(m_log.m_pfnCompareUp, early, late, 7), 0);
}

TEST_F(ZPTLogVirColumnsTest, TheComparePairTakesRecordsTooShortForTheColumnForEqual)
{
    const LogRec& record = Put(L"1|1|0|0");
    const LogRec empty(std::pmr::new_delete_resource());
    for (const int column : {0, 1, 2, 5})
    {
        EXPECT_EQ(Compare(m_log.m_pfnCompareUp, record, empty, column), 0) << column;
        EXPECT_EQ(Compare(m_log.m_pfnCompareDn, empty, record, column), 0) << column;
    }
    EXPECT_EQ(Compare(m_log.m_pfnCompareUp, record, record, 8), 0);
    EXPECT_EQ(Compare(m_log.m_pfnCompareUp, record, record, -1), 0);
}

TEST_F(ZPTLogVirColumnsTest, TheExportHasALabelForEachOfFields0To7)
{
    const TemporaryFolder folder;
    const std::wstring path = folder.File(L"labels.txt");
    ExportStream stream;
    ASSERT_TRUE(stream.Open(path) && m_log.WriteExportHeader(stream) && stream.Flush());
    stream.Close();

    std::wstring expected;
    for (const UINT label : {432, 183, 194, 81, 577, 141, 142})
    {
        expected += L"\"" + Text(label) + L"\"\t";
    }
    std::wstring detail = Text(89);
    ASSERT_NE(detail.find(L':'), detail.npos) << "nothing to remove, so the test would say nothing";
    std::erase(detail, L':');
    EXPECT_EQ(ReadUtf16(path), expected + L"\"" + detail + L"\"\r\n");
}
