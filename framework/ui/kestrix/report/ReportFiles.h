#pragma once

#include "framework/ui/kestrix/logs/LogFileReader.h"

#include <functional>
#include <string>
#include <string_view>

// The folder of the daily files, as the report sees it.
class CReportFiles
{
public:
    using VisitEntry = std::function<void(std::wstring_view name, bool isDirectory)>;

    // Visits the entries whose names end with the extension, whatever the case of its letters, in any order.
    virtual void ForEachEntry(const std::wstring& extension, const VisitEntry& visit) = 0;

    // The text of the file of this name, valid until the next call; null when it cannot be read.
    virtual LogLineReader* Open(const std::wstring& name) = 0;

protected:
    ~CReportFiles() = default;
};

// A folder on the disk.
class CReportFolder : public CReportFiles
{
public:
    // The folder with a "\" at its end.
    explicit CReportFolder(std::wstring folder) : m_strFolder(std::move(folder)) {}

    void ForEachEntry(const std::wstring& extension, const VisitEntry& visit) override;
    LogLineReader* Open(const std::wstring& name) override;

private:
    const std::wstring m_strFolder;
    LogFileReader m_reader;
};
