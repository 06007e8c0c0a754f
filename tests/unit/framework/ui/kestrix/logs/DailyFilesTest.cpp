#include "framework/ui/kestrix/logs/DailyFiles.h"

#include "tests/support/TemporaryFolder.h"
#include "tests/support/TraceRecorder.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <vector>

namespace
{

std::wstring DayText(const DailyFile& file)
{
    SYSTEMTIME day{};
    file.date.GetAsSystemTime(day);
    return std::to_wstring(day.wYear) + L"-" + std::to_wstring(day.wMonth) + L"-" + std::to_wstring(day.wDay);
}

std::vector<DailyFile> FindDailyFiles(const std::wstring& path)
{
    std::vector<DailyFile> files;
    ForEachDailyFile(path, [&](const DailyFile& file) { files.push_back(file); });
    return files;
}

TEST(DailyFiles, TheNameOfAFileTellsItsDay)
{
    const TemporaryFolder folder;
    WriteBytes(folder.File(L"20261120.VLG"), "12345");
    const auto files = FindDailyFiles(folder.File(L"20261120.VLG"));
    ASSERT_EQ(files.size(), 1U);
    EXPECT_EQ(DayText(files[0]), L"2026-11-20");
    EXPECT_EQ(files[0].size, 5U);
    EXPECT_FALSE(HasForeignLogFile(folder.File(L"20261120.VLG")));
}

TEST(DailyFiles, EachNameThatIsLookedAtIsTraced)
{
    const TemporaryFolder folder;
    WriteBytes(folder.File(L"20261120.VLG"), "x");
    WriteBytes(folder.File(L"other.VLG"), "x");
    const TraceRecorder trace;
    FindDailyFiles(folder.File(L"*.VLG"));
    std::vector<std::wstring> texts = trace.Texts(VdCommon::TraceLevel::Flow);
    std::ranges::sort(texts);
    EXPECT_EQ(texts, (std::vector<std::wstring>{L"log filename[20261120.VLG]", L"log filename[other.VLG]"}));
}

TEST(DailyFiles, ADayThatDoesNotExistIsNoDailyFileButAForeignOne)
{
    const TemporaryFolder folder;
    WriteBytes(folder.File(L"20260230.VLG"), "x");
    EXPECT_TRUE(FindDailyFiles(folder.File(L"20260230.VLG")).empty());
    EXPECT_TRUE(HasForeignLogFile(folder.File(L"20260230.VLG")));
}

TEST(DailyFiles, APathThatMatchesNothingHasNeither)
{
    const TemporaryFolder folder;
    EXPECT_TRUE(FindDailyFiles(folder.File(L"20261120.VLG")).empty());
    EXPECT_FALSE(HasForeignLogFile(folder.File(L"20261120.VLG")));
    EXPECT_TRUE(FindDailyFiles(L"").empty());
    EXPECT_FALSE(HasForeignLogFile(L""));
}

TEST(DailyFiles, ANameOfElevenCharactersIsForeign)
{
    const TemporaryFolder folder;
    WriteBytes(folder.File(L"2026011.VLG"), "x");
    EXPECT_TRUE(FindDailyFiles(folder.File(L"*.VLG")).empty());
    EXPECT_TRUE(HasForeignLogFile(folder.File(L"*.VLG")));
}

TEST(DailyFiles, ADirectoryIsPassedOverButItsNameIsLookedAt)
{
    const TemporaryFolder folder;
    std::filesystem::create_directory(folder.File(L"20261120.VLG"));
    EXPECT_TRUE(FindDailyFiles(folder.File(L"*.VLG")).empty());
    EXPECT_FALSE(HasForeignLogFile(folder.File(L"*.VLG")));
    std::filesystem::create_directory(folder.File(L"old"));
    EXPECT_TRUE(HasForeignLogFile(folder.File(L"*")));
}

TEST(DailyFiles, APatternFindsAllItsDays)
{
    const TemporaryFolder folder;
    WriteBytes(folder.File(L"20261119.VLG"), "x");
    WriteBytes(folder.File(L"20261120.VLG"), "xy");
    WriteBytes(folder.File(L"20261121.UPG"), "xyz");
    WriteBytes(folder.File(L"readme.txt"), "x");
    EXPECT_EQ(FindDailyFiles(folder.File(L"*.VLG")).size(), 2U);
    EXPECT_EQ(FindDailyFiles(folder.File(L"*")).size(), 3U);
    EXPECT_FALSE(HasForeignLogFile(folder.File(L"*.VLG")));
    EXPECT_TRUE(HasForeignLogFile(folder.File(L"*")));
}

} // namespace
