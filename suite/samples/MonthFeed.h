#pragma once

#include "suite/samples/Kinds.h"

#include <cstdint>
#include <filesystem>
#include <functional>
#include <span>

namespace Samples
{

// How far a feeding has come. A day is a day of one kind.
struct Progress
{
    unsigned long long days = 0;
    unsigned long long records = 0;
    bool done = false;
};

using TakeProgress = std::function<void(const Progress&)>;

// Puts the records that MakeMonth makes up into the event-log database at `database`, which is made when it is missing.
// Each day of a kind is one transaction and replaces what the database has of it; what is done stays when a later day
// fails. The progress is told after each day and at the end. Throws Suite::Failure, with the remedy, when the database
// cannot be written.
void FeedMonth(const std::filesystem::path& database, std::span<const Kind* const> kinds, Date end, unsigned days,
               std::uint64_t seed, const TakeProgress& tell);

} // namespace Samples
