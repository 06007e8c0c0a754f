// A new file each day, by the time of the lines.

#include "suite/VdDbg/LogFile.h"

#include "suite/VdDbg/LineTime.h"
#include "tests/unit/suite/VdDbg/TraceLogs.h"

#include <gtest/gtest.h>

using VdDbg::LogFile;

namespace
{

using Lines = std::vector<std::string>;

class VdDbgLogFileDays : public ::testing::Test
{
protected:
    const TemporaryFolder m_folder;
    const VdDbg::LogName m_name = NameIn(m_folder.Path());
};

} // namespace

TEST_F(VdDbgLogFileDays, TheFirstLineOfADayGoesToANewFile)
{
    LogFile file(m_name, false);
    EXPECT_EQ(file.Append(At(2011, 3, 5, 0), "Saturday\r\n"), 0U);
    EXPECT_EQ(file.Append(At(2011, 3, 5, 23), "still Saturday\r\n"), 0U);
    EXPECT_EQ(file.Append(At(2011, 3, 6, 0), "Sunday\r\n"), 0U);
    EXPECT_EQ(file.Append(At(2011, 3, 6, 1), "still Sunday\r\n"), 0U);
    EXPECT_EQ(LinesOf(m_name.Old(1)), (Lines{"Saturday", "still Saturday"}));
    EXPECT_EQ(LinesOf(m_name.Current()), (Lines{"Sunday", "still Sunday"}));
}

TEST_F(VdDbgLogFileDays, ANewMonthAndANewYearAreLaterDays)
{
    LogFile file(m_name, false);
    EXPECT_EQ(file.Append(At(2011, 11, 30), "November\r\n"), 0U);
    EXPECT_EQ(file.Append(At(2011, 12, 1), "December\r\n"), 0U);
    EXPECT_EQ(file.Append(At(2012, 1, 1), "January\r\n"), 0U);
    EXPECT_EQ(LinesOf(m_name.Old(2)), Lines{"November"});
    EXPECT_EQ(LinesOf(m_name.Old(1)), Lines{"December"});
    EXPECT_EQ(LinesOf(m_name.Current()), Lines{"January"});
}

TEST_F(VdDbgLogFileDays, AFileThatIsOpenedAgainKeepsItsDay)
{
    EXPECT_EQ(LogFile(m_name, false).Append(At(2011, 3, 5), "Saturday\r\n"), 0U);
    EXPECT_EQ(LogFile(m_name, false).Append(At(2011, 3, 5), "still Saturday\r\n"), 0U);
    EXPECT_EQ(LogFile(m_name, false).Append(At(2011, 3, 6), "Sunday\r\n"), 0U);
    EXPECT_EQ(LinesOf(m_name.Old(1)), (Lines{"Saturday", "still Saturday"}));
    EXPECT_EQ(LinesOf(m_name.Current()), Lines{"Sunday"});
}

TEST_F(VdDbgLogFileDays, AFileThatSomebodyElseWroteHasTheDayOfItsLastWrite)
{
    WriteBytes(m_name.Current(), "before\r\n");
    const Suite::KernelHandle file = Suite::OpenShared(m_name.Current().c_str(), FILE_WRITE_ATTRIBUTES, OPEN_EXISTING);
    const auto stamp = VdDbg::StampOf(At(2011, 3, 5));
    ASSERT_TRUE(file && stamp && SetFileTime(file.get(), nullptr, nullptr, &*stamp));
    EXPECT_EQ(LogFile(m_name, false).Append(At(2011, 3, 6), "after\r\n"), 0U);
    EXPECT_EQ(LinesOf(m_name.Old(1)), Lines{"before"});
    EXPECT_EQ(LinesOf(m_name.Current()), Lines{"after"});
}

TEST_F(VdDbgLogFileDays, ALateLineOfTheDayBeforeStaysWithTheOthersAndTurnsNoDayBack)
{
    LogFile file(m_name, false);
    EXPECT_EQ(file.Append(At(2011, 3, 6, 0), "Sunday\r\n"), 0U);
    EXPECT_EQ(file.Append(At(2011, 3, 5, 23), "late\r\n"), 0U);
    EXPECT_EQ(file.Append(At(2011, 3, 6, 1), "still Sunday\r\n"), 0U);
    EXPECT_EQ(LinesOf(m_name.Current()), (Lines{"Sunday", "late", "still Sunday"}));
    EXPECT_FALSE(std::filesystem::exists(m_name.Old(1)));
}

TEST_F(VdDbgLogFileDays, AnEmptyFileHasNoDay)
{
    WriteBytes(m_name.Current(), "");
    LogFile file(m_name, false);
    EXPECT_EQ(file.Append(At(2111, 3, 5), "far ahead\r\n"), 0U);
    EXPECT_EQ(LinesOf(m_name.Current()), Lines{"far ahead"});
    EXPECT_FALSE(std::filesystem::exists(m_name.Old(1)));
}

TEST_F(VdDbgLogFileDays, OneNewFileADayHoweverManyObjectsWrite)
{
    LogFile first(m_name, false);
    LogFile second(m_name, false);
    EXPECT_EQ(first.Append(At(2011, 3, 5), "a5\r\n"), 0U);
    EXPECT_EQ(second.Append(At(2011, 3, 5), "b5\r\n"), 0U);
    EXPECT_EQ(first.Append(At(2011, 3, 6), "a6\r\n"), 0U);
    EXPECT_EQ(second.Append(At(2011, 3, 6), "b6\r\n"), 0U);
    EXPECT_EQ(LinesOf(m_name.Old(1)), (Lines{"a5", "b5"}));
    EXPECT_EQ(LinesOf(m_name.Current()), (Lines{"a6", "b6"}));
    EXPECT_FALSE(std::filesystem::exists(m_name.Old(2)));
}
