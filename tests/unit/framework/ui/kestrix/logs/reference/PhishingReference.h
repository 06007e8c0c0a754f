#pragma once

#include "tests/support/LanguageFile.h"
#include "tests/unit/framework/ui/kestrix/logs/reference/LogReference.h"
#include "tests/unit/framework/ui/kestrix/logs/reference/PlainReaders.h"

// The phishing log of a page, line by line. Texts are given by their numbers.
class PhishingReference
{
public:
    std::optional<ExpectedRecord> operator()(std::wstring_view line) const
    {
        const std::vector<std::wstring> tokens = Plain::Tokens(line);
        if (tokens.size() < 8)
        {
            return std::nullopt;
        }
        const bool isDangerous = Plain::Hexadecimal(tokens[3]) == 0x80;
        ExpectedRecord record;
        record.fields = {Plain::Time(tokens[1]),
                         tokens[3],
                         isDangerous ? tokens[4] : tokens[5],
                         isDangerous ? tokens[5] : L"",
                         isDangerous ? Text(58) : Category(tokens[6]),
                         Risk(tokens[7])};
        return record;
    }

private:
    static std::wstring Category(const std::wstring& token)
    {
        return Text(token == L"01" ? 50 : token == L"97" ? 58 : token == L"99" ? 341 : 59);
    }

    static std::wstring Risk(const std::wstring& token)
    {
        return Text(token == L"L1" ? 1319 : token == L"L2" || token == L"WR" ? 1320 : 1321);
    }
};
