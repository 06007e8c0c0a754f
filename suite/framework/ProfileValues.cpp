#include "suite/framework/ProfileValues.h"

#include "suite/framework/FirewallRules.h"
#include "suite/framework/Shape.h"

#include <algorithm>
#include <utility>

namespace Framework
{

namespace
{

constexpr Element ThreeNumbers[] = {Element::Number, Element::Number, Element::Number};
constexpr Element TwoNumbers[] = {Element::Number, Element::Number};

List FirstReportSettings()
{
    return {std::uint32_t{7}, std::uint32_t{0}, std::uint32_t{0}};
}

PurgeSettings SettingsOf(const List& list)
{
    return {std::get<std::uint32_t>(list[0]), std::get<std::uint32_t>(list[1])};
}

constexpr ValueKey ReportSettings{112, 1};
constexpr ValueKey PurgeSettingsKey{113, 2};

struct Row
{
    ValueKey key;
    bool (*isGood)(const List& list);
    List (*get)(const ValueStore& store);
    void (*set)(ValueStore& store, const List& list);
};

constexpr Row Rows[] = {
    {FirewallRules, &AreFirewallRules,
     [](const ValueStore& store)
     {
         std::optional<List> rules = store.Get(FirewallRules);
         return rules ? std::move(*rules) : FirstFirewallRules(store.Folder());
     },
     [](ValueStore& store, const List& list) { store.Set(FirewallRules, list); }},
    {ReportSettings, [](const List& list) { return HasShape(list, ThreeNumbers); },
     [](const ValueStore& store) { return store.Get(ReportSettings).value_or(FirstReportSettings()); },
     [](ValueStore& store, const List& list) { store.Set(ReportSettings, list); }},
    {PurgeSettingsKey, [](const List& list) { return HasShape(list, TwoNumbers) && AreSensible(SettingsOf(list)); },
     [](const ValueStore&)
     {
         const PurgeSettings settings = ReadPurgeSettings();
         return List{settings.days, settings.flag};
     },
     [](ValueStore&, const List& list) { WritePurgeSettings(SettingsOf(list)); }},
};

const Row* Find(const ValueKey& key)
{
    const auto row = std::ranges::find(Rows, key, &Row::key);
    return row == std::end(Rows) ? nullptr : row;
}

} // namespace

HRESULT ProfileValues::Query(const ValueKey& key, List& list) const
{
    const Row* const row = Find(key);
    if (row == nullptr)
    {
        return Unknown;
    }
    const std::lock_guard guard(m_mutex);
    list = row->get(m_store);
    return Success;
}

HRESULT ProfileValues::Set(const ValueKey& key, const List& list)
{
    const Row* const row = Find(key);
    if (row == nullptr)
    {
        return Unknown;
    }
    if (!row->isGood(list))
    {
        return E_INVALIDARG;
    }
    const std::lock_guard guard(m_mutex);
    row->set(m_store, list);
    return Success;
}

PurgeSettings ProfileValues::Purging() const
{
    const std::lock_guard guard(m_mutex);
    return ReadPurgeSettings();
}

} // namespace Framework
