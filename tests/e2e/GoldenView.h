#pragma once

#include "tests/support/GoldenDayFile.h"

#include <map>
#include <string>
#include <vector>

// What a user meets of a golden day. A line that the log refuses ends the load: of a daily file what stands before it
// is shown, of a day of the database nothing, so that such a day has no lines from there on. All texts are as golden
// days have them.
class GoldenView
{
public:
    using Lines = std::vector<std::string>;

    explicit GoldenView(const GoldenDayFile& day);

    // The lines of the log.
    std::vector<std::wstring> LogLines() const;

    // The cells of each row from top to bottom, columns separated by " | ".
    Lines Rows() const { return RowsOf(m_arrNumber); }

    std::size_t Columns() const { return m_arrOrder.size() / 2; }

    // The rows after the first and the second click on each column in turn.
    Lines RowsAfterClick(std::size_t click) const { return RowsOf(m_arrOrder[click]); }

    // The visible rows of the detail pane for a row of the list at the start, each "caption | value", and " | link"
    // after it when it is one. Empty when the record is too short to have any values.
    const Lines& PaneOfRow(std::size_t row) const { return m_mapPane.at(m_arrNumber[row]); }

    // The lines of the exported file after its title: the labels and the records.
    Lines Export() const;

    // The same for an export that leaves out no field of the records.
    Lines ExportOfAllFields() const;

private:
    void ReadList();
    void ReadPanes();
    bool Has(const std::string& number) const;
    Lines RowsOf(const Lines& numbers) const;

    const GoldenDayFile& m_day;
    const std::size_t m_nRefused; // the number of the first line that is refused
    Lines m_arrNumber;            // of the records in the order of the rows
    std::map<std::string, std::string> m_mapCells;
    std::vector<Lines> m_arrOrder;
    std::map<std::string, Lines> m_mapPane;
};
