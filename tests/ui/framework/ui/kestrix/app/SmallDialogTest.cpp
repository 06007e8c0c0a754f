// What the settings dialog and the delete dialog have in common: frame, closing, keys and names.

#include "framework/ui/kestrix/app/SmallDialog.h"

#include "framework/ui/kestrix/app/DelLogDlg.h"
#include "framework/ui/kestrix/app/SettingLogDlg.h"
#include "resource/DialogTexts.h"
#include "resource/resource.h"
#include "tests/ui/framework/ui/kestrix/app/PurgeDialogTest.h"

#include <gtest/gtest.h>

#include <set>
#include <string>
#include <vector>

namespace
{

struct Settings
{
    using Dialog = CSettingLogDlg;

    static constexpr UINT Heading = IDC_SETTINGS_HEADING;
    static constexpr UINT HeadingText = IDS_SETTINGS_HEADING;
    static constexpr UINT CloseBox = IDC_SETTINGS_CLOSE_BOX;
    static constexpr UINT Combo = IDC_SETTINGS_FREQUENCY;
    static inline const std::vector<int> TabWay{IDC_SETTINGS_PURGE, IDC_SETTINGS_FREQUENCY, IDOK, IDCANCEL};
    static inline const std::set<wchar_t> AccessKeys{L'C', L'D', L'K', L'O'};
};

struct Deletion
{
    using Dialog = CDelLogDlg;

    static constexpr UINT Heading = IDC_DELETE_HEADING;
    static constexpr UINT HeadingText = IDS_DELETE_HEADING;
    static constexpr UINT CloseBox = IDC_DELETE_CLOSE_BOX;
    static constexpr UINT Combo = IDC_DELETE_DATE;
    static inline const std::vector<int> TabWay{IDC_DELETE_DATE, IDOK, IDCANCEL};
    static inline const std::set<wchar_t> AccessKeys{L'C', L'D', L'O'};
};

// In the order of the templates.
std::vector<HWND> VisibleChildrenOf(HWND window)
{
    std::vector<HWND> children;
    for (HWND child = ::GetWindow(window, GW_CHILD); child != nullptr; child = ::GetWindow(child, GW_HWNDNEXT))
    {
        children.push_back(child);
    }
    return children;
}

template <class Case>
class SmallDialogTest : public PurgeDialogTest<typename Case::Dialog>
{
protected:
    // The controls that the Tab key visits, from the first on until it comes to one again.
    std::vector<int> WalkTabs() const
    {
        std::vector<int> way;
        HWND control = ::GetNextDlgTabItem(this->m_dialog, nullptr, FALSE);
        while (control != nullptr && std::ranges::count(way, ::GetDlgCtrlID(control)) == 0)
        {
            way.push_back(::GetDlgCtrlID(control));
            control = ::GetNextDlgTabItem(this->m_dialog, control, FALSE);
        }
        return way;
    }
};

using Cases = ::testing::Types<Settings, Deletion>;
TYPED_TEST_SUITE(SmallDialogTest, Cases, );

} // namespace

TYPED_TEST(SmallDialogTest, HasItsHeadingInTheFrameAndTheNameOfTheSuiteAsTitle)
{
    this->m_dialog.Run({[&]
                        {
                            EXPECT_EQ(this->m_dialog.Item(TypeParam::Heading).GetWindowText(),
                                      Text(TypeParam::HeadingText));
                            EXPECT_EQ(this->m_dialog.GetWindowText(), L"The suite");
                        }});
}

TYPED_TEST(SmallDialogTest, WithoutANameOfTheSuiteTheTitleIsEmpty)
{
    ::RegDeleteKeyValueW(HKEY_LOCAL_MACHINE, SuiteKey, L"ProductName");
    this->m_dialog.Run({[&] { EXPECT_EQ(this->m_dialog.GetWindowText(), L""); }});
}

TYPED_TEST(SmallDialogTest, ItsCornersAreCutAway)
{
    this->m_dialog.Run({[&]
                        {
                            const RECT client = this->m_dialog.GetClientRect();
                            CRgn region;
                            region.CreateRectRgn({0, 0, 1, 1});
                            ASSERT_EQ(GetWindowRgn(this->m_dialog, region), COMPLEXREGION);
                            EXPECT_FALSE(PtInRegion(region, 0, 0));
                            EXPECT_FALSE(PtInRegion(region, client.right - 1, client.bottom - 1));
                            EXPECT_TRUE(PtInRegion(region, client.right / 2, 0));
                        }});
}

TYPED_TEST(SmallDialogTest, CancelAndTheCloseBoxCancel)
{
    for (const UINT button : {UINT{IDCANCEL}, TypeParam::CloseBox})
    {
        EXPECT_EQ(this->m_dialog.RunToItsOwnEnd({[&] { this->m_dialog.Item(button).SendMessage(BM_CLICK); }}), IDCANCEL)
            << button;
    }
}

// The system under these tests keeps the key from windows around a combo box, so a button has it here.
TYPED_TEST(SmallDialogTest, AltAndF4Cancel)
{
    EXPECT_EQ(this->m_dialog.RunToItsOwnEnd(
                  {[&] { this->m_dialog.Item(IDOK).PostMessage(WM_SYSKEYDOWN, VK_F4, AltIsDown); }}),
              IDCANCEL);
}

TYPED_TEST(SmallDialogTest, EnterAndEscapeDoNothingWhateverHasTheFocus)
{
    std::vector<ScriptedDialog<CDialog>::Step> steps;
    for (const WPARAM key : {VK_RETURN, VK_ESCAPE})
    {
        for (const int control : TypeParam::TabWay)
        {
            steps.push_back(
                [this, key, control]
                {
                    CWindow item = this->m_dialog.Item(static_cast<UINT>(control));
                    item.SetFocus();
                    item.PostMessage(WM_KEYDOWN, key, 1);
                    item.PostMessage(WM_KEYUP, key, 1);
                });
        }
    }
    bool visible = false;
    steps.push_back([&] { visible = this->m_dialog.IsWindowVisible(); });
    EXPECT_EQ(this->m_dialog.Run(steps), ScriptedDialog<CDialog>::EndedByTest);
    EXPECT_TRUE(visible);
    EXPECT_TRUE(this->m_boxes.Boxes().empty());
}

TYPED_TEST(SmallDialogTest, TheClientAreaDragsTheWindow)
{
    MSG drag{};
    BOOL found = FALSE;
    this->m_dialog.Run({[&]
                        {
                            this->m_dialog.SendMessage(WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(123, 45));
                            found =
                                ::PeekMessageW(&drag, this->m_dialog, WM_NCLBUTTONDOWN, WM_NCLBUTTONDOWN, PM_REMOVE);
                        }});
    ASSERT_TRUE(found);
    EXPECT_EQ(drag.wParam, static_cast<WPARAM>(HTCAPTION));
    EXPECT_EQ(drag.lParam, MAKELPARAM(123, 45));
}

TYPED_TEST(SmallDialogTest, TheTabKeyVisitsTheControlsInTheOrderOfTheTemplateAndBeginsWithTheFirst)
{
    this->m_dialog.Run({[&]
                        {
                            EXPECT_EQ(this->WalkTabs(), TypeParam::TabWay);
                            EXPECT_EQ(::GetDlgCtrlID(::GetFocus()), TypeParam::TabWay.front());
                        }});
}

TYPED_TEST(SmallDialogTest, EveryControlHasAnAccessKeyOfItsOwn)
{
    std::multiset<wchar_t> keys;
    this->m_dialog.Run({[&]
                        {
                            for (const HWND child : VisibleChildrenOf(this->m_dialog))
                            {
                                const std::wstring text = CWindow(child).GetWindowText();
                                if (const auto mark = text.find(L'&'); mark != std::wstring::npos)
                                {
                                    keys.insert(static_cast<wchar_t>(::towupper(text.at(mark + 1))));
                                }
                            }
                        }});
    EXPECT_EQ(keys, std::multiset<wchar_t>(TypeParam::AccessKeys.begin(), TypeParam::AccessKeys.end()));
}

TYPED_TEST(SmallDialogTest, TheAccessKeyOfCancelCancels)
{
    EXPECT_EQ(this->m_dialog.RunToItsOwnEnd(
                  {[&] { this->m_dialog.Item(TypeParam::Combo).PostMessage(WM_SYSCHAR, L'c', AltIsDown); }}),
              IDCANCEL);
}

// A button, also the drawn one in the frame, has its text as name, and a list the text right before it.
TYPED_TEST(SmallDialogTest, EveryControlHasANameForScreenReaders)
{
    this->m_dialog.Run({[&]
                        {
                            EXPECT_EQ(this->m_dialog.Item(TypeParam::CloseBox).GetWindowText(), L"Close");
                            for (const int control : TypeParam::TabWay)
                            {
                                const CWindow item = this->m_dialog.Item(static_cast<UINT>(control));
                                const CWindow named(control == static_cast<int>(TypeParam::Combo)
                                                        ? ::GetWindow(item, GW_HWNDPREV)
                                                        : item.GetSafeHwnd());
                                EXPECT_NE(named.GetWindowText(), L"") << control;
                            }
                        }});
}

TYPED_TEST(SmallDialogTest, TheCloseBoxDoesNotDrawItsName)
{
    this->m_dialog.Run({[&]
                        {
                            CWindow box = this->m_dialog.Item(TypeParam::CloseBox);
                            const Picture named = PictureOf(box);
                            box.SetWindowText({});
                            EXPECT_TRUE(PictureOf(box) == named);
                        }});
}
