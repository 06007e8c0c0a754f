// File mode beside a report: only the days of the report are listed.

#include "tests/support/ImportPatch.h"
#include "tests/ui/framework/ui/kestrix/app/PageTest.h"

extern "C" decltype(&::GetLocalTime) __imp_GetLocalTime;

namespace
{

// The clock of the test stands at half past nine on 20 November 2026.
class KestrixDlgSpanTest : public PageTest
{
protected:
    KestrixDlgSpanTest()
    {
        m_page.m_bLogOnly = false;
        for (const wchar_t* const name : {L"20261121.VLG", L"20261120.VLG", L"20261118.VLG", L"20261117.VLG"})
        {
            WriteUtf16(m_folder.File(name), L"");
        }
    }

    Texts DatesOfSpan(std::uint32_t days)
    {
        m_page.m_nReportSpan = days;
        Open(m_folder.File(L"*.VLG"));
        return Dates();
    }

private:
    static void WINAPI Now(SYSTEMTIME* time) { *time = {2026, 11, 5, 20, 9, 30, 0, 0}; }

    const ImportPatch<decltype(&::GetLocalTime)> m_clock{__imp_GetLocalTime, &Now};
};

} // namespace

TEST_F(KestrixDlgSpanTest, NeitherTheDayBeforeTheSpanNorTomorrowIsListed)
{
    EXPECT_EQ(DatesOfSpan(3), (Texts{DateText(2026, 11, 20), DateText(2026, 11, 18)}));
}

TEST_F(KestrixDlgSpanTest, ASpanOfADayMoreListsADayMore)
{
    EXPECT_EQ(DatesOfSpan(4), (Texts{DateText(2026, 11, 20), DateText(2026, 11, 18), DateText(2026, 11, 17)}));
}

TEST_F(KestrixDlgSpanTest, WithoutAReportEveryDayIsListed)
{
    m_page.m_bLogOnly = true;
    EXPECT_EQ(DatesOfSpan(3).size(), 4u);
}
