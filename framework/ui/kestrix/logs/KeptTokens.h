#pragma once

#include "framework/ui/kestrix/logs/TokenReaders.h"

#include <algorithm>
#include <span>

// A token that a log keeps until a later one makes fields of it: a code, or a text as a buffer of so many characters
// keeps it.
template <class Log>
struct KeptToken
{
    std::size_t index;
    std::uint32_t Log::*code;
    std::wstring Log::*text;
    std::size_t characters;

    constexpr KeptToken(std::size_t at, std::uint32_t Log::*number)
        : index(at), code(number), text(nullptr), characters(0)
    {
    }

    constexpr KeptToken(std::size_t at, std::wstring Log::*string, std::size_t limit)
        : index(at), code(nullptr), text(string), characters(limit)
    {
    }
};

// Puts the token where the table says; one that is not in the table goes nowhere.
template <class Log, std::size_t Count>
void KeepToken(Log& log, const KeptToken<Log> (&table)[Count], std::size_t index, std::wstring_view token)
{
    const auto kept = std::ranges::find(table, index, &KeptToken<Log>::index);
    if (kept == std::end(table))
    {
        return;
    }
    if (kept->code != nullptr)
    {
        log.*kept->code = CodeOf(token);
    }
    else
    {
        log.*kept->text = Bounded(token, kept->characters);
    }
}
