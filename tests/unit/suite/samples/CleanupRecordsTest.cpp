#include "tests/unit/suite/samples/SampleFiles.h"

namespace Samples
{

namespace
{

class CleanupRecordsTest : public SampleMonthTest
{
};

} // namespace

TEST_P(CleanupRecordsTest, EveryCleanupResultOccurs)
{
    EXPECT_EQ(Numbers(SampleMonth(L"PTG", GetParam()).Records(), 3), (std::set{0, 1, 2}));
}

TEST_P(CleanupRecordsTest, SomeCleanupsHaveADetailAndSomeLackItsToken)
{
    const SampleMonth month(L"PTG", GetParam());
    const auto detailed = Where(month.Records(), [](const Record& r) { return r.size() == 5; });
    EXPECT_LT(detailed.size(), month.Records().size());
    EXPECT_GE(Values(detailed, 4).size(), 2u);
}

TEST_P(CleanupRecordsTest, EveryRiskAndStateOfAFixOccurs)
{
    const SampleMonth month(L"VAG", GetParam());
    const std::vector<Record>& records = month.Records();
    const auto named = Where(records, [](const Record& r) { return !r[2].empty(); });
    EXPECT_EQ(Numbers(named, 3), (std::set{0, 1, 2, 3, 4, 7}));
    EXPECT_EQ(Numbers(named, 4), (std::set{0, 1, 2, 3}));
}

TEST_P(CleanupRecordsTest, NamesAndSolutionsOfWeaknessesAreThereAndMissing)
{
    const SampleMonth month(L"VAG", GetParam());
    const std::vector<Record>& records = month.Records();
    for (const std::size_t token : {2, 5})
    {
        EXPECT_TRUE(Values(records, token).contains(L"")) << token;
        EXPECT_GE(Values(records, token).size(), 3u) << token;
    }
}

EACH_SEED(CleanupRecordsTest);

} // namespace Samples
