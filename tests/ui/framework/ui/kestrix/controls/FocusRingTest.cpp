// Lists, combo boxes and edits are drawn by the system; the dialog shows by a ring which of them has the focus.

#include "framework/ui/kestrix/controls/SkinColours.h"
#include "tests/support/HighContrast.h"
#include "tests/support/Picture.h"
#include "tests/support/StandingScale.h"
#include "tests/ui/gallery/SkinDialog.h"

#include <gtest/gtest.h>

namespace
{

struct Kind
{
    const wchar_t* windowClass;
    DWORD style;
    WORD gets; // the codes of WM_COMMAND; 0: NM_SETFOCUS and NM_KILLFOCUS
    WORD loses;
};

constexpr Kind Kinds[] = {{WC_LISTBOXW, LBS_NOTIFY, LBN_SETFOCUS, LBN_KILLFOCUS},
                          {WC_COMBOBOXW, CBS_DROPDOWNLIST, CBN_SETFOCUS, CBN_KILLFOCUS},
                          {WC_EDITW, 0, EN_SETFOCUS, EN_KILLFOCUS},
                          {WC_LISTVIEWW, LVS_REPORT, 0, 0}};

class FocusRingTest : public testing::Test
{
protected:
    FocusRingTest()
    {
        m_dialog.RemoveControls();
        m_dialog.SetBackground(IDB_SKIN_PICTURE);
    }

    HWND Add(const Kind& kind, int id)
    {
        return ::CreateWindowExW(0, kind.windowClass, nullptr, WS_CHILD | WS_VISIBLE | kind.style, 40, 40, 100, 60,
                                 m_dialog, reinterpret_cast<HMENU>(static_cast<INT_PTR>(id)), nullptr, nullptr);
    }

    // As the control tells it.
    void Tell(HWND control, const Kind& kind, bool gets)
    {
        const int id = ::GetDlgCtrlID(control);
        if (kind.gets != 0)
        {
            m_dialog.SendMessage(WM_COMMAND, MAKEWPARAM(id, gets ? kind.gets : kind.loses),
                                 reinterpret_cast<LPARAM>(control));
            return;
        }
        NMHDR notification{control, static_cast<UINT_PTR>(id), gets ? NM_SETFOCUS : NM_KILLFOCUS};
        m_dialog.SendMessage(WM_NOTIFY, static_cast<WPARAM>(id), reinterpret_cast<LPARAM>(&notification));
    }

    // The pixels of the mark's colour left of the control, from its edge on.
    int RingWidth(HWND control, COLORREF colour)
    {
        RECT place{};
        ::GetWindowRect(control, &place);
        m_dialog.ScreenToClient(place);
        const Picture picture = PictureOf(m_dialog);
        const RECT frame = m_dialog.GetWindowRect();
        POINT origin{};
        ::ClientToScreen(m_dialog, &origin);
        const int y = place.top + 10 + origin.y - frame.top;
        int x = place.left + origin.x - frame.left - 1;
        int width = 0;
        while (x >= 0 && picture.At(x, y) == colour)
        {
            --x;
            ++width;
        }
        return width;
    }

    CSkinDialog m_dialog{{260, 180}};
};

} // namespace

TEST_F(FocusRingTest, StandsAroundEveryKindOfControlWhileItHasTheFocus)
{
    for (const Kind& kind : Kinds)
    {
        const HWND control = Add(kind, 7);
        EXPECT_EQ(0, RingWidth(control, SkinColour::Focus));
        Tell(control, kind, true);
        EXPECT_EQ(2, RingWidth(control, SkinColour::Focus));
        Tell(control, kind, false);
        EXPECT_EQ(0, RingWidth(control, SkinColour::Focus));
        ::DestroyWindow(control);
    }
}

TEST_F(FocusRingTest, IsAsWideAsTheScaleOfTheScreenMakesIt)
{
    const StandingScale scale(192);
    const HWND control = Add(Kinds[0], 7);
    Tell(control, Kinds[0], true);
    EXPECT_EQ(4, RingWidth(control, SkinColour::Focus));
}

TEST_F(FocusRingTest, HasTheSystemsColourInHighContrast)
{
    const HWND control = Add(Kinds[0], 7);
    const HighContrast contrast;
    Tell(control, Kinds[0], true);
    EXPECT_EQ(2, RingWidth(control, GetSysColor(COLOR_HIGHLIGHT)));
}

TEST_F(FocusRingTest, TheCodeOfAnotherClassMeansNothing)
{
    const HWND combo = Add(Kinds[1], 7);
    Tell(combo, Kinds[1], true);
    const HWND list = Add(Kinds[0], 8);
    m_dialog.SendMessage(WM_COMMAND, MAKEWPARAM(8, CBN_SETFOCUS), reinterpret_cast<LPARAM>(list));
    ::DestroyWindow(list);
    EXPECT_EQ(2, RingWidth(combo, SkinColour::Focus));
}

// A control may tell late that it has lost the focus, when another one has told that it got it.
TEST_F(FocusRingTest, StaysWhenAnotherControlTellsThatItHasLostTheFocus)
{
    const HWND combo = Add(Kinds[1], 7);
    Tell(combo, Kinds[1], true);
    const HWND list = Add(Kinds[0], 8);
    Tell(list, Kinds[0], false);
    ::DestroyWindow(list);
    EXPECT_EQ(2, RingWidth(combo, SkinColour::Focus));
}

TEST_F(FocusRingTest, AControlThatGoesWithTheFocusTakesItsRingAlong)
{
    const HWND control = Add(Kinds[0], 7);
    Tell(control, Kinds[0], true);
    ::DestroyWindow(control);
    const HWND other = Add(Kinds[2], 8); // in its place
    EXPECT_EQ(0, RingWidth(other, SkinColour::Focus));
    Tell(other, Kinds[2], true);
    EXPECT_EQ(2, RingWidth(other, SkinColour::Focus));
}
