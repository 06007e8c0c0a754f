#pragma once

#include "common/OrlDbMg.h"
#include "suite/OrlDbMg/Answer.h"
#include "suite/database/EventDatabase.h"

#include <chrono>
#include <filesystem>
#include <optional>

namespace OrlDbMg
{

// The query object over the database of the data folder. The file is opened by the first query that finds it, so
// that one that is made later is found too, and stays open until Uninitialize. No exception leaves an operation.
class Provider : public IDBManagerProvider
{
public:
    // How long a query waits for a file that somebody has locked.
    explicit Provider(std::chrono::milliseconds busyTimeout);
    Provider(const Provider&) = delete;
    Provider& operator=(const Provider&) = delete;

    HRESULT Reserved() override;
    HRESULT Initialize(ULONG_PTR zero, ULONG_PTR zeroToo) override;
    HRESULT Uninitialize(ULONG_PTR zero, ULONG_PTR zeroToo) override;
    HRESULT QueryValue(std::uint32_t kind, std::uint32_t query, std::uint32_t logSubType, void** result,
                       std::uint32_t flags, const void* request) override;

private:
    EventLog::EventDatabase& Database();
    void* ReadRecords(std::uint32_t logSubType, const OrlPeriod& period);
    void* ReadDays(std::uint32_t logSubType);

    const std::chrono::milliseconds m_busyTimeout;
    std::optional<EventLog::EventDatabase> m_database;
    Answer m_answer;
};

} // namespace OrlDbMg
