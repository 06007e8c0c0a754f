// The viewer with short dates as the user has chosen them in the regional settings.

#include "resource/resource.h"
#include "tests/e2e/EventLogs.h"
#include "tests/e2e/InstalledFolder.h"
#include "tests/e2e/Service.h"
#include "tests/e2e/Viewer.h"
#include "tests/support/LanguageFile.h"
#include "tests/support/ShortDateFormat.h"

#include <gtest/gtest.h>

#include <chrono>

namespace
{

using Texts = std::vector<std::wstring>;

constexpr int DayCount = 60;

// 60 days with the turn of a year and all days of two months, the newest first.
std::vector<EventLog::Day> TestDays()
{
    using namespace std::chrono;
    std::vector<EventLog::Day> days;
    for (int back = 0; back < DayCount; ++back)
    {
        const year_month_day day{sys_days{2026y / February / 17} - std::chrono::days(back)};
        days.push_back(static_cast<EventLog::Day>(static_cast<int>(day.year()) * 10'000 +
                                                  static_cast<unsigned>(day.month()) * 100 +
                                                  static_cast<unsigned>(day.day())));
    }
    return days;
}

struct Region
{
    const char* name;
    const wchar_t* picture;
};

class RegionTest : public ::testing::TestWithParam<Region>
{
protected:
    RegionTest() { Service::Run(L"/UnregServer"); }

    const LanguageFile m_language;
    const InstalledFolder m_installed;
    const EventLogs m_logs{m_installed.Folder()};
    const ShortDateFormat m_format{GetParam().picture};
};

INSTANTIATE_TEST_SUITE_P(Picture, RegionTest,
                         ::testing::Values(Region{"MonthFirst", L"M/d/yyyy"}, Region{"DayFirst", L"dd/MM/yyyy"},
                                           Region{"DayFirstWithDots", L"dd.MM.yy"},
                                           Region{"YearFirstWithADotAtTheEnd", L"yyyy. MM. dd."},
                                           Region{"MarksOfDirection", L"d\x200F/M\x200F/yyyy"}),
                         [](const auto& region) { return region.param.name; });

} // namespace

TEST_P(RegionTest, EachDayOfTheDatabaseLoadsItsOwnRecords)
{
    const std::vector<EventLog::Day> days = TestDays();
    for (const EventLog::Day day : days)
    {
        m_logs.Append(VirusSubType, day, {VirusLine(L"0900", std::to_wstring(day))});
    }
    const Viewer viewer(DatabaseCommandLine(VirusLog));
    ASSERT_NE(viewer.Form(), nullptr);
    EXPECT_EQ(viewer.Dates(), m_logs.VirusDates());
    for (int i = 0; const EventLog::Day day : days)
    {
        viewer.ChooseDate(i++);
        EXPECT_EQ(viewer.Column(2), Texts{std::to_wstring(day)});
    }
    EXPECT_EQ(viewer.Close(), 0u);
}
