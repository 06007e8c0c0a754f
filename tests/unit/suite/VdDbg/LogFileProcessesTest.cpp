// Several processes and one file.

#include "suite/VdDbg/LogFile.h"

#include "tests/unit/suite/VdDbg/TraceLogs.h"
#include "tests/unit/suite/VdDbg/TraceWriter.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <map>

namespace
{

using Lines = std::vector<std::string>;

class VdDbgLogFileProcesses : public ::testing::Test
{
protected:
    // All lines in the order in which they were written.
    Lines AllLines() const
    {
        Lines all;
        for (unsigned number = 5; number > 0; --number)
        {
            const Lines lines = LinesOf(m_name.Old(number));
            all.insert(all.end(), lines.begin(), lines.end());
        }
        const Lines lines = LinesOf(m_name.Current());
        all.insert(all.end(), lines.begin(), lines.end());
        return all;
    }

    const TemporaryFolder m_folder;
    const VdDbg::LogName m_name = NameIn(m_folder.Path());
};

// How often the writer of a line is another one than that of the line before.
std::size_t Turns(const Lines& lines)
{
    std::size_t turns = 0;
    for (std::size_t i = 1; i < lines.size(); ++i)
    {
        turns += lines[i][0] != lines[i - 1][0];
    }
    return turns;
}

// The lines of one writer in their order.
Lines Of(char writer, const Lines& lines)
{
    Lines own;
    std::copy_if(lines.begin(), lines.end(), std::back_inserter(own),
                 [writer](const std::string& line) { return !line.empty() && line[0] == writer; });
    return own;
}

Lines Expected(const std::string& name, int count)
{
    Lines lines;
    for (int number = 0; number < count; ++number)
    {
        lines.push_back(TraceLine(name, number));
    }
    return lines;
}

} // namespace

TEST_F(VdDbgLogFileProcesses, TenThousandLinesOfEachOfTwoArriveOnceAndWholeWhileFilesAreRetired)
{
    constexpr int Count = 10'000;
    constexpr std::uint64_t Limit = 140'000; // five to six files for the 700 KB of both
    StartingGun gun;
    TraceWriter first({m_folder.Path().wstring(), L"a", Count, Limit}, gun);
    TraceWriter second({m_folder.Path().wstring(), L"b", Count, Limit}, gun);
    gun.Fire();
    EXPECT_TRUE(first.End());
    EXPECT_TRUE(second.End());

    const Lines lines = AllLines();
    EXPECT_EQ(lines.size(), 2U * Count);
    // The order of each writer stays, too; EXPECT_TRUE, since a difference would print all lines.
    EXPECT_TRUE(Of('a', lines) == Expected("a", Count));
    EXPECT_TRUE(Of('b', lines) == Expected("b", Count));
    EXPECT_GT(Turns(lines), 100U) << "the processes did not write at the same time";
    EXPECT_TRUE(std::filesystem::exists(m_name.Old(3)));
    for (unsigned number = 1; number <= 5 && std::filesystem::exists(m_name.Old(number)); ++number)
    {
        EXPECT_GE(std::filesystem::file_size(m_name.Old(number)), Limit) << "retired before its time: " << number;
        EXPECT_LT(std::filesystem::file_size(m_name.Old(number)), Limit + 100);
    }
}

TEST_F(VdDbgLogFileProcesses, OneThatIsEndedInTheMiddleLeavesWholeLinesAndNoLockBehind)
{
    constexpr int WithoutEnd = 100'000'000;
    StartingGun gun;
    TraceWriter writer({m_folder.Path().wstring(), L"a", WithoutEnd, VdDbg::LogFile::DefaultLimit}, gun);
    gun.Fire();
    const ULONGLONG start = GetTickCount64();
    while (std::filesystem::file_size(m_name.Current()) < 20'000)
    {
        ASSERT_LT(GetTickCount64() - start, 60'000U) << "the second process writes nothing";
        SwitchToThread();
    }
    writer.Kill();

    VdDbg::LogFile file(m_name, false);
    EXPECT_EQ(file.Append(Noon(), "mine\r\n"), 0U);
    Lines lines = LinesOf(m_name.Current());
    ASSERT_FALSE(lines.empty());
    EXPECT_EQ(lines.back(), "mine");
    lines.pop_back();
    EXPECT_TRUE(lines == Expected("a", static_cast<int>(lines.size())));
}
