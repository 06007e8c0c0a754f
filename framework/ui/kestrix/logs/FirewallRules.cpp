#include "framework/ui/kestrix/logs/FirewallRules.h"

#include "common/VdCommon/VdComn_DebugLog.h"

#include <string_view>

namespace
{

// The directions of a rule, and of an event.
enum RuleType : std::uint16_t
{
    RuleTypeOfDirection2 = 0,
    RuleTypeOfDirection1 = 1,
    RuleTypeAny = 2,
};

// The characters of a path's file name that the name of a rule takes.
constexpr std::size_t LongestName = 255;

// Whether the rule is for the program: letter by letter, in capitals as the system makes them.
bool IsOfProgram(const FwRule& rule, const std::wstring& path)
{
    return !rule.strAppPath.empty() && rule.strAppPath.size() == path.size() &&
           ::CompareStringOrdinal(rule.strAppPath.data(), static_cast<int>(path.size()), path.data(),
                                  static_cast<int>(path.size()), TRUE) == CSTR_EQUAL;
}

// Whether a rule of the selected program fits the selected event.
bool FitsEvent(const FwRule& rule, const FirewallSelection& selection)
{
    return MatchProtocolType(rule.nProtocolType, selection.nProtocol) &&
           MatchRuleType(rule.nRuleType, selection.nDirection);
}

bool Matches(const FwRule& rule, const FirewallSelection& selection)
{
    return IsOfProgram(rule, selection.szAppPath) && FitsEvent(rule, selection);
}

using RulePlaces = std::list<FwRuleList::iterator>;

RulePlaces RulesOfProgram(FwRuleList& rules, const std::wstring& path)
{
    RulePlaces places;
    for (auto rule = rules.begin(); rule != rules.end(); ++rule)
    {
        if (IsOfProgram(*rule, path))
        {
            places.push_back(rule);
        }
    }
    return places;
}

void TraceTarget(const FwRule& rule)
{
    VD_TRACE(Flow, L"[CZPTLogPFW::RemoveSelectedPfwRuleAndAddAllowRule] Found target rule");
    VD_TRACE(Flow, L"[CZPTLogPFW::RemoveSelectedPfwRuleAndAddAllowRule] Src IP [%s]", rule.strSrcIP);
    VD_TRACE(Flow, L"[CZPTLogPFW::RemoveSelectedPfwRuleAndAddAllowRule] Dst IP [%s]", rule.strDstIP);
    VD_TRACE(Flow, L"[CZPTLogPFW::RemoveSelectedPfwRuleAndAddAllowRule] Port list[%s]", rule.strPortList);
    VD_TRACE(Flow, L"[CZPTLogPFW::RemoveSelectedPfwRuleAndAddAllowRule] Port type [%d]", rule.nPortType);
}

// Takes the rules away that block the event; false when a rule that stays allows it.
//
// After each rule that goes the search begins anew, which the traces tell and nobody else: a rule fits the event or
// does not, whatever stands before it. So the rules of other programs, which leave no trace, are looked at once.
bool RemoveBlockRules(FwRuleList& rules, const FirewallSelection& selection)
{
    RulePlaces places = RulesOfProgram(rules, selection.szAppPath);
    for (const auto& rule : places)
    {
        FitsEvent(*rule, selection); // for its traces
    }
    bool addRule = true;
    for (auto place = places.begin(); place != places.end();)
    {
        const FwRule& rule = **place;
        if (!FitsEvent(rule, selection))
        {
            ++place;
            continue;
        }
        TraceTarget(rule);
        if (rule.nAction == FwRule::BlockAccess)
        {
            rules.erase(*place);
            places.erase(place);
            addRule = true;
            place = places.begin();
            continue;
        }
        addRule = addRule && rule.nAction != FwRule::Allow;
        ++place;
    }
    return addRule;
}

// Without drive, directory and extension.
std::wstring FileName(std::wstring_view path)
{
    constexpr std::size_t drive = 2;
    if (path.size() >= drive && path[1] == L':')
    {
        path.remove_prefix(drive);
    }
    path.remove_prefix(path.find_last_of(L"\\/") + 1); // 0 where there is none
    return std::wstring(path.substr(0, path.rfind(L'.')).substr(0, LongestName));
}

} // namespace

bool MatchRuleType(std::uint16_t nRuleType, std::uint32_t nEvtDirection)
{
    VD_TRACE(Flow, L"[Enter] CZPTLogPFW::MatchRuleType [_nRuleType=%d][_nEvtDirection=%d]", nRuleType, nEvtDirection);
    const bool matches = nRuleType == RuleTypeAny || (nRuleType == RuleTypeOfDirection2 && nEvtDirection == 2) ||
                         (nRuleType == RuleTypeOfDirection1 && nEvtDirection == 1);
    if (!matches)
    {
        VD_TRACE(Flow, L"[Leave] CZPTLogPFW::MatchRuleType");
    }
    return matches;
}

bool MatchProtocolType(std::uint32_t nProtocolType, std::uint32_t nEvtProtocol)
{
    VD_TRACE(Flow, L"[Enter] CZPTLogPFW::MatchProtocolType [_nProtocolType=%d][_nEvtProtocol=%d]", nProtocolType,
             nEvtProtocol);
    const bool matches = nProtocolType == nEvtProtocol || nProtocolType == FwRule::AnyProtocol;
    if (!matches)
    {
        VD_TRACE(Flow, L"[Leave] CZPTLogPFW::MatchProtocolType");
    }
    return matches;
}

std::optional<FwRuleList> AllowSelected(FwRuleList rules, const FirewallSelection& selection)
{
    if (!RemoveBlockRules(rules, selection))
    {
        return std::nullopt;
    }
    VD_TRACE(Flow, L"[CZPTLogPFW::RemoveSelectedPfwRuleAndAddAllowRule] Adding new ALLOW rule [%d]",
             static_cast<int>(rules.size()));
    VD_TRACE(Flow, L"[Enter] CZPTLogPFW::GenerateAllowRuleForApplication");
    FwRuleList changed;
    GenerateAllowRuleForApplication(rules, changed, selection.szAppPath, selection);
    VD_TRACE(Flow, L"[CZPTLogPFW::RemoveSelectedPfwRuleAndAddAllowRule] After set new rule [%d]",
             static_cast<int>(changed.size()));
    return changed;
}

bool GenerateAllowRuleForApplication(FwRuleList& oldList, FwRuleList& newList, const std::wstring& path,
                                     const FirewallSelection& selection)
{
    FwRule& rule = newList.emplace_back();
    rule.bFlag0 = true;
    rule.strName = FileName(path);
    rule.nField3 = 1;
    rule.strAppPath = path;
    rule.nRuleType = RuleTypeAny;
    rule.nAction = FwRule::Allow;
    rule.nProtocolType = selection.nProtocol;
    VD_TRACE(Flow, L"nProtocol = %d", rule.nProtocolType);
    newList.splice(newList.end(), oldList);
    VD_TRACE(Flow, L"[Leave] CZPTLogPFW::GenerateAllowRuleForApplication");
    return true;
}

std::uint32_t CountBlockRules(const FwRuleList& rules, const FirewallSelection& selection)
{
    std::uint32_t count = 0;
    for (const FwRule& rule : rules)
    {
        VD_TRACE(Flow, L"***DEBUG Path [%s]", rule.strAppPath);
        VD_TRACE(Flow, L"***DEBUG Prot [%d]", rule.nProtocolType);
        VD_TRACE(Flow, L"***DEBUG Rule type  [%d]", rule.nRuleType);
        VD_TRACE(Flow, L"***DEBUG Act  [%d]", rule.nAction);
        if (Matches(rule, selection) && rule.nAction == FwRule::BlockAccess)
        {
            VD_TRACE(Flow, L"Got one..[%d]", ++count);
        }
    }
    return count;
}
