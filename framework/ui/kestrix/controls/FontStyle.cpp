#include "framework/ui/kestrix/controls/FontStyle.h"

#include "platform/dialog/ResourceText.h"
#include "resource/resource.h"

#include <cerrno>
#include <cwchar>
#include <string>

namespace
{

// Where the values stand in the text.
constexpr std::size_t Bold = 0;
constexpr std::size_t Italic = 2;
constexpr std::size_t Size = 4;

bool IsDigit(wchar_t character)
{
    return character >= L'0' && character <= L'9';
}

bool HasForm(const std::wstring& style)
{
    return style.size() > Size && IsDigit(style[Bold]) && style[Bold + 1] == L',' && IsDigit(style[Italic]) &&
           style[Italic + 1] == L',' && style.find_first_not_of(L"0123456789", Size) == std::wstring::npos;
}

} // namespace

void CFontStyle::GetFontStyle(bool& bold, bool& italic, std::int32_t& size) const
{
    const std::wstring& style = LoadText(IDS_FONT_STYLE);
    if (!HasForm(style))
    {
        return;
    }
    errno = 0;
    const long number = std::wcstol(style.c_str() + Size, nullptr, 10);
    if (errno == ERANGE)
    {
        return;
    }
    bold = style[Bold] != L'0';
    italic = style[Italic] != L'0';
    size = number;
}
