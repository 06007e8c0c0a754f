#include "suite/samples/DatabaseFeed.h"

#include "suite/database/EventDatabase.h"
#include "suite/database/LogKinds.h"
#include "suite/database/LogLine.h"
#include "suite/samples/DailyFile.h"
#include "suite/samples/Failure.h"
#include "suite/samples/Month.h"
#include "tests/support/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace Samples
{

namespace
{

using namespace std::chrono;
using Strings = std::vector<std::wstring>;

constexpr Date End = sys_days(year(2026) / March / 7);
constexpr std::uint32_t Virus = 2;
constexpr std::uint32_t UrlFilter = 5;

class DatabaseFeedTest : public ::testing::Test
{
protected:
    DatabaseFeedTest()
    {
        for (const Kind& kind : AllKinds())
        {
            m_arrKind.push_back(&kind);
        }
    }

    void FeedDays(unsigned days, std::uint64_t seed = 1)
    {
        FeedMonth(m_path, m_arrKind, End, days, seed, [this](const Progress& told) { m_arrTold.push_back(told); });
    }

    void Import(const std::vector<std::filesystem::path>& paths)
    {
        ImportFiles(m_path, paths, [this](const Progress& told) { m_arrTold.push_back(told); });
    }

    // The text with which the import is refused.
    std::string Refusal(const std::vector<std::filesystem::path>& paths)
    {
        try
        {
            Import(paths);
        }
        catch (const Failure& failure)
        {
            EXPECT_EQ(failure.Code(), ExitCode::WorkFailed);
            return failure.what();
        }
        ADD_FAILURE() << "the files were taken";
        return {};
    }

    std::vector<EventLog::Day> Days(std::uint32_t kind) const
    {
        return EventLog::EventDatabase::Open(m_path).Days(kind);
    }

    Strings Lines(std::uint32_t kind) const
    {
        Strings lines;
        EventLog::EventDatabase::Open(m_path).ReadPeriod(kind, {{10101, 0}, {99991231, 235959}},
                                                         [&](std::wstring_view line) { lines.emplace_back(line); });
        return lines;
    }

    const TemporaryFolder m_folder;
    const std::filesystem::path m_path = m_folder.Path() / L"EventLog.db";
    std::vector<const Kind*> m_arrKind;
    std::vector<Progress> m_arrTold;
};

// Tokens of a record of the database, by the source in token 2.
std::ptrdiff_t TokensOf(std::uint32_t kind, const std::wstring& line)
{
    const std::size_t second = line.find(L'|', line.find(L'|') + 1) + 1;
    const bool proxy = line.substr(second, 2).find_first_of(L"123") == 0 && line[second + 1] == L'|';
    return kind == Virus ? (proxy ? 12 : 13) : 9;
}

// A record of the virus log as the database has it.
std::wstring VirusLine(const std::wstring& threat)
{
    return L"20260201|120000|1048576||1|0|" + threat + L"|C:\\a.exe|1|1|0|0|";
}

} // namespace

TEST_F(DatabaseFeedTest, AllKindsHaveTheRecordsOfTheDailyFiles)
{
    FeedDays(7);
    const std::filesystem::path files = m_folder.Path() / L"Log";
    WriteMonth(files, m_arrKind, End, 7, 1);
    std::size_t compared = 0;
    for (const Kind* kind : m_arrKind)
    {
        const std::uint32_t subType = EventLog::FindKindOfExtension(kind->extension)->subType;
        Strings expected;
        std::vector<std::filesystem::path> names(std::filesystem::directory_iterator(files), {});
        std::ranges::sort(names);
        for (const std::filesystem::path& name : names)
        {
            if (ParseDailyName(name)->kind == kind)
            {
                for (const std::wstring& line : ReadDailyFile(name))
                {
                    expected.push_back(EventLog::DatabaseForm(subType, line));
                }
            }
        }
        EXPECT_FALSE(expected.empty());
        EXPECT_EQ(Lines(subType), expected) << std::wstring(kind->extension);
        compared += expected.size();
    }
    EXPECT_EQ(m_arrTold.back().records, compared);
}

TEST_F(DatabaseFeedTest, RecordsHaveTheLastTokenOfTheDatabase)
{
    FeedDays(30);
    for (const std::uint32_t kind : {Virus, UrlFilter})
    {
        const Strings lines = Lines(kind);
        EXPECT_GT(lines.size(), 20u);
        for (const std::wstring& line : lines)
        {
            EXPECT_EQ(std::ranges::count(line, L'|') + 1, TokensOf(kind, line)) << line;
        }
    }
}

TEST_F(DatabaseFeedTest, ASecondFeedingReplacesItsDays)
{
    FeedDays(3);
    const Strings first = Lines(Virus);
    FeedDays(3);
    EXPECT_EQ(Lines(Virus), first);
    FeedDays(1, 2);
    EXPECT_NE(Lines(Virus), first);
    EXPECT_EQ(Days(Virus).front(), 20260307u);
}

TEST_F(DatabaseFeedTest, TheProgressGrowsByADayAndIsDoneAtTheEnd)
{
    FeedDays(2);
    ASSERT_GE(m_arrTold.size(), 2u);
    for (std::size_t i = 0; i + 1 < m_arrTold.size(); ++i)
    {
        EXPECT_EQ(m_arrTold[i].days, i + 1);
        EXPECT_FALSE(m_arrTold[i].done);
    }
    EXPECT_TRUE(m_arrTold.back().done);
    EXPECT_EQ(m_arrTold.back().days, m_arrTold.size() - 1);
}

TEST_F(DatabaseFeedTest, DailyFilesOfAnyKindAreImported)
{
    FeedDays(3);
    std::vector<Strings> fed;
    for (const EventLog::LogKind& kind : EventLog::AllLogKinds())
    {
        fed.push_back(Lines(kind.subType));
    }
    std::filesystem::remove(m_path);
    const std::filesystem::path files = m_folder.Path() / L"Log";
    WriteMonth(files, m_arrKind, End, 3, 1);
    Import({files});
    for (std::size_t i = 0; i < fed.size(); ++i)
    {
        EXPECT_EQ(Lines(EventLog::AllLogKinds()[i].subType), fed[i]) << i;
    }
}

TEST_F(DatabaseFeedTest, ImportedLinesGetTheLastTokenOfTheDatabase)
{
    WriteUtf16(m_folder.File(L"20260201.UFG"), L"20260201|120000|1|1F|Blocked|0|address|97\r\n");
    Import({m_folder.Path() / L"20260201.UFG"});
    EXPECT_EQ(Lines(UrlFilter), Strings{L"20260201|120000|1|1F|Blocked|0|address|97|"});
}

TEST_F(DatabaseFeedTest, AFileThatIsImportedAgainReplacesItsDayAlone)
{
    WriteUtf16(m_folder.File(L"20260201.VLG"), VirusLine(L"old") + L"\r\n");
    WriteUtf16(m_folder.File(L"20260202.VLG"), VirusLine(L"other day") + L"\r\n");
    Import({m_folder.Path()});
    WriteUtf16(m_folder.File(L"20260201.VLG"), VirusLine(L"new") + L"\r\n");
    Import({m_folder.Path() / L"20260201.VLG"});
    EXPECT_EQ(Lines(Virus), (Strings{VirusLine(L"new"), VirusLine(L"other day")}));
}

TEST_F(DatabaseFeedTest, OtherFilesOfAFolderArePassedOver)
{
    WriteUtf16(m_folder.File(L"20260201.VLG"), VirusLine(L"b") + L"\r\n");
    WriteBytes(m_folder.File(L"readme.txt"), "text");
    std::filesystem::create_directory(m_folder.Path() / L"20260203.VLG");
    Import({m_folder.Path()});
    EXPECT_EQ(Days(Virus), std::vector<EventLog::Day>{20260201});
}

TEST_F(DatabaseFeedTest, ANameThatIsNoneIsRefusedBeforeAnythingIsMade)
{
    WriteUtf16(m_folder.File(L"20260201.VLG"), VirusLine(L"b") + L"\r\n");
    WriteUtf16(m_folder.File(L"readme.txt"), L"text\r\n");
    const std::string text = Refusal({m_folder.Path() / L"20260201.VLG", m_folder.Path() / L"readme.txt"});
    EXPECT_NE(text.find("readme.txt"), std::string::npos) << text;
    EXPECT_FALSE(std::filesystem::exists(m_path));
}

TEST_F(DatabaseFeedTest, ALineThatItsLogCannotReadIsToldByItsNumberAndItsDayStaysAsItIs)
{
    WriteUtf16(m_folder.File(L"20260201.VLG"), VirusLine(L"old") + L"\r\n");
    Import({m_folder.Path()});
    std::wstring bad = VirusLine(L"bad");
    bad.replace(bad.find(L"120000"), 6, L"noon\xD800");
    WriteUtf16(m_folder.File(L"20260201.VLG"), VirusLine(L"new") + L"\r\n\r\n" + bad + L"\r\n");
    const std::string text = Refusal({m_folder.Path()});
    EXPECT_NE(
        text.find("20260201.VLG, line 3 has \"noon\xEF\xBF\xBD\" as token 2 (time), which is to be a time of day"),
        std::string::npos)
        << text;
    EXPECT_NE(text.find("Nothing of this day was taken."), std::string::npos) << text;
    EXPECT_EQ(Lines(Virus), Strings{VirusLine(L"old")});
}

TEST_F(DatabaseFeedTest, DaysBeforeABrokenFileStay)
{
    WriteUtf16(m_folder.File(L"20260201.VLG"), VirusLine(L"b") + L"\r\n");
    WriteBytes(m_folder.File(L"20260202.VLG"), "no mark");
    EXPECT_NE(Refusal({m_folder.Path()}).find("20260202.VLG"), std::string::npos);
    EXPECT_EQ(Days(Virus), std::vector<EventLog::Day>{20260201});
}

TEST_F(DatabaseFeedTest, ADamagedDatabaseIsRefusedAndStaysAsItIs)
{
    const std::string damaged(10'000, '?');
    WriteBytes(m_path.wstring(), damaged);
    WriteUtf16(m_folder.File(L"20260201.VLG"), VirusLine(L"b") + L"\r\n");
    const std::string text = Refusal({m_folder.Path()});
    EXPECT_NE(text.find("EventLog.db"), std::string::npos) << text;
    EXPECT_NE(text.find("stays as it is"), std::string::npos) << text;
    EXPECT_EQ(ReadBytes(m_path.wstring()), damaged);
}

} // namespace Samples
