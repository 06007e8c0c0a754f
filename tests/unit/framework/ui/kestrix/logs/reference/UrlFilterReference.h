#pragma once

#include "tests/support/LanguageFile.h"
#include "tests/unit/framework/ui/kestrix/logs/reference/LogReference.h"
#include "tests/unit/framework/ui/kestrix/logs/reference/PlainReaders.h"

// The log of the URL filter, line by line. Texts are given by their numbers.
class UrlFilterReference
{
public:
    using Groups = std::vector<std::pair<std::wstring, std::wstring>>;

    // The groups of the service, and the address that the line before had.
    UrlFilterReference(Groups groups, std::wstring address) : m_groups(std::move(groups)), m_address(std::move(address))
    {
    }

    std::optional<ExpectedRecord> operator()(std::wstring_view line)
    {
        const std::vector<std::wstring> tokens = Plain::Tokens(line);
        // Also of a line that is cut.
        if (tokens.size() > 6 && !tokens[6].empty())
        {
            m_address = Plain::Unescaped(tokens[6]);
        }
        if (tokens.size() < 8)
        {
            return std::nullopt;
        }
        const std::uint32_t result = Plain::Number(tokens[5]);
        ExpectedRecord record;
        record.fields = {Plain::Time(tokens[1]), tokens[4],
                         result == 0   ? Text(422)
                         : result == 1 ? Text(423)
                                       : L"",
                         m_address, result == 1 ? Text(340) : Category(tokens[7])};
        return record;
    }

private:
    std::wstring Category(const std::wstring& key) const
    {
        for (const auto& [each, name] : m_groups)
        {
            if (each == key)
            {
                return name;
            }
        }
        return Text(339);
    }

    Groups m_groups;
    std::wstring m_address;
};
