#include "platform/dialog/Wnd.h"

#include "tests/support/ImportPatch.h"
#include "tests/ui/platform/dialog/TestWindows.h"

#include <gtest/gtest.h>

#include <functional>
#include <memory>

extern "C" decltype(&::InvalidateRect) __imp_InvalidateRect;
extern "C" decltype(&::SendMessageW) __imp_SendMessageW;

namespace
{

constexpr UINT WndProbe = WM_USER + 1;

class CProbe : public CWnd
{
public:
    std::function<void(CProbe&)> m_during; // inside the handler of Probe
    std::function<void(CProbe&)> m_atEnd;  // inside the handler of WM_DESTROY
    std::function<LRESULT(CProbe&, UINT)> m_procedure;
    Notes m_notes;

    LRESULT CallDefault() { return Default(); }

protected:
    static const MessageMap& Map()
    {
        static constexpr auto rows =
            MessageRows(On::Message<WndProbe, &CProbe::OnProbe>, On::Message<WM_DESTROY, &CProbe::OnDestroy>,
                        On::Message<WM_NCDESTROY, &CProbe::OnNcDestroy>);
        static constexpr MessageMap map{rows, &CWnd::Map};
        return map;
    }

    const MessageMap& GetMessageMap() const override { return Map(); }

    void PreSubclassWindow() override
    {
        m_notes.push_back(Note(L"before", m_hWnd != nullptr, FromHandlePermanent(m_hWnd) == this));
        SendMessage(WndProbe); // does not come yet
    }

    LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override
    {
        return m_procedure && message == WndProbe ? m_procedure(*this, message)
                                                  : CWnd::WindowProc(message, wParam, lParam);
    }

private:
    LRESULT OnProbe(WPARAM, LPARAM)
    {
        m_notes.push_back(L"probe");
        if (const auto during = m_during)
        {
            during(*this);
        }
        return 9;
    }

    void OnDestroy()
    {
        m_notes.push_back(L"destroy");
        if (const auto atEnd = m_atEnd)
        {
            atEnd(*this);
        }
    }

    void OnNcDestroy()
    {
        m_notes.push_back(Note(L"last", m_hWnd != nullptr));
        Default();
    }
};

TEST(WndTest, SeesMessagesFromSubclassingOnAndNotBefore)
{
    PlainWindow window;
    CProbe object;
    ASSERT_TRUE(object.SubclassWindow(window.Get()));
    EXPECT_EQ(Notes{L"before 1 0"}, object.m_notes);
    EXPECT_EQ(1, window.CountOf(WndProbe)); // that of PreSubclassWindow
    EXPECT_EQ(9, SendMessageW(window.Get(), WndProbe, 0, 0));
    EXPECT_EQ(&object, CWnd::FromHandlePermanent(window.Get()));
}

TEST(WndTest, TheObjectGoesFirstAndLeavesTheWindowWhole)
{
    PlainWindow window;
    {
        CProbe object;
        ASSERT_TRUE(object.SubclassWindow(window.Get()));
    }
    ASSERT_TRUE(IsWindow(window.Get()));
    EXPECT_EQ(nullptr, CWnd::FromHandlePermanent(window.Get()));
    window.m_answer = 2;
    EXPECT_EQ(2, SendMessageW(window.Get(), WndProbe, 0, 0));
}

TEST(WndTest, TheWindowGoesFirstAndTheObjectGoesOnWithoutOne)
{
    PlainWindow window;
    CProbe object;
    ASSERT_TRUE(object.SubclassWindow(window.Get()));
    object.m_notes.clear();
    window.Destroy();
    EXPECT_EQ(nullptr, object.GetSafeHwnd());
    EXPECT_EQ((Notes{L"destroy", L"last 1"}), object.m_notes); // all of it was seen
    PlainWindow next;
    EXPECT_TRUE(object.SubclassWindow(next.Get()));
}

TEST(WndTest, TheObjectMayGoInsideItsOwnHandler)
{
    PlainWindow window;
    auto object = std::make_unique<CProbe>();
    ASSERT_TRUE(object->SubclassWindow(window.Get()));
    object->m_during = [&object](CProbe&) { object.reset(); };
    EXPECT_EQ(9, SendMessageW(window.Get(), WndProbe, 0, 0));
    EXPECT_EQ(nullptr, object);
    EXPECT_EQ(nullptr, CWnd::FromHandlePermanent(window.Get()));
}

TEST(WndTest, TheObjectMayGoWhileItsHandlersAreNested)
{
    PlainWindow window;
    auto object = std::make_unique<CProbe>();
    ASSERT_TRUE(object->SubclassWindow(window.Get()));
    object->m_during = [&object, &window](CProbe& self)
    {
        self.m_during = [&object](CProbe&) { object.reset(); };
        EXPECT_EQ(9, SendMessageW(window.Get(), WndProbe, 0, 0));
    };
    EXPECT_EQ(9, SendMessageW(window.Get(), WndProbe, 0, 0));
    EXPECT_EQ(nullptr, object);
}

TEST(WndTest, TheObjectMayGoWhileItsWindowGoes)
{
    PlainWindow window;
    auto object = std::make_unique<CProbe>();
    ASSERT_TRUE(object->SubclassWindow(window.Get()));
    object->m_atEnd = [&object](CProbe&) { object.reset(); };
    window.Destroy();
    EXPECT_EQ(nullptr, object);
    EXPECT_EQ(1, window.CountOf(WM_NCDESTROY));
}

TEST(WndTest, TheWindowMayGoInsideAHandler)
{
    PlainWindow window;
    CProbe object;
    ASSERT_TRUE(object.SubclassWindow(window.Get()));
    object.m_during = [&window](CProbe& self)
    {
        window.Destroy();
        EXPECT_EQ(nullptr, self.GetSafeHwnd());
        EXPECT_EQ(0, self.CallDefault()); // there is nothing left to ask
    };
    EXPECT_EQ(9, SendMessageW(window.Get(), WndProbe, 0, 0));
}

TEST(WndTest, AnObjectTakesOneWindowAndAWindowOneObject)
{
    PlainWindow window;
    PlainWindow other;
    CProbe first;
    CProbe second;
    ASSERT_TRUE(first.SubclassWindow(window.Get()));
    EXPECT_FALSE(first.SubclassWindow(other.Get()));
    EXPECT_FALSE(second.SubclassWindow(window.Get()));
    EXPECT_EQ(nullptr, second.GetSafeHwnd());
    EXPECT_TRUE(second.m_notes.empty()); // not even PreSubclassWindow
    EXPECT_EQ(&first, CWnd::FromHandlePermanent(window.Get()));
}

TEST(WndTest, WhatIsNoWindowIsRefused)
{
    CProbe object;
    EXPECT_FALSE(object.SubclassWindow(nullptr));
    EXPECT_FALSE(object.SubclassWindow(reinterpret_cast<HWND>(0x7ffffff0)));
    EXPECT_FALSE(object.SubclassWindow(GetDesktopWindow())); // of another thread
    EXPECT_EQ(nullptr, object.GetSafeHwnd());
    EXPECT_EQ(nullptr, CWnd::FromHandlePermanent(nullptr));
}

// A tool tip stayed after its page when memory ran out for the table of windows.
TEST(WndTest, AnExceptionBeforeSubclassingLeavesNothingJoinedAndNothingMade)
{
    class CThrowing : public CWnd
    {
        void PreSubclassWindow() override { throw std::runtime_error("no"); }
    };

    PlainWindow window;
    CThrowing object;
    EXPECT_THROW(object.SubclassWindow(window.Get()), std::runtime_error);
    EXPECT_EQ(nullptr, object.GetSafeHwnd());
    EXPECT_EQ(nullptr, CWnd::FromHandlePermanent(window.Get()));
    EXPECT_THROW(object.Create(WC_STATICW, L"", WS_CHILD, {}, window.Get(), 12), std::runtime_error);
    EXPECT_EQ(nullptr, object.GetSafeHwnd());
    EXPECT_EQ(nullptr, GetDlgItem(window.Get(), 12));
}

TEST(WndTest, DetachGivesTheWindowBack)
{
    PlainWindow window;
    CProbe object;
    ASSERT_TRUE(object.SubclassWindow(window.Get()));
    EXPECT_EQ(window.Get(), object.Detach());
    EXPECT_EQ(nullptr, object.GetSafeHwnd());
    EXPECT_EQ(nullptr, CWnd::FromHandlePermanent(window.Get()));
    EXPECT_EQ(nullptr, object.Detach());
}

TEST(WndTest, ALentWindowIsUsedAndNotSeen)
{
    PlainWindow window;
    CProbe owner;
    ASSERT_TRUE(owner.SubclassWindow(window.Get()));
    {
        CProbe second;
        second.Attach(window.Get());
        second.EnableWindow(false);
        EXPECT_FALSE(IsWindowEnabled(window.Get()));
        EXPECT_TRUE(second.m_notes.empty());
        EXPECT_EQ(&owner, CWnd::FromHandlePermanent(window.Get()));
    }
    EXPECT_TRUE(IsWindow(window.Get()));
    EXPECT_EQ(&owner, CWnd::FromHandlePermanent(window.Get()));
}

TEST(WndTest, ACreatedWindowGoesWithItsObject)
{
    PlainWindow host;
    HWND window = nullptr;
    {
        CProbe object;
        ASSERT_TRUE(object.Create(WC_STATICW, L"text", WS_CHILD, {1, 2, 31, 42}, host.Get(), 12));
        window = object;
        EXPECT_EQ(L"text", object.GetWindowText());
        EXPECT_EQ(window, GetDlgItem(host.Get(), 12));
        EXPECT_EQ(30, object.GetClientRect().right);
        EXPECT_FALSE(object.Create(WC_STATICW, L"", WS_CHILD, {}, host.Get(), 13)); // has one
    }
    EXPECT_FALSE(IsWindow(window));
}

TEST(WndTest, ACreatedWindowThatIsDetachedStays)
{
    PlainWindow host;
    HWND window = nullptr;
    {
        CProbe object;
        ASSERT_TRUE(object.Create(WC_STATICW, L"", WS_CHILD, {}, host.Get(), 12));
        window = object.Detach();
    }
    EXPECT_TRUE(IsWindow(window));
}

TEST(WndTest, ACreatedWindowMayGoWithItsParentFirst)
{
    PlainWindow host;
    CProbe object;
    ASSERT_TRUE(object.Create(WC_STATICW, L"", WS_CHILD, {}, host.Get(), 12));
    host.Destroy();
    EXPECT_EQ(nullptr, object.GetSafeHwnd());
    EXPECT_FALSE(object.DestroyWindow());
}

TEST(WndTest, AWindowThatCannotBeMadeLeavesTheObjectEmpty)
{
    CProbe object;
    EXPECT_FALSE(object.Create(L"no such class", L"", 0, {}, nullptr, 0));
    EXPECT_EQ(nullptr, object.GetSafeHwnd());
}

TEST(WndTest, DestroyWindowEndsALentWindowAndForgetsIt)
{
    PlainWindow window;
    CProbe object;
    object.Attach(window.Get());
    EXPECT_TRUE(object.DestroyWindow());
    EXPECT_EQ(nullptr, object.GetSafeHwnd());
    EXPECT_EQ(nullptr, window.Get());
}

TEST(WndTest, AnOverriddenProcedureComesFirstAndDefaultIsAllTheRest)
{
    PlainWindow window;
    CProbe object;
    ASSERT_TRUE(object.SubclassWindow(window.Get()));
    object.m_notes.clear();
    object.m_procedure = [](CProbe& self, UINT) { return 1 + self.CallDefault(); };
    EXPECT_EQ(10, SendMessageW(window.Get(), WndProbe, 0, 0));
    EXPECT_EQ(Notes{L"probe"}, object.m_notes);
}

TEST(WndTest, WithoutAWindowOperationsDoNothing)
{
    CWnd object;
    EXPECT_EQ(L"", object.GetWindowText());
    EXPECT_FALSE(object.SetWindowText(L"x"));
    EXPECT_EQ(nullptr, object.GetDlgItem(1));
    EXPECT_EQ(L"", object.GetDlgItemText(1));
    EXPECT_EQ(0, object.GetWindowRect().right);
    EXPECT_FALSE(object.PostMessage(WM_NULL));
    EXPECT_EQ(nullptr, object.SetFocus());
    object.Invalidate();
    object.RedrawWindow();
    EXPECT_FALSE(object.DestroyWindow());
}

TEST(WndTest, OnlyAWindowThatIsSeenIsInvalidated)
{
    PlainWindow host;
    CWnd object;
    ASSERT_TRUE(object.Create(WC_STATICW, {}, WS_CHILD | WS_VISIBLE, {0, 0, 50, 20}, host.Get(), 3));
    static int s_calls;
    s_calls = 0;
    const ImportPatch<decltype(&::InvalidateRect)> patch(__imp_InvalidateRect,
                                                         [](HWND, const RECT*, BOOL) -> BOOL { return ++s_calls; });
    object.Invalidate();
    object.InvalidateRect({0, 0, 5, 5});
    EXPECT_EQ(s_calls, 0);
    ShowWindow(host.Get(), SW_SHOWNA);
    object.Invalidate();
    object.InvalidateRect({0, 0, 5, 5});
    EXPECT_EQ(s_calls, 2);
}

TEST(WndTest, OnlyAWindowThatIsSeenIsPaintedInItsNewFontAtOnce)
{
    PlainWindow host;
    CWnd object;
    ASSERT_TRUE(object.Create(WC_STATICW, {}, WS_CHILD | WS_VISIBLE, {0, 0, 50, 20}, host.Get(), 3));
    static LPARAM s_redraw;
    const ImportPatch<decltype(&::SendMessageW)> patch(__imp_SendMessageW,
                                                       [](HWND, UINT message, WPARAM, LPARAM redraw) -> LRESULT
                                                       {
                                                           EXPECT_EQ(message, static_cast<UINT>(WM_SETFONT));
                                                           s_redraw = redraw;
                                                           return 0;
                                                       });
    s_redraw = -1;
    object.SetFont(nullptr);
    EXPECT_EQ(s_redraw, FALSE);
    ShowWindow(host.Get(), SW_SHOWNA);
    object.SetFont(nullptr);
    EXPECT_EQ(s_redraw, TRUE);
    object.SetFont(nullptr, false);
    EXPECT_EQ(s_redraw, FALSE);
}

TEST(WndTest, TextStyleFontAndPlaceAreThoseOfTheWindow)
{
    PlainWindow host;
    CWnd object;
    ASSERT_TRUE(object.Create(WC_STATICW, L"one", WS_CHILD, {0, 0, 50, 20}, host.Get(), 3));
    const std::wstring longText(5000, L'x');
    EXPECT_TRUE(object.SetWindowText(longText));
    EXPECT_EQ(longText, object.GetWindowText());
    CWindow(host.Get()).SetDlgItemText(3, L"two");
    EXPECT_EQ(L"two", CWindow(host.Get()).GetDlgItemText(3));

    EXPECT_TRUE(object.ModifyStyle(0, SS_CENTER));
    EXPECT_FALSE(object.ModifyStyle(0, SS_CENTER)); // nothing to change
    EXPECT_EQ(static_cast<DWORD>(SS_CENTER), object.GetStyle() & SS_TYPEMASK);
    EXPECT_TRUE(object.ModifyStyleEx(0, WS_EX_TRANSPARENT));
    EXPECT_NE(0u, object.GetExStyle() & WS_EX_TRANSPARENT);

    const auto font = static_cast<HFONT>(GetStockObject(DEFAULT_GUI_FONT));
    object.SetFont(font);
    EXPECT_EQ(font, object.GetFont());

    EXPECT_TRUE(object.MoveWindow({5, 6, 25, 36}));
    RECT place = object.GetWindowRect();
    CWindow(host.Get()).ScreenToClient(place);
    EXPECT_EQ(5, place.left);
    EXPECT_EQ(36, place.bottom);
}

} // namespace
