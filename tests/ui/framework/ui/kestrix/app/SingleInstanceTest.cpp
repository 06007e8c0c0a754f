// One viewer in a session: what a second process does with the window of the first.

#include "framework/ui/kestrix/app/SingleInstance.h"

#include "platform/dialog/DialogFramework.h"
#include "resource/resource.h"
#include "tests/support/LanguageFile.h"
#include "tests/support/TraceRecorder.h"

#include <gtest/gtest.h>

namespace
{

using Texts = std::vector<std::wstring>;

constexpr wchar_t EnterCheck[] = L"[Enter] CKestrixApp::CheckInstance()...";
constexpr wchar_t Exists[] = L"local mutex has already existed.";
constexpr wchar_t Restore[] = L"*** CKestrixApp::CheckInstance() - Restore iconic dialog...";
constexpr wchar_t Missing[] = L"*** CKestrixApp::CheckInstance() - Cannot find existed window handle!!";
constexpr wchar_t Leave[] = L"[Leave] CKestrixApp::CheckInstance()...";

class SingleInstanceTest : public ::testing::Test
{
protected:
    // A window that could be that of the first viewer.
    void OpenWindow(const std::wstring& title)
    {
        m_window.Create(L"STATIC", title, WS_OVERLAPPEDWINDOW | WS_VISIBLE, {50, 50, 350, 250}, nullptr, 0);
    }

    bool IsIconic() const { return ::IsIconic(m_window.GetSafeHwnd()); }

    const LanguageFile m_language;
    TraceRecorder m_trace;
    CWnd m_window;
};

} // namespace

TEST_F(SingleInstanceTest, TheFirstIsAloneUntilItGoes)
{
    {
        CSingleInstance first;
        EXPECT_TRUE(first.Take());
        EXPECT_EQ(m_trace.Texts(), (Texts{EnterCheck, Leave}));
        CSingleInstance second;
        EXPECT_FALSE(second.Take());
    }
    CSingleInstance third;
    EXPECT_TRUE(third.Take());
}

TEST_F(SingleInstanceTest, ASecondThatFindsNoWindowTellsSo)
{
    CSingleInstance first;
    ASSERT_TRUE(first.Take());
    m_trace.Clear();
    OpenWindow(Text(IDS_FORM_TITLE) + L" ");
    CSingleInstance second;
    EXPECT_FALSE(second.Take());
    EXPECT_EQ(m_trace.Texts(), (Texts{EnterCheck, Exists, Missing, Leave}));
    EXPECT_EQ(m_trace.Errors(), Texts{Missing});
    EXPECT_FALSE(IsIconic());
}

TEST_F(SingleInstanceTest, ASecondMinimisesAnOpenWindowAndThenRestoresIt)
{
    CSingleInstance first;
    ASSERT_TRUE(first.Take());
    m_trace.Clear();
    OpenWindow(Text(IDS_FORM_TITLE));
    CSingleInstance second;
    EXPECT_FALSE(second.Take());
    EXPECT_TRUE(IsIconic());
    EXPECT_EQ(m_trace.Texts(), (Texts{EnterCheck, Exists, Restore, Leave}));
    EXPECT_EQ(m_trace.Texts(VdCommon::TraceLevel::Info), (Texts{Exists, Restore}));

    CSingleInstance::BringOtherForward();
    EXPECT_FALSE(IsIconic());
    EXPECT_EQ(m_trace.Texts().back(), L"instance is found");
}

TEST_F(SingleInstanceTest, ASecondRestoresAMinimisedWindow)
{
    CSingleInstance first;
    ASSERT_TRUE(first.Take());
    OpenWindow(Text(IDS_FORM_TITLE));
    m_window.ShowWindow(SW_MINIMIZE);
    ASSERT_TRUE(IsIconic());
    CSingleInstance second;
    EXPECT_FALSE(second.Take());
    EXPECT_FALSE(IsIconic());
    CSingleInstance::BringOtherForward();
    EXPECT_FALSE(IsIconic());
}

TEST_F(SingleInstanceTest, NoWindowIsBroughtForwardWhereThereIsNone)
{
    CSingleInstance::BringOtherForward();
    EXPECT_EQ(m_trace.Texts(), Texts{});
}

TEST(SingleInstance, WithoutTextsNoWindowIsTakenForAViewer)
{
    const TraceRecorder trace;
    CWnd untitled;
    untitled.Create(L"STATIC", {}, WS_OVERLAPPEDWINDOW | WS_VISIBLE, {50, 50, 350, 250}, nullptr, 0);
    CSingleInstance::BringOtherForward();
    EXPECT_EQ(trace.Texts(), Texts{});
}
