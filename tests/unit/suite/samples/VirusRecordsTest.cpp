#include "tests/unit/suite/samples/SampleFiles.h"

#include <algorithm>
#include <tuple>

namespace Samples
{

namespace
{

class VirusRecordsTest : public SampleMonthTest
{
protected:
    const SampleMonth m_month{L"VLG", GetParam()};
    const std::vector<Record>& m_arrRecord = m_month.Records();
    std::vector<Record> m_arrProxy = Where(m_arrRecord, [](const Record& r) { return Number(r[2]) <= 3; });
    std::vector<Record> m_arrScan = Where(m_arrRecord, [](const Record& r) { return Number(r[2]) > 3; });
};

bool IsVirusProxy(const Record& record)
{
    return Number(record[2]) <= 3;
}

// The token of the first action, after which its result and the same of the second one stand.
std::size_t FirstAction(const Record& record)
{
    return IsVirusProxy(record) ? 7 : 8;
}

bool Holds(const std::vector<Record>& records, std::size_t token, wchar_t first, wchar_t last)
{
    return std::ranges::any_of(
        records, [&](const Record& r)
        { return std::ranges::any_of(r[token], [&](wchar_t c) { return c >= first && c <= last; }); });
}

} // namespace

TEST_P(VirusRecordsTest, EverySourceOccursWithTheFormItSelects)
{
    EXPECT_EQ(Numbers(m_arrProxy, 2), (std::set{1, 2, 3}));
    EXPECT_EQ(Numbers(m_arrScan, 2), (std::set{0x100000, 0x100001, 0x100002, 0x100003}));
    for (const Record& record : m_arrProxy)
    {
        EXPECT_TRUE(record.size() == 11 || record.size() == 12) << record.size();
    }
    for (const Record& record : m_arrScan)
    {
        EXPECT_TRUE(record.size() == 12 || record.size() == 13) << record.size();
    }
}

TEST_P(VirusRecordsTest, EveryKindOfObjectOccurs)
{
    EXPECT_EQ(Numbers(m_arrScan, 5), (std::set{0, 1, 2, 4}));
}

TEST_P(VirusRecordsTest, EveryActionOccursAsTheFirstOneWithBothResults)
{
    std::set<std::pair<int, int>> seen;
    for (const Record& record : m_arrRecord)
    {
        seen.insert({Number(record[FirstAction(record)]), Number(record[FirstAction(record) + 1])});
    }
    const std::set<std::pair<int, int>> expected = {{0, 0}, {1, 0}, {1, 1},  {2, 0},  {2, 1},   {3, 0},   {3, 1},
                                                    {4, 0}, {4, 1}, {25, 1}, {99, 0}, {101, 0}, {101, 1}, {7, 0}};
    EXPECT_EQ(seen, expected);
}

TEST_P(VirusRecordsTest, EveryActionOccursAsTheSecondOneWithBothResults)
{
    std::set<std::pair<int, int>> seen;
    for (const Record& record : m_arrRecord)
    {
        const std::size_t first = FirstAction(record);
        if ((record[first] == L"2" || record[first] == L"3") && record[first + 1] != L"1")
        {
            seen.insert({Number(record[first + 2]), Number(record[first + 3])});
        }
    }
    const std::set<std::pair<int, int>> expected = {{0, 0}, {1, 0}, {1, 1},   {2, 0},   {2, 1},
                                                    {4, 0}, {4, 1}, {101, 0}, {101, 1}, {3, 0}};
    EXPECT_EQ(seen, expected);
}

TEST_P(VirusRecordsTest, SomeThreatsHaveNoName)
{
    EXPECT_TRUE(Values(m_arrScan, 6).contains(L"UNKNOWN") || Values(m_arrProxy, 4).contains(L"UNKNOWN"));
}

TEST_P(VirusRecordsTest, MailAndWebTextsAreEscaped)
{
    bool bar = false;
    bool percent = false;
    for (const Record& record : m_arrProxy)
    {
        for (const std::wstring_view token : {record[5], record[6]})
        {
            const std::wstring plain = Unescape(token);
            EXPECT_EQ(Escape(plain), token);
            bar = bar || plain.find(L'|') != std::wstring::npos;
            percent = percent || plain.find(L'%') != std::wstring::npos;
        }
    }
    EXPECT_TRUE(bar);
    EXPECT_TRUE(percent);
}

TEST_P(VirusRecordsTest, PathsAreLongShortAndInSeveralScripts)
{
    const auto longest = std::ranges::max_element(m_arrScan, {}, [](const Record& r) { return r[7].size(); });
    EXPECT_GT((*longest)[7].size(), 255u);
    EXPECT_TRUE(Holds(m_arrScan, 7, L'а', L'я')) << "Cyrillic";
    EXPECT_TRUE(Holds(m_arrScan, 7, L'α', L'ω')) << "Greek";
    EXPECT_TRUE(Holds(m_arrScan, 7, L'ぁ', L'ヶ')) << "Japanese";
    EXPECT_TRUE(Holds(m_arrScan, 7, L'ء', L'ي')) << "Arabic";
    EXPECT_TRUE(Holds(m_arrScan, 7, L'à', L'ÿ')) << "accents";
    EXPECT_TRUE(Holds(m_arrScan, 7, 0xD800, 0xDBFF)) << "surrogate pairs";
}

// The reader keeps the detail of the line before for a line that has none.
TEST_P(VirusRecordsTest, SomeRecordsHaveADetailAndNoneIsThatOfAnother)
{
    std::set<std::wstring> details;
    for (const SampleDay& day : m_month.Days())
    {
        std::wstring kept = L"of another file";
        for (const Record& record : day.records)
        {
            const std::size_t detail = FirstAction(record) + 4;
            const bool hasDetail = record.size() > detail;
            kept = hasDetail ? record[detail] : kept;
            EXPECT_TRUE(hasDetail || kept.empty()) << day.name;
            details.insert(kept);
        }
    }
    EXPECT_GE(details.size(), 3u);
}

EACH_SEED(VirusRecordsTest);

} // namespace Samples
