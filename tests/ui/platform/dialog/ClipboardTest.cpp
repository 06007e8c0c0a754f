// A text on its way to the real clipboard, also while somebody else has that open.

#include "platform/dialog/Clipboard.h"

#include "tests/support/ClipboardText.h"
#include "tests/support/LiveHandles.h"
#include "tests/ui/platform/dialog/TestWindows.h"

#include <gtest/gtest.h>

#include <chrono>
#include <future>

namespace
{

// Another thread that has the clipboard open, with no window, for so many milliseconds or until the object goes.
class OtherUser
{
public:
    explicit OtherUser(unsigned milliseconds)
    {
        std::promise<bool> opened;
        std::future<bool> isOpen = opened.get_future();
        m_done = std::async(std::launch::async,
                            [opened = std::move(opened), end = m_end.get_future(), milliseconds]() mutable
                            {
                                opened.set_value(OpenClipboardSoon());
                                end.wait_for(std::chrono::milliseconds(milliseconds));
                                CloseClipboard();
                            });
        EXPECT_TRUE(isOpen.get());
    }

    ~OtherUser() { m_end.set_value(); }

    OtherUser(const OtherUser&) = delete;
    OtherUser& operator=(const OtherUser&) = delete;

private:
    std::promise<void> m_end;
    std::future<void> m_done; // its destructor waits for the thread
};

class ClipboardTest : public ::testing::Test
{
protected:
    ClipboardTest() { ClearClipboard(); }

    bool Put(std::wstring_view text) { return PutTextOnClipboard(m_window.Get(), text); }

    PlainWindow m_window;
};

} // namespace

TEST_F(ClipboardTest, TheTextTakesThePlaceOfTheOneBefore)
{
    EXPECT_TRUE(Put(L"before"));
    EXPECT_TRUE(Put(L"\"\u65E5\u672C\"\t\"\xD83D\xDE00\"\r\n"));
    EXPECT_EQ(TextOfClipboard(), L"\"\u65E5\u672C\"\t\"\xD83D\xDE00\"\r\n");
}

TEST_F(ClipboardTest, NothingElseStaysBesideTheText)
{
    const UINT format = RegisterClipboardFormatW(L"Kestrix.Test");
    ASSERT_TRUE(OpenClipboardSoon());
    EXPECT_NE(SetClipboardData(format, GlobalAlloc(GMEM_MOVEABLE, 1)), nullptr);
    CloseClipboard();
    EXPECT_TRUE(Put(L"a text"));
    EXPECT_FALSE(IsClipboardFormatAvailable(format));
}

TEST_F(ClipboardTest, AnEmptyTextIsATextToo)
{
    EXPECT_TRUE(Put({}));
    EXPECT_EQ(TextOfClipboard(), L"");
}

TEST_F(ClipboardTest, TheTextStaysWhenItsWindowGoes)
{
    {
        const PlainWindow window;
        EXPECT_TRUE(PutTextOnClipboard(window.Get(), L"left behind"));
    }
    EXPECT_EQ(TextOfClipboard(), L"left behind");
}

TEST_F(ClipboardTest, AMomentInWhichAnotherHasItOpenIsWaitedFor)
{
    const OtherUser other(60);
    EXPECT_TRUE(Put(L"after a while"));
    EXPECT_EQ(TextOfClipboard(), L"after a while");
}

TEST_F(ClipboardTest, OneThatAnotherKeepsOpenStaysAsItIsAndTheMemoryIsFreed)
{
    ASSERT_TRUE(Put(L"before"));
    const long memory = LiveHandles::Of(HandleKind::Memory);
    {
        const OtherUser other(60'000);
        EXPECT_FALSE(Put(L"never"));
    }
    EXPECT_EQ(LiveHandles::Of(HandleKind::Memory), memory);
    EXPECT_EQ(TextOfClipboard(), L"before");
}
