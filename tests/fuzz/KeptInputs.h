#pragma once

#include "tests/fuzz/Harness.h"

#include <filesystem>

namespace Fuzz
{

// Inputs in files that a person can read: their units lie there as lines that Visible made (see VisibleText.h), with a
// line feed between them.
struct KeptInput
{
    std::string name; // of the file, without its ending
    std::wstring units;
};

// The inputs that are kept for a harness, in the order of their names: good ones, whose names begin with "good-", and
// others, of which each once showed a fault. Throws std::runtime_error for a file that is none of these.
std::vector<KeptInput> KeptInputs(const Harness& harness);

// Where inputs are left, in the build folder.
std::filesystem::path FindingsFolder();

// Leaves an input in the build folder, under a name that tells its content, and returns the path.
std::filesystem::path LeaveInput(const Harness& harness, std::wstring_view input);

} // namespace Fuzz
