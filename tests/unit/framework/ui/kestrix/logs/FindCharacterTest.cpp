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

TEST(FindEitherTest, FindsWhicheverComesFirst)
{
    for (std::size_t length = 1; length <= 40; ++length)
    {
        for (std::size_t place = 0; place < length; ++place)
        {
            for (const wchar_t wanted : {L'\n', L'\0'})
            {
                std::vector<wchar_t> text(length, L'.');
                text.back() = L'\n';
                text[place] = wanted;
                const wchar_t* const begin = text.data();
                ASSERT_EQ(FindEither(begin, begin + length, L'\n', L'\0') - begin, static_cast<std::ptrdiff_t>(place));
                ASSERT_EQ(FindEither(begin, begin + place, L'\n', L'\0'), begin + place) << "neither is there";
            }
        }
    }
}

TEST(ForEachCharacterTest, VisitsEveryPlaceOfTheCharacterInOrderInTextsOfUpTo70Characters)
{
    for (std::size_t length = 0; length <= 70; ++length)
    {
        for (const std::size_t distance : {1, 2, 3, 7, 15, 16, 17, 31})
        {
            std::vector<wchar_t> text(length, L'.');
            std::vector<std::ptrdiff_t> expected;
            for (std::size_t place = distance - 1; place < length; place += distance)
            {
                text[place] = L'|';
                expected.push_back(static_cast<std::ptrdiff_t>(place));
            }
            std::vector<std::ptrdiff_t> places;
            ForEachCharacter(text.data(), text.data() + length, L'|',
                             [&](const wchar_t* found) { places.push_back(found - text.data()); });
            ASSERT_EQ(places, expected) << length << ", " << distance;
        }
    }
}

TEST(ForEachCharacterTest, TakesNoOtherCharacterForIt)
{
    std::vector<wchar_t> text;
    for (unsigned other = 0; other <= 0xFFFF; ++other)
    {
        text.push_back(other == L'|' ? L'.' : static_cast<wchar_t>(other));
    }
    ForEachCharacter(text.data(), text.data() + text.size(), L'|',
                     [&](const wchar_t* found) { FAIL() << static_cast<unsigned>(*found); });
}
