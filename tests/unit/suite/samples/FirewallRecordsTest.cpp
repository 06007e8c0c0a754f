#include "tests/unit/suite/samples/SampleFiles.h"

#include <algorithm>
#include <numeric>

namespace Samples
{

namespace
{

// All numbers from the first to the last, and one more.
std::set<int> RangeAnd(int first, int last, int more)
{
    std::set<int> numbers = {more};
    for (int number = first; number <= last; ++number)
    {
        numbers.insert(number);
    }
    return numbers;
}

bool HasPorts(const Record& record)
{
    return record[5] == L"6" || record[5] == L"17";
}

bool IsDocumentationAddress(std::wstring_view text)
{
    return text.empty() || text == L"LIP" || text.starts_with(L"192.0.2.") || text.starts_with(L"198.51.100.") ||
           text.starts_with(L"2001:db8::");
}

class FirewallRecordsTest : public SampleMonthTest
{
protected:
    const SampleMonth m_month{L"PFG", GetParam()};
    const std::vector<Record>& m_arrRecord = m_month.Records();
};

} // namespace

TEST_P(FirewallRecordsTest, EveryEventOccursWithEveryDirectionThatMatters)
{
    std::set<std::pair<int, int>> seen;
    for (const Record& record : m_arrRecord)
    {
        seen.insert({Number(record[1]), Number(record[6])});
    }
    const std::set<std::pair<int, int>> expected = {{4, 1}, {4, 2},  {8, 1},  {8, 2},  {5, 0},  {6, 0}, {7, 1},
                                                    {7, 2}, {10, 0}, {15, 0}, {18, 2}, {18, 7}, {3, 0}};
    EXPECT_EQ(seen, expected);
}

TEST_P(FirewallRecordsTest, EveryProtocolDirectionAndReasonOccurs)
{
    EXPECT_EQ(Numbers(m_arrRecord, 5), (std::set{1, 2, 6, 17, 58, 47, 50}));
    EXPECT_EQ(Numbers(m_arrRecord, 3), (std::set{1, 2}));
    const auto reasoned = Where(m_arrRecord, [](const Record& r) { return r[1] == L"10"; });
    EXPECT_EQ(Numbers(reasoned, 2), RangeAnd(1, 10, 11));
}

TEST_P(FirewallRecordsTest, EveryIcmpTypeOccurs)
{
    const auto icmp = Where(m_arrRecord, [](const Record& r) { return r[5] == L"1" && !r[11].empty(); });
    EXPECT_EQ(Numbers(icmp, 11), (std::set{0, 3, 4, 5, 8, 9, 11, 12, 13, 14, 15, 16, 17, 18, 40}));
    const auto icmpv6 = Where(m_arrRecord, [](const Record& r) { return r[5] == L"58" && !r[11].empty(); });
    EXPECT_EQ(Numbers(icmpv6, 11), RangeAnd(128, 153, 200));
}

TEST_P(FirewallRecordsTest, PortsStandWithTcpAndUdpAloneAndAreInRange)
{
    for (const Record& record : m_arrRecord)
    {
        for (const std::wstring_view port : {record[8], record[10]})
        {
            EXPECT_EQ(port.empty(), !HasPorts(record));
            EXPECT_TRUE(port.empty() || (Number(port) > 0 && Number(port) < 65536));
        }
    }
}

TEST_P(FirewallRecordsTest, AddressesAreThoseOfDocumentation)
{
    const std::set<std::wstring> local = Values(m_arrRecord, 7);
    const std::set<std::wstring> remote = Values(m_arrRecord, 9);
    EXPECT_TRUE(std::ranges::all_of(local, IsDocumentationAddress));
    EXPECT_TRUE(std::ranges::all_of(remote, IsDocumentationAddress));
    EXPECT_EQ(local, (std::set<std::wstring>{L"LIP", L"", L"192.0.2.10", L"2001:db8::10"}));
    EXPECT_TRUE(remote.contains(L""));
    EXPECT_FALSE(remote.contains(L"LIP"));
}

TEST_P(FirewallRecordsTest, TextsAreThereAndMissing)
{
    for (const std::size_t token : {12, 13, 14, 15})
    {
        const std::set<std::wstring> texts = Values(m_arrRecord, token);
        EXPECT_TRUE(texts.contains(L"")) << token;
        EXPECT_GE(texts.size(), 3u) << token;
    }
    EXPECT_TRUE(Values(m_arrRecord, 13).contains(L"System"));
    for (const Record& record : m_arrRecord)
    {
        EXPECT_EQ(record[12].empty(), record[1] != L"15");
    }
}

EACH_SEED(FirewallRecordsTest);

} // namespace Samples
