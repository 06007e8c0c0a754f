#pragma once

#include <filesystem>
#include <span>
#include <string>
#include <vector>

namespace Import
{

// What the user asked for. `help` stands alone.
struct Options
{
    bool help = false;
    std::filesystem::path database; // empty: that of the installation
    std::vector<std::filesystem::path> paths;
};

// Reads the arguments after the program's name.
// Throws Suite::Failure with ExitCode::BadCommandLine and a text that says how to do it right.
Options ParseCommandLine(std::span<const std::wstring> arguments);

// The text of --help, UTF-8.
std::string HelpText();

} // namespace Import
