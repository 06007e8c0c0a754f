// What the user sees while a day is read, which may take seconds: the window as it will stand, and the wait cursor.

#include "resource/resource.h"
#include "tests/ui/framework/ui/kestrix/app/FormTest.h"

#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace
{

// A database that lets the test look around while it is asked for records.
class WatchedDatabase : public DatabaseDouble
{
public:
    HRESULT QueryValue(std::uint32_t kind, std::uint32_t query, std::uint32_t logSubType, void** result,
                       std::uint32_t flags, const void* request) override
    {
        if (query == OrlQueryRecords)
        {
            m_whenAsked();
        }
        return DatabaseDouble::QueryValue(kind, query, logSubType, result, flags, request);
    }

    std::function<void()> m_whenAsked = [] {};
};

struct Sight
{
    bool isVisible;
    std::vector<int> unpainted; // the controls that are still to be painted, 0 for the form itself
    HCURSOR cursor;
};

// The list is left out: it has just lost its rows.
std::vector<int> UnpaintedOf(HWND form)
{
    std::vector<int> controls;
    if (::GetUpdateRect(form, nullptr, FALSE))
    {
        controls.push_back(0);
    }
    const auto look = [](HWND child, LPARAM answer) -> BOOL
    {
        const bool isOfList =
            ::GetDlgCtrlID(child) == IDC_RECORD_LIST || ::GetDlgCtrlID(::GetParent(child)) == IDC_RECORD_LIST;
        if (!isOfList && ::IsWindowVisible(child) && ::GetUpdateRect(child, nullptr, FALSE))
        {
            reinterpret_cast<std::vector<int>*>(answer)->push_back(::GetDlgCtrlID(child));
        }
        return TRUE;
    };
    ::EnumChildWindows(form, look, reinterpret_cast<LPARAM>(&controls));
    return controls;
}

class LogFormWaitTest : public FormTest
{
protected:
    LogFormWaitTest()
    {
        m_watched.AddDay(2026, 11, 20);
        m_watched.AddDay(2026, 11, 19);
        m_watched.SetLines({L"x|0900|1048576|x|0|0|beta|C:\\b|4|1|0|0|x"});
        m_watched.m_whenAsked = [this] { m_sight = {m_form.IsWindowVisible(), UnpaintedOf(m_form), ::GetCursor()}; };
        m_app.m_pIDBManagerProvider = &m_watched;
        m_form.m_bIsLocal = true;
    }

    // Runs the form, in which the user does something for which a day is read.
    void ExpectSightOf(const std::function<void()>& deed)
    {
        m_form.Run({[&]
                    {
                        m_sight.reset();
                        m_form.RedrawWindow(RDW_INVALIDATE | RDW_ERASE | RDW_ALLCHILDREN);
                        ::SetCursor(::LoadCursorW(nullptr, IDC_ARROW));
                        deed();
                        EXPECT_EQ(::GetCursor(), ::LoadCursorW(nullptr, IDC_ARROW));
                    }});
        ExpectSight();
    }

    void ExpectSight() const
    {
        ASSERT_TRUE(m_sight) << "nothing was read";
        EXPECT_TRUE(m_sight->isVisible);
        EXPECT_EQ(m_sight->unpainted, std::vector<int>());
        EXPECT_EQ(m_sight->cursor, ::LoadCursorW(nullptr, IDC_WAIT));
    }

    WatchedDatabase m_watched;
    std::optional<Sight> m_sight; // while the last day was read
};

} // namespace

TEST_F(LogFormWaitTest, AtTheStartTheWindowStandsPaintedBeforeItsFirstDayIsRead)
{
    LRESULT rows = 0;
    m_form.Run({[&] { rows = CWindow(m_form.Page()->GetDlgItem(IDC_RECORD_LIST)).SendMessage(LVM_GETITEMCOUNT); }});
    ExpectSight();
    EXPECT_EQ(rows, 1);
    EXPECT_EQ(m_watched.CountOf(OrlQueryRecords), 1) << "it is read once";
}

TEST_F(LogFormWaitTest, AfterAClickOnADateTheWindowStandsPaintedBeforeTheDayIsRead)
{
    ExpectSightOf(
        [this]
        {
            const CWindow dates(m_form.Page()->GetDlgItem(IDC_DATE_LIST));
            dates.SendMessage(LB_SETCURSEL, 1);
            m_form.Page()->SendMessage(WM_COMMAND, MAKEWPARAM(IDC_DATE_LIST, LBN_SELCHANGE),
                                       reinterpret_cast<LPARAM>(dates.GetSafeHwnd()));
        });
}

TEST_F(LogFormWaitTest, AfterASwitchToAnotherLogTheWindowStandsPaintedBeforeTheDayIsRead)
{
    ExpectSightOf([this] { SwitchTo(IDS_TITLE_SCAN); });
}

TEST_F(LogFormWaitTest, AfterAPurgeTheWindowStandsPaintedBeforeTheDayIsRead)
{
    ExpectSightOf([this] { m_form.Page()->RefreshLog(CKestrixDlg::AnyReason); });
}

// To paint the window twice would take longer than to read the file.
TEST_F(LogFormWaitTest, AShortFileIsReadBeforeTheWindowStandsAndALongOneAfter)
{
    for (const bool isLong : {false, true})
    {
        const std::wstring line = L"x|0900|1048576|x|0|0|beta|C:\\b|4|1|0|0\r\n";
        std::wstring lines = line;
        while (isLong && lines.size() * sizeof(wchar_t) < 5 * 1024 * 1024)
        {
            lines += lines;
        }
        WriteUtf16(m_form.m_strLogPath, lines);
        CKestrixDlg page;
        page.m_nLogType = LogTypeVirus;
        page.m_bLogOnly = true;
        page.m_strLogPath = m_form.m_strLogPath;
        page.m_pHost = &m_app;
        page.m_bLoadWhenShown = true;
        CWnd parent;
        parent.Create(L"STATIC", {}, WS_POPUP, {0, 0, 800, 600}, nullptr, 0);
        ASSERT_TRUE(page.Create(IDD_LOG_PAGE, &parent));
        EXPECT_EQ(page.RecordList().GetItemCount(), isLong ? 0 : 1);
        page.LoadWhenShown();
        EXPECT_EQ(static_cast<std::size_t>(page.RecordList().GetItemCount()), lines.size() / line.size());
    }
}

// A purge may end before the form stands.
TEST_F(LogFormWaitTest, APageThatIsMadeAnewBeforeItsFormStandsReadsItsDayOnce)
{
    CKestrixDlg page;
    page.m_nLogType = LogTypeVirus;
    page.m_bLogOnly = true;
    page.m_bIsLocal = true;
    page.m_pHost = &m_app;
    page.m_bLoadWhenShown = true;
    CWnd parent;
    parent.Create(L"STATIC", {}, WS_POPUP, {0, 0, 800, 600}, nullptr, 0);
    ASSERT_TRUE(page.Create(IDD_LOG_PAGE, &parent));
    page.RefreshLog(CKestrixDlg::AnyReason);
    EXPECT_EQ(m_watched.CountOf(OrlQueryRecords), 0);
    page.LoadWhenShown();
    page.LoadWhenShown();
    EXPECT_EQ(m_watched.CountOf(OrlQueryRecords), 1);
    EXPECT_EQ(page.RecordList().GetItemCount(), 1);
}
