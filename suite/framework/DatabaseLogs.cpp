#include "suite/framework/DatabaseLogs.h"

#include "suite/database/EventDatabase.h"

namespace Framework
{

DatabaseLogs::DatabaseLogs(const std::filesystem::path& folder) : m_file(folder / EventLog::DatabaseFileName) {}

void DatabaseLogs::DeleteThrough(std::uint32_t kind, std::uint32_t day)
{
    EventLog::EventDatabase::Open(m_file).DeleteThrough(kind, day);
}

} // namespace Framework
