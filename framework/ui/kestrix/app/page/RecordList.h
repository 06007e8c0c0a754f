#pragma once

#include "framework/ui/kestrix/controls/SortListCtrl.h"

#include <string>

class COleDateTime;
class CZPTLogBase;
struct LogKind;
struct LogRec;

// The page's list of records. Its rows point to records of a log, which has the texts of their cells and the orders by
// which a click on a header sorts them.
class CRecordList : public CSortListCtrl
{
public:
    // The log, which is not owned, and its kind.
    void SetLog(CZPTLogBase& log, const LogKind& kind);

    // Takes the rows and the icons away with the log, which is about to go.
    void RemoveLog();

    void RemoveColumns();

    // Before a load: the next click on any header sorts upwards.
    void ForgetClicks();

    // Has the log read a day of the provider, and shows its records newest first. False when it could not be read; the
    // list then stays unpainted until the next load.
    bool LoadDay(const COleDateTime& date);

    // The same for a daily file, with what can be read of it.
    void LoadFile(const std::wstring& path);

    // Puts the text of the cell that the list asks for into its buffer.
    void AnswerText(NMLVDISPINFOW& info) const;

    // Sorts by the column: upwards at first, the other way at each further click on it.
    void SortByClick(int column);

    // The record of a row; null when there is none.
    LogRec* RecordAt(int row) const { return reinterpret_cast<LogRec*>(RowData(row)); }

    // The record of the first selected row; null when there is none.
    LogRec* SelectedRecord() const;

    // A text for a cell: at most 255 characters, the middle of a longer one replaced by dots.
    static std::wstring ShortenDisplayText(const std::wstring& text);

private:
    void ShowFresh();
    std::wstring CellText(const LogRec& record, int column) const;
    void ShowArrow(int column, int up);

    CZPTLogBase* m_pLogData = nullptr; // not owned
    const LogKind* m_pKind = nullptr;
    int m_nListSortColumn = -1; // what the header shows
    int m_nListSortUp = 1;
    int m_nSortColumn = -1;     // the last column clicked; -1 after each load
    bool m_bSortToggle = false; // the last click on that column asked for the downward order
};
