#include "tests/support/KeptText.h"

#include "tests/support/TemporaryFolder.h"

#include <algorithm>

testing::AssertionResult IsKeptText(const std::string& bytes, const std::filesystem::path& kept,
                                    const std::filesystem::path& found)
{
    std::filesystem::remove(found);
    const std::string expected = exists(kept) ? ReadBytes(kept.wstring()) : std::string();
    if (exists(kept) && bytes == expected)
    {
        return testing::AssertionSuccess();
    }
    create_directories(found.parent_path());
    WriteBytes(found.wstring(), bytes);
    const auto difference = std::ranges::mismatch(bytes, expected).in1;
    return testing::AssertionFailure() << found.generic_string() << " differs from " << kept.generic_string()
                                       << " from line " << std::count(bytes.begin(), difference, '\n') + 1 << " on";
}
