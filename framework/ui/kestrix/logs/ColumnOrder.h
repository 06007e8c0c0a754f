#pragma once

#include "framework/ui/kestrix/logs/LogLayout.h"
#include "framework/ui/kestrix/logs/LogRec.h"

#include <iterator>

// The compare pair of a log whose table of columns says by which field each is sorted. A column that the table does not
// have is sorted by the field of its own number. Records too short for the number of the column count as equal. One
// that is too short for the field alone is sorted as it shows, by an empty text: these functions are called from within
// the system's sort, which no error may leave.
template <const auto& Columns>
struct ColumnOrder
{
    static int CALLBACK Up(LPARAM first, LPARAM second, LPARAM column) { return Compare(first, second, column); }

    static int CALLBACK Down(LPARAM first, LPARAM second, LPARAM column) { return Compare(second, first, column); }

private:
    static int Compare(LPARAM first, LPARAM second, LPARAM column)
    {
        const auto& left = *reinterpret_cast<const LogRec*>(first);
        const auto& right = *reinterpret_cast<const LogRec*>(second);
        const auto number = static_cast<std::size_t>(column);
        if (number >= left.strData.size() || number >= right.strData.size())
        {
            return 0;
        }
        const std::size_t field = number < std::size(Columns) ? Columns[number].order : number;
        return left.FieldOrEmpty(field).compare(right.FieldOrEmpty(field));
    }
};
