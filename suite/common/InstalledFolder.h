#pragma once

#include <filesystem>
#include <optional>

namespace Suite
{

// The folder that the registry names as the one that the suite is installed in; nothing when it names none.
std::optional<std::filesystem::path> InstalledFolder();

} // namespace Suite
