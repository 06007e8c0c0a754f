#pragma once

#include "tests/fuzz/Harness.h"
#include "tests/support/TemporaryFolder.h"
#include "tests/support/VisibleText.h"

#include <algorithm>
#include <filesystem>
#include <iostream>

// Inputs in files that a person can read: their units lie there as lines that Visible made (see VisibleText.h), with a
// line feed between them.
namespace Fuzz
{

struct KeptInput
{
    std::string name; // of the file, without its ending
    std::wstring units;
};

// The inputs that are kept for a harness, in the order of their names: good ones, whose names begin with "good-", and
// others, of which each once showed a fault. Throws std::runtime_error for a file that is none of these.
inline std::vector<KeptInput> KeptInputs(const Harness& harness)
{
    std::vector<KeptInput> inputs;
    std::error_code none; // most harnesses have no folder
    for (const auto& entry : std::filesystem::directory_iterator(KESTRIX_FUZZ_KEPT + harness.name, none))
    {
        std::string lines = ReadBytes(entry.path().wstring());
        lines.resize(lines.size() - lines.ends_with('\n')); // the last line ends as well
        std::wstring units;
        for (const std::string& line : Pieces<char>(lines, '\n'))
        {
            units += FromVisible(line) + L"\n";
        }
        units.pop_back();
        inputs.push_back({entry.path().stem().string(), units});
    }
    std::ranges::sort(inputs, {}, &KeptInput::name);
    return inputs;
}

// Leaves an input in the build folder, under a name that tells its content, and returns the path.
inline std::string LeaveInput(const Harness& harness, std::wstring_view input)
{
    std::string lines;
    for (const std::wstring& line : Pieces(input, L'\n'))
    {
        lines += Visible(line) + "\n";
    }
    const std::string number = std::to_string(std::hash<std::wstring_view>()(input) % 1'000'000);
    const std::filesystem::path path = KESTRIX_FUZZ_FINDINGS + harness.name + "-" + number + ".txt";
    WriteBytes(path.wstring(), lines);
    return path.string();
}

// The file for the bytes of an input at which the program crashes. What the last run has left there is left as other
// inputs are; the file of a run that was ended with its program is empty.
inline std::filesystem::path TakeCrash(const Harness& harness)
{
    std::filesystem::create_directories(KESTRIX_FUZZ_FINDINGS);
    const std::filesystem::path path = KESTRIX_FUZZ_FINDINGS + harness.name + ".crash";
    std::error_code none;
    if (std::filesystem::file_size(path, none) > 0 && !none)
    {
        const std::wstring input = UnitsOf(ReadBytes(path.wstring()), harness.form);
        std::cout << harness.name << ": the last run crashed; the input is in " << LeaveInput(harness, input)
                  << std::endl;
    }
    return path;
}

} // namespace Fuzz
