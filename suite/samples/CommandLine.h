#pragma once

#include "suite/samples/Kinds.h"

#include <cstdint>
#include <filesystem>
#include <optional>
#include <span>
#include <string>
#include <vector>

namespace Samples
{

// What the user asked for. `help` stands alone; otherwise `lines` tells the two tasks apart.
struct Options
{
    bool help = false;
    std::filesystem::path folder;       // daily files go here
    std::filesystem::path database;     // records go into this database
    std::filesystem::path file;         // one file of `lines` records goes here
    std::optional<std::uint64_t> lines; // set: one file; not set: daily files
    std::vector<const Kind*> kinds;     // never empty; exactly one for one file
    Date end;
    unsigned days = 30;
    std::uint64_t seed = 1;
};

// Reads the arguments after the program's name. `today` is the end date when none is given.
// Throws Failure with Suite::ExitCode::BadCommandLine and a text that says how to do it right.
Options ParseCommandLine(std::span<const std::wstring> arguments, Date today);

// The text of --help, UTF-8.
std::string HelpText();

} // namespace Samples
