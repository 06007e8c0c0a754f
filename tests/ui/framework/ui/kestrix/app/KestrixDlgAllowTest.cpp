// The button that allows the program of a firewall event, and the end of a purge that comes in while it is at work.

#include "resource/resource.h"
#include "tests/support/FirewallService.h"
#include "tests/support/MenuVisit.h"
#include "tests/ui/framework/ui/kestrix/app/DatabasePageTest.h"

namespace
{

using Frwk::DataTypes::FwRule;
using Step = ControllerDouble::Step;

constexpr auto NoServer = static_cast<HRESULT>(0x800706BA);

// The page of a firewall log of two blocked programs and an allowed one, with the first blocked one selected.
class KestrixDlgAllowTest : protected WithFirewallService, public DatabasePageTest
{
protected:
    enum Row
    {
        RowOfA,
        RowOfB,
        RowOfAllowed,
    };

    KestrixDlgAllowTest()
    {
        EXPECT_TRUE(m_app.InitializeEventObject());
        m_page.m_nLogType = LogTypeFirewall;
        m_database.AddDay(2026, 11, 20);
        m_database.SetLines({Line(L"080000", L"C:\\c.exe", false), Line(L"090000", L"C:\\b.exe"),
                             Line(L"100000", L"C:\\a.exe")}); // newest last, and listed first
        OpenPage();
        ClickRow(RowOfA);
        m_service.Controller().m_calls.clear();
    }

    ~KestrixDlgAllowTest() override
    {
        m_service.Controller().m_onCall = nullptr;
        EXPECT_TRUE(m_app.UninitializeEventObject());
        EXPECT_EQ(m_service.Controller().References(), 0);
    }

    static std::wstring Line(const std::wstring& time, const std::wstring& program, bool isBlocked = true)
    {
        return time + L"|4|0|2||6|" + (isBlocked ? L"2" : L"1") + L"|192.0.2.10|49152|192.0.2.20|443|||" + program +
               L"|rule|message";
    }

    void Press()
    {
        m_page.SendMessage(WM_COMMAND, MAKEWPARAM(IDC_ALLOW, BN_CLICKED),
                           reinterpret_cast<LPARAM>(Item(IDC_ALLOW).GetSafeHwnd()));
    }

    bool CanPress() const { return Item(IDC_ALLOW).IsWindowEnabled(); }

    std::wstring AllowedProgram() const
    {
        return m_service.m_rules.empty() ? L"" : m_service.m_rules.front().strAppPath;
    }

    void EndPurge()
    {
        auto* const sink = m_service.Controller().Sink<IVdFrwkLocalEvents>();
        EXPECT_EQ(sink->OnCommandEvent(4, 22, 1, 0, 0, 0, 0, {}, {}, nullptr), 0x40200);
    }

    // As soon as this call arrives the service ends a purge, this many times, which takes away the day that is shown.
    // What the test looks at runs after it, within the call.
    void PurgeAt(const std::wstring& awaited, int times, std::function<void()> look)
    {
        m_service.Controller().m_onCall = [=, this](const std::wstring& call)
        {
            if (!call.starts_with(awaited))
            {
                return;
            }
            m_database.RemoveDays();
            m_database.AddDay(2026, 11, 21);
            m_database.SetLines({Line(L"110000", L"C:\\after.exe")});
            for (int i = 0; i < times; ++i)
            {
                EndPurge();
            }
            look();
        };
    }
};

constexpr int DayQuery = 2;

} // namespace

TEST_F(KestrixDlgAllowTest, APressAllowsTheProgramAndTheButtonIsOffUntilTheNextClickOnARow)
{
    EXPECT_TRUE(IsShown(IDC_ALLOW));
    EXPECT_TRUE(CanPress());
    Press();
    EXPECT_EQ(AllowedProgram(), L"C:\\a.exe");
    EXPECT_FALSE(CanPress());
    EXPECT_TRUE(IsShown(IDC_ALLOW));
    EXPECT_TRUE(m_boxes.Boxes().empty()) << "there is no message";
    ClickRow(RowOfB);
    EXPECT_TRUE(CanPress());
    Press();
    EXPECT_EQ(AllowedProgram(), L"C:\\b.exe");
    EXPECT_EQ(m_service.m_rules.size(), 2u);
    ClickRow(RowOfB);
    EXPECT_TRUE(CanPress()) << "also for the same row";
}

TEST_F(KestrixDlgAllowTest, TheArrowKeysAreAsGoodAsAClick)
{
    Press();
    SelectRow(RowOfB);
    ReleaseKey(m_list, VK_DOWN);
    EXPECT_TRUE(CanPress());
    Press();
    EXPECT_EQ(AllowedProgram(), L"C:\\b.exe");
}

TEST_F(KestrixDlgAllowTest, TheMenuOfTheListAllowsWhenTheButtonDoes)
{
    const auto allowItem = [&](std::initializer_list<WORD> keys)
    {
        const MenuVisit visit(keys);
        m_page.SendMessage(WM_CONTEXTMENU, reinterpret_cast<WPARAM>(m_list.GetSafeHwnd()), MAKELPARAM(-1, -1));
        return visit.Items().size() == 7 ? visit.Items()[6] : SeenItem{};
    };
    EXPECT_EQ(allowItem({'A'}), (SeenItem{Text(IDS_MENU_ALLOW), true}));
    EXPECT_EQ(AllowedProgram(), L"C:\\a.exe");
    EXPECT_FALSE(CanPress());
    EXPECT_EQ(allowItem({VK_ESCAPE}), (SeenItem{Text(IDS_MENU_ALLOW), false})) << "off as the button";
    ClickRow(RowOfAllowed);
    EXPECT_EQ(allowItem({VK_ESCAPE}), (SeenItem{Text(IDS_MENU_ALLOW), false})) << "hidden as the button";
    EXPECT_EQ(m_service.m_rules.size(), 1u);
}

TEST_F(KestrixDlgAllowTest, AnEventThatWasAllowedHasNoButton)
{
    ClickRow(RowOfAllowed);
    EXPECT_FALSE(IsShown(IDC_ALLOW));
    EXPECT_FALSE(IsShown(IDC_ALLOW_LABEL));
    ClickRow(RowOfA);
    EXPECT_TRUE(IsShown(IDC_ALLOW));
    EXPECT_TRUE(IsShown(IDC_ALLOW_LABEL));
}

TEST_F(KestrixDlgAllowTest, TheButtonIsOffWhateverTheOutcome)
{
    struct
    {
        const char* name;
        std::function<void()> prepare;
    } const cases[] = {
        {"allowed already", [this] { Press(); }},
        {"no service", [this] { m_service.Controller().Fail(Step::Create, NoServer); }},
        {"no profile", [this] { m_service.Controller().Fail(Step::Profile, NoServer); }},
        {"no rules", [this] { m_service.Controller().Fail(Step::Query, NoServer); }},
        {"a write that is refused", [this] { m_service.Controller().Fail(Step::Set, NoServer); }},
    };

    for (const auto& [name, prepare] : cases)
    {
        prepare();
        const auto rules = m_service.m_rules;
        ClickRow(RowOfB);
        ClickRow(RowOfA);
        ASSERT_TRUE(CanPress()) << name;
        Press();
        EXPECT_FALSE(CanPress()) << name;
        EXPECT_EQ(m_service.m_rules, rules) << name;
        EXPECT_TRUE(m_boxes.Boxes().empty()) << name;
        for (const Step step : {Step::Create, Step::Profile, Step::Query, Step::Set})
        {
            m_service.Controller().Work(step);
        }
    }
}

// The keyboard is not to stand on a button that takes no keys.
TEST_F(KestrixDlgAllowTest, TheKeyboardGoesToTheListWhenTheButtonIsOff)
{
    Item(IDC_ALLOW).SetFocus();
    Press();
    EXPECT_EQ(::GetFocus(), m_list.GetSafeHwnd());
}

// The log object went away inside its own call, with the selection that the call worked on.
TEST_F(KestrixDlgAllowTest, APurgeThatEndsWithinThePressLeavesLogAndSelectionUntilItIsOver)
{
    for (const wchar_t* const call : {L"CreateInstance", L"GetActiveProfile", L"QueryValue 48", L"SetValue 48"})
    {
        m_service.m_rules.clear();
        m_database.RemoveDays();
        m_database.AddDay(2026, 11, 20);
        m_database.SetLines({Line(L"100000", L"C:\\a.exe")});
        m_page.RefreshLog(CKestrixDlg::AnyReason);
        ClickRow(0);
        const CZPTLogBase* const log = m_page.Log();
        PurgeAt(call, 1,
                [&]
                {
                    EXPECT_EQ(m_page.Log(), log) << call;
                    EXPECT_EQ(Column(0), Texts{L"10:00:00"}) << call;
                    EXPECT_EQ(Dates(), Texts{DateText(2026, 11, 20)}) << call;
                });
        Press();
        m_service.Controller().m_onCall = nullptr;
        EXPECT_EQ(AllowedProgram(), L"C:\\a.exe") << call;
        EXPECT_EQ(Dates(), Texts{DateText(2026, 11, 21)}) << call;
        EXPECT_EQ(Column(0), Texts{L"11:00:00"}) << call;
        EXPECT_FALSE(CanPress()) << call;
        ClickRow(0);
        EXPECT_TRUE(CanPress()) << call;
        Press();
        EXPECT_EQ(AllowedProgram(), L"C:\\after.exe") << call;
    }
}

TEST_F(KestrixDlgAllowTest, PurgesThatEndWithinThePressReloadOnce)
{
    const int before = m_database.CountOf(DayQuery);
    PurgeAt(L"QueryValue 48", 3, [&] { EXPECT_EQ(m_database.CountOf(DayQuery), before); });
    Press();
    EXPECT_EQ(m_database.CountOf(DayQuery), before + 1);
}

// A log of the URL filter asks the service while it is made; a second one was made within the first.
TEST_F(KestrixDlgAllowTest, APurgeThatEndsWhileALogIsMadeReloadsAfterIt)
{
    int asked = 0;
    m_service.Controller().m_onCall = [&](const std::wstring& call)
    {
        if (call == L"GetProperty" && asked++ % 2 == 0)
        {
            const int before = asked;
            EndPurge();
            EXPECT_EQ(asked, before) << "no log is made within another";
        }
    };
    m_page.m_nLogType = LogTypeUrlFilter;
    m_database.SetLines({L"x|103015|x|1F|Blocked|0|http://a/|03"});
    m_page.RefreshLog(CKestrixDlg::AnyReason);
    EXPECT_EQ(asked, 2);
    EXPECT_EQ(Column(3), Texts{L"http://a/"});

    m_page.DestroyWindow();
    m_list.Detach();
    OpenPage();
    EXPECT_EQ(asked, 4) << "also when the page is made";
    EXPECT_EQ(Column(3), Texts{L"http://a/"});
    ClickRow(0);
    EXPECT_EQ(TextOf(IDC_INFO_VALUE_0_TEXT), Text(339));
}
