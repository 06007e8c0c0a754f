#pragma once

#include "framework/ui/kestrix/app/KestrixEventSinkObject.h"

#include <memory>

// The program's connection to the framework's events.
class CEventConnection
{
public:
    // The host must outlive the connection.
    explicit CEventConnection(CEventHost& host) noexcept : m_Host(host) {}

    CEventConnection(const CEventConnection&) = delete;
    CEventConnection& operator=(const CEventConnection&) = delete;

    // Ends a connection that still stands.
    ~CEventConnection();

    // Makes the event sink and connects it. False when that fails.
    bool Connect();

    // Disconnects the sink, which stays for late events. False when there is none or it fails.
    bool Disconnect();

private:
    CEventHost& m_Host;
    CKestrixModule m_Module;
    std::unique_ptr<CKestrixEventSinkObject> m_pEventSinkObject;
    bool m_bConnected = false;
};
