#pragma once

#include "suite/framework/FirewallRules.h"
#include "suite/framework/SafeArray.h"
#include "suite/framework/ValueStore.h"
#include "tests/e2e/Service.h"
#include "tests/e2e/ServiceSession.h"

#include <string>

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

    // Whether the next process of the service will have them: the file of the store holds them whole, and no other
    // value.
    bool AreStored(const Service& service) const
    {
        return ReadBytes(service.Installed().File(Framework::ValueStore::FileName)) == m_bytes;
    }

private:
    const Framework::UniqueSafeArray m_array;
    const std::string m_bytes;
};
