#pragma once

#include "tests/support/LanguageFile.h"
#include "tests/unit/framework/ui/kestrix/logs/UpdateNumbers.h"
#include "tests/unit/framework/ui/kestrix/logs/reference/LogReference.h"
#include "tests/unit/framework/ui/kestrix/logs/reference/PlainReaders.h"

// The update log, line by line. Texts are given by their numbers.
class UpdateReference
{
public:
    std::optional<ExpectedRecord> operator()(std::wstring_view line) const
    {
        const std::vector<std::wstring> tokens = Plain::Tokens(line);
        if (tokens.size() < 8)
        {
            return std::nullopt;
        }
        const std::uint32_t kind = Plain::Number(tokens[4]);
        const std::uint32_t code = Plain::Number(tokens[5]);
        ExpectedRecord record;
        record.icon = kind == 1 || kind == 2 ? 0 : kind == 3 || kind == 11 || kind == 13 ? 2 : 1;
        record.fields = {Plain::Time(tokens[1]),
                         kind == 11 ? EngineError(code) : Event(Plain::Number(tokens[2]), Plain::Number(tokens[3])),
                         Result(kind, code), tokens[6], tokens[7]};
        return record;
    }

private:
    static std::wstring Event(std::uint32_t group, std::uint32_t code)
    {
        for (const UpdateEvent& event : UpdateEvents)
        {
            if (event.group == static_cast<int>(group) && event.code == code)
            {
                return Text(event.text);
            }
        }
        return {};
    }

    static std::wstring EngineError(std::uint32_t code)
    {
        for (const UpdateErrors& errors : EngineErrors)
        {
            for (const std::uint32_t each : errors.codes)
            {
                if (each == code && errors.text == 0)
                {
                    return {};
                }
                if (each == code)
                {
                    return Text(errors.text);
                }
            }
        }
        return Text(757);
    }

    static std::wstring Result(std::uint32_t kind, std::uint32_t code)
    {
        switch (kind)
        {
        case 1:
            return Text(763);
        case 2:
            return Text(406);
        case 3:
            return Text(408);
        case 11:
            return Text(760);
        case 13:
            return Text(code == 1 ? 760 : code == 2 || code == 3 ? 761 : 762);
        default:
            return {};
        }
    }
};
