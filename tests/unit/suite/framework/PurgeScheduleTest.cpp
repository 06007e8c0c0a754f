#include "suite/framework/PurgeSchedule.h"

#include "suite/framework/Day.h"

#include <windows.h>

#include <gtest/gtest.h>

using namespace Framework;
using namespace std::chrono_literals;

namespace
{

constexpr auto Today = 2026y / 11 / 20;

// The last day that a purge takes; 0 when none is due.
std::uint32_t Through(const PurgeSettings& settings, std::chrono::year_month_day today,
                      const std::optional<ScheduledPurge>& last = std::nullopt)
{
    const std::optional<ScheduledPurge> due = DuePurge(settings, last, today);
    EXPECT_TRUE(!due || due->day == DayOf(today));
    return due ? due->through : 0;
}

// So many days before a date, by the calendar of the system.
std::uint32_t DayBefore(std::chrono::year_month_day date, std::uint32_t days)
{
    constexpr std::uint64_t day = 24ull * 60 * 60 * 10'000'000;
    SYSTEMTIME time{};
    time.wYear = static_cast<WORD>(static_cast<int>(date.year()));
    time.wMonth = static_cast<WORD>(static_cast<unsigned>(date.month()));
    time.wDay = static_cast<WORD>(static_cast<unsigned>(date.day()));
    FILETIME stamp{};
    EXPECT_TRUE(SystemTimeToFileTime(&time, &stamp));
    const std::uint64_t earlier =
        ((std::uint64_t{stamp.dwHighDateTime} << 32) | stamp.dwLowDateTime) - std::uint64_t{days} * day;
    stamp = {static_cast<DWORD>(earlier), static_cast<DWORD>(earlier >> 32)};
    EXPECT_TRUE(FileTimeToSystemTime(&stamp, &time));
    return time.wYear * 10'000u + time.wMonth * 100u + time.wDay;
}

} // namespace

TEST(PurgeScheduleTest, TheDayOfTheSetAgeStaysAndTheOneBeforeGoes)
{
    struct Case
    {
        std::chrono::year_month_day today;
        std::uint32_t days;
        std::uint32_t through;
    };

    constexpr Case cases[] = {
        // within a month and across one, two and three
        {Today, 1, 20261118},
        {Today, 7, 20261112},
        {Today, 14, 20261105},
        {Today, 30, 20261020},
        {Today, 45, 20261005},
        {Today, 60, 20260920},
        {2026y / 12 / 1, 7, 20261123},
        {2026y / 5 / 1, 30, 20260331},
        {2026y / 8 / 31, 60, 20260701},
        // across February of a common and of a leap year, and of the years that end a century
        {2026y / 3 / 1, 7, 20260221},
        {2024y / 3 / 1, 7, 20240222},
        {2026y / 3 / 1, 30, 20260129},
        {2024y / 3 / 1, 30, 20240130},
        {2100y / 3 / 1, 7, 21000221},
        {2000y / 3 / 1, 7, 20000222},
        {2024y / 2 / 29, 1, 20240227},
        // across a year
        {2027y / 1 / 1, 7, 20261224},
        {2027y / 1 / 1, 60, 20261101},
        {2027y / 1 / 8, 7, 20261231},
        {2027y / 1 / 9, 7, 20270101},
        // the days around the change to daylight saving time and back, of 23 and 25 hours
        {2026y / 3 / 29, 7, 20260321},
        {2026y / 3 / 30, 7, 20260322},
        {2026y / 4 / 5, 7, 20260328},
        {2026y / 4 / 6, 7, 20260329},
        {2026y / 10 / 25, 7, 20261017},
        {2026y / 10 / 26, 7, 20261018},
        {2026y / 11 / 1, 7, 20261024},
        {2026y / 11 / 2, 7, 20261025},
        // as long as settings can be
        {Today, 36'525, 19261119},
    };
    for (const Case& row : cases)
    {
        EXPECT_EQ(Through({row.days, 1}, row.today), row.through) << DayOf(row.today) << " " << row.days;
    }
}

TEST(PurgeScheduleTest, EachDayOfFiveYearsTakesAsManyDaysAsTheCalendarHas)
{
    const std::chrono::sys_days end = 2029y / 1 / 1;
    for (std::chrono::sys_days day = 2024y / 1 / 1; day < end; day += std::chrono::days(1))
    {
        for (const std::uint32_t days : {7u, 14u, 30u, 45u, 60u})
        {
            ASSERT_EQ(Through({days, 1}, day), DayBefore(day, days + 1)) << DayOf(day) << " " << days;
        }
    }
}

TEST(PurgeScheduleTest, OnlyTheFlagOneSwitchesItOn)
{
    for (const std::uint32_t flag : {0u, 2u, 0x101u, 0xFFFFFFFFu})
    {
        EXPECT_EQ(Through({7, flag}, Today), 0u) << flag;
    }
    EXPECT_EQ(Through({7, 1}, Today), 20261112u);
}

TEST(PurgeScheduleTest, OnceADay)
{
    EXPECT_EQ(Through({7, 1}, Today, ScheduledPurge{20261120, 20261112}), 0u);
    EXPECT_EQ(Through({7, 1}, Today, ScheduledPurge{20261119, 20261111}), 20261112u);
}

TEST(PurgeScheduleTest, OnceMoreOnADayWhoseSettingsKeepLessThanThoseOfThePurgeBefore)
{
    EXPECT_EQ(Through({7, 1}, Today, ScheduledPurge{20261120, 20261111}), 20261112u);
    EXPECT_EQ(Through({14, 1}, Today, ScheduledPurge{20261120, 20261112}), 0u);
}

// Where the clock is set back at midnight, the day before comes once more for an hour.
TEST(PurgeScheduleTest, ADayThatComesTwiceTakesNoMoreThanItTook)
{
    std::optional<ScheduledPurge> last;
    for (const auto& [today, through] : {std::pair(2026y / 10 / 31, 20261023u), std::pair(2026y / 11 / 1, 20261024u),
                                         std::pair(2026y / 10 / 31, 20261023u), std::pair(2026y / 11 / 1, 20261024u)})
    {
        last = DuePurge({7, 1}, last, today);
        EXPECT_EQ(last, (ScheduledPurge{DayOf(today), through}));
    }
}

TEST(PurgeScheduleTest, APurgeThatAWrongClockNotedAheadHoldsNobodyUp)
{
    EXPECT_EQ(Through({7, 1}, Today, ScheduledPurge{20361120, 20361112}), 20261112u);
}

// A retention of 0 that somebody had written into the registry took all but the events of the day.
TEST(PurgeScheduleTest, SettingsThatMakeNoSenseTakeNothing)
{
    for (const std::uint32_t days : {0u, 36'526u, 200'000u, 0xFFFFFFFFu})
    {
        EXPECT_EQ(Through({days, 1}, Today), 0u) << days;
    }
}
