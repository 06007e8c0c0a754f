#pragma once

#include "suite/framework/Shape.h"

#include <filesystem>

namespace Framework
{

// The firewall rules of the profile: a list of records, in the order in which they hold.
inline constexpr ValueKey FirewallRules{48, 5};

// The elements of a rule that people know. The others have no name, and are kept as they come.
enum RuleElement : std::size_t
{
    RuleName = 2,
    RuleProgram = 4, // a full path; empty in a rule of no program
    RuleDirection = 5,
    RuleAction = 6,
    RuleSource = 9,
    RuleDestination = 10,
    RuleProtocol = 16,
    RulePortKind = 17,
    RulePorts = 18,
};

// What the elements of a rule are.
std::span<const Element> RuleShape();

// A rule with the usual values in the elements that have no name, and with nothing in the others.
List UsualRule();

// Whether all records of the list are rules. The trace tells of the first that is none.
bool AreFirewallRules(const List& list);

// The file with the rules that hold until somebody sets some, as a table for people.
inline constexpr wchar_t FirstRulesName[] = L"FirstRules.txt";

// The rules of this file in the folder; none without it, or when it has a line that is none, which is traced.
List FirstFirewallRules(const std::filesystem::path& folder);

} // namespace Framework
