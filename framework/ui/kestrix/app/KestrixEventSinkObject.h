#pragma once

#include "common/Frwk_EventSinkHandler.h"
#include "framework/ui/kestrix/app/KestrixModule.h"

// A sink of this program, counted by the module as long as it lives. The module must outlive it.
class CEventSinkObject : public Frwk::Interface::EventSinkHandler
{
public:
    CEventSinkObject(std::uint32_t mask, CKestrixModule& module) noexcept : EventSinkHandler(mask), m_Module(module)
    {
        m_Module.Lock();
    }

    ~CEventSinkObject() override { m_Module.Unlock(); }

private:
    CKestrixModule& m_Module;
};

// What the framework's events ask of the program.
class CEventHost
{
public:
    // Ends the process at once.
    virtual void Exit() = 0;

    // Reads the log again that is shown, if one is.
    virtual void RefreshPage() = 0;

protected:
    ~CEventHost() = default;
};

// What the viewer makes of the framework's events. It subscribes to the command events alone.
class CKestrixEventSinkObject : public CEventSinkObject
{
public:
    // Module and host must outlive the sink.
    CKestrixEventSinkObject(CKestrixModule& module, CEventHost& host) noexcept
        : CEventSinkObject(Frwk::Interface::CommandEvents, module), m_Host(host)
    {
    }

    // The framework's order to exit ends the process at once, and the end of a purge refreshes the page. Anything else
    // is passed over. Returns EventDone.
    HRESULT OnCommandEvents(const Frwk::Interface::Event& event) override;

    HRESULT OnProfileEvents(const Frwk::Interface::Event& event) override;

    HRESULT OnStatusEvents(const Frwk::Interface::Event&) override { return S_OK; }

    HRESULT OnPropertyEvents(const Frwk::Interface::Event&) override { return S_OK; }

    HRESULT OnSessionEvents(const Frwk::Interface::Event&) override { return S_OK; }

    HRESULT OnDetectionEvents(const Frwk::Interface::Event&) override { return S_OK; }

private:
    CEventHost& m_Host;
};
