#pragma once

#include "common/DataConversion/Frwk_ComPrfFwRules.h"
#include "framework/ui/kestrix/logs/FirewallSelection.h"

#include <cstdint>
#include <optional>
#include <string>

// Which rules of the firewall fit an event of its log, and what the list of rules becomes when the program of the event
// is allowed. Nothing here asks the service.

using Frwk::DataTypes::FwRule;
using Frwk::DataTypes::FwRuleList;

// Whether the direction of a rule fits that of an event.
bool MatchRuleType(std::uint16_t nRuleType, std::uint32_t nEvtDirection);

// Whether the protocol of a rule fits that of an event.
bool MatchProtocolType(std::uint32_t nProtocolType, std::uint32_t nEvtProtocol);

// Takes away the rules that block the selected event and puts one that allows its program in front of all others, which
// keep their order. Nothing when a rule that stays allows it already: then the profile keeps the rules that it has.
std::optional<FwRuleList> AllowSelected(FwRuleList rules, const FirewallSelection& selection);

// Fills the new list with a rule that allows the program and the old rules after it, which it takes over. Always true.
bool GenerateAllowRuleForApplication(FwRuleList& oldList, FwRuleList& newList, const std::wstring& path,
                                     const FirewallSelection& selection);

// How many rules block the selected event.
std::uint32_t CountBlockRules(const FwRuleList& rules, const FirewallSelection& selection);
