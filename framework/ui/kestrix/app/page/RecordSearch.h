#pragma once

#include "framework/ui/kestrix/app/page/TextPattern.h"
#include "framework/ui/kestrix/logs/ShownTexts.h"

class CZPTLogBase;
struct FindRequest;
struct LogRec;

// Looks for a text in the records of a log, in all that the list and the detail pane show of them, also where they cut
// it. It changes nothing, and needs no window.
class CRecordSearch
{
public:
    // The log outlives the search.
    CRecordSearch(const CZPTLogBase& log, const FindRequest& request);

    // False for null.
    bool IsIn(const LogRec* record);

private:
    const CZPTLogBase& m_log;
    const TextPattern m_pattern;
    ShownTexts m_texts; // of the record before; kept for its room
};

// The row to which a search comes.
struct FoundRow
{
    static constexpr int None = -1;

    int row = None;
    bool wentRound = false; // on from the other end of the list
};

// Goes from row to row, of so many, down or up, and asks whether each is wanted: from the neighbour of the row on to
// the end, then on from the other end, and to that row itself at last. Without one (None) from the beginning to the
// end.
template <class IsWanted>
FoundRow FindRow(int count, int from, bool down, IsWanted isWanted)
{
    const int step = down ? 1 : -1;
    const int top = down ? 0 : count - 1;
    const int beyond = down ? count : -1;
    const int first = from == FoundRow::None ? top : from + step;
    for (int row = first; row != beyond; row += step)
    {
        if (isWanted(row))
        {
            return {row, false};
        }
    }
    for (int row = top; row != first; row += step)
    {
        if (isWanted(row))
        {
            return {row, true};
        }
    }
    return {};
}
