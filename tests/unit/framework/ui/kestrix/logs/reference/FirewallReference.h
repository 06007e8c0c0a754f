#pragma once

#include "tests/support/LanguageFile.h"
#include "tests/unit/framework/ui/kestrix/logs/reference/LogReference.h"
#include "tests/unit/framework/ui/kestrix/logs/reference/PlainReaders.h"

#include <map>

// The firewall log, line by line. Texts are given by their numbers.
class FirewallReference
{
public:
    explicit FirewallReference(std::wstring localAddress) : m_localAddress(std::move(localAddress)) {}

    std::optional<ExpectedRecord> operator()(std::wstring_view line) const
    {
        const std::vector<std::wstring> tokens = Plain::Tokens(line);
        if (tokens.size() < 16)
        {
            return std::nullopt;
        }
        ExpectedRecord record;
        const std::uint32_t protocol = Plain::Number(tokens[5]);
        const bool ports = protocol == 6 || protocol == 17;
        record.fields = {Outcome(tokens, record.icon),
                         Time(tokens[0]),
                         Protocol(protocol),
                         std::to_wstring(Plain::Number(tokens[3])),
                         tokens[7] == L"LIP" && !m_localAddress.empty() ? m_localAddress : TextIfEmpty(tokens[7], 176),
                         ports ? TextIfEmpty(tokens[8], 489) : Text(489),
                         TextIfEmpty(tokens[9], 176),
                         ports ? TextIfEmpty(tokens[10], 489) : Text(489),
                         TextIfEmpty(tokens[13], 343),
                         TextIfEmpty(tokens[14], 345),
                         TextIfEmpty(Description(tokens), 371)};
        return record;
    }

private:
    static std::wstring TextIfEmpty(const std::wstring& text, UINT other) { return text.empty() ? Text(other) : text; }

    static std::wstring Time(const std::wstring& token)
    {
        std::wstring text;
        for (const std::size_t place : {0, 1, 99, 2, 3, 99, 4, 5})
        {
            const wchar_t c = place == 99 ? L':' : place < token.size() ? token[place] : L'\0';
            if (c == L'\0')
            {
                break;
            }
            text += c;
        }
        return text.empty() ? L"00:00:00" : text;
    }

    static std::wstring Protocol(std::uint32_t number)
    {
        switch (number)
        {
        case 1:
            return Text(493);
        case 2:
            return Text(494);
        case 6:
            return Text(495);
        case 17:
            return Text(496);
        case 58:
            return Text(357);
        default:
            return std::to_wstring(number);
        }
    }

    static std::wstring Outcome(const std::vector<std::wstring>& tokens, std::uint32_t& icon)
    {
        const std::uint32_t event = Plain::Number(tokens[1]);
        const std::uint32_t kind = Plain::Number(tokens[6]);
        const bool blocked = event == 6 || event == 10 || ((event == 4 || event == 8) && kind == 2);
        const bool allowed = ((event == 4 || event == 7 || event == 8) && kind != 2) || (event == 18 && kind == 7);
        const bool alert = event == 5 || (event == 7 && kind == 2) || (event == 18 && kind != 7);
        icon = blocked ? 0 : allowed ? 3 : alert ? 2 : event == 15 ? 1 : 4;
        return Text(blocked ? 490 : allowed ? 342 : alert ? 491 : event == 15 ? 492 : 338);
    }

    static std::wstring Formatted(UINT text, std::int32_t number)
    {
        std::wstring formatted = Text(text);
        formatted.replace(formatted.find(L"%d"), 2, std::to_wstring(number));
        return formatted;
    }

    static std::wstring Icmp(std::int32_t type)
    {
        const std::map<std::int32_t, UINT> types{{0, 503},  {3, 504},  {4, 505},  {5, 506},  {8, 507},
                                                 {9, 508},  {11, 509}, {12, 510}, {13, 511}, {14, 512},
                                                 {15, 513}, {16, 514}, {17, 515}, {18, 516}};
        return types.contains(type) ? Text(types.at(type)) : Formatted(517, type);
    }

    static std::wstring Icmpv6(std::int32_t type)
    {
        if (type < 128 || type > 153)
        {
            return Formatted(541, type);
        }
        return Text(type == 128 ? 359 : type == 129 ? 358 : type == 130 ? 360 : static_cast<UINT>(type) + 387);
    }

    static std::wstring Description(const std::vector<std::wstring>& tokens)
    {
        const std::uint32_t event = Plain::Number(tokens[1]);
        const std::uint32_t kind = Plain::Number(tokens[6]);
        const std::uint32_t protocol = Plain::Number(tokens[5]);
        const std::int32_t icmpType = tokens[11].empty() ? -1 : static_cast<std::int32_t>(Plain::Number(tokens[11]));
        if (event == 10)
        {
            const std::uint32_t reason = Plain::Number(tokens[2]);
            return Text(reason >= 1 && reason <= 6 ? 496 + reason : reason >= 7 && reason <= 10 ? 356 + reason : 371);
        }
        if (protocol == 1)
        {
            return Icmp(icmpType);
        }
        if (protocol == 58)
        {
            return Icmpv6(icmpType);
        }
        if (event == 6 || ((event == 4 || event == 8) && kind == 2) || (event == 18 && kind == 7))
        {
            return Text(370);
        }
        return event == 15 ? tokens[12] : event == 18 ? std::wstring() : tokens[15];
    }

    std::wstring m_localAddress;
};
