#pragma once

#include "tests/support/LanguageFile.h"
#include "tests/unit/framework/ui/kestrix/logs/reference/LogReference.h"
#include "tests/unit/framework/ui/kestrix/logs/reference/PlainReaders.h"

// The privacy log, line by line. Texts are given by their numbers.
class PrivacyReference
{
public:
    std::optional<ExpectedRecord> operator()(std::wstring_view line) const
    {
        const std::vector<std::wstring> tokens = Plain::Tokens(line);
        if (tokens.size() < 8)
        {
            return std::nullopt;
        }
        const std::uint32_t result = Plain::Number(tokens[5]);
        const std::wstring item = Plain::Unescaped(tokens[6]);
        ExpectedRecord record;
        record.icon = result == 101 ? 1 : 0;
        record.fields = {Plain::Time(tokens[1]), tokens[4],
                         result == 0     ? Text(437)
                         : result == 101 ? Text(436)
                                         : tokens[5],
                         Plain::Number(tokens[2]) == 2 ? Plain::Unescaped(tokens[7]) + L" \"" + item + L"\"" : item};
        return record;
    }
};
