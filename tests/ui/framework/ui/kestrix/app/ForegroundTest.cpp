// A form comes to the front, past what protects the window that the user works in.

#include "framework/ui/kestrix/app/Foreground.h"

#include "platform/dialog/DialogFramework.h"

#include <gtest/gtest.h>

namespace
{

// For so many milliseconds after the user's last input the system lets no window take the foreground.
DWORD Lock()
{
    DWORD milliseconds = 0;
    SystemParametersInfoW(SPI_GETFOREGROUNDLOCKTIMEOUT, 0, &milliseconds, 0);
    return milliseconds;
}

void SetLock(DWORD milliseconds)
{
    SystemParametersInfoW(SPI_SETFOREGROUNDLOCKTIMEOUT, 0,
                          reinterpret_cast<void*>(static_cast<ULONG_PTR>(milliseconds)), 0);
}

class Form : public CWnd
{
public:
    Form() { Create(L"STATIC", {}, WS_POPUP | WS_VISIBLE, {0, 0, 100, 100}, nullptr, 0); }

    DWORD m_lock = 1; // while it got the focus

protected:
    LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override
    {
        if (message == WM_SETFOCUS)
        {
            m_lock = Lock();
        }
        return CWnd::WindowProc(message, wParam, lParam);
    }
};

class ForegroundTest : public ::testing::Test
{
protected:
    ForegroundTest() { SetLock(SomeTime); }

    ~ForegroundTest() override { SetLock(m_before); }

    static constexpr DWORD SomeTime = 123'456;

private:
    const DWORD m_before = Lock();
};

} // namespace

TEST_F(ForegroundTest, TheFormHasTheKeyboardAndTheLockIsAsBefore)
{
    const Form other;
    SetFocus(other);
    Form form;
    SetFocus(other);
    form.m_lock = 1;
    ForceToFront(form);
    EXPECT_EQ(GetForegroundWindow(), form.GetSafeHwnd());
    EXPECT_EQ(GetFocus(), form.GetSafeHwnd());
    EXPECT_EQ(form.m_lock, 0u);
    EXPECT_EQ(Lock(), SomeTime);
}
