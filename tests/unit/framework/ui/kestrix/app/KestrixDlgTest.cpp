#include "framework/ui/kestrix/app/KestrixDlg.h"

#include <gtest/gtest.h>

namespace
{

TEST(ShortenDisplayText, ATextOf255CharactersIsLeftAlone)
{
    const std::wstring text(255, L'a');
    EXPECT_EQ(CKestrixDlg::ShortenDisplayText(text), text);
    EXPECT_EQ(CKestrixDlg::ShortenDisplayText({}), L"");
}

TEST(ShortenDisplayText, ATextOf256CharactersKeepsItsTwoEnds)
{
    const std::wstring text = std::wstring(128, L'a') + std::wstring(128, L'b');
    EXPECT_EQ(CKestrixDlg::ShortenDisplayText(text), std::wstring(125, L'a') + L"....." + std::wstring(125, L'b'));
}

} // namespace
