#include "common/VdCommon/VdComn_FormatText.h"

#include "common/VdCommon/VdComn_String.h"

#include <algorithm>
#include <cwchar>

namespace VdCommon::String
{

namespace
{

constexpr std::wstring_view Digits = L"0123456789";
constexpr std::size_t MostDigits = 2; // of a width or a precision
constexpr std::size_t DateRoom = 128; // with the terminator
constexpr wchar_t IsoDate[] = L"%Y-%m-%d";
constexpr std::wstring_view DateConversions = L"aAbBcdHIjmMpSUwWxXyYzZ%";

// How each kind of argument is written: the conversions that it may have, and the one without a form.
struct ArgumentForm
{
    std::wstring_view letters;
    const wchar_t* plain;
};

constexpr ArgumentForm ArgumentForms[std::variant_size_v<TextArgument>] = {
    {L"s", L"%s"},
    {L"diuxXo", L"%d"},
    {L"diuxXo", L"%u"},
};

// What a percent sign begins.
struct Conversion
{
    std::wstring_view text; // from the percent sign on, with the letter
    wchar_t letter;         // 0 when nothing is converted
    bool isSimple;          // flags, width and precision at the most
};

constexpr bool IsLetter(wchar_t c)
{
    return (c >= L'a' && c <= L'z') || (c >= L'A' && c <= L'Z');
}

// The conversion at the start of the text, with whatever may stand before its letter: a position, the star of a width
// among the arguments, a length.
Conversion ReadConversion(std::wstring_view text)
{
    std::size_t end = 1;
    const auto pass = [&](std::wstring_view characters)
    {
        const std::size_t start = end;
        end = std::min(text.find_first_not_of(characters, start), text.size());
        return end - start;
    };
    pass(L"-+ #0");
    bool isSimple = pass(Digits) <= MostDigits;
    if (end != text.size() && text[end] == L'.')
    {
        ++end;
        isSimple = pass(Digits) <= MostDigits && isSimple;
    }
    isSimple = pass(L"$*.-+ #0123456789hlLqjztwI") == 0 && isSimple;
    if (end == text.size() || !IsLetter(text[end]))
    {
        return {text.substr(0, text.starts_with(L"%%") ? 2 : 1), L'\0', false};
    }
    return {text.substr(0, end + 1), text[end], isSimple};
}

std::wstring Converted(const TextArgument& argument, const Conversion& conversion)
{
    const ArgumentForm& form = ArgumentForms[argument.index()];
    const bool fits = conversion.isSimple && form.letters.find(conversion.letter) != form.letters.npos;
    const std::wstring format(fits ? conversion.text : form.plain);
    std::wstring out;
    if (const auto* const text = std::get_if<std::wstring>(&argument))
    {
        Format(out, format.c_str(), text->c_str());
    }
    else if (const auto* const number = std::get_if<std::int32_t>(&argument))
    {
        Format(out, format.c_str(), *number);
    }
    else
    {
        Format(out, format.c_str(), std::get<std::uint32_t>(argument));
    }
    return out;
}

// The C library ends the process for a pattern that it does not know.
bool IsDatePattern(std::wstring_view pattern)
{
    for (std::size_t percent = pattern.find(L'%'); percent != pattern.npos; percent = pattern.find(L'%', percent + 2))
    {
        if (percent + 1 == pattern.size() || DateConversions.find(pattern[percent + 1]) == DateConversions.npos)
        {
            return false;
        }
    }
    return true;
}

} // namespace

std::wstring FormatText(std::wstring_view text, std::initializer_list<TextArgument> arguments)
{
    std::wstring out;
    const TextArgument* next = arguments.begin();
    for (std::size_t percent = text.find(L'%'); percent != text.npos; percent = text.find(L'%'))
    {
        out += text.substr(0, percent);
        const Conversion conversion = ReadConversion(text.substr(percent));
        if (conversion.letter == L'\0')
        {
            out += L'%';
        }
        else if (next != arguments.end())
        {
            out += Converted(*next++, conversion);
        }
        text.remove_prefix(percent + conversion.text.size());
    }
    return out += text;
}

std::wstring FormatDate(const std::wstring& pattern, const std::tm& date)
{
    wchar_t text[DateRoom];
    std::size_t length = IsDatePattern(pattern) ? std::wcsftime(text, DateRoom, pattern.c_str(), &date) : 0;
    if (length == 0 || length == DateRoom) // not every library keeps room for the terminator
    {
        length = std::wcsftime(text, DateRoom, IsoDate, &date);
    }
    return {text, length};
}

} // namespace VdCommon::String
