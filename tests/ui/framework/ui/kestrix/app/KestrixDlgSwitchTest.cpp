// The page's switch to another log, and its rebuilding after a purge.

#include "resource/resource.h"
#include "tests/ui/framework/ui/kestrix/app/DatabasePageTest.h"

#include <algorithm>

namespace
{

class KestrixDlgSwitchTest : public DatabasePageTest
{
protected:
    // The page of the virus log with one day of one record, which is selected.
    void OpenWithARecord()
    {
        m_database.AddDay(2026, 11, 20);
        m_database.SetLines({L"x|0900|1048576|x|0|0|beta|C:\\b|4|1|0|0|x"});
        OpenPage();
        ClickRow(0);
    }

    // As the user does: a choice in the combo, then View.
    void View(std::uint32_t type)
    {
        const CWindow combo = Item(IDC_LOG_TYPE);
        for (LRESULT i = 0; i < combo.SendMessage(CB_GETCOUNT); ++i)
        {
            if (combo.SendMessage(CB_GETITEMDATA, static_cast<WPARAM>(i)) == static_cast<LRESULT>(type))
            {
                combo.SendMessage(CB_SETCURSEL, static_cast<WPARAM>(i));
            }
        }
        m_page.SendMessage(WM_COMMAND, MAKEWPARAM(IDC_VIEW, BN_CLICKED),
                           reinterpret_cast<LPARAM>(Item(IDC_VIEW).GetSafeHwnd()));
    }

    int ColumnCount() const { return static_cast<int>(SendMessageW(m_list.GetHeaderCtrl(), HDM_GETITEMCOUNT, 0, 0)); }
};

constexpr UINT Values[] = {
    IDC_INFO_VALUE_0_LINK, IDC_INFO_VALUE_0_TEXT, IDC_INFO_VALUE_1, IDC_INFO_VALUE_2,
    IDC_INFO_VALUE_3,      IDC_INFO_VALUE_4,      IDC_INFO_VALUE_5, IDC_INFO_VALUE_6,
};

} // namespace

TEST_F(KestrixDlgSwitchTest, SwitchingToTheLogAlreadyShownDoesNothingNotEvenAReload)
{
    OpenWithARecord();
    const int queries = static_cast<int>(m_database.m_arrQuery.size());
    m_trace.Clear();
    View(LogTypeVirus);
    EXPECT_EQ(m_database.m_arrQuery.size(), static_cast<std::size_t>(queries));
    EXPECT_EQ(TextOf(IDC_INFO_VALUE_0_LINK), L"beta");
    EXPECT_EQ(m_trace.Texts(), Texts{L"[Enter] CKestrixDlg::OnBnClickedBtnView()"});
}

TEST_F(KestrixDlgSwitchTest, ALogWithoutAClassLeavesAnEmptyPageThatSwitchesBack)
{
    OpenWithARecord();
    const int columns = ColumnCount();
    constexpr std::uint32_t classless = 4;
    Item(IDC_LOG_TYPE).SendMessage(CB_SETITEMDATA, 1, classless);
    View(classless);
    EXPECT_EQ(m_page.m_nLogType, classless);
    EXPECT_EQ(m_list.GetItemCount(), 0);
    for (const UINT value : Values)
    {
        EXPECT_EQ(TextOf(value), L"") << value;
        EXPECT_EQ(TipOf(value), L"") << value;
    }
    SelectDate(0);
    ClickHeader(1);
    ReleaseKey(m_list, VK_DOWN);

    View(LogTypeVirus);
    EXPECT_EQ(ColumnCount(), columns) << "the columns before are gone";
    EXPECT_EQ(Dates(), Texts{DateText(2026, 11, 20)});
    EXPECT_EQ(Column(2), Texts{L"beta"});
    EXPECT_TRUE(IsShown(IDC_INFO_VALUE_0_LINK));
    EXPECT_FALSE(IsShown(IDC_INFO_VALUE_0_TEXT));
}

// The icons end with their log; the list once went on to draw with them in a log that has none of its own.
TEST_F(KestrixDlgSwitchTest, ALogWithoutIconsHasNoneOfTheLogBefore)
{
    OpenWithARecord();
    ASSERT_NE(m_list.SendMessage(LVM_GETIMAGELIST, LVSIL_SMALL), 0);
    View(LogTypePhishing);
    EXPECT_EQ(m_list.SendMessage(LVM_GETIMAGELIST, LVSIL_SMALL), 0);
    View(LogTypeVirus);
    EXPECT_NE(m_list.SendMessage(LVM_GETIMAGELIST, LVSIL_SMALL), 0);
}

TEST_F(KestrixDlgSwitchTest, ASwitchClosesTheWholeTextAndTheRulePart)
{
    OpenWithARecord();
    ClickControl(IDC_INFO_VALUE_2);
    ASSERT_TRUE(IsShown(IDC_INFO_VALUE_2_WHOLE));
    Item(IDC_ALLOW).ShowWindow(SW_SHOW);
    Item(IDC_ALLOW_LABEL).ShowWindow(SW_SHOW);
    View(LogTypeScan);
    EXPECT_FALSE(IsShown(IDC_INFO_VALUE_2_WHOLE));
    EXPECT_TRUE(IsShown(IDC_INFO_VALUE_2));
    EXPECT_FALSE(IsShown(IDC_ALLOW));
    EXPECT_FALSE(IsShown(IDC_ALLOW_LABEL));
}

TEST_F(KestrixDlgSwitchTest, AClickOnAllowDisablesItInTheLogThatHasRulesAndInNoOther)
{
    OpenWithARecord();
    CWindow allow = Item(IDC_ALLOW);
    allow.EnableWindow();
    const auto click = [&] { m_page.SendMessage(WM_COMMAND, MAKEWPARAM(IDC_ALLOW, BN_CLICKED)); };
    click();
    EXPECT_TRUE(allow.IsWindowEnabled());
    m_page.m_nLogType = LogTypeFirewall;
    m_page.RefreshLog(CKestrixDlg::AnyReason);
    click();
    EXPECT_FALSE(allow.IsWindowEnabled());
}

TEST_F(KestrixDlgSwitchTest, ARefreshLosesTheSelectedDateAndGoesToTheFirst)
{
    m_database.AddDay(2026, 11, 20);
    m_database.AddDay(2026, 11, 19);
    OpenPage();
    SelectDate(1);
    m_database.RemoveDays();
    m_database.AddDay(2026, 11, 18);
    m_database.AddDay(2026, 11, 17);
    m_page.RefreshLog(CKestrixDlg::AnyReason);
    EXPECT_EQ(Dates(), (Texts{DateText(2026, 11, 18), DateText(2026, 11, 17)}));
    EXPECT_EQ(Item(IDC_DATE_LIST).SendMessage(LB_GETCURSEL), 0);
    EXPECT_EQ(m_database.AskedFrom().wDay, 18);
}

TEST_F(KestrixDlgSwitchTest, ARefreshThatFindsNoDatesLeavesAnEmptyListAndNothingToExportOrDelete)
{
    OpenWithARecord();
    m_database.RemoveDays();
    m_page.RefreshLog(CKestrixDlg::AnyReason);
    EXPECT_EQ(Dates(), Texts{});
    EXPECT_EQ(m_list.GetItemCount(), 0);
    EXPECT_FALSE(CanExport());
    EXPECT_FALSE(CanDelete());
    EXPECT_TRUE(m_boxes.Boxes().empty());
}

// The first value was moved to the place on the screen that it had before the user dragged the form.
TEST_F(KestrixDlgSwitchTest, ARefreshLeavesTheFirstValueInItsPlaceAlsoInAFormThatHasBeenMoved)
{
    const auto placeInPage = [this]
    {
        RECT place = Item(IDC_INFO_VALUE_0_TEXT).GetWindowRect();
        m_page.ScreenToClient(place);
        return place;
    };
    for (const bool isLocal : {true, false})
    {
        m_page.DestroyWindow();
        m_list.Detach();
        m_page.m_bIsLocal = isLocal;
        m_database.AddDay(2026, 11, 20);
        OpenDay({L"x|0900|1048576|x|0|0|beta|C:\\b|4|1|0|0"});
        const RECT before = placeInPage();
        const RECT form = m_parent.GetWindowRect();
        m_parent.MoveWindow({form.left + 60, form.top + 40, form.right + 60, form.bottom + 40});
        m_page.RefreshLog(CKestrixDlg::AnyReason);
        const RECT after = placeInPage();
        EXPECT_TRUE(EqualRect(&before, &after)) << isLocal << ": " << after.left << ", " << after.top;
    }
}

// Nothing catches the exception of a day that cannot be counted: what was listed stays, and no day is loaded.
TEST_F(KestrixDlgSwitchTest, ADayThatCannotBeCountedEndsARefreshWithTheDaysBeforeIt)
{
    m_page.m_bIsLocal = false;
    m_page.m_nReportSpan = 1'000'000;
    WriteUtf16(m_folder.File(L"30010101.VLG"), L"");
    WriteUtf16(m_folder.File(L"20201120.VLG"), L"");
    Open(m_folder.File(L"*.VLG"));
    EXPECT_EQ(Dates().size(), 2u);
    m_page.m_bLogOnly = false;
    EXPECT_THROW(m_page.RefreshLog(CKestrixDlg::AnyReason), CAtlException);
    EXPECT_EQ(Dates(), Texts{DateText(2020, 11, 20)});
    EXPECT_EQ(Item(IDC_DATE_LIST).SendMessage(LB_GETCURSEL), LB_ERR);
    EXPECT_EQ(m_list.GetItemCount(), 0);
}

TEST_F(KestrixDlgSwitchTest, TheReasonOfARefreshIsNotLookedAt)
{
    OpenWithARecord();
    const int queries = m_database.CountOf(OrlQueryDays);
    m_page.RefreshLog(0);
    m_page.RefreshLog(-1);
    EXPECT_EQ(m_database.CountOf(OrlQueryDays), queries + 2);
}

TEST_F(KestrixDlgSwitchTest, ARefreshOfAFileThatIsGoneIsToldAndCancelsThePage)
{
    m_page.m_bIsLocal = false;
    OpenDay({L"x|0900|1048576|x|0|0|beta|C:\\b|4|1|0|0"});
    DeleteFileW(m_page.m_strLogPath.c_str());
    m_page.RefreshLog(CKestrixDlg::AnyReason);
    ASSERT_EQ(m_boxes.Boxes().size(), 1u);
    EXPECT_EQ(m_boxes.Boxes()[0].text, LoadText(IDS_NO_LOG_FILE));
    EXPECT_EQ(m_boxes.Boxes()[0].caption, LoadText(IDS_TITLE_VIRUS));
    EXPECT_FALSE(m_page.IsWindowVisible());
}
