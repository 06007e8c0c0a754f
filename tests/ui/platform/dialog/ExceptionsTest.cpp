#include "platform/dialog/Exceptions.h"

#include "tests/ui/platform/dialog/TestWindows.h"

#include <gtest/gtest.h>

#include <functional>
#include <memory>
#include <stdexcept>

namespace
{

constexpr UINT Probe = WM_USER + 1;

class CThrowing : public CWnd
{
public:
    std::function<void()> m_throw;

protected:
    static const MessageMap& Map()
    {
        static constexpr auto rows =
            MessageRows(On::Message<Probe, &CThrowing::OnProbe>, On::Message<WM_PAINT, &CThrowing::OnPaint>);
        static constexpr MessageMap map{rows, &CWnd::Map};
        return map;
    }

    const MessageMap& GetMessageMap() const override { return Map(); }

private:
    LRESULT OnProbe(WPARAM, LPARAM)
    {
        m_throw();
        return 9;
    }

    void OnPaint() { m_throw(); }
};

class ExceptionsTest : public ::testing::Test
{
protected:
    void SetUp() override { ASSERT_TRUE(m_object.SubclassWindow(m_window.Get())); }

    // Throws inside a handler; gives the message's result.
    LRESULT Throw(std::function<void()> what)
    {
        m_object.m_throw = std::move(what);
        return SendMessageW(m_window.Get(), Probe, 0, 0);
    }

    PlainWindow m_window;
    CThrowing m_object;
};

TEST_F(ExceptionsTest, AStandardExceptionIsReportedAndTheMessageHasZero)
{
    RecordingApp app;
    EXPECT_EQ(0, Throw([] { throw std::runtime_error("broken pipe"); }));
    EXPECT_EQ(Notes{L"broken pipe"}, app.m_reports);
}

TEST_F(ExceptionsTest, AStatusCodeIsReportedWithTheSystemsText)
{
    RecordingApp app;
    EXPECT_EQ(0, Throw([] { AtlThrow(E_OUTOFMEMORY); }));
    ASSERT_EQ(1u, app.m_reports.size());
    EXPECT_NE(std::wstring::npos, app.m_reports[0].find(L"memory")) << app.m_reports[0].size();
    EXPECT_EQ(std::wstring::npos, app.m_reports[0].find(L'\n'));
}

TEST_F(ExceptionsTest, AStatusCodeWithoutATextIsReportedAsANumber)
{
    RecordingApp app;
    Throw([] { AtlThrow(0x00040299); });
    EXPECT_EQ(Notes{std::to_wstring(0x00040299)}, app.m_reports);
}

TEST_F(ExceptionsTest, AnInvalidArgumentIsReported)
{
    RecordingApp app;
    EXPECT_EQ(0, Throw([] { AfxThrowInvalidArgException(); }));
    EXPECT_EQ(Notes{L"invalid argument"}, app.m_reports);
}

TEST_F(ExceptionsTest, AnExceptionThrownAsAPointerIsReportedAndLeftToTheApplication)
{
    RecordingApp app;
    const auto thrown = std::make_unique<int>(7);
    EXPECT_EQ(0, Throw([&thrown] { throw thrown.get(); }));
    ASSERT_EQ(1u, app.m_exceptions.size());
    EXPECT_FALSE(app.m_reports[0].empty());
    try
    {
        std::rethrow_exception(app.m_exceptions[0]);
    }
    catch (const int* number)
    {
        EXPECT_EQ(7, *number);
    }
}

TEST_F(ExceptionsTest, AnythingElseThatIsThrownIsReported)
{
    RecordingApp app;
    EXPECT_EQ(0, Throw([] { throw L"wide text"; }));
    EXPECT_EQ(0, Throw([] { throw 42; }));
    EXPECT_EQ(2u, app.m_reports.size());
}

TEST_F(ExceptionsTest, TheNextMessageIsHandledAsUsual)
{
    RecordingApp app;
    Throw([] { throw std::runtime_error("once"); });
    EXPECT_EQ(9, Throw([] {}));
    EXPECT_EQ(1u, app.m_reports.size());
}

TEST_F(ExceptionsTest, AFailingPaintIsNotAskedForAgain)
{
    RecordingApp app;
    m_object.m_throw = [] { throw std::runtime_error("paint"); };
    ShowWindow(m_window.Get(), SW_SHOWNA);
    InvalidateRect(m_window.Get(), nullptr, FALSE);
    UpdateWindow(m_window.Get());
    EXPECT_FALSE(app.m_reports.empty());
    EXPECT_FALSE(GetUpdateRect(m_window.Get(), nullptr, FALSE));
}

TEST_F(ExceptionsTest, AReporterThatThrowsItselfIsContained)
{
    class ThrowingApp : public CWinApp
    {
        void OnHandlerException(const std::exception_ptr&) override { throw std::runtime_error("reporter"); }
    };

    ThrowingApp app;
    EXPECT_EQ(0, Throw([] { throw std::runtime_error("first"); }));
    EXPECT_EQ(9, Throw([] {}));
}

// Looks at the message box with the title, closes it and keeps its text. A timer finds it, since the box runs a loop.
class BoxCloser
{
public:
    explicit BoxCloser(const wchar_t* title)
    {
        Title() = title;
        Texts().clear();
        m_timer = SetTimer(nullptr, 0, 20, &Look);
    }

    ~BoxCloser() { KillTimer(nullptr, m_timer); }

    static Notes& Texts()
    {
        static Notes texts;
        return texts;
    }

    static std::function<void()>& BeforeClosing()
    {
        static std::function<void()> action;
        return action;
    }

private:
    static const wchar_t*& Title()
    {
        static const wchar_t* title = nullptr;
        return title;
    }

    static void CALLBACK Look(HWND, UINT, UINT_PTR, DWORD)
    {
        const HWND box = FindWindowW(L"#32770", Title());
        if (box == nullptr)
        {
            return;
        }
        EnumChildWindows(box, &AddText, 0);
        if (const auto action = std::exchange(BeforeClosing(), nullptr))
        {
            action();
        }
        EndDialog(box, IDOK);
    }

    static BOOL CALLBACK AddText(HWND child, LPARAM)
    {
        Texts().push_back(CWindow(child).GetWindowText());
        return TRUE;
    }

    UINT_PTR m_timer;
};

TEST_F(ExceptionsTest, ByDefaultTheTextStandsInABoxWithTheApplicationsName)
{
    CWinApp app(L"Exception test");
    const BoxCloser closer(L"Exception test");
    Throw([] { throw std::runtime_error("seen by the user"); });
    EXPECT_TRUE(std::ranges::count(BoxCloser::Texts(), L"seen by the user")) << BoxCloser::Texts().size();
}

TEST_F(ExceptionsTest, WhileABoxStandsFurtherReportsShowNone)
{
    CWinApp app(L"Exception test");
    const BoxCloser closer(L"Exception test");
    bool inner = false;
    BoxCloser::BeforeClosing() = [this, &inner]
    {
        Throw([] { throw std::runtime_error("second"); }); // would wait for its own box here
        inner = true;
    };
    Throw([] { throw std::runtime_error("first"); });
    EXPECT_TRUE(inner);
    EXPECT_FALSE(std::ranges::count(BoxCloser::Texts(), L"second"));
}

} // namespace
