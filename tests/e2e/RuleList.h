#pragma once

#include "suite/framework/FirewallRules.h"
#include "suite/framework/SafeArray.h"
#include "suite/framework/ValueStore.h"
#include "tests/e2e/Service.h"
#include "tests/e2e/ServiceSession.h"

#include <string>

inline constexpr std::uint32_t Tcp = 6;

// The rule that the viewer makes for a program that it lets out: what it does not tell is zero or empty.
inline Framework::List MadeRule(const std::wstring& path, const std::wstring& name, std::uint32_t protocol)
{
    Framework::List rule = Framework::UsualRule();
    rule[Framework::RuleName] = name;
    rule[Framework::RuleProgram] = path;
    rule[Framework::RuleDirection] = std::uint16_t{2};
    rule[Framework::RuleAction] = std::uint16_t{0};
    rule[Framework::RuleProtocol] = protocol;
    return rule;
}

// The rules with one more at this place.
inline Framework::List With(Framework::List rules, std::size_t place, const Framework::List& rule)
{
    rules.insert(rules.begin() + static_cast<std::ptrdiff_t>(place), rule);
    return rules;
}

// Firewall rules in the form in which they travel and in that in which the store keeps them, made once: thousands of
// them take a while.
class RuleList
{
public:
    explicit RuleList(const Framework::List& rules)
        : m_array(Framework::MakeArray(rules)), m_bytes(Framework::FileBytes({{Framework::FirewallRules, rules}}))
    {
    }

    // Has the service store them. Any thread may call it that is in an apartment; throws std::runtime_error.
    HRESULT Set(IVdFrwkLocalController& controller) const
    {
        return SetProfile(controller, Framework::FirewallRules, m_array.get());
    }

    // The same without the service, whose next process has them.
    void Store(const Service& service) const { WriteBytes(FileOf(service), m_bytes); }

    // Whether the next process of the service will have them: the file of the store holds them whole, and no other
    // value.
    bool AreStored(const Service& service) const { return ReadBytes(FileOf(service)) == m_bytes; }

private:
    static std::wstring FileOf(const Service& service)
    {
        return service.Installed().File(Framework::ValueStore::FileName);
    }

    const Framework::UniqueSafeArray m_array;
    const std::string m_bytes;
};
