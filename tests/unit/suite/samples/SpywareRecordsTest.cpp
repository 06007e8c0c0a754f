#include "tests/unit/suite/samples/SampleFiles.h"

#include <algorithm>

namespace Samples
{

namespace
{

constexpr int Behavior = 0x10000000;

int SourceOf(const Record& record)
{
    return Number(record[2]);
}

bool IsProxy(const Record& record)
{
    return SourceOf(record) <= 3;
}

bool IsBehavior(const Record& record)
{
    return SourceOf(record) == Behavior;
}

bool IsScan(const Record& record)
{
    return !IsProxy(record) && !IsBehavior(record);
}

class SpywareRecordsTest : public SampleMonthTest
{
protected:
    const SampleMonth m_month{L"SPG", GetParam()};
    const std::vector<Record>& m_arrRecord = m_month.Records();
    std::vector<Record> m_arrProxy = Where(m_arrRecord, IsProxy);
    std::vector<Record> m_arrBehavior = Where(m_arrRecord, IsBehavior);
    std::vector<Record> m_arrScan = Where(m_arrRecord, IsScan);
};

} // namespace

TEST_P(SpywareRecordsTest, EverySourceOccursAndTheLargeOnesInBothSpellings)
{
    EXPECT_EQ(Values(m_arrRecord, 2),
              (std::set<std::wstring>{L"1", L"2", L"3", L"0x10000000", L"268435456", L"0x100000", L"1048576",
                                      L"0x100001", L"1048577", L"0x100002", L"1048578", L"0x100003", L"1048579"}));
}

TEST_P(SpywareRecordsTest, ScanRecordsHaveEveryResultAndSomeHaveNoThreatType)
{
    EXPECT_EQ(Numbers(m_arrScan, 12), (std::set{1, 2, 3, 5}));
    EXPECT_TRUE(std::ranges::any_of(m_arrScan, [](const Record& r) { return r[10] == L"UNKNOWN" && r[13].empty(); }));
}

TEST_P(SpywareRecordsTest, ScanRecordsEndWithTokenFourteenExceptAtTheEndOfAFewDays)
{
    int openEnds = 0;
    for (const SampleDay& day : m_month.Days())
    {
        for (const Record& record : Where(day.records, IsScan))
        {
            const bool open = record.size() == 14;
            EXPECT_TRUE(record.size() == 15 || (open && record == day.records.back())) << day.name;
            openEnds += open;
        }
    }
    EXPECT_GE(openEnds, 1);
    EXPECT_LE(openEnds, 3);
}

TEST_P(SpywareRecordsTest, BehaviorRecordsReachTokenFifteenWithAText)
{
    for (const Record& record : m_arrBehavior)
    {
        ASSERT_EQ(record.size(), 16u);
        EXPECT_FALSE(record[15].empty());
    }
}

TEST_P(SpywareRecordsTest, BehaviorRecordsHaveEveryKindTargetAndResult)
{
    EXPECT_EQ(Numbers(m_arrBehavior, 4), (std::set{1, 2, 4, 8, 16, 32, 64, 128}));
    EXPECT_EQ(Numbers(m_arrBehavior, 9), (std::set{0, 1, 2, 3}));
    EXPECT_EQ(Numbers(m_arrBehavior, 12), (std::set{1, 2, 4, 0}));
    const auto named = [](const Record& r) { return r[9] == L"1" && !r[11].empty(); };
    const auto unnamed = [](const Record& r) { return r[9] == L"1" && r[11].empty(); };
    EXPECT_TRUE(std::ranges::any_of(m_arrBehavior, named));
    EXPECT_TRUE(std::ranges::any_of(m_arrBehavior, unnamed));
}

TEST_P(SpywareRecordsTest, ProxyRecordsHaveEveryActionWithBothResults)
{
    std::set<std::pair<int, int>> seen;
    for (const Record& record : m_arrProxy)
    {
        seen.insert({Number(record[7]), Number(record[8])});
    }
    const std::set<std::pair<int, int>> expected = {{0, 0}, {3, 0},   {3, 1},   {4, 0},   {4, 1},
                                                    {9, 0}, {101, 0}, {101, 1}, {201, 0}, {201, 1}};
    EXPECT_EQ(seen, expected);
}

// The reader keeps the detail of the line before for a proxy record that has none, so only a detail that is empty
// may come before such a record.
TEST_P(SpywareRecordsTest, ProxyRecordsShowNoDetailOfAnotherRecord)
{
    std::set<std::size_t> sizes;
    for (const SampleDay& day : m_month.Days())
    {
        std::wstring_view kept = L"of another file";
        for (const Record& record : day.records)
        {
            const std::size_t last = IsProxy(record) ? 9 : IsBehavior(record) ? 15 : 14;
            kept = record.size() > last ? record[last] : kept;
            if (IsProxy(record))
            {
                sizes.insert(record.size());
                EXPECT_EQ(kept, L"") << day.name;
            }
        }
    }
    EXPECT_EQ(sizes, (std::set<std::size_t>{9, 10}));
}

TEST_P(SpywareRecordsTest, SomeScanRecordsHaveTheWholePathForAFolder)
{
    const auto whole = Where(m_arrScan, [](const Record& r) { return r[6].ends_with(L"\\" + std::wstring(r[5])); });
    EXPECT_FALSE(whole.empty());
    EXPECT_LT(2 * whole.size(), m_arrScan.size());
}

EACH_SEED(SpywareRecordsTest);

} // namespace Samples
