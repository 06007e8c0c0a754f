#pragma once

#include "tests/support/Pieces.h"

#include <windows.h>

#include <cstdint>
#include <cstdlib>
#include <string>
#include <string_view>
#include <vector>

// What the references of the logs read from a line, one character at a time and with the C library, so that nothing of
// the logs' own readers judges itself.
namespace Plain
{

// The parts between bars; none of an empty line. The end of a line goes with the last one.
inline std::vector<std::wstring> Tokens(std::wstring_view line)
{
    if (line.empty())
    {
        return {};
    }
    std::vector<std::wstring> tokens = Pieces(line, L'|');
    if (tokens.back().ends_with(L"\r\n"))
    {
        tokens.back().resize(tokens.back().size() - 2);
    }
    return tokens;
}

// Adds to the fields of a short line an empty one for each token that it has fewer than the list has columns and two.
inline void Pad(std::vector<std::wstring>& fields, std::size_t tokens, std::size_t columns)
{
    for (; tokens <= columns + 1; ++tokens)
    {
        fields.emplace_back();
    }
}

inline std::uint32_t Number(const std::wstring& token)
{
    return static_cast<std::uint32_t>(std::wcstol(token.c_str(), nullptr, 10));
}

// Sets the number to that of a token, where the line has one.
inline void Take(const std::vector<std::wstring>& tokens, std::size_t index, std::uint32_t& number)
{
    if (index < tokens.size())
    {
        number = Number(tokens[index]);
    }
}

inline std::uint32_t Hexadecimal(const std::wstring& token)
{
    return std::wcstoul(token.c_str(), nullptr, 16);
}

// The number of a token that is narrowed to the code page of the system first.
inline std::uint32_t NarrowedNumber(const std::wstring& token, int base)
{
    std::string narrow(token.size() * 4 + 1, '\0');
    WideCharToMultiByte(CP_ACP, 0, token.c_str(), -1, narrow.data(), static_cast<int>(narrow.size()), nullptr, nullptr);
    return std::strtoul(narrow.c_str(), nullptr, base);
}

// "103015" is "10:30".
inline std::wstring Time(const std::wstring& token)
{
    std::wstring text;
    for (std::size_t i = 0; i < 4; ++i)
    {
        if (i == 2)
        {
            text += L':';
        }
        if (i < token.size())
        {
            text += token[i];
        }
    }
    return text;
}

// "%I" is a bar and "%%" a percent sign. A percent sign before anything else does what the last escape before it did,
// the character after it included; without one before it goes alone, as it does at the end.
inline std::wstring Unescaped(const std::wstring& token)
{
    std::wstring text;
    std::wstring replacement;
    for (std::size_t i = 0; i < token.size(); ++i)
    {
        if (token[i] != L'%')
        {
            text += token[i];
        }
        else if (i + 1 < token.size())
        {
            if (token[i + 1] == L'%' || token[i + 1] == L'I')
            {
                replacement = token[i + 1] == L'%' ? L"%" : L"|";
            }
            text += replacement;
            i += replacement.size();
        }
    }
    return text;
}

} // namespace Plain
