#include "suite/samples/Month.h"
#include "tests/unit/suite/samples/SampleFiles.h"

namespace Samples
{

namespace
{

class TaskRecordsTest : public SampleMonthTest
{
};

} // namespace

TEST_P(TaskRecordsTest, EveryScanResultOccursAndOneThatHasNoName)
{
    EXPECT_EQ(Numbers(SampleMonth(L"SCI", GetParam()).Records(), 6), (std::set{0, 1, 2, 3, 4, 5}));
}

TEST_P(TaskRecordsTest, AScanEndsAfterItBeganAndNamesAllVersions)
{
    const SampleMonth month(L"SCI", GetParam());
    for (const Record& record : month.Records())
    {
        EXPECT_TRUE(IsTime(record[3]) && IsTime(record[5]));
        EXPECT_LT(std::pair(record[2], record[3]), std::pair(record[4], record[5]));
        for (std::size_t token = 7; token <= 12; ++token)
        {
            EXPECT_FALSE(record[token].empty()) << token;
        }
    }
}

TEST_P(TaskRecordsTest, EverySkippedTaskAndReasonOccursAndNoReasonThatIsRefused)
{
    const SampleMonth month(L"SKP", GetParam());
    const std::vector<Record>& records = month.Records();
    EXPECT_EQ(Numbers(records, 4), (std::set{0, 1, 2, 3}));
    EXPECT_EQ(Numbers(records, 5), (std::set{0, 1, 2}));
}

EACH_SEED(TaskRecordsTest);

TEST(ScanRecordsTest, AScanThatRunsPastMidnightEndsOnTheNextDay)
{
    const TemporaryFolder folder;
    WriteLines(folder.File(L"a.SCI"), *FindKind(L"SCI"), TestEnd(), 500, 1);
    const std::wstring text = ReadUtf16(folder.File(L"a.SCI"));
    int overnight = 0;
    for (const std::wstring_view line : Lines(text))
    {
        const Record record = Split(line);
        EXPECT_LT(std::pair(record[2], record[3]), std::pair(record[4], record[5]));
        overnight += record[4] == L"20261122";
    }
    EXPECT_GT(overnight, 0);
}

} // namespace Samples
