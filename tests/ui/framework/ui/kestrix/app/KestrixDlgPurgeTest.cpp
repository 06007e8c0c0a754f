// The buttons Settings and Delete: from the click to the order that the service gets, and what the page shows then.

#include "tests/ui/framework/ui/kestrix/app/PurgeFormTest.h"

#include <map>

namespace
{

using Step = ControllerDouble::Step;

constexpr auto PurgeRefused = static_cast<HRESULT>(0x80040201);

using KestrixDlgPurgeTest = PurgeFormTest;

} // namespace

TEST_F(KestrixDlgPurgeTest, TheSettingsButtonSendsWhatTheDialogHasOnOk)
{
    RunForm({[&] { ClickSettings(); },
             [&]
             {
                 Choose(Settings(), IDC_SETTINGS_FREQUENCY, 4);
                 Press(Settings(), IDC_SETTINGS_PURGE);
                 Press(Settings(), IDOK);
             },
             [&] { EXPECT_EQ(Settings(), nullptr); }});
    EXPECT_EQ(m_controller.m_calls, (Texts{L"CreateInstance", L"GetActiveProfile", L"SetValue 113 2 0 0 0 of 2"}));
    EXPECT_EQ(m_sent.All(), (std::vector<SentArray>{{{VT_UI4, 60}, {VT_UI4, 0}}}));
}

TEST_F(KestrixDlgPurgeTest, CancelSendsNothingToTheFramework)
{
    for (const UINT button : {UINT{IDCANCEL}, UINT{IDC_SETTINGS_CLOSE_BOX}})
    {
        RunForm({[&] { ClickSettings(); }, [&] { Press(Settings(), button); }});
        EXPECT_TRUE(m_controller.m_calls.empty()) << button;
    }
    for (const UINT button : {UINT{IDCANCEL}, UINT{IDC_DELETE_CLOSE_BOX}})
    {
        RunForm({[&] { ClickDelete(); }, [&] { Press(Deletion(), button); }, [&] { EXPECT_EQ(Threat(), L"alpha"); }});
        EXPECT_TRUE(m_controller.m_calls.empty()) << button;
    }
}

TEST_F(KestrixDlgPurgeTest, InFileModeTheButtonsAreDisabledAndNothingHappensEvenIfTheHandlersAreReached)
{
    m_form.m_bIsLocal = false;
    RunForm({[&]
             {
                 EXPECT_FALSE(m_form.Item(IDC_FORM_DELETE).IsWindowEnabled());
                 EXPECT_FALSE(CWindow(PageItem(IDC_SETTING)).IsWindowEnabled());
                 ReachHandlers();
             },
             [&]
             {
                 EXPECT_EQ(Deletion(), nullptr);
                 EXPECT_EQ(Settings(), nullptr);
                 EXPECT_EQ(Threat(), L"alpha");
             }});
    EXPECT_TRUE(m_controller.m_calls.empty());
    EXPECT_TRUE(m_boxes.Boxes().empty());
}

TEST_F(KestrixDlgPurgeTest, AnEmptyDateListOpensNothing)
{
    m_database.RemoveDays();
    m_form.Run({[&]
                {
                    m_controller.m_calls.clear();
                    EXPECT_FALSE(m_form.Item(IDC_FORM_DELETE).IsWindowEnabled());
                    m_form.PostMessage(WM_COMMAND, MAKEWPARAM(IDC_FORM_DELETE, BN_CLICKED));
                },
                [&] { EXPECT_EQ(Deletion(), nullptr); }, &CancelDialogs});
    EXPECT_TRUE(m_controller.m_calls.empty());
}

TEST_F(KestrixDlgPurgeTest, ATypeWithoutALogOpensNothing)
{
    RunForm({[&]
             {
                 m_form.Page()->m_nLogType = LogTypeNone;
                 m_form.PostMessage(WM_COMMAND, MAKEWPARAM(IDC_FORM_DELETE, BN_CLICKED));
             },
             [&] { EXPECT_EQ(Deletion(), nullptr); }});
    EXPECT_TRUE(m_controller.m_calls.empty());
}

TEST_F(KestrixDlgPurgeTest, ChoosingTheLastDateAndConfirmingSendsTheOldest)
{
    RunForm(DeletionUpTo(2));
    EXPECT_EQ(m_controller.m_calls, (Texts{L"CreateInstance", L"DoCommand 22 1 0 0 1 of 3"}));
    EXPECT_EQ(m_sent.All(), (std::vector<SentArray>{{{VT_UI4, 20261031}, {VT_UI4, 0}, {VT_UI4, 1}}}));
}

TEST_F(KestrixDlgPurgeTest, TheKeyboardAloneDeletes)
{
    RunForm({[&] { ::PostMessageW(PageItem(IDC_RECORD_LIST), WM_SYSCHAR, L'd', AltIsDown); },
             [&]
             {
                 ASSERT_NE(Deletion(), nullptr);
                 PressKey(::GetFocus(), VK_END);
             },
             [&] { ::PostMessageW(::GetFocus(), WM_SYSCHAR, L'o', AltIsDown); },
             [&] { EXPECT_EQ(Deletion(), nullptr); }});
    EXPECT_EQ(m_boxes.Boxes().size(), 1u);
    EXPECT_EQ(m_sent.Dates(), std::vector<ULONG>{20261031});
}

TEST_F(KestrixDlgPurgeTest, NoSendsNothingAndLeavesTheDialog)
{
    m_boxes.Answer(IDNO);
    RunForm({[&] { ClickDelete(); }, [&] { Press(Deletion(), IDOK); },
             [&]
             {
                 EXPECT_TRUE(::IsWindowVisible(Deletion()));
                 EXPECT_EQ(Threat(), L"alpha");
                 Press(Deletion(), IDCANCEL);
             }});
    EXPECT_TRUE(m_controller.m_calls.empty());
}

TEST_F(KestrixDlgPurgeTest, EachLogHasItsPurgeType)
{
    const std::map<std::uint32_t, ULONG> purgeTypes{{0, 1}, {1, 0}, {2, 4},   {3, 3},   {5, 2},   {6, 5},  {7, 10},
                                                    {8, 7}, {9, 8}, {11, 11}, {12, 12}, {13, 13}, {14, 14}};
    std::vector<ScriptedForm::Step> steps;
    std::vector<SentArray> expected;
    for (const auto& [type, purgeType] : purgeTypes)
    {
        steps.push_back(
            [this, type]
            {
                m_form.Page()->m_nLogType = type;
                m_form.Page()->RefreshLog(CKestrixDlg::AnyReason);
            });
        std::ranges::move(DeletionUpTo(1), std::back_inserter(steps));
        expected.push_back({{VT_UI4, 20261119}, {VT_UI4, 0}, {VT_UI4, purgeType}});
    }
    RunForm(std::move(steps));
    EXPECT_EQ(m_sent.All(), expected);
}

TEST_F(KestrixDlgPurgeTest, AfterAConfirmedDeleteThePaneIsBlankAtOnceWhileTheListShowsTheOldRecordsUntilTheEvent)
{
    auto steps = DeletionUpTo(2);
    steps.push_back(
        [&]
        {
            EXPECT_EQ(Threat(), L"");
            EXPECT_EQ(Location(), L"");
            EXPECT_EQ(m_form.Page()->GetDlgItemText(IDC_INFO_VALUE_1), L"");
            EXPECT_EQ(FirstRow(), L"alpha");
            EXPECT_EQ(DateCount(), 3);
            EndPurge();
            EXPECT_EQ(FirstRow(), L"after");
            EXPECT_EQ(DateCount(), 1);
        });
    RunForm(std::move(steps));
}

// A program that presses the button for the user leaves the keyboard where it is.
TEST_F(KestrixDlgPurgeTest, AWholeTextThatIsOpenGoesWithThePaneAndSoDoesTheKeyboardFromIt)
{
    RunForm({[&]
             {
                 m_form.Page()->SendMessage(WM_COMMAND, MAKEWPARAM(IDC_INFO_VALUE_2, STN_CLICKED));
                 ::SetFocus(PageItem(IDC_INFO_VALUE_2_WHOLE));
                 m_form.PostMessage(WM_COMMAND, MAKEWPARAM(IDC_FORM_DELETE, BN_CLICKED));
             },
             [&] { Press(Deletion(), IDOK); },
             [&]
             {
                 EXPECT_FALSE(CWindow(PageItem(IDC_INFO_VALUE_2_WHOLE)).IsWindowVisible());
                 EXPECT_TRUE(TakesKeys(::GetFocus()));
             }});
}

TEST_F(KestrixDlgPurgeTest, WithoutAServiceThePaneIsBlankAllTheSameAndTheListStays)
{
    const struct
    {
        Step step;
        const wchar_t* error;
    } cases[] = {{Step::Create, L"  Failed to CoCreateInstance: [0x80040201]"},
                 {Step::Command, L"  Failed to DoCommand: [0x80040201]"}};

    for (const auto& each : cases)
    {
        auto steps = DeletionUpTo(0);
        steps.insert(steps.begin(), [&] { m_controller.Fail(each.step, PurgeRefused); });
        steps.push_back(
            [&]
            {
                EXPECT_EQ(Threat(), L"");
                EXPECT_EQ(FirstRow(), L"alpha");
                m_controller.Work(each.step);
            });
        RunForm(std::move(steps));
        EXPECT_EQ(std::ranges::count(m_trace.Errors(), each.error), 1) << each.error;
    }
    EXPECT_TRUE(m_sent.All().empty());
}

// Nothing of the page makes such an entry.
TEST_F(KestrixDlgPurgeTest, ADateTextThatTheLocaleCannotReadStopsTheFlowWithoutACommandAndLeavesThePane)
{
    auto steps = DeletionUpTo(0);
    steps.insert(
        steps.begin(), [&]
        { CWindow(PageItem(IDC_DATE_LIST)).SendMessage(LB_INSERTSTRING, 0, reinterpret_cast<LPARAM>(L"no date")); });
    steps.push_back([&] { EXPECT_EQ(Threat(), L"alpha"); });
    RunForm(std::move(steps));
    EXPECT_EQ(m_controller.m_calls, Texts{L"CreateInstance"});
    EXPECT_EQ(std::ranges::count(m_trace.Errors(), L"  Failed to GetPurgeSystemTime: [no date]"), 1);
}

TEST_F(KestrixDlgPurgeTest, TheKeyboardIsUsableAfterEachDialog)
{
    RunForm({[&]
             {
                 m_form.Item(IDC_FORM_DELETE).SetFocus();
                 ClickDelete();
             },
             [&] { Press(Deletion(), IDOK); },
             [&] { EXPECT_EQ(::GetFocus(), m_form.Item(IDC_FORM_DELETE).GetSafeHwnd()); },
             [&]
             {
                 ::SetFocus(PageItem(IDC_SETTING));
                 ClickSettings();
             },
             [&] { Press(Settings(), IDCANCEL); }, [&] { EXPECT_EQ(::GetFocus(), PageItem(IDC_SETTING)); }});
}
