// A user deletes entries and changes how long they are kept, with the real viewer, service and database.

#include "resource/resource.h"
#include "suite/framework/Day.h"
#include "suite/framework/Journal.h"
#include "suite/framework/LocalCalendar.h"
#include "suite/framework/ValueSource.h"
#include "tests/e2e/EventLogs.h"
#include "tests/e2e/Input.h"
#include "tests/e2e/ServiceFixture.h"
#include "tests/e2e/ViewerDialog.h"
#include "tests/support/EventRows.h"
#include "tests/support/LanguageFile.h"

#include <algorithm>
#include <set>

namespace
{

using Texts = std::vector<std::wstring>;

class DeleteDialogTest : public ServiceFixture
{
protected:
    // Four days of virus records, one each, and as many of spyware, which nobody deletes.
    void FillFourDays() const
    {
        const wchar_t* const threats[] = {L"oldest", L"older", L"newer", L"newest"};
        for (EventLog::Day i = 0; i < 4; ++i)
        {
            m_logs.Append(VirusSubType, FirstDay + i, {VirusLine(L"0800", threats[i])});
            m_logs.Append(SpywareSubType, FirstDay + i, {VirusLine(L"0800", threats[i])});
        }
    }

    void StartViewer()
    {
        m_viewer.emplace(DatabaseCommandLine(VirusLog));
        ASSERT_NE(m_viewer->Form(), nullptr);
    }

    EventRows Rows() const { return EventRowsOf(m_logs.File()); }

    static Texts DatesOf(EventLog::Day newest, EventLog::Day oldest)
    {
        Texts dates;
        for (EventLog::Day day = newest; day >= oldest; --day)
        {
            dates.push_back(DateText(day));
        }
        return dates;
    }

    void ExpectPage(const Texts& dates, const Texts& threats) const
    {
        EXPECT_TRUE(PumpUntil([&] { return m_viewer->Dates() == dates && m_viewer->Column(2) == threats; }));
    }

    void ExpectDetails(const std::wstring& threat) const
    {
        EXPECT_TRUE(WaitUntil([&] { return m_viewer->TextOf(IDC_INFO_VALUE_0_LINK) == threat; }));
    }

    ViewerDialog OpenDeletion() const
    {
        m_viewer->Click(IDC_FORM_DELETE);
        return {*m_viewer, IDC_DELETE_DATE};
    }

    ViewerDialog OpenSettings() const
    {
        m_viewer->Click(IDC_SETTING);
        return {*m_viewer, IDC_SETTINGS_FREQUENCY};
    }

    // Both end with the answer Yes.
    void DeleteByMouse(int index) const
    {
        const ViewerDialog dialog = OpenDeletion();
        dialog.ChooseByClick(IDC_DELETE_DATE, index);
        EXPECT_EQ(dialog.ChoiceOf(IDC_DELETE_DATE), index);
        dialog.Click(IDOK);
        ViewerDialog(*m_viewer, IDYES).Click(IDYES);
        EXPECT_TRUE(dialog.WaitUntilClosed());
    }

    void DeleteByKeyboard(int index) const
    {
        PressAltAnd(L'd', m_viewer->Item(IDC_VIEW));
        const ViewerDialog dialog(*m_viewer, IDC_DELETE_DATE);
        EXPECT_TRUE(dialog.WaitForFocus(IDC_DELETE_DATE));
        dialog.Press(VK_HOME);
        for (int i = 0; i < index; ++i)
        {
            dialog.Press(VK_DOWN);
        }
        EXPECT_TRUE(WaitUntil([&] { return dialog.ChoiceOf(IDC_DELETE_DATE) == index; }));
        dialog.PressAccessKey(L'o');
        ViewerDialog(*m_viewer, IDYES).Press(VK_RETURN);
        EXPECT_TRUE(dialog.WaitUntilClosed());
    }

    static constexpr EventLog::Day FirstDay = 20261117;
    static constexpr EventLog::Day LastDay = 20261120;

    const LanguageFile m_language;
    const EventLogs m_logs{m_service.Installed()};
    std::optional<Viewer> m_viewer;
};

} // namespace

TEST_F(DeleteDialogTest, ADateInTheMiddleOfEachLogGoesByMouseAndByKeyboardAloneWithAllBeforeItAndNothingElse)
{
    m_logs.FillWithSamplesOfAllKinds(4, LastDay);
    StartViewer();
    std::set<std::int64_t> kinds; // of which entries were deleted
    ASSERT_GE(m_viewer->LogCount(), 12);
    for (int log = 0; log < m_viewer->LogCount(); ++log)
    {
        SCOPED_TRACE(log);
        m_viewer->SwitchToLog(log);
        const Texts dates = m_viewer->Dates();
        ASSERT_FALSE(dates.empty());
        const EventRows before = Rows();
        const int middle = static_cast<int>(dates.size()) / 2;
        log % 2 == 0 ? DeleteByMouse(middle) : DeleteByKeyboard(middle);
        EXPECT_TRUE(WaitUntil([&] { return m_viewer->Dates() == Texts(dates.begin(), dates.begin() + middle); }));
        EXPECT_EQ(m_viewer->SelectedDate(), middle == 0 ? -1 : 0);

        EventRows gone = before;
        const EventRows after = Rows();
        std::erase_if(gone, [&](const EventRow& row) { return std::ranges::count(after, row.id, &EventRow::id) != 0; });
        ASSERT_FALSE(gone.empty());
        const EventLog::Day day = static_cast<EventLog::Day>(std::ranges::max(gone, {}, &EventRow::day).day);
        EXPECT_EQ(after, WithoutKindThrough(before, gone[0].kind, day));
        EXPECT_EQ(DateText(day), dates[middle]);
        EXPECT_TRUE(kinds.insert(gone[0].kind).second);
    }
    EXPECT_TRUE(IsIntact(m_logs.File()));
    EXPECT_EQ(m_viewer->Close(), 0u);
}

TEST_F(DeleteDialogTest, NoAndEscapeAndEnterAndCancelAndTheCloseBoxOrderNothing)
{
    FillFourDays();
    StartViewer();
    const EventRows before = Rows();
    {
        const ViewerDialog dialog = OpenDeletion();
        dialog.ChooseByClick(IDC_DELETE_DATE, 2);
        dialog.Click(IDOK);
        const ViewerDialog question(*m_viewer, IDNO);
        question.Press(VK_TAB);
        EXPECT_TRUE(question.WaitForFocus(IDNO));
        question.Press(VK_RETURN);
        EXPECT_TRUE(question.WaitUntilClosed());
        EXPECT_TRUE(dialog.WaitForFocus(IDC_DELETE_DATE));
        EXPECT_TRUE(dialog.IsOpen());
        EXPECT_EQ(dialog.ChoiceOf(IDC_DELETE_DATE), 2);
        dialog.Press(VK_ESCAPE);
        dialog.Press(VK_RETURN);
        dialog.PressAccessKey(L'c');
        EXPECT_TRUE(dialog.WaitUntilClosed());
    }
    for (const int button : {IDCANCEL, IDC_DELETE_CLOSE_BOX})
    {
        const ViewerDialog dialog = OpenDeletion();
        dialog.Click(button);
        EXPECT_TRUE(dialog.WaitUntilClosed()) << button;
    }
    EXPECT_EQ(m_viewer->Close(), 0u);
    EXPECT_TRUE(Service::HasEnded());
    EXPECT_EQ(Rows(), before);
    EXPECT_FALSE(std::filesystem::exists(m_service.Installed().File(Framework::Journal::FileName)));
}

// The service waits for the test, which writes to the database, so that there is time to look.
TEST_F(DeleteDialogTest, TheDetailsAreBlankAtOnceAndTheListFollowsTheEventAsItDoesADeletionByAnotherClient)
{
    FillFourDays();
    StartViewer();
    ServiceSession other;
    m_viewer->ClickDate(3);
    ExpectPage(DatesOf(LastDay, FirstDay), {L"oldest"});
    m_viewer->ClickRow(0);
    ExpectDetails(L"oldest");
    const EventRows before = Rows();
    {
        const EventLog::Connection connection = ConnectionTo(m_logs.File());
        const EventLog::Transaction writing(connection);
        DeleteByMouse(2);
        ExpectDetails(L"");
        ExpectPage(DatesOf(LastDay, FirstDay), {L"oldest"});
        EXPECT_EQ(Rows(), before);
        EXPECT_TRUE(other.events.empty());
    }
    ExpectPage(DatesOf(LastDay, LastDay - 1), {L"newest"});
    EXPECT_EQ(m_viewer->SelectedDate(), 0);
    EXPECT_TRUE(PumpUntil([&] { return other.events == Events{PurgeDone}; }));
    EXPECT_EQ(Rows(), WithoutKindThrough(before, VirusSubType, LastDay - 2));

    m_viewer->ClickDate(1);
    ExpectPage(DatesOf(LastDay, LastDay - 1), {L"newer"});
    m_viewer->ClickRow(0);
    ExpectDetails(L"newer");
    EXPECT_EQ(OrderPurge(other.Controller(), VirusPurgeType, LastDay - 1), Framework::Success);
    ExpectPage(DatesOf(LastDay, LastDay), {L"newest"});
    m_viewer->ClickRow(0);
    ExpectDetails(L"newest");
    EXPECT_EQ(m_viewer->Close(), 0u);
}

// The list under the dialog is another one by the time of the choice: what was its third date is its fourth.
TEST_F(DeleteDialogTest, ADeletionByAnotherClientWhileTheDialogIsOpenLeavesItsDatesWhatTheyAre)
{
    FillFourDays();
    StartViewer();
    ServiceSession other;
    const ViewerDialog dialog = OpenDeletion();
    m_logs.Append(VirusSubType, LastDay + 1, {VirusLine(L"0800", L"later")});
    const EventRows before = Rows();
    EXPECT_EQ(OrderPurge(other.Controller(), VirusPurgeType, FirstDay), Framework::Success);
    ExpectPage(DatesOf(LastDay + 1, FirstDay + 1), {L"later"});
    dialog.ChooseByClick(IDC_DELETE_DATE, 2);
    dialog.Click(IDOK);
    ViewerDialog(*m_viewer, IDYES).Click(IDYES);
    ExpectPage(DatesOf(LastDay + 1, LastDay - 1), {L"later"});
    EXPECT_EQ(Rows(), WithoutKindThrough(before, VirusSubType, LastDay - 2));
    EXPECT_EQ(m_viewer->Close(), 0u);
}

TEST_F(DeleteDialogTest, AServiceThatIsKilledBeforeItDeletesLeavesTheViewerAliveAndTheNextOneDeletes)
{
    FillFourDays();
    StartViewer();
    const EventRows before = Rows();
    {
        const EventLog::Connection connection = ConnectionTo(m_logs.File());
        const EventLog::Transaction writing(connection);
        DeleteByMouse(2);
        Service::Kill();
    }
    // The one that starts Wine's service for activations anew must be this process, which stopped it with the kill: it
    // would go on to ask the old one otherwise, and find no class in any later test.
    Connect();
    EXPECT_EQ(Rows(), before);
    EXPECT_TRUE(IsIntact(m_logs.File()));
    m_viewer->ClickDate(3);
    ExpectPage(DatesOf(LastDay, FirstDay), {L"oldest"});
    DeleteByKeyboard(2);
    EXPECT_TRUE(WaitUntil([&] { return Rows() == WithoutKindThrough(before, VirusSubType, LastDay - 2); }));
    EXPECT_EQ(m_viewer->Close(), 0u);
}

TEST_F(DeleteDialogTest, SettingsAreStoredFoundAgainByTheNextViewerAndFollowedByTheScheduleOfTheNextService)
{
    const std::chrono::sys_days today = Framework::LocalCalendar().Today();
    for (const int age : {40, 8, 7, 0})
    {
        const EventLog::Day day = Framework::DayOf(today - std::chrono::days(age));
        m_logs.Append(VirusSubType, day, {VirusLine(L"0800", L"threat")});
        m_logs.Append(SpywareSubType, day, {VirusLine(L"0800", L"threat")});
    }
    const EventRows before = Rows();
    StartViewer();
    {
        const ViewerDialog dialog = OpenSettings();
        EXPECT_EQ(dialog.ChoiceOf(IDC_SETTINGS_FREQUENCY), 2); // 30 days
        EXPECT_FALSE(dialog.IsChecked(IDC_SETTINGS_PURGE));
        dialog.ChooseByClick(IDC_SETTINGS_FREQUENCY, 0);
        dialog.Click(IDC_SETTINGS_PURGE);
        EXPECT_TRUE(WaitUntil([&] { return dialog.IsChecked(IDC_SETTINGS_PURGE); }));
        dialog.Press(VK_ESCAPE);
        dialog.PressAccessKey(L'c');
        EXPECT_TRUE(dialog.WaitUntilClosed());
    }
    {
        const ViewerDialog dialog = OpenSettings();
        EXPECT_FALSE(dialog.IsChecked(IDC_SETTINGS_PURGE)) << "the settings were stored";
        dialog.ChooseByClick(IDC_SETTINGS_FREQUENCY, 0);
        dialog.Click(IDC_SETTINGS_PURGE);
        EXPECT_TRUE(WaitUntil([&] { return dialog.IsChecked(IDC_SETTINGS_PURGE); }));
        dialog.Click(IDOK);
        EXPECT_TRUE(WaitUntil([] { return PurgeSetting(L"EventLogPurgeFlag") == 1; }));
        EXPECT_EQ(PurgeSetting(L"EventLogPurgeFre"), 7u);
    }
    EXPECT_EQ(m_viewer->Close(), 0u);
    EXPECT_TRUE(Service::HasEnded());
    StartViewer();
    EXPECT_TRUE(WaitUntil([&] { return Rows().size() == before.size() / 2; }));
    const EventLog::Day last = Framework::DayOf(today - std::chrono::days(8));
    EXPECT_EQ(Rows(), WithoutKindThrough(WithoutKindThrough(before, VirusSubType, last), SpywareSubType, last));
    const ViewerDialog dialog = OpenSettings();
    EXPECT_EQ(dialog.ChoiceOf(IDC_SETTINGS_FREQUENCY), 0);
    EXPECT_TRUE(dialog.IsChecked(IDC_SETTINGS_PURGE));
    dialog.Click(IDCANCEL);
    EXPECT_TRUE(dialog.WaitUntilClosed());
    EXPECT_EQ(m_viewer->Close(), 0u);
}
