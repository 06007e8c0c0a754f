#pragma once

#include "tests/support/LanguageFile.h"
#include "tests/unit/framework/ui/kestrix/logs/reference/LogReference.h"
#include "tests/unit/framework/ui/kestrix/logs/reference/PlainReaders.h"

// The scan log, line by line. Texts are given by their numbers.
class ScanReference
{
public:
    std::optional<ExpectedRecord> operator()(std::wstring_view line) const
    {
        const std::vector<std::wstring> tokens = Plain::Tokens(line);
        if (tokens.size() < 13)
        {
            return std::nullopt;
        }
        ExpectedRecord record;
        record.fields = {Plain::Time(tokens[1]), Plain::Time(tokens[3]), Plain::Time(tokens[5])};
        const std::uint32_t result = Plain::Number(tokens[6]);
        if (result <= 4)
        {
            record.fields.push_back(Text(93 + result));
        }
        record.fields.insert(record.fields.end(), tokens.begin() + 7, tokens.begin() + 13);
        return record;
    }
};
