#pragma once

#include "tests/support/LanguageFile.h"
#include "tests/unit/framework/ui/kestrix/logs/reference/LogReference.h"
#include "tests/unit/framework/ui/kestrix/logs/reference/PlainReaders.h"

// The log of the system cleanup, line by line. Texts are given by their numbers.
class CleanupReference
{
public:
    explicit CleanupReference(bool fromDatabase) : m_fromDatabase(fromDatabase) {}

    std::optional<ExpectedRecord> operator()(std::wstring_view line) const
    {
        const std::vector<std::wstring> tokens = Plain::Tokens(line);
        if (tokens.size() < (m_fromDatabase ? 5 : 4))
        {
            return std::nullopt;
        }
        const std::uint32_t result = Plain::Number(tokens[3]);
        ExpectedRecord record;
        record.icon = result == 0 ? 2 : result == 1 ? 0 : 1;
        record.fields = {Plain::Time(tokens[1]), tokens[2], result == 0 ? Text(379) : result == 1 ? Text(380) : L""};
        if (tokens.size() > 4)
        {
            record.fields.push_back(tokens[4]);
        }
        Plain::Pad(record.fields, tokens.size(), 3);
        return record;
    }

private:
    bool m_fromDatabase;
};
