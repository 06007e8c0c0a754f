#include "suite/samples/UrlCategories.h"
#include "tests/unit/suite/samples/SampleFiles.h"

#include <algorithm>

namespace Samples
{

namespace
{

class UrlFilterRecordsTest : public SampleMonthTest
{
protected:
    const SampleMonth m_month{L"UFG", GetParam()};
    const std::vector<Record>& m_arrRecord = m_month.Records();
};

class PhishingRecordsTest : public SampleMonthTest
{
protected:
    const SampleMonth m_month{L"HLG", GetParam()};
    const std::vector<Record>& m_arrRecord = m_month.Records();
};

} // namespace

TEST_P(UrlFilterRecordsTest, EveryResultAndActionOccurs)
{
    EXPECT_EQ(Numbers(m_arrRecord, 5), (std::set{0, 1, 2}));
    EXPECT_EQ(Values(m_arrRecord, 4), (std::set<std::wstring>{L"Blocked", L"Warned", L"Reported"}));
}

TEST_P(UrlFilterRecordsTest, EveryCategoryAndAnUnlistedOneOccurs)
{
    std::set<std::wstring> expected = {L"97"};
    for (const UrlCategory& category : UrlCategories)
    {
        EXPECT_TRUE(expected.emplace(category.key).second) << "a key stands twice";
    }
    EXPECT_EQ(Values(m_arrRecord, 7), expected);
}

TEST_P(UrlFilterRecordsTest, AddressesAreEscaped)
{
    bool bar = false;
    bool percent = false;
    for (const std::wstring& token : Values(m_arrRecord, 6))
    {
        const std::wstring plain = Unescape(token);
        EXPECT_EQ(Escape(plain), token);
        EXPECT_TRUE(plain.starts_with(L"http")) << std::filesystem::path(plain);
        bar = bar || plain.find(L'|') != std::wstring::npos;
        percent = percent || plain.find(L'%') != std::wstring::npos;
    }
    EXPECT_TRUE(bar);
    EXPECT_TRUE(percent);
}

TEST_P(UrlFilterRecordsTest, SomeAddressesAreLongerThanACellShows)
{
    constexpr std::size_t mostOfACell = 255;
    EXPECT_TRUE(std::ranges::any_of(m_arrRecord, [](const Record& r) { return r[6].size() > mostOfACell; }));
}

EACH_SEED(UrlFilterRecordsTest);

TEST_P(PhishingRecordsTest, EveryKindCategoryAndLevelOccurs)
{
    EXPECT_EQ(Values(m_arrRecord, 3), (std::set<std::wstring>{L"80", L"10", L"1", L"20"}));
    const auto others = Where(m_arrRecord, [](const Record& r) { return r[3] != L"80"; });
    EXPECT_EQ(Values(others, 6), (std::set<std::wstring>{L"01", L"97", L"99", L"42"}));
    EXPECT_EQ(Values(m_arrRecord, 7), (std::set<std::wstring>{L"", L"L0", L"L1", L"L2", L"WR", L"L9"}));
}

TEST_P(PhishingRecordsTest, TheShownAddressIsTokenFiveInBothShapes)
{
    for (const Record& record : m_arrRecord)
    {
        EXPECT_TRUE(record[5].starts_with(L"http"));
        EXPECT_EQ(record[4].empty(), record[3] != L"80");
        EXPECT_EQ(record[6].empty(), record[3] == L"80");
    }
}

EACH_SEED(PhishingRecordsTest);

} // namespace Samples
