#include "suite/import/FileImport.h"

#include "suite/common/Failure.h"
#include "suite/database/EventDatabase.h"
#include "suite/database/LogKinds.h"
#include "suite/samples/Month.h"
#include "suite/samples/MonthFeed.h"
#include "tests/support/TemporaryFolder.h"
#include "tests/unit/suite/import/ExpectPart.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace Import
{

namespace
{

using Strings = std::vector<std::wstring>;
using Paths = std::vector<std::filesystem::path>;

constexpr std::uint32_t Virus = 2;
constexpr std::uint32_t UrlFilter = 5;

class FileImportTest : public ::testing::Test
{
protected:
    Progress Import(const Paths& paths)
    {
        m_arrTold.clear();
        m_arrFault.clear();
        return ImportFiles(m_database, paths,
                           {[this](const Progress& told) { m_arrTold.push_back(told); },
                            [this](const std::string& fault) { m_arrFault.push_back(fault); }});
    }

    // Imports a file or folder that is left out, and returns what is said of it.
    std::string FaultOf(const std::filesystem::path& path)
    {
        const Progress end = Import({path});
        EXPECT_EQ(end.left, 1u);
        EXPECT_EQ(m_arrFault.size(), 1u);
        return m_arrFault.empty() ? std::string() : m_arrFault.front();
    }

    // Writes a daily file of one virus; returns its path.
    std::filesystem::path WriteDay(const std::wstring& name, const std::wstring& threat)
    {
        WriteUtf16(m_folder.File(name), VirusLine(threat) + L"\r\n");
        return m_folder.File(name);
    }

    // A record of the virus log as the database has it.
    static std::wstring VirusLine(const std::wstring& threat)
    {
        return L"20260201|120000|1048576||1|0|" + threat + L"|C:\\a.exe|1|1|0|0|";
    }

    std::vector<EventLog::Day> Days() const { return EventLog::EventDatabase::Open(m_database).Days(Virus); }

    Strings Lines(std::uint32_t kind) const
    {
        Strings lines;
        EventLog::EventDatabase::Open(m_database)
            .ReadPeriod(kind, {{10101, 0}, {99991231, 235959}},
                        [&](std::wstring_view line) { lines.emplace_back(line); });
        return lines;
    }

    const TemporaryFolder m_folder;
    const TemporaryFolder m_other;
    const std::filesystem::path m_database = m_other.Path() / L"EventLog.db";
    std::vector<Progress> m_arrTold;
    std::vector<std::string> m_arrFault;
};

} // namespace

TEST_F(FileImportTest, DailyFilesOfAnyKindBecomeWhatTheDatabaseHasOfThem)
{
    using namespace std::chrono;
    const Samples::Date end = sys_days(year(2026) / March / 7);
    std::vector<const Samples::Kind*> kinds;
    for (const Samples::Kind& kind : Samples::AllKinds())
    {
        kinds.push_back(&kind);
    }
    FeedMonth(m_database, kinds, end, 3, 1, [](const Samples::Progress&) {});
    std::vector<Strings> fed;
    for (const EventLog::LogKind& kind : EventLog::AllLogKinds())
    {
        fed.push_back(Lines(kind.subType));
    }
    std::filesystem::remove(m_database);
    Samples::WriteMonth(m_folder.Path(), kinds, end, 3, 1);
    EXPECT_EQ(Import({m_folder.Path()}).left, 0u);
    for (std::size_t i = 0; i < fed.size(); ++i)
    {
        EXPECT_EQ(Lines(EventLog::AllLogKinds()[i].subType), fed[i]) << i;
    }
}

TEST_F(FileImportTest, LinesGetTheLastTokenOfTheDatabase)
{
    WriteUtf16(m_folder.File(L"20260201.UFG"), L"20260201|120000|1|1F|Blocked|0|address|97\r\n");
    Import({m_folder.File(L"20260201.UFG")});
    EXPECT_EQ(Lines(UrlFilter), Strings{L"20260201|120000|1|1F|Blocked|0|address|97|"});
}

TEST_F(FileImportTest, AFileThatIsImportedAgainReplacesItsDayAlone)
{
    WriteDay(L"20260201.VLG", L"old");
    WriteDay(L"20260202.VLG", L"other day");
    Import({m_folder.Path()});
    Import({WriteDay(L"20260201.VLG", L"new")});
    EXPECT_EQ(Lines(Virus), (Strings{VirusLine(L"new"), VirusLine(L"other day")}));
}

TEST_F(FileImportTest, OtherFilesOfAFolderArePassedOver)
{
    WriteDay(L"20260201.VLG", L"b");
    WriteBytes(m_folder.File(L"readme.txt"), "text");
    std::filesystem::create_directory(m_folder.Path() / L"20260203.VLG");
    EXPECT_EQ(Import({m_folder.Path()}).files, 1u);
    EXPECT_EQ(Days(), std::vector<EventLog::Day>{20260201});
}

TEST_F(FileImportTest, TheProgressCountsFilesAndRecordsUntilAllAreDone)
{
    WriteDay(L"20260201.VLG", L"a");
    WriteBytes(m_folder.File(L"20260202.VLG"), "bad");
    WriteDay(L"20260203.VLG", L"c");
    Import({m_folder.Path()});
    ASSERT_EQ(m_arrTold.size(), 3u);
    constexpr std::size_t done[] = {1, 1, 2};
    for (std::size_t i = 0; i < 3; ++i)
    {
        EXPECT_EQ(m_arrTold[i].files, 3u);
        EXPECT_EQ(m_arrTold[i].done, done[i]);
        EXPECT_EQ(m_arrTold[i].records, done[i]);
        EXPECT_EQ(m_arrTold[i].IsAtItsEnd(), i == 2);
    }
}

TEST_F(FileImportTest, ABadFileIsLeftOutAndAllOthersAreTaken)
{
    WriteDay(L"20260201.VLG", L"a");
    WriteBytes(m_folder.File(L"20260202.VLG"), "\xEF\xBB\xBFtext");
    WriteDay(L"20260203.VLG", L"c");
    const Progress end = Import({m_folder.Path()});
    EXPECT_EQ(end.done, 2u);
    EXPECT_EQ(end.left, 1u);
    ASSERT_EQ(m_arrFault.size(), 1u);
    ExpectPart(m_arrFault[0], "20260202.VLG is UTF-8.");
    EXPECT_EQ(Days(), (std::vector<EventLog::Day>{20260203, 20260201}));
}

TEST_F(FileImportTest, ANameThatIsNoneMakesNoDatabase)
{
    WriteUtf16(m_folder.File(L"readme.txt"), L"text\r\n");
    ExpectPart(FaultOf(m_folder.File(L"readme.txt")), "readme.txt is neither a folder nor a daily file");
    EXPECT_FALSE(std::filesystem::exists(m_database));
    ASSERT_EQ(m_arrTold.size(), 1u);
    EXPECT_TRUE(m_arrTold[0].IsAtItsEnd());
}

TEST_F(FileImportTest, AFolderWithoutDailyFilesIsTold)
{
    WriteBytes(m_folder.File(L"readme.txt"), "text");
    ExpectPart(FaultOf(m_folder.Path()), "has no daily files");
    EXPECT_TRUE(m_arrTold.back().IsAtItsEnd());
}

TEST_F(FileImportTest, ALineThatItsLogCannotReadIsToldByItsNumberAndItsDayStaysAsItIs)
{
    WriteDay(L"20260201.VLG", L"old");
    Import({m_folder.Path()});
    std::wstring bad = VirusLine(L"bad");
    bad.replace(bad.find(L"120000"), 6, L"noon\xD800");
    WriteUtf16(m_folder.File(L"20260201.VLG"), VirusLine(L"new") + L"\r\n\r\n" + bad + L"\r\n");
    ExpectPart(FaultOf(m_folder.Path()),
               "20260201.VLG is not taken, since line 3 has \"noon\xEF\xBF\xBD\" as token 2 (time), which is to be a "
               "time of day");
    EXPECT_EQ(Lines(Virus), Strings{VirusLine(L"old")});
}

TEST_F(FileImportTest, ASecondFileOfADayDoesNotReplaceTheFirst)
{
    std::filesystem::create_directory(m_folder.Path() / L"more");
    const std::filesystem::path first = WriteDay(L"20260201.VLG", L"first");
    const std::filesystem::path second = WriteDay(L"more\\20260201.vlg", L"second");
    const Progress end = Import({first, second});
    EXPECT_EQ(end.done, 1u);
    ASSERT_EQ(m_arrFault.size(), 1u);
    ExpectPart(m_arrFault[0], "has the same day of the same log as " + Suite::Utf8(first));
    EXPECT_EQ(Lines(Virus), Strings{VirusLine(L"first")});
}

TEST_F(FileImportTest, ADamagedDatabaseIsRefusedAndStaysAsItIs)
{
    const std::string damaged(10'000, '?');
    WriteBytes(m_database.wstring(), damaged);
    try
    {
        Import({WriteDay(L"20260201.VLG", L"a")});
        FAIL() << "it was taken";
    }
    catch (const Suite::Failure& failure)
    {
        EXPECT_EQ(failure.Code(), Suite::ExitCode::WorkFailed);
        ExpectPart(failure.what(), "EventLog.db");
        ExpectPart(failure.what(), "stays as it is");
    }
    EXPECT_EQ(ReadBytes(m_database.wstring()), damaged);
}

} // namespace Import
