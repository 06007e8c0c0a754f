#pragma once

#include "suite/database/EventDatabase.h"
#include "tests/support/TemporaryFolder.h"

#include <filesystem>
#include <string>
#include <vector>

// Command codes, and the numbers of the same logs in the database.
inline constexpr int VirusLog = 1;
inline constexpr int FirewallLog = 3;
inline constexpr std::uint32_t VirusSubType = 2;
inline constexpr std::uint32_t SpywareSubType = 3;
inline constexpr std::uint32_t FirewallSubType = 6;

// The command line for the database's log of this command code.
std::wstring DatabaseCommandLine(int logCode);

// A virus record as the database keeps it, found by a scan of a file.
std::wstring VirusLine(const std::wstring& time, const std::wstring& threat);

// A day as the list of dates shows it.
std::wstring DateText(EventLog::Day day);

// What an installed folder has for the viewer's event logs: the database library, and the database when it is made.
class EventLogs
{
public:
    // Copies the library. The folder must outlive the object.
    explicit EventLogs(const TemporaryFolder& installed);

    // Makes up virus records, or records of all kinds, of so many days that end with the last one; throws
    // std::runtime_error.
    void FillWithSamples(unsigned days, EventLog::Day last) const;
    void FillWithSamplesOfAllKinds(unsigned days, EventLog::Day last) const;

    // Makes the database when there is none.
    void Append(std::uint32_t subType, EventLog::Day day, const std::vector<std::wstring>& lines) const;

    // Newest first.
    std::vector<EventLog::Day> VirusDays() const;
    std::vector<std::wstring> VirusLines(EventLog::Day day) const;

    // What VirusDays gives, as the list of dates shows it.
    std::vector<std::wstring> VirusDates() const;

    const std::filesystem::path& File() const { return m_database; }

    // Takes the records away from all readers, and puts them back.
    void Damage() const;
    void Mend() const;

private:
    void MakeSamples(const std::wstring& arguments, unsigned days, EventLog::Day last) const;
    void Execute(const char* statements) const;

    const std::filesystem::path m_database;
};
