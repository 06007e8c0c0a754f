// One viewer in a session: what a second process does with the window of the first.

#include "framework/ui/kestrix/app/Kestrix.h"
#include "framework/ui/kestrix/app/ViewerWindow.h"
#include "resource/resource.h"
#include "tests/support/LanguageFile.h"
#include "tests/support/TraceRecorder.h"

#include <gtest/gtest.h>

namespace
{

using Texts = std::vector<std::wstring>;

constexpr wchar_t Enter[] = L"[Enter] CKestrixApp::CheckInstance()...";
constexpr wchar_t Exists[] = L"local mutex has already existed.";
constexpr wchar_t Restore[] = L"*** CKestrixApp::CheckInstance() - Restore iconic dialog...";
constexpr wchar_t Missing[] = L"*** CKestrixApp::CheckInstance() - Cannot find existed window handle!!";
constexpr wchar_t Leave[] = L"[Leave] CKestrixApp::CheckInstance()...";

class InstanceTest : public ::testing::Test
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

TEST_F(InstanceTest, TheFirstIsAloneUntilItGoes)
{
    {
        CKestrixApp first;
        EXPECT_TRUE(first.CheckInstance());
        EXPECT_EQ(m_trace.Texts(), (Texts{Enter, Leave}));
        CKestrixApp second;
        EXPECT_FALSE(second.CheckInstance());
    }
    CKestrixApp third;
    EXPECT_TRUE(third.CheckInstance());
}

TEST_F(InstanceTest, ASecondThatFindsNoWindowTellsSo)
{
    CKestrixApp first;
    ASSERT_TRUE(first.CheckInstance());
    m_trace.Clear();
    OpenWindow(Text(IDS_FORM_TITLE) + L" ");
    CKestrixApp second;
    EXPECT_FALSE(second.CheckInstance());
    EXPECT_EQ(m_trace.Texts(), (Texts{Enter, Exists, Missing, Leave}));
    EXPECT_EQ(m_trace.Errors(), Texts{Missing});
    EXPECT_FALSE(IsIconic());
}

TEST_F(InstanceTest, ASecondMinimisesAnOpenWindowAndThenRestoresIt)
{
    CKestrixApp first;
    ASSERT_TRUE(first.CheckInstance());
    m_trace.Clear();
    OpenWindow(Text(IDS_FORM_TITLE));
    CKestrixApp second;
    EXPECT_FALSE(second.CheckInstance());
    EXPECT_TRUE(IsIconic());
    EXPECT_EQ(m_trace.Texts(), (Texts{Enter, Exists, Restore, Leave}));
    EXPECT_EQ(m_trace.Texts(VdCommon::TraceLevel::Info), (Texts{Exists, Restore}));

    BringForward(FindViewerWindow());
    EXPECT_FALSE(IsIconic());
    EXPECT_EQ(m_trace.Texts().back(), L"instance is found");
}

TEST_F(InstanceTest, ASecondRestoresAMinimisedWindow)
{
    CKestrixApp first;
    ASSERT_TRUE(first.CheckInstance());
    OpenWindow(Text(IDS_FORM_TITLE));
    m_window.ShowWindow(SW_MINIMIZE);
    ASSERT_TRUE(IsIconic());
    CKestrixApp second;
    EXPECT_FALSE(second.CheckInstance());
    EXPECT_FALSE(IsIconic());
    BringForward(FindViewerWindow());
    EXPECT_FALSE(IsIconic());
}

TEST_F(InstanceTest, NoWindowIsBroughtForwardWhereThereIsNone)
{
    EXPECT_EQ(FindViewerWindow(), nullptr);
    BringForward(nullptr);
    EXPECT_EQ(m_trace.Texts(), Texts{});
}

TEST(Instance, WithoutTextsNoWindowIsTakenForAViewer)
{
    CWnd untitled;
    untitled.Create(L"STATIC", {}, WS_OVERLAPPEDWINDOW | WS_VISIBLE, {50, 50, 350, 250}, nullptr, 0);
    EXPECT_EQ(FindViewerWindow(), nullptr);
}
