#pragma once

#include "tests/support/LanguageFile.h"
#include "tests/unit/framework/ui/kestrix/logs/reference/LogReference.h"
#include "tests/unit/framework/ui/kestrix/logs/reference/PlainReaders.h"

// The log of suspicious changes, line by line. Texts are given by their numbers.
class SuspiciousChangeReference
{
public:
    std::optional<ExpectedRecord> operator()(std::wstring_view line) const
    {
        const std::vector<std::wstring> tokens = Plain::Tokens(line);
        if (tokens.size() < 14)
        {
            return std::nullopt;
        }
        const std::wstring name = tokens[10].substr(0, 260);
        ExpectedRecord record;
        record.fields = {Plain::Time(tokens[1]),
                         Plain::NarrowedNumber(tokens[2], 0) == 0x10000000 ? Text(299) : std::wstring(),
                         name,
                         tokens[7].substr(0, 388),
                         tokens[5].substr(0, 260),
                         Result(Plain::NarrowedNumber(tokens[12], 10)),
                         name,
                         Kind(Plain::Number(tokens[6])),
                         Detector(tokens[13])};
        return record;
    }

private:
    static std::wstring Result(std::uint32_t code)
    {
        return code == 0 ? Text(303) : code == 1 ? Text(301) : code == 2 ? Text(302) : Text(code == 3 ? 103 : 300);
    }

    static std::wstring Kind(std::uint32_t code)
    {
        switch (code)
        {
        case 1:
            return Text(299);
        case 2:
            return Text(571);
        case 4:
            return Text(572);
        case 8:
            return Text(573);
        case 16:
            return Text(568);
        case 32:
            return Text(569);
        case 64:
            return Text(570);
        default:
            return {};
        }
    }

    static std::wstring Detector(const std::wstring& token)
    {
        if (token == L"__ZPT_SELF_PROTECT__")
        {
            return Text(767);
        }
        return token == L"__ZPT_USER_DEFINED__" ? Text(768) : token.substr(0, 260);
    }
};
