#include "suite/VdDbg/LogName.h"

#include "tests/unit/suite/VdDbg/TraceLogs.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <iterator>

using VdDbg::LogName;

namespace
{

std::wstring CurrentOf(const LogPlace& place)
{
    return LogName(ConfigOf(place)).Current();
}

// All set, so that each test changes what it is about.
LogPlace Complete()
{
    return {.folder = L"C:\\Logs", .prefix = L"zpt", .file = L"Viewer", .extension = L"txt", .module = L"Kestrix"};
}

std::filesystem::path Program()
{
    wchar_t path[MAX_PATH] = {};
    GetModuleFileNameW(nullptr, path, MAX_PATH);
    return path;
}

} // namespace

TEST(VdDbgLogName, IsFolderPrefixFileAndExtension)
{
    const LogName name(ConfigOf(Complete()));
    EXPECT_EQ(name.Current(), L"C:\\Logs\\zptViewer.txt");
    EXPECT_EQ(name.Folder(), L"C:\\Logs");
}

TEST(VdDbgLogName, AFolderWithASeparatorAtItsEndGivesTheSamePath)
{
    LogPlace place = Complete();
    place.folder = L"C:\\Logs\\";
    EXPECT_EQ(CurrentOf(place), L"C:\\Logs\\zptViewer.txt");
    place.folder = L"C:/Logs/";
    EXPECT_EQ(CurrentOf(place), L"C:\\Logs\\zptViewer.txt");
}

TEST(VdDbgLogName, ARelativeFolderBelongsToTheWorkingFolder)
{
    LogPlace place = Complete();
    place.folder = L"Logs";
    EXPECT_EQ(CurrentOf(place), (std::filesystem::current_path() / L"Logs\\zptViewer.txt").wstring());
}

TEST(VdDbgLogName, WithoutAFolderItIsZeptaraInTheTemporaryFolder)
{
    LogPlace place = Complete();
    place.folder.clear();
    wchar_t temporary[MAX_PATH + 1] = {};
    ASSERT_NE(GetTempPathW(MAX_PATH + 1, temporary), 0U);
    EXPECT_EQ(CurrentOf(place), temporary + std::wstring(L"Zeptara\\zptViewer.txt"));
}

TEST(VdDbgLogName, WithoutAPrefixItStartsWithTheFile)
{
    LogPlace place = Complete();
    place.prefix.clear();
    EXPECT_EQ(CurrentOf(place), L"C:\\Logs\\Viewer.txt");
}

TEST(VdDbgLogName, WithoutAFileItIsTheModuleName)
{
    LogPlace place = Complete();
    place.file.clear();
    EXPECT_EQ(CurrentOf(place), L"C:\\Logs\\zptKestrix.txt");
}

TEST(VdDbgLogName, WithoutAFileAndAModuleItIsTheProgram)
{
    LogPlace place = Complete();
    place.file.clear();
    place.module.clear();
    EXPECT_EQ(CurrentOf(place), L"C:\\Logs\\zpt" + Program().stem().wstring() + L".txt");
}

TEST(VdDbgLogName, WithoutAnExtensionItIsLog)
{
    LogPlace place = Complete();
    place.extension.clear();
    EXPECT_EQ(CurrentOf(place), L"C:\\Logs\\zptViewer.log");
}

TEST(VdDbgLogName, WithNothingSetItIsTheProgramsLogInTheTemporaryFolder)
{
    const std::filesystem::path path = CurrentOf({});
    EXPECT_EQ(path.filename().wstring(), Program().stem().wstring() + L".log");
    EXPECT_EQ(path.parent_path().filename(), L"Zeptara");
    EXPECT_TRUE(path.is_absolute());
}

TEST(VdDbgLogName, OldFilesHaveTheirNumberBeforeTheExtension)
{
    LogPlace place = Complete();
    place.file = L"a.b";
    place.extension = L"tar.gz";
    const LogName name(ConfigOf(place));
    EXPECT_EQ(name.Current(), L"C:\\Logs\\zpta.b.tar.gz");
    EXPECT_EQ(name.Old(1), L"C:\\Logs\\zpta.b.1.tar.gz");
    EXPECT_EQ(name.Old(5), L"C:\\Logs\\zpta.b.5.tar.gz");
}

TEST(VdDbgLogName, TextsThatFillTheirFieldsAreReadNoFurther)
{
    DebugLogConfig config = ConfigOf(Complete());
    std::fill(std::begin(config.logPrefix), std::end(config.logPrefix), L'p');
    std::fill(std::begin(config.logFile), std::end(config.logFile), L'f');
    std::fill(std::begin(config.logExtension), std::end(config.logExtension), L'e');
    EXPECT_EQ(LogName(config).Current(),
              L"C:\\Logs\\" + std::wstring(256, L'p') + std::wstring(256, L'f') + L"." + std::wstring(256, L'e'));
}
