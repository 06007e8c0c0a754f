#include "framework/ui/kestrix/logs/ZPTLogVirCodes.h"

#include "framework/ui/kestrix/logs/ThreatSources.h"
#include "platform/dialog/ResourceText.h"
#include "resource/resource.h"

#include <algorithm>
#include <iterator>
#include <span>

namespace VirusCodes
{

namespace
{

constexpr UINT CleanText = 0; // stands in a table for the text of "nothing had to be done", see CleanTextOf

struct ActionRow
{
    std::uint32_t action;
    UINT done; // text when the result is 1
    UINT failed;
    std::uint32_t doneImage;
    std::uint32_t failedImage;
};

constexpr ActionRow Actions1[] = {
    {0, CleanText, CleanText, 0, 0},
    {1, IDS_ACTION_RENAMED, IDS_ACTION_NOT_RENAMED, 1, 2},
    {2, IDS_ACTION_QUARANTINED, IDS_ACTION_NOT_QUARANTINED, 1, 3},
    {3, IDS_ACTION_CLEANED, IDS_ACTION_NOT_CLEANED, 0, 2},
    {4, IDS_ACTION_DELETED, IDS_ACTION_NOT_DELETED, 0, 2},
    {25, CleanText, CleanText, 1, 1},
    {99, CleanText, CleanText, 1, 1},
    {101, IDS_ACTION_BLOCKED, IDS_ACTION_NOT_BLOCKED, 0, 2},
};

// Not the first table without two rows: a blocked object counts as handled here, and as clean there.
constexpr ActionRow Actions2[] = {
    {0, CleanText, CleanText, 0, 0},
    {1, IDS_ACTION_RENAMED, IDS_ACTION_NOT_RENAMED, 1, 2},
    {2, IDS_ACTION_QUARANTINED, IDS_ACTION_NOT_QUARANTINED, 1, 3},
    {4, IDS_ACTION_DELETED, IDS_ACTION_NOT_DELETED, 0, 2},
    {101, IDS_ACTION_BLOCKED, IDS_ACTION_NOT_BLOCKED, 1, 2},
};

constexpr std::uint32_t UnknownActionImage = 2;
constexpr std::uint32_t ResultDone = 1;

UINT CleanTextOf(const Event& event)
{
    return event.source == ThreatSources::RealTime && event.type != 2 && event.type != 4 ? IDS_ACTION_NOT_REQUIRED
                                                                                         : IDS_ACTION_NONE;
}

Outcome OutcomeOf(std::span<const ActionRow> table, const Event& event, std::uint32_t action, std::uint32_t result)
{
    const auto row = std::ranges::find(table, action, &ActionRow::action);
    if (row == table.end())
    {
        return {{}, UnknownActionImage};
    }
    const bool done = result == ResultDone;
    const UINT text = done ? row->done : row->failed;
    return {LoadText(text == CleanText ? CleanTextOf(event) : text), done ? row->doneImage : row->failedImage};
}

} // namespace

Outcome FirstOutcome(const Event& event, std::uint32_t action, std::uint32_t result)
{
    return OutcomeOf(Actions1, event, action, result);
}

Outcome SecondOutcome(const Event& event, std::uint32_t action, std::uint32_t result)
{
    return OutcomeOf(Actions2, event, action, result);
}

bool SecondActionCounts(std::uint32_t firstAction, std::uint32_t firstResult)
{
    return (firstAction == 2 || firstAction == 3) && firstResult != ResultDone;
}

} // namespace VirusCodes
