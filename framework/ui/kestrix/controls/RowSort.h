#pragma once

#include <windows.h>

#include <commctrl.h>

#include <cstdint>
#include <vector>

// A row of a list view that asks for its rows: what a list view with rows of its own would keep of it.
struct ListRow
{
    LPARAM data = 0;
    int image = 0;
    std::uint16_t group = 0; // of texts, while rows are sorted
    bool isSelected = false; // these two while rows are moved: the list view itself knows them by their places
    bool hasFocus = false;
};

static_assert(sizeof(ListRow) == 16, "a day may have a million rows");

// Sorts by compare(data of one row, data of another, context); rows that compare as equal keep their order.
//
// The callback has to look at texts that lie far apart in memory, so it is asked as rarely as possible: rows that stand
// in order, either way, are found so by one question for each two neighbours; of a column with few different texts each
// row is looked up among these; what is left is merged from the runs that are in order already.
//
// The rows are all there at any time, also when the callback throws.
void SortRows(std::vector<ListRow>& rows, PFNLVCOMPARE compare, LPARAM context);
