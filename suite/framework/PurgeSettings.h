#pragma once

#include <cstdint>

namespace Framework
{

// How long events are kept. It lies in the registry, where the viewer reads it.
struct PurgeSettings
{
    std::uint32_t days = 30;
    std::uint32_t flag = 1; // 1: the service purges by itself

    bool operator==(const PurgeSettings&) const = default;
};

// Whether they can be meant: a day to a hundred years, and a flag that is 0 or 1.
constexpr bool AreSensible(const PurgeSettings& settings)
{
    constexpr std::uint32_t hundredYears = 36'525;
    return settings.days >= 1 && settings.days <= hundredYears && settings.flag <= 1;
}

// A value that is missing, or no number, has its default. Throws std::system_error when the registry cannot be read:
// by the defaults events are deleted that somebody may want to keep.
PurgeSettings ReadPurgeSettings();

// Throws std::system_error, and the settings are then what they were. A process that ends between the two values leaves
// settings that take nothing that the new ones would not take. Not for two threads at once.
void WritePurgeSettings(const PurgeSettings& settings);

} // namespace Framework
