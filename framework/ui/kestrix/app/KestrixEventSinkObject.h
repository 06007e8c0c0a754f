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

// What the viewer makes of the framework's events. It subscribes to the command events alone.
class CKestrixEventSinkObject : public CEventSinkObject
{
public:
    explicit CKestrixEventSinkObject(CKestrixModule& module) noexcept
        : CEventSinkObject(Frwk::Interface::CommandEvents, module)
    {
    }

    // The framework's order to exit ends the process at once, and the end of a purge refreshes the page. Anything else
    // is passed over. Gives EventDone.
    HRESULT OnCommandEvents(const Frwk::Interface::Event& event) override;

    HRESULT OnProfileEvents(const Frwk::Interface::Event& event) override;

    HRESULT OnStatusEvents(const Frwk::Interface::Event&) override { return S_OK; }

    HRESULT OnPropertyEvents(const Frwk::Interface::Event&) override { return S_OK; }

    HRESULT OnSessionEvents(const Frwk::Interface::Event&) override { return S_OK; }

    HRESULT OnDetectionEvents(const Frwk::Interface::Event&) override { return S_OK; }
};
