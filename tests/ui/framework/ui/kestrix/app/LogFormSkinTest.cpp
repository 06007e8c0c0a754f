// The form's window, its tabs, its labels and its caption buttons.

#include "resource/resource.h"
#include "tests/support/RegistrySandbox.h"
#include "tests/support/TraceRecorder.h"
#include "tests/ui/framework/ui/kestrix/app/FormTest.h"

#include <algorithm>
#include <ctime>

namespace
{

constexpr wchar_t EventLogKey[] = L"Software\\Veldrane\\Zeptara\\17\\ServiceFramework\\EnforceLayer\\Common\\EventLog";

class LogFormSkinTest : public FormTest
{
protected:
    // The form with a report, whose days reach back far enough for the file of the test.
    void WithReport()
    {
        m_form.m_bLogOnly = false;
        m_form.m_nReportSpan = 10'000;
    }

    void Key(UINT message, int key, HWND target)
    {
        MSG event{};
        event.hwnd = target;
        event.message = message;
        event.wParam = static_cast<WPARAM>(key);
        m_nTaken = m_form.PreTranslateMessage(event);
    }

    int Tab() const { return static_cast<int>(m_form.Item(IDC_FORM_TAB).SendMessage(TCM_GETCURSEL)); }

    std::wstring TotalLabel()
    {
        std::wstring text;
        WithReport();
        m_form.Run({[&] { text = m_form.Item(IDC_FORM_REPORT_TOTAL).GetWindowText(); }});
        return text;
    }

    // The second label with a date this many days back.
    static std::wstring TotalSince(int daysBack)
    {
        const std::time_t then = std::time(nullptr) - daysBack * 86'400;
        wchar_t date[128]{};
        std::wcsftime(date, std::size(date), LoadText(IDS_REPORT_DATE).c_str(), std::localtime(&then));
        return L"0 events since " + std::wstring(date);
    }

    void Install(const SYSTEMTIME& time)
    {
        const auto* const bytes = reinterpret_cast<const BYTE*>(&time);
        m_registry.SetBytes(EventLogKey, L"InstallTime", {bytes, bytes + sizeof time});
    }

    const RegistrySandbox m_registry;
    const TraceRecorder m_trace;
    BOOL m_nTaken = FALSE;
};

} // namespace

TEST_F(LogFormSkinTest, TheWindowHasNoCaptionAndNoEdgesOfTheSystem)
{
    m_form.Run({[&]
                {
                    EXPECT_EQ(m_form.GetStyle() & 0x00C20080, 0u);
                    EXPECT_EQ(m_form.GetExStyle() & 0x00000101, 0u);
                }});
    const auto texts = m_trace.Texts(VdCommon::TraceLevel::Info);
    EXPECT_EQ(std::ranges::count_if(texts, [](const auto& text)
                                    { return text.starts_with(L"CLogFormDlg::PreSubclassWindow: style="); }),
              1);
    EXPECT_EQ(std::ranges::count_if(texts, [](const auto& text)
                                    { return text.starts_with(L"CLogFormDlg::PreSubclassWindow: New style="); }),
              1);
}

TEST_F(LogFormSkinTest, ItsCornersAreCutAway)
{
    m_form.Run({[&]
                {
                    const RECT client = m_form.GetClientRect();
                    CRgn region;
                    region.CreateRectRgn({0, 0, 1, 1});
                    ASSERT_EQ(GetWindowRgn(m_form, region), COMPLEXREGION);
                    EXPECT_FALSE(PtInRegion(region, 0, 0));
                    EXPECT_FALSE(PtInRegion(region, client.right - 1, 0));
                    EXPECT_FALSE(PtInRegion(region, 0, client.bottom - 1));
                    EXPECT_FALSE(PtInRegion(region, client.right - 1, client.bottom - 1));
                    EXPECT_TRUE(PtInRegion(region, client.right / 2, 0));
                }});
}

TEST_F(LogFormSkinTest, WithTheOnePageThereIsOneTabThatTheTabKeyPassesOver)
{
    m_form.Run({[&]
                {
                    EXPECT_EQ(m_form.Item(IDC_FORM_TAB).SendMessage(TCM_GETITEMCOUNT), 1);
                    EXPECT_EQ(m_form.Item(IDC_FORM_TAB).GetStyle() & WS_TABSTOP, 0u);
                    EXPECT_NE(CWindow(m_form.Page()->GetDlgItem(IDC_SETTING)).GetStyle() & WS_VISIBLE, 0u);
                    EXPECT_EQ(m_form.Item(IDC_FORM_REPORT_TITLE).GetStyle() & WS_VISIBLE, 0u);
                }});
}

TEST_F(LogFormSkinTest, SpaceOnTheOneTabSelectsNothingNew)
{
    m_form.Run({[&]
                {
                    Key(WM_KEYDOWN, VK_SPACE, m_form.Item(IDC_FORM_TAB));
                    EXPECT_TRUE(m_nTaken);
                    EXPECT_EQ(Tab(), 0);
                    EXPECT_TRUE(m_form.Page()->IsWindowVisible());
                }});
}

TEST_F(LogFormSkinTest, AFormWithAReportHasTwoTabsAndItsOwnTitle)
{
    WithReport();
    m_form.Run({[&]
                {
                    EXPECT_EQ(m_form.GetWindowText(), Text(79));
                    EXPECT_EQ(m_form.Item(IDC_FORM_HEADING).GetWindowText(), Text(79));
                    CTabCtrl tab;
                    tab.Attach(m_form.Item(IDC_FORM_TAB));
                    ASSERT_EQ(tab.GetItemCount(), 2);
                    EXPECT_EQ(tab.GetItemText(0), Text(320));
                    EXPECT_EQ(tab.GetItemText(1), Text(319));
                    EXPECT_NE(tab.GetStyle() & WS_TABSTOP, 0u);
                    const RECT first = tab.GetItemRect(0);
                    EXPECT_EQ(first.right - first.left, 110);
                    EXPECT_EQ(first.bottom - first.top, 20);
                    EXPECT_FALSE(m_form.Page()->IsWindowVisible());
                    EXPECT_EQ(CWindow(m_form.Page()->GetDlgItem(IDC_SETTING)).GetStyle() & WS_VISIBLE, 0u);
                    EXPECT_EQ(m_form.Item(IDC_FORM_REPORT_TITLE).GetWindowText(), Text(542));
                }});
}

TEST_F(LogFormSkinTest, SpaceOnTheTabsChangesToTheOtherPage)
{
    WithReport();
    m_form.Run({[&]
                {
                    Key(WM_KEYDOWN, VK_SPACE, m_form.Item(IDC_FORM_TAB));
                    EXPECT_TRUE(m_nTaken);
                    EXPECT_EQ(Tab(), 1);
                    EXPECT_TRUE(m_form.Page()->IsWindowVisible());
                    Key(WM_KEYDOWN, VK_SPACE, m_form.Item(IDC_FORM_TAB));
                    EXPECT_EQ(Tab(), 0);
                    EXPECT_FALSE(m_form.Page()->IsWindowVisible());
                    Key(WM_KEYUP, VK_TAB, m_form.Item(IDC_FORM_CLOSE));
                    EXPECT_TRUE(m_nTaken);
                    EXPECT_EQ(Tab(), 0);
                }});
}

TEST_F(LogFormSkinTest, TheCaptionButtonsHaveNamesMinimiseAndClose)
{
    const INT_PTR result =
        m_form.RunToItsOwnEnd({[&]
                               {
                                   EXPECT_EQ(m_form.Item(IDC_FORM_MINIMISE).GetWindowText(), L"&Minimise");
                                   EXPECT_EQ(m_form.Item(IDC_FORM_CLOSE_BOX).GetWindowText(), L"Close");
                                   m_form.SendMessage(WM_COMMAND, MAKEWPARAM(IDC_FORM_MINIMISE, BN_CLICKED), 0);
                                   EXPECT_TRUE(m_form.IsIconic());
                                   m_form.ShowWindow(SW_RESTORE);
                                   EXPECT_FALSE(m_form.IsIconic());
                               },
                               [&] { m_form.SendMessage(WM_COMMAND, MAKEWPARAM(IDC_FORM_CLOSE_BOX, BN_CLICKED), 0); }});
    EXPECT_EQ(result, IDCANCEL);
}

TEST_F(LogFormSkinTest, AMinimisedFormGivesItsIcon)
{
    m_form.Run({[&]
                {
                    EXPECT_EQ(m_form.SendMessage(WM_QUERYDRAGICON), m_form.SendMessage(WM_GETICON, ICON_BIG));
                    EXPECT_NE(m_form.SendMessage(WM_QUERYDRAGICON), 0);
                    m_form.ShowWindow(SW_MINIMIZE);
                    m_form.SendMessage(WM_PAINT);
                    m_form.ShowWindow(SW_RESTORE);
                }});
}

TEST_F(LogFormSkinTest, TheReportCountsFromTheFirstDayOfItsPeriod)
{
    EXPECT_EQ(TotalLabel(), TotalSince(6));
    EXPECT_EQ(std::ranges::count(m_trace.Errors(), L"VdCommon::Storage::Reg::QueryValue() failed: 0x00000002"), 1);
}

TEST_F(LogFormSkinTest, APeriodBelow3OrAbove30DaysCountsAs7)
{
    for (const auto& [frequency, days] : {std::pair{2u, 7}, {3u, 3}, {30u, 30}, {31u, 7}, {0u, 7}})
    {
        m_registry.SetNumber(EventLogKey, L"GenReportFrequency", frequency);
        EXPECT_EQ(TotalLabel(), TotalSince(days - 1)) << frequency;
    }
}

TEST_F(LogFormSkinTest, AnInstallationWithinThePeriodIsItsBeginning)
{
    SYSTEMTIME time{};
    const std::time_t then = std::time(nullptr) - 2 * 86'400;
    const std::tm fields = *std::localtime(&then);
    time.wYear = static_cast<WORD>(fields.tm_year + 1900);
    time.wMonth = static_cast<WORD>(fields.tm_mon + 1);
    time.wDay = static_cast<WORD>(fields.tm_mday);
    time.wHour = 12;
    Install(time);
    EXPECT_EQ(TotalLabel(), TotalSince(2));
    time.wYear = 2001;
    Install(time);
    EXPECT_EQ(TotalLabel(), TotalSince(6));
}

TEST_F(LogFormSkinTest, AnInstallationTimeOfAnotherSizeIsTracedAndLeftOut)
{
    m_registry.SetBytes(EventLogKey, L"InstallTime", {1, 2, 3});
    EXPECT_EQ(TotalLabel(), TotalSince(6));
    EXPECT_EQ(std::ranges::count(m_trace.Errors(), L"size of byte_array is invalid: 3"), 1);
}
