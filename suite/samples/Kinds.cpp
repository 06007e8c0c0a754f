#include "suite/samples/Kinds.h"

#include <algorithm>

namespace Samples
{

// The sources, each in a file of those that belong together. Each keeps `random`, which must outlive it.
std::unique_ptr<RecordSource> MakeVirusRecords(Random& random);
std::unique_ptr<RecordSource> MakeUpdateRecords(Random& random);
std::unique_ptr<RecordSource> MakeUrlFilterRecords(Random& random);
std::unique_ptr<RecordSource> MakeFirewallRecords(Random& random);
std::unique_ptr<RecordSource> MakeCleanupRecords(Random& random);
std::unique_ptr<RecordSource> MakePrivacyRecords(Random& random);
std::unique_ptr<RecordSource> MakePhishingRecords(Random& random);
std::unique_ptr<RecordSource> MakeVulnerabilityRecords(Random& random);
std::unique_ptr<RecordSource> MakeSpywareRecords(Random& random);
std::unique_ptr<RecordSource> MakeChangeRecords(Random& random);
std::unique_ptr<RecordSource> MakeTunerRecords(Random& random);
std::unique_ptr<RecordSource> MakeScanRecords(Random& random);
std::unique_ptr<RecordSource> MakeSkippedTaskRecords(Random& random);

namespace
{

// Somebody works at the machine, with a lunch break and an hour in the evening.
constexpr HourWeights Office = {0, 0, 0, 0, 0, 0, 0, 2, 9, 12, 12, 10, 3, 8, 12, 11, 9, 6, 2, 1, 3, 3, 1, 0};
// The machine is on and does this by itself.
constexpr HourWeights Machine = {1, 1, 1, 1, 1, 1, 3, 6, 6, 4, 4, 4, 6, 4, 4, 4, 6, 4, 4, 4, 6, 4, 2, 1};
// What is planned for the edges of the working day.
constexpr HourWeights Planned = {0, 0, 0, 0, 0, 0, 0, 5, 1, 0, 0, 0, 9, 2, 0, 0, 0, 1, 4, 2, 6, 1, 0, 0};

constexpr Kind Kinds[] = {
    {L"VLG", MakeVirusRecords, {12, 3, 8, 2, 40, &Office}},
    {L"UPG", MakeUpdateRecords, {26, 16, 2, 7, 9, &Machine}},
    {L"UFG", MakeUrlFilterRecords, {34, 12, 4, 4, 60, &Office}},
    {L"PFG", MakeFirewallRecords, {120, 50, 2, 5, 12, &Machine}},
    {L"PTG", MakeCleanupRecords, {4, 2, 30, 2, 15, &Office}},
    {L"PPG", MakePrivacyRecords, {7, 2, 15, 2, 120, &Office}},
    {L"HLG", MakePhishingRecords, {8, 4, 12, 2, 90, &Office}},
    {L"VAG", MakeVulnerabilityRecords, {6, 2, 40, 5, 6, &Planned}},
    {L"SPG", MakeSpywareRecords, {12, 4, 6, 2, 50, &Office}},
    {L"SCG", MakeChangeRecords, {8, 4, 10, 2, 30, &Office}},
    {L"STC", MakeTunerRecords, {10, 6, 25, 6, 8, &Planned}},
    {L"SCI", MakeScanRecords, {3, 2, 8, 1, 1, &Planned}},
    {L"SKP", MakeSkippedTaskRecords, {2, 1, 30, 1, 1, &Planned}},
};

} // namespace

std::span<const Kind> AllKinds()
{
    return Kinds;
}

const Kind* FindKind(std::wstring_view extension)
{
    const Kind* found = std::ranges::find(Kinds, extension, &Kind::extension);
    return found == std::end(Kinds) ? nullptr : found;
}

} // namespace Samples
