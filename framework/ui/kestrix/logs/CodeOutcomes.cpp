#include "framework/ui/kestrix/logs/CodeOutcomes.h"

#include "platform/dialog/ResourceText.h"

#include <algorithm>

Outcome OutcomeOfCode(std::span<const CodeOutcome> table, std::uint32_t code, const Outcome& other)
{
    const auto row = std::ranges::find(table, code, &CodeOutcome::code);
    return row == table.end() ? other : row->outcome;
}

void AppendOutcome(const Outcome& outcome, LogRec& record)
{
    record.nImage = outcome.image;
    record.AppendLasting(outcome.text == 0 ? std::wstring_view() : std::wstring_view(LoadText(outcome.text)));
}
