#pragma once

#include "framework/ui/kestrix/logs/ZPTLogBase.h"

#include <cstdint>
#include <string>
#include <unordered_map>

// The log of the system tuner: which function did what, to which item, and how much that came to. Texts are composed so
// that a row of the list reads as a sentence.
class CZPTLogSysTuner : public CZPTLogBase
{
public:
    explicit CZPTLogSysTuner(std::pmr::memory_resource* upstream = std::pmr::new_delete_resource());

    void MakeRecode(std::size_t index, std::wstring_view token, LogRec& record) override;

    // Throws std::invalid_argument when the records are others at the end than at the beginning.
    bool SetListLog() override;
    void ClearLog() override;
    void GetColumnText(const LogRec* record, std::wstring& text, int column) const override;

protected:
    void AddColumnTexts(const LogRec& record, ShownTexts& texts) const override;

    // Turns a date in the form YYYY/MM/DD into the short date of the user's region, with whatever stands after it. A
    // text that does not begin with a date stays as it is.
    void FormatLastAccessDate(std::wstring& text);

private:
    static int CALLBACK CompareFuncUp(LPARAM first, LPARAM second, LPARAM column);

    void AppendValue(std::wstring_view token, LogRec& record);

    // The dates of the loaded lines by their numbers, as the region writes them; empty where the calendar has no such
    // date. They repeat, and the system takes longer to write one than all else of a line takes.
    std::unordered_map<std::int64_t, std::wstring> m_mapDateText;
};
