#pragma once

#include "tests/support/LanguageFile.h"
#include "tests/unit/framework/ui/kestrix/logs/reference/LogReference.h"
#include "tests/unit/framework/ui/kestrix/logs/reference/PlainReaders.h"

// The log of skipped tasks, line by line. Texts are given by their numbers.
class SkippedTaskReference
{
public:
    std::optional<ExpectedRecord> operator()(std::wstring_view line) const
    {
        const std::vector<std::wstring> tokens = Plain::Tokens(line);
        if (tokens.size() < 6 || Plain::Number(tokens[5]) > 2)
        {
            return std::nullopt;
        }
        ExpectedRecord record;
        record.fields.push_back(Plain::Time(tokens[3]));
        const std::uint32_t task = Plain::Number(tokens[4]);
        if (task <= 2)
        {
            record.fields.push_back(Text(221 + task));
        }
        record.fields.push_back(Text(224 + Plain::Number(tokens[5])));
        return record;
    }
};
