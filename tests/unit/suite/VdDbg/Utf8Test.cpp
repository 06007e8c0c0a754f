#include "suite/VdDbg/Utf8.h"

#include <gtest/gtest.h>

using VdDbg::Utf8;

TEST(VdDbgUtf8, TakesOneToFourBytesACharacter)
{
    EXPECT_EQ(Utf8(L""), "");
    EXPECT_EQ(Utf8(L"a\r\n"), "a\r\n");
    EXPECT_EQ(Utf8(L"\u00FC"), "\xC3\xBC");
    EXPECT_EQ(Utf8(L"\u65E5"), "\xE6\x97\xA5");
    EXPECT_EQ(Utf8(L"\U0001F600"), "\xF0\x9F\x98\x80");
    EXPECT_EQ(Utf8(L"\uFEFF"), "\xEF\xBB\xBF");
}

TEST(VdDbgUtf8, ALoneSurrogateBecomesTheReplacementCharacter)
{
    EXPECT_EQ(Utf8(L"\xD800"), "\xEF\xBF\xBD");
    EXPECT_EQ(Utf8(L"\xDC00"), "\xEF\xBF\xBD");
    EXPECT_EQ(Utf8(L"a\xD83Dz"), "a\xEF\xBF\xBDz");
    EXPECT_EQ(Utf8(L"\xDE00\xD83D"), "\xEF\xBF\xBD\xEF\xBF\xBD");
}

TEST(VdDbgUtf8, AnyLengthThatTheMemoryHolds)
{
    const std::string bytes = Utf8(std::wstring(1'000'000, L'\u65E5'));
    EXPECT_EQ(bytes.size(), 3'000'000U);
    EXPECT_TRUE(bytes.ends_with("\xE6\x97\xA5"));
}
