#include "tests/fuzz/KeptInputs.h"

#include "tests/support/TemporaryFolder.h"
#include "tests/support/VisibleText.h"

#include <algorithm>

namespace Fuzz
{

namespace fs = std::filesystem;

std::vector<KeptInput> KeptInputs(const Harness& harness)
{
    std::vector<KeptInput> inputs;
    const fs::path folder = fs::path(KESTRIX_FUZZ_KEPT) / harness.name;
    std::error_code none; // most harnesses have no folder
    for (const fs::directory_entry& entry : fs::directory_iterator(folder, none))
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

std::filesystem::path FindingsFolder()
{
    fs::create_directories(KESTRIX_FUZZ_FINDINGS);
    return KESTRIX_FUZZ_FINDINGS;
}

std::filesystem::path LeaveInput(const Harness& harness, std::wstring_view input)
{
    std::string lines;
    for (const std::wstring& line : Pieces(input, L'\n'))
    {
        lines += Visible(line) + "\n";
    }
    const std::string number = std::to_string(std::hash<std::wstring_view>()(input) % 1'000'000);
    const fs::path path = FindingsFolder() / (std::string(harness.name) + "-" + number + ".txt");
    WriteBytes(path.wstring(), lines);
    return path;
}

} // namespace Fuzz
