// The form's window, its tabs, its labels and its caption buttons.

#include "common/VdCommon/VdComn_String.h"
#include "resource/resource.h"
#include "tests/support/ImportPatch.h"
#include "tests/support/Picture.h"
#include "tests/support/RegistrySandbox.h"
#include "tests/support/StandingScale.h"
#include "tests/support/TraceRecorder.h"
#include "tests/ui/framework/ui/kestrix/app/FormTest.h"

#include <algorithm>
#include <vector>

extern "C" decltype(&::DrawIcon) __imp_DrawIcon;

namespace
{

// The number of pixels that are not of the picture's ground, the colour of its corner.
int InkOf(const Picture& picture)
{
    int ink = 0;
    for (int y = 0; y < picture.Height(); ++y)
    {
        for (int x = 0; x < picture.Width(); ++x)
        {
            ink += picture.At(x, y) != picture.At(0, 0);
        }
    }
    return ink;
}

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

// The template of the form has nothing of it to remove.
TEST_F(LogFormSkinTest, ACaptionItsButtonAndEdgesAreRemovedAndTheStylesBeforeAndAfterItAreTraced)
{
    const CWindow window(::CreateWindowExW(WS_EX_DLGMODALFRAME, WC_STATICW, L"",
                                           WS_POPUP | WS_CAPTION | WS_SYSMENU | WS_MINIMIZEBOX | DS_MODALFRAME, 0, 0,
                                           200, 100, nullptr, nullptr, AfxGetInstanceHandle(), nullptr));
    const DWORD style = window.GetStyle();
    const DWORD exStyle = window.GetExStyle();
    ASSERT_EQ(style & 0x00C20080, 0x00C20080u);
    ASSERT_EQ(exStyle & 0x00000101, 0x00000101u);
    std::wstring before;
    std::wstring after;
    VdCommon::String::Format(before, L"CLogFormDlg::PreSubclassWindow: style=%08X, style_ex=%08X", style, exStyle);
    VdCommon::String::Format(after, L"CLogFormDlg::PreSubclassWindow: New style=%08X, Style_ex=%08X",
                             style & ~0x00C20080u, exStyle & ~0x00000101u);
    CLogFormDlg form;
    ASSERT_TRUE(form.SubclassWindow(window));
    form.Detach();
    EXPECT_EQ(window.GetStyle(), style & ~0x00C20080u);
    EXPECT_EQ(window.GetExStyle(), exStyle & ~0x00000101u);
    ::DestroyWindow(window);
    EXPECT_EQ(m_trace.Texts(VdCommon::TraceLevel::Info), (std::vector<std::wstring>{before, after}));
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

TEST_F(LogFormSkinTest, ATabIsNeverNarrowerThanTheOthers)
{
    m_form.Run({[&] { EXPECT_EQ(m_form.Item(IDC_FORM_TAB).SendMessage(TCM_SETMINTABWIDTH, 0, -1), 110); }});
}

TEST_F(LogFormSkinTest, TheButtonsOfTheFrameDoNotDrawTheirNames)
{
    m_form.Run({[&]
                {
                    for (const UINT id : {IDC_FORM_MINIMISE, IDC_FORM_CLOSE_BOX})
                    {
                        CWindow button = m_form.Item(id);
                        ASSERT_NE(button.GetWindowText(), L"");
                        const Picture named = PictureOf(button);
                        button.SetWindowText({});
                        EXPECT_TRUE(PictureOf(button) == named) << id;
                    }
                }});
}

TEST_F(LogFormSkinTest, TheTitleOfTheReportIsBoldAndItsTotalIsNot)
{
    WithReport();
    m_form.Run({[&]
                {
                    CWindow total = m_form.Item(IDC_FORM_REPORT_TOTAL);
                    CWindow title = m_form.Item(IDC_FORM_REPORT_TITLE);
                    title.SetWindowText(L"the same");
                    total.SetWindowText(L"the same");
                    EXPECT_GT(InkOf(PictureOf(title)), InkOf(PictureOf(total)));
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
                }});
}

// The selected tab was selected once more, which the strip takes for no change.
TEST_F(LogFormSkinTest, TheTabKeyShowsAHiddenPageOfTheSelectedTabAgain)
{
    m_form.Run({[&]
                {
                    m_form.Page()->ShowWindow(SW_HIDE);
                    Key(WM_KEYUP, VK_TAB, m_form.Item(IDC_FORM_CLOSE));
                    EXPECT_TRUE(m_nTaken);
                    EXPECT_EQ(Tab(), 0);
                    EXPECT_TRUE(m_form.Page()->IsWindowVisible());
                }});
}

TEST_F(LogFormSkinTest, TheTabKeyLeavesThePageOfAnotherTabHidden)
{
    WithReport();
    m_form.Run({[&]
                {
                    Key(WM_KEYUP, VK_TAB, m_form.Item(IDC_FORM_CLOSE));
                    EXPECT_TRUE(m_nTaken);
                    EXPECT_FALSE(m_form.Page()->IsWindowVisible());
                }});
}

TEST_F(LogFormSkinTest, TheCaptionButtonsHaveNamesMinimiseAndClose)
{
    const INT_PTR result =
        m_form.RunToItsOwnEnd({[&]
                               {
                                   EXPECT_EQ(m_form.Item(IDC_FORM_MINIMISE).GetWindowText(), L"&Minimize");
                                   EXPECT_EQ(m_form.Item(IDC_FORM_CLOSE_BOX).GetWindowText(), L"Close");
                                   m_form.SendMessage(WM_COMMAND, MAKEWPARAM(IDC_FORM_MINIMISE, BN_CLICKED), 0);
                                   EXPECT_TRUE(m_form.IsIconic());
                                   m_form.ShowWindow(SW_RESTORE);
                                   EXPECT_FALSE(m_form.IsIconic());
                               },
                               [&] { m_form.SendMessage(WM_COMMAND, MAKEWPARAM(IDC_FORM_CLOSE_BOX, BN_CLICKED), 0); }});
    EXPECT_EQ(result, IDCANCEL);
}

TEST_F(LogFormSkinTest, CaptionButtonsAndTabsGrowWithTheScaleOfTheScreen)
{
    const StandingScale scale(192);
    WithReport();
    m_form.Run({[&]
                {
                    for (const UINT button : {IDC_FORM_MINIMISE, IDC_FORM_CLOSE_BOX})
                    {
                        const RECT place = m_form.Item(button).GetWindowRect();
                        EXPECT_EQ(place.right - place.left, 56);
                        EXPECT_EQ(place.bottom - place.top, 56);
                        EXPECT_EQ(place.top - m_form.GetWindowRect().top, 8);
                    }
                    RECT tab{};
                    m_form.Item(IDC_FORM_TAB).SendMessage(TCM_GETITEMRECT, 0, reinterpret_cast<LPARAM>(&tab));
                    EXPECT_EQ(tab.right - tab.left, 220);
                    EXPECT_EQ(tab.bottom - tab.top, 40);
                    const CWindow strip = m_form.Item(IDC_FORM_TAB);
                    EXPECT_GT(m_form.Page()->GetWindowRect().top, strip.GetWindowRect().top + tab.bottom)
                        << "the line below the tabs is seen";
                }});
}

TEST_F(LogFormSkinTest, AMinimisedFormGivesItsIcon)
{
    m_form.Run({[&]
                {
                    EXPECT_EQ(m_form.SendMessage(WM_QUERYDRAGICON), m_form.SendMessage(WM_GETICON, ICON_BIG));
                    EXPECT_NE(m_form.SendMessage(WM_QUERYDRAGICON), 0);
                }});
}

namespace
{

// Where an icon was drawn, and which.
struct DrawnIcon
{
    int x;
    int y;
    HICON icon;

    bool operator==(const DrawnIcon&) const = default;
};

std::vector<DrawnIcon> drawnIcons;

BOOL WINAPI NoteIcon(HDC, int x, int y, HICON icon)
{
    drawnIcons.push_back({x, y, icon});
    return TRUE;
}

// Counts how often it is to erase the background of its icon.
class IconicForm : public ScriptedForm
{
public:
    int m_nErased = 0;

protected:
    static const MessageMap& Map()
    {
        static constexpr auto rows = MessageRows(On::Message<WM_ICONERASEBKGND, &IconicForm::OnIconEraseBkgnd>);
        static constexpr MessageMap map{rows, &ScriptedForm::Map};
        return map;
    }

    const MessageMap& GetMessageMap() const override { return Map(); }

private:
    LRESULT OnIconEraseBkgnd(WPARAM, LPARAM)
    {
        ++m_nErased;
        return TRUE;
    }
};

} // namespace

TEST_F(LogFormSkinTest, AMinimisedFormPaintsItsIconInTheMiddleOfAnErasedBackground)
{
    drawnIcons.clear();
    const ImportPatch patch(__imp_DrawIcon, &NoteIcon);
    std::vector<DrawnIcon> expected;
    IconicForm form;
    form.m_strLogPath = m_form.m_strLogPath;
    form.m_bLogOnly = true;
    form.m_pPageHost = &m_app;
    form.Run({[&]
              {
                  form.SendMessage(WM_PAINT);
                  EXPECT_TRUE(drawnIcons.empty()) << "it is not minimised yet";
                  form.ShowWindow(SW_MINIMIZE);
                  drawnIcons.clear();
                  form.m_nErased = 0;
                  form.SendMessage(WM_PAINT);
                  const RECT client = form.GetClientRect();
                  const auto middle = [](LONG room, int metric) { return (room - ::GetSystemMetrics(metric) + 1) / 2; };
                  expected = {{static_cast<int>(middle(client.right, SM_CXICON)),
                               static_cast<int>(middle(client.bottom, SM_CYICON)),
                               reinterpret_cast<HICON>(form.SendMessage(WM_GETICON, ICON_BIG))}};
                  form.ShowWindow(SW_RESTORE);
              }});
    EXPECT_EQ(drawnIcons, expected);
    EXPECT_EQ(form.m_nErased, 1);
}
