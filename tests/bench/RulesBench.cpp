// An allow rule into a list of 5,000 that the service keeps, beside one bare query and one bare set of the same array.

#include "framework/ui/kestrix/logs/ZPTLogPFW.h"
#include "platform/dialog/ComUse.h"
#include "suite/framework/FirewallRules.h"
#include "suite/framework/SafeArray.h"
#include "tests/bench/Bench.h"
#include "tests/bench/Timing.h"
#include "tests/e2e/Service.h"
#include "tests/e2e/ServiceSession.h"

#include <filesystem>
#include <string>

namespace
{

using Framework::FirewallRules;
using Framework::List;

constexpr double Budget = 3;
constexpr std::size_t Count = 5000;

constexpr wchar_t BlockedProgram[] = L"C:\\Program Files\\Pinecone Browser\\pinecone.exe";
constexpr std::uint32_t Tcp = 6;
constexpr std::uint32_t Outgoing = 2;

// Rules that block as many programs; in their middle stands the one that is to be allowed.
List ManyRules()
{
    List rules;
    for (std::size_t i = 0; i < Count; ++i)
    {
        List rule = Framework::UsualRule();
        rule[Framework::RuleName] = L"program " + std::to_wstring(i);
        rule[Framework::RuleProgram] = L"C:\\Program Files\\Many Programs\\" + std::to_wstring(i) + L".exe";
        rule[Framework::RuleAction] = std::uint16_t{1};
        rule[Framework::RuleDirection] = std::uint16_t{2};
        rule[Framework::RuleProtocol] = Tcp;
        rule[Framework::RuleSource] = std::wstring(L"192.0.2.0/24");
        rule[Framework::RuleDestination] = std::wstring(L"*");
        rules.emplace_back(std::move(rule));
    }
    std::get<List>(rules[Count / 2])[Framework::RuleProgram] = std::wstring(BlockedProgram);
    return rules;
}

// The transaction of the viewer, which it has for the record that is selected.
struct AllowingLog : CZPTLogPFW
{
    using CZPTLogPFW::RemoveSelectedPfwRuleAndAddAllowRule;
};

void AllowBlockedProgram()
{
    const FirewallSelection selection{BlockedProgram, Outgoing, Tcp};
    Require(AllowingLog::RemoveSelectedPfwRuleAndAddAllowRule(&selection) != 0, "the program cannot be allowed");
}

void QueryAndSet()
{
    Suite::ComPtr<IVdFrwkProfile> profile;
    Require(SUCCEEDED(Connect()->GetActiveProfile(profile.Put())), "the service has no profile");
    ULONG word = 0;
    ULONG result = 0;
    SAFEARRAY* array = nullptr;
    Require(SUCCEEDED(profile->QueryValue(FirewallRules.type, FirewallRules.subType, 0, 0, &word, &array)),
            "the rules cannot be read");
    const Framework::UniqueSafeArray owned(array);
    Require(SUCCEEDED(profile->SetValue(FirewallRules.type, FirewallRules.subType, 0, 0, &word, &result, array)),
            "the rules cannot be set");
}

void Reset(const List& rules)
{
    Require(SUCCEEDED(SetProfile(*Connect().Get(), FirewallRules, rules)), "the rules cannot be set");
}

// Else what was timed was something else.
void CheckAllowed()
{
    const List rules = QueryProfile(*Connect().Get(), FirewallRules);
    Require(rules.size() == Count, "the rule that blocks is still there, or another one is gone");
    const List& first = std::get<List>(rules.front());
    Require(first[Framework::RuleProgram] == Framework::Value(std::wstring(BlockedProgram)) &&
                first[Framework::RuleAction] == Framework::Value(std::uint16_t{0}),
            "the first rule does not allow the program");
}

} // namespace

Figures BenchRules()
{
    std::filesystem::current_path(ProductFolder()); // where the service is looked for
    const ComUse com;
    const Service service(L"/Idle:2000");
    const List rules = ManyRules();
    Reset(rules);
    const std::vector<double> times = MedianTimes({
        {[] { QueryAndSet(); }},
        {[] { AllowBlockedProgram(); },
         [&]
         {
             CheckAllowed();
             Reset(rules);
         }},
    });
    return {{"rules: an allow rule into 5,000", times[1], "ms", times[0], Budget}};
}
