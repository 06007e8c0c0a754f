#include "framework/ui/kestrix/logs/FindCharacter.h"

#include <gtest/gtest.h>

#include <vector>

// Each text is a block of its own and as long as the text, so that debug runs notice a look past its end.
TEST(FindCharacterTest, FindsTheFirstOfEveryTextUpTo40CharactersAtEveryPlace)
{
    for (std::size_t length = 0; length <= 40; ++length)
    {
        for (std::size_t place = 0; place < length; ++place)
        {
            std::vector<wchar_t> text(length, L'.');
            text[place] = L'|';
            text[length - 1] = L'|';
            const wchar_t* const begin = text.data();
            ASSERT_EQ(FindCharacter(begin, begin + length, L'|') - begin, static_cast<std::ptrdiff_t>(place)) << length;
        }
    }
}

TEST(FindCharacterTest, GivesTheEndOfATextWithoutTheCharacter)
{
    for (std::size_t length = 0; length <= 40; ++length)
    {
        const std::vector<wchar_t> text(length, L'.');
        const wchar_t* const begin = text.data();
        ASSERT_EQ(FindCharacter(begin, begin + length, L'|'), begin + length) << length;
    }
}

TEST(FindCharacterTest, DoesNotTakeTheHalvesOfTwoCharactersForOne)
{
    const std::vector<wchar_t> text = {0x7C00, 0x007B, 0x7C7C, 0x00FC, 0x017C, 0x7C00, 0x7C00, 0x7B7C, 0x7C00, 0xFF7C};
    const wchar_t* const end = text.data() + text.size();
    EXPECT_EQ(FindCharacter(text.data(), end, L'|'), end);
    EXPECT_EQ(FindCharacter(text.data(), end, L'\xFF7C'), end - 1);
}
