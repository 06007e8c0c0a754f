// The four functions of common/OrlDbMg.h. No exception leaves them, and they show no message.

#include "common/OrlDbMg.h"
#include "suite/OrlDbMg/Provider.h"
#include "suite/OrlDbMg/Status.h"

#include <memory>
#include <mutex>

namespace
{

// The library's one provider, from Orl_CreateFunction to Orl_FreeFunction or the library's end.
class Library
{
public:
    HRESULT Create(IDBManagerProvider** provider)
    {
        const std::lock_guard lock(m_lock);
        if (provider == nullptr)
        {
            return E_POINTER;
        }
        if (!m_provider)
        {
            m_provider = std::make_unique<OrlDbMg::Provider>(EventLog::EventDatabase::BusyTimeout);
        }
        *provider = m_provider.get();
        return OrlSuccess;
    }

    HRESULT Free()
    {
        const std::lock_guard lock(m_lock);
        m_provider.reset();
        return OrlSuccess;
    }

private:
    std::mutex m_lock;
    std::unique_ptr<OrlDbMg::Provider> m_provider;
};

Library& TheLibrary()
{
    static Library s_library;
    return s_library;
}

} // namespace

extern "C"
{
    // Nothing is opened before the first query.
    HRESULT Orl_Initialize(ULONG_PTR, ULONG_PTR)
    {
        return OrlSuccess;
    }

    HRESULT Orl_Uninitialize(ULONG_PTR, ULONG_PTR)
    {
        return OrlDbMg::WithoutExceptions([] { return TheLibrary().Free(); });
    }

    HRESULT Orl_CreateFunction(IDBManagerProvider** provider, ULONG_PTR, ULONG_PTR)
    {
        return OrlDbMg::WithoutExceptions([=] { return TheLibrary().Create(provider); });
    }

    HRESULT Orl_FreeFunction(ULONG_PTR, ULONG_PTR, ULONG_PTR)
    {
        return OrlDbMg::WithoutExceptions([] { return TheLibrary().Free(); });
    }
}

static_assert(std::is_same_v<decltype(&Orl_Initialize), OrlInitializeFunction>);
static_assert(std::is_same_v<decltype(&Orl_Uninitialize), OrlUninitializeFunction>);
static_assert(std::is_same_v<decltype(&Orl_CreateFunction), OrlCreateFunction>);
static_assert(std::is_same_v<decltype(&Orl_FreeFunction), OrlFreeFunction>);
