#include "platform/dialog/WindowSubclass.h"

#include "tests/ui/platform/dialog/TestWindows.h"

#include <gtest/gtest.h>

#include <functional>
#include <memory>

namespace
{

constexpr UINT WindowSubclassProbe = WM_USER + 1;

// Counts what comes, and does what a test wants inside a message.
struct Listener
{
    WindowSubclass subclass;
    std::function<void(UINT)> during;
    int count = 0;

    bool Install(HWND window) { return subclass.Install(window, &Handle, this); }

    static LRESULT Handle(void* owner, HWND window, UINT message, WPARAM wParam, LPARAM lParam)
    {
        auto& self = *static_cast<Listener*>(owner);
        self.count += message == WindowSubclassProbe;
        if (const auto action = self.during)
        {
            action(message);
        }
        return WindowSubclass::CallOriginal(window, message, wParam, lParam);
    }
};

TEST(WindowSubclassTest, StandsBeforeTheWindowWhileTheObjectLives)
{
    PlainWindow window;
    {
        Listener listener;
        ASSERT_TRUE(listener.Install(window.Get()));
        EXPECT_EQ(&listener, WindowSubclass::OwnerAt(window.Get()));
        SendMessageW(window.Get(), WindowSubclassProbe, 0, 0);
        EXPECT_EQ(1, listener.count);
    }
    EXPECT_EQ(nullptr, WindowSubclass::OwnerAt(window.Get()));
    SendMessageW(window.Get(), WindowSubclassProbe, 0, 0);
    EXPECT_EQ(2, window.CountOf(WindowSubclassProbe));
}

TEST(WindowSubclassTest, EndsWithTheWindow)
{
    PlainWindow window;
    Listener listener;
    ASSERT_TRUE(listener.Install(window.Get()));
    window.Destroy();
    EXPECT_FALSE(listener.subclass.IsInstalled());
    PlainWindow next;
    EXPECT_TRUE(listener.Install(next.Get()));
}

TEST(WindowSubclassTest, TheObjectMayGoInsideItsOwnMessage)
{
    PlainWindow window;
    auto listener = std::make_unique<Listener>();
    listener->during = [&listener](UINT message)
    {
        if (message == WindowSubclassProbe)
        {
            listener.reset();
        }
    };
    ASSERT_TRUE(listener->Install(window.Get()));
    SendMessageW(window.Get(), WindowSubclassProbe, 0, 0);
    EXPECT_EQ(nullptr, listener);
    EXPECT_EQ(1, window.CountOf(WindowSubclassProbe));
    SendMessageW(window.Get(), WindowSubclassProbe, 0, 0);
    EXPECT_EQ(2, window.CountOf(WindowSubclassProbe));
}

TEST(WindowSubclassTest, TheObjectMayGoInTheLastMessage)
{
    PlainWindow window;
    auto listener = std::make_unique<Listener>();
    listener->during = [&listener](UINT message)
    {
        if (message == WM_NCDESTROY)
        {
            listener.reset();
        }
    };
    ASSERT_TRUE(listener->Install(window.Get()));
    window.Destroy();
    EXPECT_EQ(nullptr, listener);
    EXPECT_EQ(1, window.CountOf(WM_NCDESTROY));
}

TEST(WindowSubclassTest, TheWindowMayGoInsideAMessage)
{
    PlainWindow window;
    Listener listener;
    listener.during = [&window](UINT message)
    {
        if (message == WindowSubclassProbe)
        {
            window.Destroy();
        }
    };
    ASSERT_TRUE(listener.Install(window.Get()));
    SendMessageW(window.Get(), WindowSubclassProbe, 0, 0);
    EXPECT_FALSE(listener.subclass.IsInstalled());
}

TEST(WindowSubclassTest, ASecondInstallIsRefused)
{
    PlainWindow window;
    PlainWindow other;
    Listener first;
    Listener second;
    ASSERT_TRUE(first.Install(window.Get()));
    EXPECT_FALSE(first.Install(other.Get()));   // the object is in use
    EXPECT_FALSE(second.Install(window.Get())); // the window has a subclass
    EXPECT_EQ(&first, WindowSubclass::OwnerAt(window.Get()));
}

TEST(WindowSubclassTest, WhatIsNoWindowIsRefused)
{
    Listener listener;
    EXPECT_FALSE(listener.Install(nullptr));
    EXPECT_FALSE(listener.Install(reinterpret_cast<HWND>(0x7ffffff0)));
    EXPECT_FALSE(listener.subclass.IsInstalled());
}

// Somebody else's procedure before the window; count is an int.
LRESULT CALLBACK Stranger(HWND window, UINT message, WPARAM wParam, LPARAM lParam, UINT_PTR, DWORD_PTR count)
{
    *reinterpret_cast<int*>(count) += message == WindowSubclassProbe;
    return DefSubclassProc(window, message, wParam, lParam);
}

TEST(WindowSubclassTest, GoesFromBelowAnotherProcedureAndMayComeBackThere)
{
    PlainWindow window;
    Listener later;
    int strangers = 0;
    {
        Listener first;
        ASSERT_TRUE(first.Install(window.Get()));
        ASSERT_TRUE(SetWindowSubclass(window.Get(), &Stranger, 1, reinterpret_cast<DWORD_PTR>(&strangers)));
    }
    SendMessageW(window.Get(), WindowSubclassProbe, 0, 0);
    EXPECT_EQ(1, window.CountOf(WindowSubclassProbe)); // passed on

    ASSERT_TRUE(later.Install(window.Get()));
    SendMessageW(window.Get(), WindowSubclassProbe, 0, 0);
    EXPECT_EQ(1, later.count);
    EXPECT_EQ(2, window.CountOf(WindowSubclassProbe));
    EXPECT_EQ(2, strangers); // nobody took it away

    window.Destroy();
    EXPECT_FALSE(later.subclass.IsInstalled());
}

TEST(WindowSubclassTest, TheOriginalIsReachedAfterTheObjectWentInsideItsMessage)
{
    PlainWindow window;
    window.m_answer = 42;
    Listener listener;
    listener.during = [&listener](UINT message)
    {
        if (message == WindowSubclassProbe)
        {
            listener.subclass.Remove();
        }
    };
    ASSERT_TRUE(listener.Install(window.Get()));
    EXPECT_EQ(42, SendMessageW(window.Get(), WindowSubclassProbe, 0, 0));
    EXPECT_EQ(42, SendMessageW(window.Get(), WindowSubclassProbe, 0, 0));
    EXPECT_EQ(1, listener.count);
}

TEST(WindowSubclassTest, RemovingKeepsTheLastError)
{
    PlainWindow window;
    Listener listener;
    ASSERT_TRUE(listener.Install(window.Get()));
    SetLastError(ERROR_FILE_NOT_FOUND);
    listener.subclass.Remove();
    EXPECT_EQ(static_cast<DWORD>(ERROR_FILE_NOT_FOUND), GetLastError());
}

} // namespace
