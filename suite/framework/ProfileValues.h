#pragma once

#include "suite/framework/PurgeSettings.h"
#include "suite/framework/ValueSource.h"
#include "suite/framework/ValueStore.h"

#include <mutex>

namespace Framework
{

// The values of the active profile:
//   48, 5    the firewall rules: a list of records of 23 elements; see FirewallRules.h
//   112, 1   the report settings: frequency in days, alert flag, an unused number; 7, 0, 0 at first
//   113, 2   the purge settings: days, flag; see PurgeSettings.h
class ProfileValues : public ValueSource
{
public:
    // The store must outlive it.
    explicit ProfileValues(ValueStore& store) : m_store(store) {}

    HRESULT Query(const ValueKey& key, List& list) const override;
    HRESULT Set(const ValueKey& key, const List& list) override;

    PurgeSettings Purging() const;

private:
    ValueStore& m_store;
    mutable std::mutex m_mutex; // a value may lie in several places, and nobody sees a half of it
};

} // namespace Framework
