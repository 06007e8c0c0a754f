#pragma once

#include "suite/framework/Value.h"

#include <optional>

namespace Framework
{

// What a client orders with the command 22, 1.
struct PurgeCommand
{
    std::uint32_t kind; // as queries name it
    std::uint32_t day;  // the last one that goes, YYYYMMDD

    bool operator==(const PurgeCommand&) const = default;
};

// Reads the three numbers of the command: the date as YYYYMMDD, the time as HHMMSS and the purge type. Nothing when
// they are others, are no date or time or name no kind of log. The time has no effect: whole days are purged.
std::optional<PurgeCommand> ReadPurgeCommand(const List& list);

} // namespace Framework
