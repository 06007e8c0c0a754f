#pragma once

#include "platform/dialog/OleDateTime.h"
#include "tests/support/LanguageFile.h"
#include "tests/unit/framework/ui/kestrix/logs/reference/LogReference.h"
#include "tests/unit/framework/ui/kestrix/logs/reference/PlainReaders.h"

// The log of the system tuner, line by line. Texts are given by their numbers.
class TunerReference
{
public:
    std::optional<ExpectedRecord> operator()(std::wstring_view line) const
    {
        const std::vector<std::wstring> tokens = Plain::Tokens(line);
        if (tokens.size() < 7)
        {
            return std::nullopt;
        }
        const std::uint32_t type = Plain::Number(tokens[2]);
        const bool done = Plain::Number(tokens[4]) == 0;
        ExpectedRecord record;
        record.fields = {Plain::Time(tokens[1]),
                         type > 5 ? std::wstring() : Text(104 + type),
                         Step(type, Plain::Number(tokens[3])),
                         Text(type == 0 ? (done ? 170 : 156) : (done ? 125 : 124)),
                         tokens[5].empty() ? L"--" : tokens[5],
                         Value(type, tokens[6])};
        return record;
    }

private:
    static std::wstring Step(std::uint32_t type, std::uint32_t code)
    {
        struct
        {
            UINT first;
            std::uint32_t count; // 0: any code
        } const steps[] = {{110, 5}, {115, 2}, {117, 0}, {118, 4}, {122, 0}, {123, 0}};

        if (type > 5 || (steps[type].count != 0 && code >= steps[type].count))
        {
            return {};
        }
        return Text(steps[type].first + (steps[type].count == 0 ? 0 : code));
    }

    static std::wstring Value(std::uint32_t type, const std::wstring& token)
    {
        const bool many = static_cast<std::int32_t>(Plain::Number(token)) > 1;
        switch (type)
        {
        case 0:
            return token + Text(126);
        case 1:
            return token;
        case 2:
            return token + Text(many ? 228 : 128);
        case 3:
            return Text(129) + Date(token);
        case 4:
            return token + Text(many ? 233 : 130);
        case 5:
            return token + Text(many ? 234 : 131);
        default:
            return {};
        }
    }

    static std::wstring Date(const std::wstring& token)
    {
        const std::size_t slash = token.find(L'/');
        if (slash == token.npos)
        {
            return token;
        }
        const auto number = [&](std::size_t start, std::size_t length) {
            return static_cast<int>(Plain::Number(start < token.size() ? token.substr(start, length) : std::wstring()));
        };
        const COleDateTime date(number(0, slash), number(slash + 1, 2), number(slash + 4, 2), 12, 0, 0);
        return date.GetStatus() == COleDateTime::valid ? date.Format(VAR_DATEVALUEONLY) : token;
    }
};
