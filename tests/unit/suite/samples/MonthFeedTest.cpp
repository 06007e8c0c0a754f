#include "suite/samples/MonthFeed.h"

#include "suite/database/EventDatabase.h"
#include "suite/database/LogKinds.h"
#include "suite/database/LogLine.h"
#include "suite/import/DailyFile.h"
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

class MonthFeedTest : public ::testing::Test
{
protected:
    MonthFeedTest()
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

} // namespace

TEST_F(MonthFeedTest, AllKindsHaveTheRecordsOfTheDailyFiles)
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
            if (Import::ParseDailyName(name)->kind->subType == subType)
            {
                for (const std::wstring& line : Import::ReadDailyFile(name))
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

TEST_F(MonthFeedTest, RecordsHaveTheLastTokenOfTheDatabase)
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

TEST_F(MonthFeedTest, ASecondFeedingReplacesItsDays)
{
    FeedDays(3);
    const Strings first = Lines(Virus);
    FeedDays(3);
    EXPECT_EQ(Lines(Virus), first);
    FeedDays(1, 2);
    EXPECT_NE(Lines(Virus), first);
    EXPECT_EQ(Days(Virus).front(), 20260307u);
}

TEST_F(MonthFeedTest, TheProgressGrowsByADayAndIsDoneAtTheEnd)
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

} // namespace Samples
