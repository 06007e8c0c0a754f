#pragma once

#include <filesystem>

namespace Framework
{

// What /Rules does: as a client of the service, like any other, since it alone reads and writes what it keeps. Each
// throws an exception of std when that fails.

// Prints the firewall rules to the standard output.
void PrintRules();

// Sets the rules of the file, see RuleText.h. Nothing is set when a line of it is wrong; the exception tells each.
void LoadRules(const std::filesystem::path& file);

} // namespace Framework
