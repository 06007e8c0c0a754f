// The end of a purge, of this viewer or another client, that comes in while a dialog stands or the service answers.

#include "tests/ui/framework/ui/kestrix/app/PurgeFormTest.h"

namespace
{

using KestrixDlgPurgeReentryTest = PurgeFormTest;

} // namespace

// What stood first when the dialog opened is another day in the list that the event brings: the order would have taken
// a day that nobody had chosen.
TEST_F(KestrixDlgPurgeReentryTest, APurgeThatEndsWhileTheDialogOrTheQuestionStandsLeavesTheDayThatWasChosen)
{
    const std::vector<ScriptedForm::Step> places[] = {
        {[&] { ClickDelete(); }, [&] { EndPurge(); }, [&] { Press(Deletion(), IDOK); }},
        {[&] { m_boxes.m_onBox = [&] { EndPurge(); }; }, [&] { ClickDelete(); }, [&] { Press(Deletion(), IDOK); }},
    };
    for (auto steps : places)
    {
        m_database.RemoveDays();
        m_database.AddDay(2026, 11, 20);
        m_database.SetLines({L"x|1030|1048576|x|0|0|alpha|C:\\a|4|1|0|0|x"});
        steps.push_back([&] { m_boxes.m_onBox = nullptr; });
        steps.push_back(
            [&]
            {
                EXPECT_EQ(FirstRow(), L"after");
                EXPECT_EQ(Threat(), L"");
            });
        RunForm(std::move(steps));
    }
    EXPECT_EQ(m_sent.Dates(), (std::vector<ULONG>{20261120, 20261120}));
}

TEST_F(KestrixDlgPurgeReentryTest, APurgeThatEndsWhileTheServiceAnswersLeavesTheDayThatWasChosen)
{
    for (const wchar_t* const awaited : {L"CreateInstance", L"DoCommand"})
    {
        m_database.RemoveDays();
        m_database.AddDay(2026, 11, 20);
        m_database.SetLines({L"x|1030|1048576|x|0|0|alpha|C:\\a|4|1|0|0|x"});
        auto steps = DeletionUpTo(0);
        steps.insert(steps.begin(),
                     [this, awaited]
                     {
                         m_controller.m_onCall = [this, awaited](const std::wstring& call)
                         {
                             if (call.starts_with(awaited))
                             {
                                 EndPurge();
                             }
                         };
                     });
        steps.push_back(
            [&]
            {
                m_controller.m_onCall = nullptr;
                EXPECT_EQ(FirstRow(), L"after");
                EXPECT_EQ(Threat(), L"");
            });
        RunForm(std::move(steps));
    }
    EXPECT_EQ(m_sent.Dates(), (std::vector<ULONG>{20261120, 20261120}));
}

TEST_F(KestrixDlgPurgeReentryTest, APurgeThatEndsWhileTheSettingsStandShowsTheNewDays)
{
    RunForm({[&] { ClickSettings(); },
             [&]
             {
                 EndPurge();
                 EXPECT_EQ(FirstRow(), L"after");
                 Press(Settings(), IDOK);
             }});
    EXPECT_EQ(m_sent.All().size(), 1u);
}
