// The form with a language file that lacks what it needs, or holds what it cannot use.

#include "resource/resource.h"
#include "tests/support/ChangedLanguageFile.h"
#include "tests/support/SaveDialogDouble.h"
#include "tests/support/TraceRecorder.h"
#include "tests/ui/framework/ui/kestrix/app/FormTest.h"

#include <algorithm>

namespace
{

using Texts = std::vector<std::wstring>;

constexpr int UsualTabWidth = 110;

class LogFormTextsTest : public FormTest
{
protected:
    // Runs the form on the changed file, with the user's usual way through it.
    INT_PTR RunChanged(const ScriptedForm::Step& look = [] {})
    {
        const LanguageFile changed(m_changed.Path());
        return m_form.Run({look, [this] { Use(); }});
    }

    struct TabLook
    {
        int pageTop; // where the page begins below the top of the tabs
        int pageHeight;
        int tabWidth;
    };

    // The form on a file with this offset and width of the tab.
    TabLook LookWith(const wchar_t* offset, const wchar_t* width)
    {
        m_changed.SetText(IDS_TAB_OFFSET, offset);
        m_changed.SetText(IDS_TAB_WIDTH, width);
        TabLook look{};
        RunChanged(
            [&]
            {
                const CWindow tab = m_form.Item(IDC_FORM_TAB);
                RECT item{};
                tab.SendMessage(TCM_GETITEMRECT, 0, reinterpret_cast<LPARAM>(&item));
                const RECT page = m_form.Page()->GetWindowRect();
                look = {page.top - tab.GetWindowRect().top, page.bottom - page.top, item.right - item.left};
                EXPECT_EQ(RowCount(), 3);
            });
        return look;
    }

    int RowCount() const
    {
        return static_cast<int>(CWindow(m_form.Page()->GetDlgItem(IDC_RECORD_LIST)).SendMessage(LVM_GETITEMCOUNT));
    }

    ChangedLanguageFile m_changed;
    const SaveDialogDouble m_dialog;
    const TraceRecorder m_trace;

private:
    void Use()
    {
        m_form.RedrawWindow(RDW_INVALIDATE | RDW_UPDATENOW | RDW_ALLCHILDREN);
        if (CKestrixDlg* const page = m_form.Page())
        {
            page->SendMessage(WM_COMMAND, MAKEWPARAM(IDC_VIEW, BN_CLICKED), 0);
            page->OnSelchangeLogDate();
        }
        for (const int key : {VK_SPACE, VK_RETURN})
        {
            MSG event{};
            event.hwnd = m_form.Item(IDC_FORM_TAB);
            event.message = WM_KEYDOWN;
            event.wParam = static_cast<WPARAM>(key);
            m_form.PreTranslateMessage(event);
        }
    }
};

struct BadNumber
{
    const char* name;
    const wchar_t* text;
};

class BadTabNumberTest : public LogFormTextsTest, public ::testing::WithParamInterface<BadNumber>
{
};

INSTANTIATE_TEST_SUITE_P(Number, BadTabNumberTest,
                         ::testing::Values(BadNumber{"Missing", L""}, BadNumber{"Negative", L"-5"},
                                           BadNumber{"Zero", L"0"}, BadNumber{"NoNumber", L"wide"},
                                           BadNumber{"TooLarge", L"2147483648"},
                                           BadNumber{"FarTooLarge", L"99999999999999999999"},
                                           BadNumber{"FarTooSmall", L"-99999999999999999999"}),
                         [](const auto& number) { return number.param.name; });

// Everything of a kind, which the form then does without.
struct Kind
{
    const char* name;
    const wchar_t* type;
};

class MissingKindTest : public LogFormTextsTest, public ::testing::WithParamInterface<Kind>
{
};

INSTANTIATE_TEST_SUITE_P(Of, MissingKindTest,
                         ::testing::Values(Kind{"Texts", RT_STRING}, Kind{"Bitmaps", RT_BITMAP},
                                           Kind{"Icons", RT_GROUP_ICON}, Kind{"Cursors", RT_GROUP_CURSOR}),
                         [](const auto& kind) { return kind.param.name; });

class MissingTextTest : public LogFormTextsTest, public ::testing::WithParamInterface<UINT>
{
};

INSTANTIATE_TEST_SUITE_P(Text, MissingTextTest,
                         ::testing::Values(IDS_THREAT_ADDRESS, 77u, IDS_FORM_TITLE, IDS_ONLY_THIS_FILE, IDS_TAB_LOGS,
                                           IDS_HEADING_FACE, 547u),
                         [](const auto& number) { return std::to_string(number.param); });

} // namespace

TEST_F(LogFormTextsTest, OffsetAndWidthOfTheTabAreThoseOfTheFile)
{
    const TabLook usual = LookWith(L"1", L"110");
    const TabLook other = LookWith(L"18", L"150");
    EXPECT_EQ(other.pageTop, usual.pageTop + 17);
    EXPECT_EQ(other.pageHeight, usual.pageHeight - 17);
    EXPECT_EQ(other.tabWidth, 150);
}

TEST_P(BadTabNumberTest, GivesNoOffsetAndTheUsualWidth)
{
    const TabLook usual = LookWith(L"1", L"110");
    const TabLook bad = LookWith(GetParam().text, GetParam().text);
    EXPECT_EQ(bad.pageTop, usual.pageTop - 1);
    EXPECT_EQ(bad.tabWidth, UsualTabWidth);
}

TEST_F(LogFormTextsTest, AnOffsetBeyondTheScreenLeavesNoPageToSee)
{
    const TabLook usual = LookWith(L"1", L"110");
    const TabLook beyond = LookWith(L"2147483647", L"2147483647");
    EXPECT_EQ(beyond.pageHeight, 0);
    EXPECT_EQ(beyond.pageTop, usual.pageTop + usual.pageHeight);
}

TEST_P(MissingTextTest, LeavesTheFormAsUsefulAsItCanBe)
{
    m_changed.SetText(GetParam(), {});
    const INT_PTR result = RunChanged(
        [&]
        {
            EXPECT_TRUE(LoadText(GetParam()).empty());
            EXPECT_TRUE(m_form.IsWindowVisible());
            EXPECT_EQ(m_form.Item(IDC_FORM_TAB).SendMessage(TCM_GETITEMCOUNT), 1);
            EXPECT_EQ(RowCount(), 3);
            EXPECT_EQ(m_form.GetWindowText().empty(), GetParam() == IDS_FORM_TITLE);
        });
    EXPECT_EQ(result, ScriptedForm::EndedByTest);
}

TEST_F(LogFormTextsTest, MessagesWithoutATextAreShownAllTheSame)
{
    for (const UINT text : {IDS_NOT_A_LOG_FILE, IDS_NO_LOG_FILE})
    {
        m_changed.SetText(text, {});
    }
    for (const wchar_t* name : {L"20261121.VLG", L"20260230.VLG"})
    {
        m_form.m_strLogPath = m_folder.File(name);
        WriteUtf16(m_folder.File(L"20260230.VLG"), L"");
        const std::size_t boxes = m_boxes.Boxes().size();
        EXPECT_EQ(RunChanged(), ScriptedForm::EndedByTest);
        EXPECT_EQ(m_boxes.Boxes().at(boxes).text, L"");
        EXPECT_EQ(m_boxes.Boxes().at(boxes).caption, Text(IDS_TITLE_VIRUS));
    }
}

TEST_F(LogFormTextsTest, TooManyViewersAreToldAlsoWithoutTheText)
{
    m_changed.SetText(IDS_TOO_MANY_VIEWERS, {});
    const LanguageFile changed(m_changed.Path());
    m_form.m_bMaxCountReached = true;
    EXPECT_EQ(m_form.DoModal(), IDCANCEL);
    ASSERT_EQ(m_boxes.Boxes().size(), 1u);
    EXPECT_EQ(m_boxes.Boxes()[0].text, L"");
}

TEST_P(MissingKindTest, TheFormStandsWithItsRecordsAndEnds)
{
    m_changed.RemoveAll(GetParam().type);
    EXPECT_EQ(RunChanged(
                  [&]
                  {
                      EXPECT_TRUE(m_form.IsWindowVisible());
                      EXPECT_EQ(RowCount(), 3);
                  }),
              ScriptedForm::EndedByTest);
}

TEST_F(LogFormTextsTest, WithoutTheTemplateOfThePageTheFormStandsEmptyAndCanBeClosed)
{
    m_changed.Remove(RT_DIALOG, IDD_LOG_PAGE);
    const LanguageFile changed(m_changed.Path());
    const INT_PTR result =
        m_form.RunToItsOwnEnd({[&]
                               {
                                   EXPECT_TRUE(m_form.IsWindowVisible());
                                   EXPECT_EQ(m_form.Page(), nullptr);
                                   m_form.SendMessage(WM_COMMAND, MAKEWPARAM(IDC_FORM_EXPORT, BN_CLICKED), 0);
                                   m_form.SendMessage(WM_COMMAND, MAKEWPARAM(IDC_FORM_DELETE, BN_CLICKED), 0);
                               },
                               [&] { m_form.SendMessage(WM_COMMAND, MAKEWPARAM(IDC_FORM_CLOSE, BN_CLICKED), 0); }});
    EXPECT_EQ(result, IDCANCEL);
    ASSERT_EQ(m_boxes.Boxes().size(), 1u);
    EXPECT_EQ(m_boxes.Boxes()[0].text, Text(IDS_EXPORT_NO_ENTRIES));
}

// The form takes them away itself, since the template of a language file may have them.
TEST_F(LogFormTextsTest, ACaptionAndEdgesOfTheTemplateAreTakenAway)
{
    constexpr DWORD caption = 0x00C20080;
    constexpr DWORD edges = 0x00000101;
    m_changed.AddStyles(IDD_LOG_FORM, caption, edges);
    EXPECT_EQ(RunChanged(
                  [&]
                  {
                      EXPECT_EQ(m_form.GetStyle() & caption, 0u);
                      EXPECT_EQ(m_form.GetExStyle() & edges, 0u);
                  }),
              ScriptedForm::EndedByTest);
    const Texts texts = m_trace.Texts(VdCommon::TraceLevel::Info);
    const auto traced = [&](const std::wstring& start)
    { return std::ranges::count_if(texts, [&](const auto& text) { return text.starts_with(start); }); };
    EXPECT_EQ(traced(L"CLogFormDlg::PreSubclassWindow: style="), 1);
    EXPECT_EQ(traced(L"CLogFormDlg::PreSubclassWindow: New style="), 1);
}

TEST_F(LogFormTextsTest, WithoutItsOwnTemplateThereIsNoForm)
{
    m_changed.Remove(RT_DIALOG, IDD_LOG_FORM);
    EXPECT_EQ(RunChanged(), -1);
    EXPECT_EQ(m_form.GetSafeHwnd(), nullptr);
}
