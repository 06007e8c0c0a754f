#pragma once

#include "common/VdFrwk.h"
#include "tests/support/FaultPoints.h"

#include <atomic>
#include <functional>
#include <string>

// A sink of the service's events for clients of a test. Calls a function for each command event with its event, message
// type and sub type, in decimal with blanks between, and answers what it returns; other events are an error. References
// count, but its owner holds it: the object may not go while somebody else has it.
class EventRecorder : public IVdFrwkLocalEvents
{
public:
    explicit EventRecorder(std::function<HRESULT(const std::string&)> take) : m_take(std::move(take)) {}

    STDMETHODIMP QueryInterface(REFIID iid, void** object) override
    {
        const bool isOurs = iid == __uuidof(IUnknown) || iid == __uuidof(IVdFrwkLocalEvents);
        *object = isOurs ? this : nullptr;
        m_nReferences += isOurs ? 1 : 0;
        return isOurs ? S_OK : E_NOINTERFACE;
    }

    STDMETHODIMP_(ULONG) AddRef() override { return ++m_nReferences; }

    STDMETHODIMP_(ULONG) Release() override { return --m_nReferences; }

    // The first word of the last command event.
    ULONG LastWord() const { return m_nLastWord; }

    STDMETHODIMP OnCommandEvent(ULONG event, ULONG messageType, ULONG messageSubType, ULONG word1, ULONG, ULONG, ULONG,
                                VdFrwkBlock, VdFrwkBlock, LPSAFEARRAY) override
    {
        const FaultPoints::Pause pause;
        m_nLastWord = word1;
        return m_take(std::to_string(event) + " " + std::to_string(static_cast<long>(messageType)) + " " +
                      std::to_string(messageSubType));
    }

    STDMETHODIMP OnProfileEvent(ULONG, VdFrwkBlock, ULONG, ULONG, ULONG, ULONG, ULONG, ULONG, VdFrwkBlock, VdFrwkBlock,
                                LPSAFEARRAY) override
    {
        return E_UNEXPECTED;
    }

    STDMETHODIMP OnStatusEvent(ULONG, VdFrwkBlock, ULONG, ULONG, ULONG, ULONG, ULONG, ULONG, VdFrwkBlock, VdFrwkBlock,
                               LPSAFEARRAY) override
    {
        return E_UNEXPECTED;
    }

    STDMETHODIMP OnPropertyEvent(ULONG, VdFrwkBlock, ULONG, ULONG, ULONG, ULONG, ULONG, ULONG, VdFrwkBlock, VdFrwkBlock,
                                 LPSAFEARRAY) override
    {
        return E_UNEXPECTED;
    }

private:
    const std::function<HRESULT(const std::string&)> m_take;
    std::atomic<ULONG> m_nReferences = 0;
    std::atomic<ULONG> m_nLastWord = 0;
};
