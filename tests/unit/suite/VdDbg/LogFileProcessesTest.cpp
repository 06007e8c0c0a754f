// Several processes and one file.

#include "suite/VdDbg/LogFile.h"

#include "suite/VdDbg/OldFiles.h"
#include "tests/unit/suite/VdDbg/TraceLogs.h"
#include "tests/unit/suite/VdDbg/TraceWriter.h"

#include <gtest/gtest.h>

#include <map>

namespace
{

class VdDbgLogFileProcesses : public ::testing::Test
{
protected:
    // All that was written, in its order.
    std::string AllBytes() const
    {
        std::string all;
        for (unsigned number = VdDbg::OldFilesKept; number > 0; --number)
        {
            all += std::filesystem::exists(m_name.Old(number)) ? ReadBytes(m_name.Old(number)) : std::string();
        }
        return all + ReadBytes(m_name.Current());
    }

    const TemporaryFolder m_folder;
    const VdDbg::LogName m_name = NameIn(m_folder.Path());
};

struct Account
{
    std::map<char, int> lines; // of each writer, by its letter
    int turns = 0;             // how often the writer of a line is another one than that of the line before
};

// Counts the lines while each is the next one of its writer, from number 0 on; the first one that is not fails the
// test.
Account Check(const std::vector<std::string_view>& lines)
{
    Account account;
    char last = '\0';
    for (const std::string_view line : lines)
    {
        const char writer = line.empty() ? '\0' : line.front();
        const std::string expected = TraceLine(std::string(1, writer), account.lines[writer]++);
        if (line != expected)
        {
            ADD_FAILURE() << "\"" << line << "\" instead of \"" << expected << "\"";
            break;
        }
        account.turns += writer != last;
        last = writer;
    }
    return account;
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

    const std::string bytes = AllBytes();
    const Account account = Check(SplitLines(bytes));
    EXPECT_EQ(account.lines, (std::map<char, int>{{'a', Count}, {'b', Count}}));
    EXPECT_GT(account.turns, 100) << "the processes did not write at the same time";
    EXPECT_TRUE(std::filesystem::exists(m_name.Old(3)));
    for (unsigned number = 1; number <= VdDbg::OldFilesKept && std::filesystem::exists(m_name.Old(number)); ++number)
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
    const std::string bytes = AllBytes();
    std::vector<std::string_view> lines = SplitLines(bytes);
    ASSERT_FALSE(lines.empty());
    EXPECT_EQ(lines.back(), "mine");
    lines.pop_back();
    EXPECT_EQ(Check(lines).lines, (std::map<char, int>{{'a', static_cast<int>(lines.size())}}));
}
