#pragma once

#include "common/VdFrwk.h"
#include "suite/common/ComPtr.h"
#include "suite/framework/Value.h"

#include <ocidl.h>

#include <functional>
#include <string>
#include <vector>

// Hands the messages of the thread out, as a client in a single-threaded apartment does all the time, until the
// condition holds; false when it does not within 30 s.
bool PumpUntil(const std::function<bool()>& condition);

// A new local controller. The thread is in an apartment. Throws std::runtime_error.
Suite::ComPtr<IVdFrwkLocalController> Connect();

// The connection point of the local events.
Suite::ComPtr<IConnectionPoint> LocalEvents(IVdFrwkLocalController& controller);

// A value of the profile or the property, which must be there; throws std::runtime_error.
Framework::List QueryProfile(IVdFrwkLocalController& controller, const Framework::ValueKey& key);
Framework::List QueryProperty(IVdFrwkLocalController& controller, const Framework::ValueKey& key);

HRESULT SetProfile(IVdFrwkLocalController& controller, const Framework::ValueKey& key, SAFEARRAY* array);
HRESULT SetProfile(IVdFrwkLocalController& controller, const Framework::ValueKey& key, const Framework::List& list);

// Orders the purge of a kind, by its purge type, up to a day.
HRESULT OrderPurge(IVdFrwkLocalController& controller, std::uint32_t purgeType, std::uint32_t day);

// A local controller with a sink of the local events, in the apartment of the thread.
class ServiceSession
{
public:
    // Throws std::runtime_error.
    ServiceSession();
    ~ServiceSession();
    ServiceSession(const ServiceSession&) = delete;
    ServiceSession& operator=(const ServiceSession&) = delete;

    IVdFrwkLocalController& Controller() { return *m_controller.Get(); }

    IConnectionPoint& Point() { return *m_point.Get(); }

    DWORD Cookie() const { return m_dwCookie; }

    // What has arrived, and whether all of it came in the thread that made the session.
    std::vector<std::string> events;
    bool cameInOwnThread = true;

private:
    const DWORD m_dwThread = GetCurrentThreadId();
    const Suite::ComPtr<IVdFrwkLocalEvents> m_sink;
    Suite::ComPtr<IVdFrwkLocalController> m_controller;
    Suite::ComPtr<IConnectionPoint> m_point;
    DWORD m_dwCookie = 0;
};
