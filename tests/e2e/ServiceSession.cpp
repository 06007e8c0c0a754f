#include "tests/e2e/ServiceSession.h"

#include "suite/framework/SafeArray.h"
#include "tests/e2e/EventRecorder.h"
#include "tests/e2e/Process.h"

#include <stdexcept>

namespace
{

void Require(HRESULT result, const char* what)
{
    if (FAILED(result))
    {
        throw std::runtime_error(what + (" failed: " + std::to_string(static_cast<unsigned long>(result))));
    }
}

Suite::ComPtr<IVdFrwkProfile> Profile(IVdFrwkLocalController& controller)
{
    Suite::ComPtr<IVdFrwkProfile> profile;
    Require(controller.GetActiveProfile(profile.Put()), "GetActiveProfile");
    return profile;
}

Framework::List Query(IVdFrwkValues& values, const Framework::ValueKey& key)
{
    ULONG word = 0;
    SAFEARRAY* array = nullptr;
    Require(values.QueryValue(key.type, key.subType, 0, 0, &word, &array), "QueryValue");
    const Framework::UniqueSafeArray owned(array);
    const std::optional<Framework::List> list = Framework::ReadArray(array);
    Require(list ? S_OK : E_FAIL, "reading the answer");
    return *list;
}

// Goes with its last reference: until then the system takes another sink in the same place for this one.
class Sink : public EventRecorder
{
public:
    using EventRecorder::EventRecorder;

    STDMETHODIMP_(ULONG) Release() override
    {
        const ULONG left = EventRecorder::Release();
        if (left == 0)
        {
            delete this;
        }
        return left;
    }

private:
    virtual ~Sink() = default;
};

} // namespace

bool PumpUntil(const std::function<bool()>& condition)
{
    return WaitUntil(
        [&]
        {
            MSG message{};
            while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE))
            {
                DispatchMessageW(&message);
            }
            return condition();
        });
}

Suite::ComPtr<IVdFrwkLocalController> Connect()
{
    Suite::ComPtr<IVdFrwkLocalController> controller;
    Require(CoCreateInstance(__uuidof(VdFrwkLocalController), nullptr, CLSCTX_ALL, __uuidof(IVdFrwkLocalController),
                             controller.PutVoid()),
            "CoCreateInstance");
    return controller;
}

Suite::ComPtr<IConnectionPoint> LocalEvents(IVdFrwkLocalController& controller)
{
    Suite::ComPtr<IConnectionPointContainer> container;
    Suite::ComPtr<IConnectionPoint> point;
    Require(controller.QueryInterface(__uuidof(IConnectionPointContainer), container.PutVoid()), "QueryInterface");
    Require(container->FindConnectionPoint(__uuidof(IVdFrwkLocalEvents), point.Put()), "FindConnectionPoint");
    return point;
}

Framework::List QueryProfile(IVdFrwkLocalController& controller, const Framework::ValueKey& key)
{
    return Query(*Profile(controller).Get(), key);
}

Framework::List QueryProperty(IVdFrwkLocalController& controller, const Framework::ValueKey& key)
{
    Suite::ComPtr<IVdFrwkProperty> property;
    Require(controller.GetProperty(property.Put()), "GetProperty");
    return Query(*property.Get(), key);
}

HRESULT SetProfile(IVdFrwkLocalController& controller, const Framework::ValueKey& key, SAFEARRAY* array)
{
    ULONG word = 0;
    ULONG result = 0;
    return Profile(controller)->SetValue(key.type, key.subType, 0, 0, &word, &result, array);
}

HRESULT SetProfile(IVdFrwkLocalController& controller, const Framework::ValueKey& key, const Framework::List& list)
{
    return SetProfile(controller, key, Framework::MakeArray(list).get());
}

HRESULT OrderPurge(IVdFrwkLocalController& controller, std::uint32_t purgeType, std::uint32_t day)
{
    ULONG word = 1;
    ULONG result = 0;
    return controller.DoCommand(22, 1, 0, 0, &word, &result,
                                Framework::MakeArray({day, std::uint32_t{0}, purgeType}).get());
}

ServiceSession::ServiceSession()
    : m_sink(new Sink(
          [this](const std::string& event)
          {
              events.push_back(event);
              cameInOwnThread = cameInOwnThread && GetCurrentThreadId() == m_dwThread;
              return S_OK;
          })),
      m_controller(Connect()),
      m_point(LocalEvents(*m_controller.Get()))
{
    Require(m_point->Advise(m_sink.Get(), &m_dwCookie), "Advise");
}

ServiceSession::~ServiceSession()
{
    m_point->Unadvise(m_dwCookie);
    CoDisconnectObject(m_sink.Get(), 0);
}
