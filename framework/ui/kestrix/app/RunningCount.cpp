#include "framework/ui/kestrix/app/RunningCount.h"

#include "common/VdCommon/VdComn_DebugLog.h"
#include "common/VdCommon/VdComn_Storage.h"
#include "framework/ui/kestrix/logs/EventLogKey.h"

#include <algorithm>
#include <cstdint>
#include <limits>

namespace
{

constexpr wchar_t MaxCountMutexName[] = L"ZPTLOG_MUTEX_MAXCNT";

constexpr wchar_t MaxLogCountValue[] = L"MaxLogCount";
constexpr std::uint32_t DefaultMaxLogCount = 14;

LONG GetMaxLogCount()
{
    const std::uint32_t count = VdCommon::Storage::QueryValue(HKEY_LOCAL_MACHINE, EventLogKey, MaxLogCountValue, 0U);
    constexpr std::uint32_t most = std::numeric_limits<LONG>::max(); // that a semaphore can count
    return static_cast<LONG>(count == 0 ? DefaultMaxLogCount : std::min(count, most));
}

} // namespace

CRunningCount::Answer CRunningCount::Take(const std::wstring& name)
{
    const LONG maximum = GetMaxLogCount();
    try
    {
        m_pLogCountSemaphore = std::make_unique<CSemaphore>(maximum, maximum, name);
    }
    catch (const CAtlException&)
    {
        return Answer::NameInUse;
    }
    m_bLogCountLocked = m_pLogCountSemaphore->Lock(0);
    if (m_bLogCountLocked)
    {
        return Answer::Taken;
    }
    VD_TRACE(Error, L"[InitInstance] Executing Log UI reached to Max count.");
    m_hMaxCountMutex.reset(::OpenMutexW(MUTEX_ALL_ACCESS, FALSE, MaxCountMutexName));
    if (m_hMaxCountMutex)
    {
        VD_TRACE(Flow, L"[InitInstance] message-box has already existed.");
        return Answer::LimitIsShown;
    }
    m_hMaxCountMutex.reset(::CreateMutexW(nullptr, TRUE, MaxCountMutexName));
    return Answer::LimitReached;
}

// The mutex of the limit is not released: closing it is what lets the next process show the message.
void CRunningCount::GiveBack()
{
    if (m_bLogCountLocked)
    {
        m_pLogCountSemaphore->Unlock();
    }
    m_bLogCountLocked = false;
    m_pLogCountSemaphore.reset();
    m_hMaxCountMutex.reset();
}
