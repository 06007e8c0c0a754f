#pragma once

#include <filesystem>
#include <optional>

namespace Suite
{

// The folder that the registry names as the one that the suite is installed in; nothing when it names none.
std::optional<std::filesystem::path> InstalledFolder();

// The folder of what the suite writes, the event-log database among it: the one that the registry names, else the
// installed one; nothing when it names neither.
std::optional<std::filesystem::path> DataFolder();

} // namespace Suite
