#include "tests/fuzz/harness/Harnesses.h"

#include <algorithm>

namespace Fuzz
{

namespace
{

constexpr const Harness* All[] = {
    &LineHarness,        &TokenHarness,     &DayFileHarness,  &ProviderHarness,       &ReportHarness,
    &CommandLineHarness, &LanguageHarness,  &BitmapHarness,   &VariantHarness,        &TraceSettingsHarness,
    &ImportHarness,      &ValueFileHarness, &RuleTextHarness, &ServiceCommandHarness, &ImportCommandHarness,
};

} // namespace

std::span<const Harness* const> Harnesses()
{
    return All;
}

const Harness* FindHarness(std::string_view name)
{
    const auto found = std::ranges::find(All, name, &Harness::name);
    return found == std::end(All) ? nullptr : *found;
}

} // namespace Fuzz
