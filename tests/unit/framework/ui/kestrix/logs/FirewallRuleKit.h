#pragma once

#include "framework/ui/kestrix/logs/FirewallRules.h"

#include <string>

// Rules of the tests: what they have beside these is zero or empty.

inline constexpr std::uint32_t Tcp = 6;
inline constexpr std::uint32_t Udp = 17;
inline constexpr std::uint16_t AnyDirection = 2;

inline FwRule MakeRule(std::wstring path, std::uint16_t action, std::uint32_t protocol = Tcp,
                       std::uint16_t direction = AnyDirection)
{
    FwRule rule;
    rule.strAppPath = std::move(path);
    rule.nAction = action;
    rule.nProtocolType = protocol;
    rule.nRuleType = direction;
    return rule;
}

inline FwRule BlockRule(std::wstring path, std::uint32_t protocol = Tcp, std::uint16_t direction = AnyDirection)
{
    return MakeRule(std::move(path), FwRule::BlockAccess, protocol, direction);
}

inline FwRule AllowRule(std::wstring path, std::uint32_t protocol = Tcp, std::uint16_t direction = AnyDirection)
{
    return MakeRule(std::move(path), FwRule::Allow, protocol, direction);
}

// The rule that the program makes of a path whose file name this is.
inline FwRule MadeRule(std::wstring path, std::wstring name, std::uint32_t protocol = Tcp)
{
    FwRule rule = AllowRule(std::move(path), protocol);
    rule.bFlag0 = true;
    rule.nField3 = 1;
    rule.strName = std::move(name);
    return rule;
}

inline FirewallSelection Selected(std::wstring path, std::uint32_t protocol = Tcp, std::uint32_t direction = 1)
{
    return {std::move(path), direction, protocol};
}
