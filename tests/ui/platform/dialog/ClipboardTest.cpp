// A text on its way to the real clipboard, also while somebody else has that open.

#include "platform/dialog/Clipboard.h"

#include "tests/support/ClipboardText.h"
#include "tests/support/LiveHandles.h"
#include "tests/ui/platform/dialog/TestWindows.h"

#include <gtest/gtest.h>

#include <future>

namespace
{

// Another thread that has the clipboard open, with no window, until it is told to close it.
class OtherUser
{
public:
    // Closes it by itself after so many milliseconds.
    explicit OtherUser(DWORD milliseconds)
    {
        std::promise<bool> opened;
        std::future<bool> isOpen = opened.get_future();
        m_done = std::async(std::launch::async,
                            [milliseconds, opened = std::move(opened)]() mutable
                            {
                                const bool open = OpenClipboardSoon();
                                opened.set_value(open);
                                Sleep(milliseconds);
                                CloseClipboard();
                            });
        EXPECT_TRUE(isOpen.get());
    }

private:
    std::future<void> m_done; // waits for the end
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
        const OtherUser other(600);
        EXPECT_FALSE(Put(L"never"));
    }
    EXPECT_EQ(LiveHandles::Of(HandleKind::Memory), memory);
    EXPECT_EQ(TextOfClipboard(), L"before");
}
