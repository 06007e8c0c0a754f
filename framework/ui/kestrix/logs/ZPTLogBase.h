#pragma once

#include "framework/ui/kestrix/logs/LogInfoPage.h"
#include "framework/ui/kestrix/logs/LogKinds.h"
#include "framework/ui/kestrix/logs/LogLayout.h"
#include "framework/ui/kestrix/logs/LogRec.h"

#include <windows.h>

#include <commctrl.h>

#include <cstdint>
#include <memory>
#include <memory_resource>
#include <span>
#include <string>
#include <string_view>
#include <vector>

class CListCtrl;
class COleDateTime;
class CRichColorImageList;
class CSortListCtrl;
class ExportStream;
class ExportWriter;
class IDBManagerProvider;
class ShownTexts;
struct OrlLogEntry;
template <class Entry>
struct OrlVector;

// A log: it loads the records of one day, keeps them, fills the page's list and detail pane from them and writes them
// to an export file. A class per kind of log knows what its fields mean; the page knows nothing of them. What a class
// shows stands in its LogLayout, which the base reads; it overrides an operation where no table says it.
//
// Records stay valid until the next ClearLog; list rows hold bare pointers to them. All operations run on the thread
// of the page, and only one log may parse at a time, since some classes keep parse state for the whole process.
class CZPTLogBase
{
public:
    // What the readers pass to PutRecode and Token. Token treats the end of a line of StreamLine in its own way.
    static constexpr int StreamLine = 3;
    static constexpr int AnyLine = 15;

    virtual ~CZPTLogBase();

    CZPTLogBase(const CZPTLogBase&) = delete;
    CZPTLogBase& operator=(const CZPTLogBase&) = delete;

    // Writes the line of the layout's labels, if it has any; false when a write failed.
    virtual bool WriteExportHeader(ExportWriter& writer);

    // Writes all records to a new file at path, oldest first. The log type gives the title and the fields that are
    // left out. On failure no file is left, and error becomes ExportDiskFull when the disk was the reason.
    virtual bool ExportLog(const std::wstring& path, std::uint32_t logType, const wchar_t* dateText,
                           const wchar_t* localAddress, std::uint32_t* error);
    static constexpr std::uint32_t ExportDiskFull = 10000;

    // The line of a record as an export of this log has it, with its line end; below the line of the labels, if wanted.
    std::wstring ExportLine(const LogRec& record, bool withLabels);

    // Reads a file through a text stream, up to the first bad line. False when the file could not be read.
    virtual bool ReadLogFile(const std::wstring& path, int kind);

    // Reads a daily file to its end or its first bad line. False when it could not be opened.
    virtual bool ReadLogW(const std::wstring& path);

    virtual std::size_t GetLogCount() const;

    // The text of a field; empty when there is no such record or field.
    virtual std::wstring_view GetLogText(std::size_t record, std::size_t field) const;

    // The record, owned by the log; null when there is none.
    virtual LogRec* GetLogRecord(std::size_t index) const;

    // Turns one line into one record; false when the line is invalid or memory ran out.
    virtual bool PutRecode(std::wstring_view line, int kind);

    // Appends the parts of the line between delimiters, as views into it, and gives the number of tokens.
    virtual std::size_t Token(std::wstring_view line, std::vector<std::wstring_view>& tokens, wchar_t delimiter,
                              int kind);

    // Takes one token of a record; sets m_bRecordDone at the last one that a valid record must have.
    virtual void MakeRecode(std::size_t index, std::wstring_view token, LogRec& record);

    // Completes a valid record.
    virtual void MakeRecodeEOL(LogRec& record);

    // Doubles every double quote.
    virtual void EscapeQuote(std::wstring& text) const;

    // Takes the page's list, which must be a CSortListCtrl, and gives it the icons. The list is not owned.
    virtual void SetListCtrl(CListCtrl* list);
    virtual void SetListColumn();

    // Sets the captions of the page's detail pane and leaves its values blank.
    virtual void SetInfoLabel();

    // Frees all records, with the rows of the list.
    virtual void ClearLog();

    // Makes a row for each record, newest first, with its icon if the log has icons; false without a list or when a row
    // could not be made.
    virtual bool SetListLog();

    // The number of bytes to read from the end of a file, 0 for the whole file.
    virtual std::uint32_t GetReadLimit() const;
    virtual void SetLocalAddress(std::wstring address);

    // The text of a list cell. For a column that the layout does not have, text stays as it was; without any columns it
    // becomes empty.
    virtual void GetColumnText(const LogRec* record, std::wstring& text, int column) const;

    // Shows the record in the detail pane. Nothing happens without a record or a page.
    virtual void SetLogInfo(LogRec* record);

    // Puts in place of the texts those that the list and the detail pane show of the record. Nothing changes of the log
    // or the record, and nothing is traced: a search asks for every record. Throws std::out_of_range where
    // GetColumnText does.
    void GetShownTexts(const LogRec& record, ShownTexts& texts) const;

    // The whole text of the third value, which the detail pane may show cut.
    const std::wstring& GetInfoText() const { return m_strInfoText; }

    virtual void SetInfoDialog(CLogInfoPage* page);
    virtual void AddAllowRule();
    virtual bool IsBlockRuleActive() const;
    virtual bool GetQueryValueSubType(std::uint32_t& subType);

    // Reads the records of one day from the provider; an invalid date finds nothing. False when the query or a record
    // failed; the records before it stay.
    virtual bool ReadLogDBMgr(const COleDateTime& date);

    // The query sub type that belongs to the last three letters of the name; false and 0 for letters of no log.
    virtual bool ConvertLogExtToQueryValueSubType(std::wstring_view name, std::uint32_t& subType);

    // The text as the detail pane shows it: a long one is cut and gets "...".
    std::wstring TruncateText(std::wstring_view text) const;

    // Wiring, set by the page right after construction.
    bool m_bUseDBMgr = true;                             // records come from the provider; false: from daily files
    IDBManagerProvider* m_pIDBManagerProvider = nullptr; // not owned; may be null in file mode

    // Callbacks of the list's sort: two LogRec pointers and the column.
    PFNLVCOMPARE m_pfnCompareUp = &CZPTLogBase::CompareFuncUp;
    PFNLVCOMPARE m_pfnCompareDn = &CZPTLogBase::CompareFuncDn;

protected:
    // The records' memory comes from upstream, which must outlive the log.
    explicit CZPTLogBase(std::pmr::memory_resource* upstream = std::pmr::new_delete_resource());

    // Takes over what the class shows and makes the icons. Called once by each class's constructor; the layout must
    // outlive the log.
    void Setup(const LogLayout& layout);

    // Makes an empty record in the memory. A class that keeps more beside the fields makes records of its own class,
    // and finds them again in its operations.
    virtual LogRec* NewRecord(RecordMemory& memory) const;

    // The field that a column of the layout shows of the record.
    virtual std::size_t ColumnField(const LogRec& record, std::size_t column) const;

    // Add the texts that a class shows: those of its columns, where it overrides GetColumnText, and those of its detail
    // rows, where it overrides SetLogInfo.
    virtual void AddColumnTexts(const LogRec& record, ShownTexts& texts) const;
    virtual void AddInfoTexts(const LogRec& record, ShownTexts& texts) const;

    // The plain compare pair: the field numbered as the column, by code units.
    static int CALLBACK CompareFuncUp(LPARAM first, LPARAM second, LPARAM column);
    static int CALLBACK CompareFuncDn(LPARAM first, LPARAM second, LPARAM column);

    std::wstring m_strExt;                // "." and the extension
    std::vector<std::wstring> m_arrTitle; // captions of the log
    std::uint32_t m_nLogType = LogTypeNone;
    std::vector<std::wstring> m_arrColumn; // titles of the list's columns
    std::vector<std::uint32_t> m_arrColumnWidth;

private:
    RecordMemory m_Memory; // holds the records; outlives the pointers below

protected:
    std::pmr::vector<LogRec*> m_arrRecord; // oldest first
    CSortListCtrl* m_pListCtrl = nullptr;  // not owned
    std::unique_ptr<CRichColorImageList> m_pImageList;
    CLogInfoPage* m_pInfoDlg = nullptr; // not owned
    std::vector<std::wstring> m_arrInfoLabel;
    std::vector<std::uint32_t> m_arrInfoVisible; // 1 shows the row
    std::uint32_t m_nInfoTextLimit;              // where long detail texts are cut, in characters
    bool m_bRecordDone = true;
    std::wstring m_strInfoText;

private:
    bool ParseRecord(LogRec& record, std::wstring_view line, int kind);
    bool PutEntries(const OrlVector<OrlLogEntry>* entries);
    void ShowInfoRow(const LogRec& record, std::size_t row);
    void ShowThreat(const std::wstring& name);
    bool ExportRecords(ExportStream& stream, std::uint32_t logType) const;
    void FreeRecords();

    const LogLayout* m_pLayout = nullptr;      // null before Setup
    std::vector<std::wstring_view> m_arrToken; // of the line being parsed; kept for its room
    std::size_t m_nInfoFields = 0;             // that a record needs for its detail rows; shorter ones show none
    std::size_t m_nFieldCount = 0;             // fields of the last record, the room that the next one starts with
};
