#include "suite/framework/DatabaseLogs.h"

namespace Framework
{

DatabaseLogs::DatabaseLogs(const std::filesystem::path& folder, std::chrono::milliseconds busyTimeout)
    : m_file(folder / EventLog::DatabaseFileName), m_busyTimeout(busyTimeout)
{
}

std::uint64_t DatabaseLogs::DeleteThrough(std::uint32_t kind, std::uint32_t day)
{
    return EventLog::EventDatabase::Open(m_file, m_busyTimeout).DeleteThrough(kind, day);
}

} // namespace Framework
