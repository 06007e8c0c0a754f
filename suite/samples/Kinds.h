#pragma once

#include "suite/samples/RecordSource.h"

#include <array>
#include <cstdint>
#include <span>
#include <string_view>

namespace Samples
{

// How often events come in each hour of the day, relative to the other hours.
using HourWeights = std::array<std::uint8_t, 24>;

// How the records of a kind spread over days and hours.
struct Rhythm
{
    unsigned workdayRecords; // mean number on a day from Monday to Friday
    unsigned weekendRecords;
    unsigned quietPercent;  // share of days that have no record and so no file
    unsigned runLength;     // mean number of records that follow one another closely
    unsigned runGapSeconds; // longest time between two records of a run
    const HourWeights* hours;
};

// How the records of a kind of log are made. The extension leads to all else that is known of it, see LogKinds.h.
struct Kind
{
    std::wstring_view extension;
    std::unique_ptr<RecordSource> (*makeSource)(Random&);
    Rhythm rhythm;
};

// One of each kind of log.
std::span<const Kind> AllKinds();

// The kind of an extension in upper case, or null.
const Kind* FindKind(std::wstring_view extension);

} // namespace Samples
