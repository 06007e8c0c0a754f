// The list of dates with the short dates of other regions and those of the user's own choice.

#include "resource/resource.h"
#include "tests/support/ShortDateFormat.h"
#include "tests/ui/framework/ui/kestrix/app/DatabasePageTest.h"

#include <array>

namespace
{

constexpr DATE FirstDay = 46'011; // 20 December 2025
constexpr int DayCount = 60;

struct Region
{
    const char* name;
    const wchar_t* picture;
};

constexpr Region Regions[] = {
    {"MonthFirst", L"M/d/yyyy"},
    {"DayFirst", L"dd/MM/yyyy"},
    {"DayFirstWithDots", L"dd.MM.yyyy"},
    {"DayFirstWithADotAtTheEnd", L"d. M. yyyy."},
    {"YearFirst", L"yyyy/M/d"},
    {"YearFirstWithADotAtTheEnd", L"yyyy. MM. dd."},
    {"YearFirstInOneNumber", L"yyyyMMdd"},
    {"YearFirstWithSigns", L"yyyy\u5E74M\u6708d\u65E5"},
    {"TwoDigitsOfTheYear", L"dd.MM.yy"},
    {"NamesOfMonths", L"d-MMM-yy"},
    {"NamesOfDays", L"dddd, d. MMMM yyyy"},
    {"MarksOfDirection", L"d\x200F/M\x200F/yyyy"},
};

SYSTEMTIME DayAt(int index)
{
    SYSTEMTIME day{};
    ::VariantTimeToSystemTime(FirstDay + index, &day);
    return day;
}

std::wstring FileName(const SYSTEMTIME& day)
{
    wchar_t name[32]{};
    ::_snwprintf(name, std::size(name), L"%04u%02u%02u.VLG", day.wYear, day.wMonth, day.wDay);
    return name;
}

class PlainDateTest : public DatabasePageTest
{
protected:
    void ExpectToLoad(int index, const SYSTEMTIME& day)
    {
        SelectDate(index);
        const SYSTEMTIME asked = m_database.AskedFrom();
        EXPECT_EQ(asked.wYear * 10'000 + asked.wMonth * 100 + asked.wDay,
                  day.wYear * 10'000 + day.wMonth * 100 + day.wDay)
            << index;
    }
};

class KestrixDlgRegionTest : public PlainDateTest, public ::testing::WithParamInterface<Region>
{
protected:
    static std::wstring Shown(const SYSTEMTIME& day) { return DateText(day.wYear, day.wMonth, day.wDay); }

    const ShortDateFormat m_format{GetParam().picture};
};

INSTANTIATE_TEST_SUITE_P(Region, KestrixDlgRegionTest, ::testing::ValuesIn(Regions),
                         [](const auto& region) { return region.param.name; });

} // namespace

TEST_P(KestrixDlgRegionTest, EachDateOfTheDatabaseIsShownInTheUsersFormAndLoadsItsDay)
{
    Texts expected;
    std::vector<SYSTEMTIME> days;
    for (int i = DayCount; i-- > 0;)
    {
        days.push_back(DayAt(i));
    }
    days.push_back(DayAt(-10'000)); // in the last century
    days.push_back(DayAt(10'000));  // two digits do not tell it from one of the last
    for (const SYSTEMTIME& day : days)
    {
        m_database.AddDay(day.wYear, day.wMonth, day.wDay);
        expected.push_back(Shown(day));
    }
    OpenPage();
    EXPECT_EQ(Dates(), expected);
    for (int i = 0; const SYSTEMTIME& day : days)
    {
        ExpectToLoad(i++, day);
    }
    EXPECT_TRUE(m_trace.Errors().empty());
}

TEST_P(KestrixDlgRegionTest, TheDatesOfFilesStandNewestFirst)
{
    // Not in the order of the days, for a system that lists files as they were made.
    for (int i = 0; i < DayCount; ++i)
    {
        WriteUtf16(m_folder.File(FileName(DayAt(i * 7 % DayCount))), L"");
    }
    Texts expected;
    for (int i = DayCount; i-- > 0;)
    {
        expected.push_back(Shown(DayAt(i)));
    }
    m_page.m_bIsLocal = false;
    Open(m_folder.File(L"*.VLG"));
    EXPECT_EQ(Dates(), expected);
    EXPECT_TRUE(m_boxes.Boxes().empty());
}

// Nothing of the page makes such an entry. Its text is taken in the form of the region, whatever the user's own is.
TEST_F(PlainDateTest, AnEntryWithNothingButItsTextIsReadInTheFormOfTheRegion)
{
    const SYSTEMTIME day{2026, 11, 4, 5, 0, 0, 0, 0};
    std::array<wchar_t, 80> text{};
    ASSERT_NE(::GetDateFormatW(LOCALE_USER_DEFAULT, DATE_SHORTDATE | LOCALE_NOUSEROVERRIDE, &day, nullptr, text.data(),
                               static_cast<int>(text.size())),
              0);
    for (const wchar_t* picture : {L"d/M/yyyy", L"M/d/yyyy"})
    {
        const ShortDateFormat format(picture);
        m_page.DestroyWindow();
        m_list.Detach();
        OpenPage();
        Item(IDC_DATE_LIST).SendMessage(LB_ADDSTRING, 0, reinterpret_cast<LPARAM>(text.data()));
        ExpectToLoad(0, day);
    }
}
