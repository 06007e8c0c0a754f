#pragma once

#include "common/Frwk_EventSinkHandler.h"

#include <algorithm>
#include <iterator>
#include <string>
#include <vector>

// A block that is told apart by its number.
inline VdFrwkBlock BlockOf(ULONG number)
{
    return {{number, number + 1, number + 2, number + 3}};
}

inline ULONG NumberOf(const VdFrwkBlock& block)
{
    const VdFrwkBlock whole = BlockOf(block.words[0]);
    return std::equal(std::begin(whole.words), std::end(whole.words), block.words) ? block.words[0] : ~0U;
}

// A sink that notes what reaches its operations.
class RecordingSink : public Frwk::Interface::EventSinkHandler
{
public:
    using EventSinkHandler::connected;
    using EventSinkHandler::EventSinkHandler;

    static constexpr HRESULT Answer = 0x41;

    HRESULT OnCommandEvents(const Frwk::Interface::Event& event) override { return Note(L"command", event); }

    HRESULT OnProfileEvents(const Frwk::Interface::Event& event) override { return Note(L"profile", event); }

    HRESULT OnStatusEvents(const Frwk::Interface::Event& event) override { return Note(L"status", event); }

    HRESULT OnPropertyEvents(const Frwk::Interface::Event& event) override { return Note(L"property", event); }

    HRESULT OnSessionEvents(const Frwk::Interface::Event& event) override { return Note(L"session", event); }

    HRESULT OnDetectionEvents(const Frwk::Interface::Event& event) override { return Note(L"detection", event); }

    // Refuses once it has answered as many questions as the test says.
    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID id, void** object) override
    {
        if (m_nAnswered == 0)
        {
            *object = nullptr;
            return E_ABORT;
        }
        --m_nAnswered;
        return EventSinkHandler::QueryInterface(id, object);
    }

    ULONG References()
    {
        AddRef();
        return Release();
    }

    struct Received
    {
        std::wstring kind;
        Frwk::Interface::Event event;
    };

    std::vector<Received> m_received;
    unsigned m_nAnswered = ~0U; // questions for an interface that are answered

private:
    HRESULT Note(const wchar_t* kind, const Frwk::Interface::Event& event)
    {
        m_received.push_back({kind, event});
        return Answer;
    }
};
