// The page and its type of log: types without a class, database mode, the choice of logs, and View.

#include "framework/ui/kestrix/app/Kestrix.h"
#include "framework/ui/kestrix/app/LogFormDlg.h"
#include "framework/ui/kestrix/logs/LogRec.h"
#include "resource/resource.h"
#include "tests/support/RegistrySandbox.h"
#include "tests/ui/framework/ui/kestrix/app/PageTest.h"

#include <memory_resource>

namespace
{

constexpr wchar_t InstallerKey[] = L"Software\\Veldrane\\Zeptara\\17\\Installer";
constexpr wchar_t ProductKey[] = L"Software\\Veldrane\\Zeptara";
constexpr std::uint32_t ClasslessTypes[] = {4, 10, LogTypeNone, 1000, 0xFFFFFFFF};

struct Choice
{
    std::uint32_t type;
    std::wstring text;

    friend bool operator==(const Choice&, const Choice&) = default;
};

class KestrixDlgTypesTest : public PageTest
{
protected:
    // The page as the form has it: with a choice of logs.
    void OpenInForm(std::initializer_list<std::wstring> lines)
    {
        m_page.m_pParentForm = &m_form;
        OpenDay(lines);
    }

    std::vector<Choice> Choices() const
    {
        CComboBox combo;
        combo.Attach(Item(IDC_LOG_TYPE));
        std::vector<Choice> choices;
        for (int i = 0; i < combo.GetCount(); ++i)
        {
            choices.push_back({static_cast<std::uint32_t>(combo.GetItemData(i)), combo.GetLBText(i)});
        }
        return choices;
    }

    LRESULT SelectedChoice() const { return Item(IDC_LOG_TYPE).SendMessage(CB_GETCURSEL); }

    // Every notification that the page handles, with a selected row that points to a record.
    void SendAllNotifications()
    {
        std::pmr::monotonic_buffer_resource memory;
        LogRec record(&memory);
        LVITEMW item{};
        item.mask = LVIF_PARAM;
        item.lParam = reinterpret_cast<LPARAM>(&record);
        m_list.InsertItem(item);
        SelectDate(0);
        ClickRow(0);
        ReleaseKey(m_list, VK_DOWN);
        NMLISTVIEW column{};
        Notify(IDC_RECORD_LIST, static_cast<UINT>(LVN_COLUMNCLICK), column);
        Item(IDC_DATE_LIST).SendMessage(LB_ADDSTRING, 0, reinterpret_cast<LPARAM>(L"a date"));
        std::wstring text(300, L'.');
        record.Append(L"field");
        NMLVDISPINFOW info{};
        info.item.mask = LVIF_TEXT;
        info.item.lParam = reinterpret_cast<LPARAM>(&record);
        info.item.pszText = text.data();
        info.item.cchTextMax = static_cast<int>(text.size());
        Notify(IDC_RECORD_LIST, static_cast<UINT>(LVN_GETDISPINFOW), info);
        ClickControl(IDC_INFO_VALUE_2);
        Item(IDC_VIEW).SendMessage(BM_CLICK);
        m_page.SendMessage(WM_PAINT);
        m_list.DeleteAllItems();
    }

    const RegistrySandbox m_registry;
    CLogFormDlg m_form;
};

} // namespace

TEST_F(KestrixDlgTypesTest, ATypeWithoutAClassLeavesThePageEmptyAndTellsNothing)
{
    for (const std::uint32_t type : ClasslessTypes)
    {
        m_page.DestroyWindow();
        m_list.Detach();
        m_page.m_nLogType = type;
        OpenInForm({L"x|0900|1048576|x|0|0|beta|C:\\b|4|1|0|0"});
        EXPECT_EQ(m_page.m_nInitResult, FALSE);
        EXPECT_TRUE(m_page.IsWindowVisible()) << "it is not cancelled";
        EXPECT_EQ(Dates(), Texts{});
        EXPECT_EQ(m_list.GetItemCount(), 0);
        EXPECT_EQ(SendMessageW(m_list.GetHeaderCtrl(), HDM_GETITEMCOUNT, 0, 0), 0);
        EXPECT_EQ(Choices(), std::vector<Choice>{});
        EXPECT_TRUE(m_boxes.Boxes().empty());
    }
}

TEST_F(KestrixDlgTypesTest, ATypeWithoutAClassOutlivesEveryNotification)
{
    for (const std::uint32_t type : ClasslessTypes)
    {
        m_page.DestroyWindow();
        m_list.Detach();
        m_page.m_nLogType = type;
        OpenInForm({L"x|0900|1048576|x|0|0|beta|C:\\b|4|1|0|0"});
        SendAllNotifications();
        EXPECT_TRUE(m_page.IsWindowVisible());
        EXPECT_EQ(TextOf(IDC_INFO_VALUE_0_LINK), L"");
    }
}

// The firewall writes a mark in the place of this machine's address, which the command line tells.
TEST_F(KestrixDlgTypesTest, TheFirewallLogShowsTheAddressOfThisMachine)
{
    m_page.m_nLogType = LogTypeFirewall;
    m_page.m_strLocalIp = L"192.0.2.7";
    OpenDay({L"080000|4|0|2||6|2|LIP|49152|192.0.2.20|443|||C:\\a.exe|rule|message"});
    EXPECT_EQ(Cells(0), (Texts{L"08:00:00", L"TCP", L"192.0.2.7"}));
}

TEST_F(KestrixDlgTypesTest, TheHostKnowsThePage)
{
    OpenInForm({L"x|0900|1048576|x|0|0|beta|C:\\b|4|1|0|0"});
    EXPECT_EQ(m_app.m_pLogDlg, &m_page);
}

TEST_F(KestrixDlgTypesTest, TheChoiceOfLogsHasEveryLogButTheFirewall)
{
    OpenInForm({L"x|0900|1048576|x|0|0|beta|C:\\b|4|1|0|0"});
    std::vector<Choice> choices;
    for (const LogKind& kind : LogKinds())
    {
        if (kind.type != LogTypeFirewall)
        {
            choices.push_back({kind.type, Text(kind.choice)});
        }
    }
    EXPECT_EQ(Choices(), choices);
    EXPECT_EQ(SelectedChoice(), 0);
}

TEST_F(KestrixDlgTypesTest, AFirewallThatIsInstalledStandsFourthInTheChoice)
{
    m_registry.SetNumber(InstallerKey, L"FirewallAP", 1);
    OpenInForm({L"x|0900|1048576|x|0|0|beta|C:\\b|4|1|0|0"});
    ASSERT_EQ(Choices().size(), LogKinds().size());
    EXPECT_EQ(Choices()[3], (Choice{3, Text(159)}));
    EXPECT_EQ(Choices()[4], (Choice{7, Text(160)}));
}

TEST_F(KestrixDlgTypesTest, AFirewallValueOfZeroCountsAsNone)
{
    m_registry.SetNumber(InstallerKey, L"FirewallAP", 0);
    OpenInForm({L"x|0900|1048576|x|0|0|beta|C:\\b|4|1|0|0"});
    EXPECT_EQ(Choices().size(), LogKinds().size() - 1);
}

TEST_F(KestrixDlgTypesTest, WithoutAFormThereIsNoChoice)
{
    OpenDay({L"x|0900|1048576|x|0|0|beta|C:\\b|4|1|0|0"});
    EXPECT_EQ(m_page.m_nInitResult, TRUE);
    EXPECT_EQ(Choices(), std::vector<Choice>{});
}

TEST_F(KestrixDlgTypesTest, SettingsAreDisabledInFileModeOnly)
{
    OpenInForm({L"x|0900|1048576|x|0|0|beta|C:\\b|4|1|0|0"});
    EXPECT_FALSE(Item(IDC_SETTING).IsWindowEnabled());
    EXPECT_TRUE(Item(IDC_VIEW).IsWindowEnabled());
    m_page.DestroyWindow();
    m_list.Detach();
    m_page.m_bIsLocal = true;
    Open({});
    EXPECT_TRUE(Item(IDC_SETTING).IsWindowEnabled());
}

TEST_F(KestrixDlgTypesTest, ViewTellsInFileModeThatThereIsThisFileOnly)
{
    m_registry.SetText(ProductKey, L"ProductName", L"The suite's own name");
    OpenInForm({L"x|0900|1048576|x|0|0|beta|C:\\b|4|1|0|0"});
    Item(IDC_LOG_TYPE).SendMessage(CB_SETCURSEL, 1);
    Item(IDC_VIEW).SendMessage(BM_CLICK);
    ASSERT_EQ(m_boxes.Boxes().size(), 1u);
    EXPECT_EQ(m_boxes.Boxes()[0].text, Text(766));
    EXPECT_EQ(m_boxes.Boxes()[0].caption, L"The suite's own name");
    EXPECT_EQ(m_boxes.Boxes()[0].flags, 64u);
    EXPECT_EQ(m_page.m_nLogType, static_cast<std::uint32_t>(LogTypeVirus)) << "the log stays";
    EXPECT_EQ(m_list.GetItemCount(), 1);
}

TEST_F(KestrixDlgTypesTest, WithoutAProductNameTheTitleOfThatMessageIsEmpty)
{
    OpenInForm({L"x|0900|1048576|x|0|0|beta|C:\\b|4|1|0|0"});
    Item(IDC_VIEW).SendMessage(BM_CLICK);
    ASSERT_EQ(m_boxes.Boxes().size(), 1u);
    EXPECT_EQ(m_boxes.Boxes()[0].caption, L"");
}
