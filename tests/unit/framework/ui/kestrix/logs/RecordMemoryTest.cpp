#include "framework/ui/kestrix/logs/RecordMemory.h"

#include "tests/support/CountingMemory.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <cstring>
#include <initializer_list>
#include <new>
#include <string>
#include <utility>
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

// As the memory mixes the words of a text, four characters each, and what was mixed back into a word.
constexpr std::uint64_t Factor = 0x9E3779B97F4A7C15;

constexpr std::uint64_t Inverse = []
{
    std::uint64_t inverse = Factor;
    for (int i = 0; i < 6; ++i)
    {
        inverse *= 2 - Factor * inverse;
    }
    return inverse;
}();
static_assert(Factor * Inverse == 1);

std::uint64_t Mixed(std::uint64_t before, std::uint64_t word)
{
    return (before ^ word) * Factor;
}

std::uint64_t Unmixed(std::uint64_t mixed, std::uint64_t before)
{
    return mixed * Inverse ^ before;
}

std::uint64_t WordOf(const std::wstring& text, std::size_t number)
{
    std::uint64_t word = 0;
    std::memcpy(&word, text.data() + 4 * number, sizeof word);
    return word;
}

std::wstring TextOf(std::initializer_list<std::uint64_t> words)
{
    std::wstring text(4 * words.size(), L'\0');
    std::memcpy(text.data(), words.begin(), words.size() * sizeof(std::uint64_t));
    return text;
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

TEST_F(RecordMemoryTest, ATextLongerThanAnyLineOfAFileIsKeptEachTime)
{
    const std::wstring text(100'000, L'x');
    const std::wstring_view kept = m_memory.Keep(text);
    EXPECT_EQ(kept, text);
    EXPECT_NE(m_memory.Keep(text).data(), kept.data());
}

// Of two texts whose mixtures differ in their lowest bit alone the memory sees the same place and the same mark. A day
// would show one of them in the place of the other if their characters were not compared.
TEST_F(RecordMemoryTest, TextsThatAreMixedToTheSamePlaceAndMarkAreTold)
{
    const std::wstring one = L"abcd";
    const std::wstring two = L"abcdefgh";
    const std::uint64_t first = WordOf(two, 0);
    const std::uint64_t second = WordOf(two, 1);
    const std::pair<std::wstring, std::wstring> pairs[] = {
        {one, TextOf({Unmixed(Mixed(4, WordOf(one, 0)) ^ 1, 4)})},
        {two, TextOf({first, Unmixed(Mixed(Mixed(8, first), second) ^ 1, Mixed(8, first))})},
        {two, TextOf({Unmixed(Unmixed(Mixed(Mixed(8, first), second) ^ 1, second), 8), second})},
    };
    for (const auto& [text, other] : pairs)
    {
        const std::wstring_view kept = m_memory.Keep(text);
        ASSERT_NE(other, text);
        ASSERT_EQ(m_memory.Keep(other), other);
        ASSERT_EQ(m_memory.Keep(text), text);
        ASSERT_NE(m_memory.Keep(text).data(), kept.data())
            << "they have places of their own: mix them as the memory does";
    }
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
