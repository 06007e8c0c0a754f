#pragma once

#include <cstdint>
#include <memory>
#include <string>

class CDetailPane;
class COleDateTime;
class CRecordList;
class CZPTLogBase;
class IDBManagerProvider;
struct LogRec;

// Where a log has its records and what else it is told of the machine.
struct LogSource
{
    bool isLocal;                 // of the database, else of daily files
    IDBManagerProvider* provider; // not owned
    const std::wstring& localAddress;
};

// The log object of the page, joined to the list of its records and to the detail pane of the selected one. It owns the
// records, to which the rows of the list point.
class CShownLog
{
public:
    // The list and the pane outlive the object.
    CShownLog(CRecordList& list, CDetailPane& pane);
    ~CShownLog();

    // Makes the log of the type in place of the one before; false when the type has no class.
    bool Make(std::uint32_t type, const LogSource& source);

    // Null for a type that has no class.
    CZPTLogBase* Log() const { return m_pLogData.get(); }

    // Frees the records. The form is painted before, since nothing is painted while the next ones are read and sorted.
    void Clear();

    // Loads a day of the provider when the log is local, else what can be read of the file. False when the day could
    // not be read.
    bool Load(bool isLocal, const COleDateTime& date, const std::wstring& path);

    // Shows the selected record in the detail pane; none there changes nothing.
    void ShowSelectedRecord();

    // The same, unless the pane shows it already. Traces nothing.
    void FollowSelection();

    // The line of the selected record in an export, below that of the labels if wanted; empty when none is selected.
    std::wstring SelectedRecordAsExported(bool withLabels);

    // Shows the whole of the text that the detail pane shows cut; nothing without a log.
    void ShowWholeText();

private:
    void Show(LogRec& record);

    CRecordList& m_RecordList;
    CDetailPane& m_DetailPane;
    std::unique_ptr<CZPTLogBase> m_pLogData;
    const LogRec* m_pShown = nullptr; // what the pane shows; a record of the log
};
