#include "framework/ui/kestrix/logs/RecordMemory.h"

#include "tests/support/CountingMemory.h"

#include <gtest/gtest.h>

#include <new>
#include <string>
#include <vector>

namespace
{

constexpr std::size_t ManyTexts = 20'000; // several for each place that a text is remembered at

// A block of its own and as long as the text, so that debug runs notice a look past its end.
std::vector<wchar_t> TextOf(std::size_t length)
{
    std::vector<wchar_t> text(length);
    for (std::size_t i = 0; i < length; ++i)
    {
        text[i] = static_cast<wchar_t>(L'a' + i % 26);
    }
    return text;
}

std::wstring_view ViewOf(const std::vector<wchar_t>& text)
{
    return {text.data(), text.size()};
}

class RecordMemoryTest : public ::testing::Test
{
protected:
    CountingMemory m_upstream;
    RecordMemory m_memory{&m_upstream};
};

} // namespace

TEST_F(RecordMemoryTest, ATextOfAnyLengthIsKeptOnce)
{
    for (std::size_t length = 1; length <= 40; ++length)
    {
        const std::wstring_view kept = m_memory.Keep(ViewOf(TextOf(length)));
        ASSERT_EQ(kept, ViewOf(TextOf(length)));
        ASSERT_EQ(m_memory.Keep(ViewOf(TextOf(length))).data(), kept.data()) << length;
    }
}

TEST_F(RecordMemoryTest, TextsThatDifferInOneCharacterAreTwo)
{
    for (std::size_t length = 1; length <= 40; ++length)
    {
        for (std::size_t place = 0; place < length; ++place)
        {
            std::vector<wchar_t> other = TextOf(length);
            other[place] = L'\xFFFF';
            ASSERT_EQ(m_memory.Keep(ViewOf(TextOf(length))), ViewOf(TextOf(length)));
            ASSERT_EQ(m_memory.Keep(ViewOf(other)), ViewOf(other)) << length << ", " << place;
        }
    }
}

TEST_F(RecordMemoryTest, ATextThatGaveItsPlaceToAnotherStaysAsItIs)
{
    std::vector<std::wstring_view> kept;
    for (std::size_t i = 0; i < ManyTexts; ++i)
    {
        kept.push_back(m_memory.Keep(std::to_wstring(i)));
    }
    for (std::size_t i = 0; i < ManyTexts; ++i)
    {
        ASSERT_EQ(kept[i], std::to_wstring(i));
        ASSERT_EQ(m_memory.Keep(std::to_wstring(i)), std::to_wstring(i));
    }
}

TEST_F(RecordMemoryTest, AnEmptyTextTakesNoMemory)
{
    EXPECT_EQ(m_memory.Keep({}), L"");
    EXPECT_EQ(m_memory.KeepJoined({}, {}), L"");
    EXPECT_EQ(m_upstream.BytesOut(), 0u);
}

TEST_F(RecordMemoryTest, ATextLongerThanAnyLineOfAFileIsKeptToo)
{
    const std::wstring text(100'000, L'x');
    EXPECT_EQ(m_memory.Keep(text), text);
}

TEST_F(RecordMemoryTest, TwoTextsAreKeptAsOne)
{
    const std::wstring_view kept = m_memory.Keep(L"17 entries");
    EXPECT_EQ(m_memory.KeepJoined(L"17", L" entries").data(), kept.data());
    EXPECT_EQ(m_memory.KeepJoined(L"1", L" entry"), L"1 entry");
}

TEST_F(RecordMemoryTest, ReleaseGivesAllBackAndForgets)
{
    for (int round = 0; round < 3; ++round)
    {
        EXPECT_EQ(m_memory.Keep(L"text"), L"text");
        EXPECT_GT(m_upstream.BytesOut(), 0u);
        m_memory.Release();
        EXPECT_EQ(m_upstream.BytesOut(), 0u);
    }
}

TEST_F(RecordMemoryTest, WhenMemoryRunsOutWhatWasKeptStaysAndIsFound)
{
    for (std::size_t allocations = 0;; ++allocations)
    {
        m_memory.Release();
        m_upstream.FailAfter(allocations);
        std::vector<std::wstring_view> kept;
        try
        {
            while (kept.size() < ManyTexts)
            {
                kept.push_back(m_memory.Keep(std::to_wstring(kept.size())));
            }
            ASSERT_GT(allocations, 1u) << "nothing failed";
            break;
        }
        catch (const std::bad_alloc&)
        {
        }
        m_upstream.NeverFail();
        EXPECT_EQ(m_memory.Keep(std::to_wstring(kept.size())), std::to_wstring(kept.size())) << "there is memory again";
        for (std::size_t i = 0; i < kept.size(); ++i)
        {
            ASSERT_EQ(kept[i], std::to_wstring(i));
        }
    }
}
