#include "tests/unit/suite/samples/SampleFiles.h"

#include <algorithm>

namespace Samples
{

namespace
{

class ChangeRecordsTest : public SampleMonthTest
{
protected:
    const SampleMonth m_month{L"SCG", GetParam()};
    const std::vector<Record>& m_arrRecord = m_month.Records();
};

} // namespace

TEST_P(ChangeRecordsTest, EverySourceKindAndResultOccurs)
{
    EXPECT_EQ(Numbers(m_arrRecord, 2), (std::set{0x10000000, 0x100000}));
    EXPECT_EQ(Numbers(m_arrRecord, 6), (std::set{1, 2, 4, 8, 16, 32, 64, 3}));
    EXPECT_EQ(Numbers(m_arrRecord, 12), (std::set{0, 1, 2, 3, 9}));
}

TEST_P(ChangeRecordsTest, BothMarkersAnotherTextAndNoneOccurAsDetector)
{
    const std::set<std::wstring> detectors = Values(m_arrRecord, 13);
    EXPECT_EQ(detectors.size(), 4u);
    EXPECT_TRUE(detectors.contains(L"__ZPT_SELF_PROTECT__"));
    EXPECT_TRUE(detectors.contains(L"__ZPT_USER_DEFINED__"));
    EXPECT_TRUE(detectors.contains(L""));
}

TEST_P(ChangeRecordsTest, TokenEightIsEscaped)
{
    bool bar = false;
    for (const std::wstring& token : Values(m_arrRecord, 8))
    {
        const std::wstring plain = Unescape(token);
        EXPECT_EQ(Escape(plain), token);
        bar = bar || plain.find(L'|') != std::wstring::npos;
    }
    EXPECT_TRUE(bar);
}

TEST_P(ChangeRecordsTest, SomeRecordsNameNoItem)
{
    EXPECT_TRUE(Values(m_arrRecord, 7).contains(L""));
    EXPECT_TRUE(Values(m_arrRecord, 10).contains(L""));
}

TEST_P(ChangeRecordsTest, SomeItemsAreLongerThanTheirLogKeeps)
{
    constexpr std::size_t most = 388;
    EXPECT_TRUE(std::ranges::any_of(m_arrRecord, [](const Record& r) { return r[7].size() > most; }));
}

EACH_SEED(ChangeRecordsTest);

} // namespace Samples
