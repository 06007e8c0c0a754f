#pragma once

#include "suite/database/EventDatabase.h"
#include "suite/framework/Service.h"

#include <filesystem>

namespace Framework
{

// The events in the database of an installation, which must exist when some are to be deleted.
class DatabaseLogs : public EventLogs
{
public:
    // busyTimeout: how long a deletion waits for a file that somebody else has locked.
    explicit DatabaseLogs(const std::filesystem::path& folder,
                          std::chrono::milliseconds busyTimeout = EventLog::EventDatabase::BusyTimeout);

    std::uint64_t DeleteThrough(std::uint32_t kind, std::uint32_t day) override;

private:
    const std::filesystem::path m_file;
    const std::chrono::milliseconds m_busyTimeout;
};

} // namespace Framework
