#include "tests/support/VisibleText.h"

#include <windows.h>

#include <algorithm>
#include <cwchar>
#include <stdexcept>

namespace
{

constexpr std::wstring_view Tab = L"<tab>";
constexpr std::wstring_view UnitStart = L"<U+";
constexpr std::size_t UnitDigits = 4;
constexpr std::size_t UnitLength = UnitStart.size() + UnitDigits + 1;

struct Range
{
    wchar_t first;
    wchar_t last;
};

constexpr Range Unseen[] = {
    {0x0000, 0x001F}, {0x007F, 0x00A0}, {0x00AD, 0x00AD}, {0x200B, 0x200F}, {0x2028, 0x202F},
    {0x2060, 0x206F}, {0x3000, 0x3000}, {0xFEFF, 0xFEFF}, {0xFFF0, 0xFFFF},
};

bool IsUnseen(wchar_t unit)
{
    return std::ranges::any_of(Unseen,
                               [unit](const Range& range) { return unit >= range.first && unit <= range.last; });
}

bool StartsPair(std::wstring_view text)
{
    return text.size() > 1 && IS_SURROGATE_PAIR(text[0], text[1]);
}

bool IsLoneSurrogate(std::wstring_view text, std::size_t at)
{
    const bool isSurrogate = IS_HIGH_SURROGATE(text[at]) || IS_LOW_SURROGATE(text[at]);
    return isSurrogate && !StartsPair(text.substr(at)) && !(at > 0 && StartsPair(text.substr(at - 1)));
}

bool IsHexadecimal(wchar_t unit)
{
    return (unit >= L'0' && unit <= L'9') || (unit >= L'A' && unit <= L'F');
}

// Whether the text begins with a code unit in the form that Visible writes.
bool StartsWithUnit(std::wstring_view text)
{
    return text.size() >= UnitLength && text.starts_with(UnitStart) && text[UnitLength - 1] == L'>' &&
           std::ranges::all_of(text.substr(UnitStart.size(), UnitDigits), &IsHexadecimal);
}

bool MustBeNumber(std::wstring_view text, std::size_t at)
{
    const bool isEnd = at == 0 || at + 1 == text.size();
    const std::wstring_view rest = text.substr(at);
    return IsUnseen(text[at]) || (text[at] == L' ' && isEnd) || IsLoneSurrogate(text, at) || StartsWithUnit(rest) ||
           rest.starts_with(Tab);
}

std::string Utf8(std::wstring_view text)
{
    const int length = static_cast<int>(text.size());
    std::string bytes(text.size() * 3, '\0');
    bytes.resize(static_cast<std::size_t>(WideCharToMultiByte(CP_UTF8, 0, text.data(), length, bytes.data(),
                                                              static_cast<int>(bytes.size()), nullptr, nullptr)));
    return bytes;
}

std::wstring FromUtf8(std::string_view bytes)
{
    std::wstring text(bytes.size(), L'\0');
    const int length = MultiByteToWideChar(CP_UTF8, MB_ERR_INVALID_CHARS, bytes.data(), static_cast<int>(bytes.size()),
                                           text.data(), static_cast<int>(text.size()));
    if (length == 0 && !bytes.empty())
    {
        throw std::runtime_error("a line is not UTF-8");
    }
    text.resize(static_cast<std::size_t>(length));
    return text;
}

} // namespace

std::string Visible(std::wstring_view text)
{
    std::wstring line;
    for (std::size_t at = 0; at < text.size(); ++at)
    {
        if (text[at] == L'\t')
        {
            line += Tab;
        }
        else if (MustBeNumber(text, at))
        {
            wchar_t unit[UnitLength + 1];
            swprintf(unit, std::size(unit), L"<U+%04X>", text[at]);
            line += unit;
        }
        else
        {
            line += text[at];
        }
    }
    return Utf8(line);
}

std::wstring FromVisible(std::string_view line)
{
    const std::wstring visible = FromUtf8(line);
    const std::wstring_view all = visible;
    std::wstring text;
    for (std::size_t at = 0; at < all.size();)
    {
        const std::wstring_view rest = all.substr(at);
        if (rest.starts_with(Tab))
        {
            text += L'\t';
            at += Tab.size();
        }
        else if (StartsWithUnit(rest))
        {
            text +=
                static_cast<wchar_t>(std::stoul(std::wstring(rest.substr(UnitStart.size(), UnitDigits)), nullptr, 16));
            at += UnitLength;
        }
        else
        {
            text += rest[0];
            ++at;
        }
    }
    return text;
}
