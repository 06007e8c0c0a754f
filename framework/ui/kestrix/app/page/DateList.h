#pragma once

#include "platform/dialog/ListBox.h"

#include <cstdint>
#include <map>
#include <string>

class COleDateTime;
class CZPTLogBase;
class IDBManagerProvider;

// Where the days of a log come from, and which of them are listed.
struct DaySource
{
    CZPTLogBase& log;
    bool isLocal;                 // from the provider; false: from the names of daily files
    IDBManagerProvider* provider; // not owned; may be null
    const std::wstring& path;     // of the daily files; may be a pattern
    bool all;                     // every day; false: none of the provider, and files of the span alone
    std::uint32_t span;           // days
};

// The page's list of the days that have records. Each entry carries its day beside its text.
class CDateList : public CListBox
{
public:
    // Lists the days of the source in place of those that are there: the provider's in its order, those of files newest
    // first. Throws CAtlException when a file's day cannot be counted in days from today; the days before it stay.
    void Fill(const DaySource& source);

    // The selected day at its midnight; false when there is none or its text is no date.
    bool GetSelectedDate(COleDateTime& date) const;

    // Empty when none is selected.
    std::wstring SelectedText() const { return GetText(GetCurSel()); }

    // Of the daily files that are listed: the size of all, and of each by its date text, in bytes. Nothing for days of
    // the provider.
    std::uint32_t FileBytes() const { return m_nLogFileBytes; }

    // Whether to read them may take so long that the user would miss the window. One whose file is short is painted
    // once, with its records.
    bool HasLongFiles() const { return m_nLogFileBytes > ShortFileBytes; }

    const std::map<std::wstring, std::uint32_t>& FileSizes() const { return m_mapLogFiles; }

private:
    static constexpr std::uint32_t ShortFileBytes = 4 * 1024 * 1024; // some 20,000 records

    bool FillFromProvider(const DaySource& source);
    void FillFromFiles(const DaySource& source);
    void AddDay(const SYSTEMTIME& day, bool isListed);
    void AddEntry(int index, const std::wstring& text, const COleDateTime& date);
    bool GetEntryDate(int index, COleDateTime& date) const;
    void InsertDate(const COleDateTime& date, std::uint32_t size);

    std::uint32_t m_nLogFileBytes = 0;                   // of all files listed
    std::map<std::wstring, std::uint32_t> m_mapLogFiles; // date text to file size
};
