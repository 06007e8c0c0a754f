#include "suite/framework/Utf8.h"

#include <gtest/gtest.h>

using namespace Framework;

TEST(Utf8Test, TextsComeBackAndWhatIsNoTextIsReplacedOrRefused)
{
    const std::wstring text = L"a Я 日 \xD83C\xDF89";
    EXPECT_EQ(Wide(Narrow(text)), text);
    EXPECT_EQ(WideIfUtf8(Narrow(text)), text);
    EXPECT_EQ(WideIfUtf8(""), L"");
    EXPECT_EQ(Narrow(L""), "");
    EXPECT_EQ(Narrow(L"\xD83C"), "\xEF\xBF\xBD");
    EXPECT_EQ(Wide("a\xFFz"), L"a\xFFFDz");
    EXPECT_EQ(WideIfUtf8("a\xFFz"), std::nullopt);
    EXPECT_EQ(WideIfUtf8("\xED\xA0\xBC"), std::nullopt) << "half of a character";
}
