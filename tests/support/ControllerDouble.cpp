#include "tests/support/ControllerDouble.h"

#include "tests/support/FaultPoints.h"

#include <stdexcept>

namespace
{

constexpr DWORD LocalCookie = 17;
constexpr DWORD SessionCookie = 18;

// A call with all that it passes on: "QueryValue 112 1 0 0 0 of 3", with the number of elements of its array.
std::wstring CallOf(const wchar_t* name, ULONG type, ULONG subType, ULONG zero, ULONG zeroToo, ULONG word,
                    const SAFEARRAY* array)
{
    const ULONG count = array != nullptr ? array->rgsabound[0].cElements : 0;
    return std::wstring(name) + L" " + std::to_wstring(type) + L" " + std::to_wstring(subType) + L" " +
           std::to_wstring(zero) + L" " + std::to_wstring(zeroToo) + L" " + std::to_wstring(word) + L" of " +
           std::to_wstring(count);
}

std::wstring NameOf(DWORD cookie)
{
    return cookie == LocalCookie ? L"local" : cookie == SessionCookie ? L"session" : L"unknown";
}

} // namespace

// Counts for the double. The objects themselves are made with new and end with their last reference.
class ControllerDouble::Part
{
public:
    explicit Part(ControllerDouble& owner) : m_owner(owner) {}

    virtual ~Part() = default;

    ULONG Count()
    {
        ++m_owner.m_nReferences;
        return ++m_nCount;
    }

    ULONG Drop()
    {
        --m_owner.m_nReferences;
        const ULONG left = --m_nCount;
        if (left == 0)
        {
            delete this;
        }
        return left;
    }

protected:
    ControllerDouble& m_owner;

private:
    ULONG m_nCount = 0;
};

class ControllerDouble::Point : public Part, public IConnectionPoint
{
public:
    Point(ControllerDouble& owner, DWORD cookie) : Part(owner), m_nCookie(cookie) {}

    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID, void** object) override
    {
        *object = nullptr;
        return E_NOINTERFACE;
    }

    ULONG STDMETHODCALLTYPE AddRef() override { return Count(); }

    ULONG STDMETHODCALLTYPE Release() override { return Drop(); }

    HRESULT STDMETHODCALLTYPE GetConnectionInterface(IID*) override { return E_NOTIMPL; }

    HRESULT STDMETHODCALLTYPE GetConnectionPointContainer(IConnectionPointContainer**) override { return E_NOTIMPL; }

    HRESULT STDMETHODCALLTYPE EnumConnections(IEnumConnections**) override { return E_NOTIMPL; }

    HRESULT STDMETHODCALLTYPE Advise(IUnknown* sink, DWORD* cookie) override
    {
        const FaultPoints::Pause pause;
        HRESULT result = S_OK;
        if (m_owner.Ends(Step::Advise, L"Advise " + NameOf(m_nCookie), result))
        {
            return result;
        }
        void* events = nullptr;
        const IID& id = m_nCookie == LocalCookie ? __uuidof(IVdFrwkLocalEvents) : __uuidof(IVdFrwkSessionEvents);
        if (FAILED(sink->QueryInterface(id, &events)))
        {
            return CONNECT_E_CANNOTCONNECT;
        }
        m_owner.m_sinks[m_nCookie] = static_cast<IUnknown*>(events);
        *cookie = m_nCookie;
        return S_OK;
    }

    HRESULT STDMETHODCALLTYPE Unadvise(DWORD cookie) override
    {
        const FaultPoints::Pause pause;
        HRESULT result = S_OK;
        if (m_owner.Ends(Step::Unadvise, L"Unadvise " + NameOf(m_nCookie) + L" " + std::to_wstring(cookie), result))
        {
            return result;
        }
        const auto found = m_owner.m_sinks.find(cookie);
        if (cookie != m_nCookie || found == m_owner.m_sinks.end())
        {
            return CONNECT_E_NOCONNECTION;
        }
        found->second->Release();
        m_owner.m_sinks.erase(found);
        return S_OK;
    }

private:
    const DWORD m_nCookie;
};

// The profile or the property.
template <class Interface>
class ControllerDouble::Values : public Part, public Interface
{
public:
    using Part::Part;

    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID, void** object) override
    {
        *object = nullptr;
        return E_NOINTERFACE;
    }

    ULONG STDMETHODCALLTYPE AddRef() override { return this->Count(); }

    ULONG STDMETHODCALLTYPE Release() override { return this->Drop(); }

    HRESULT STDMETHODCALLTYPE QueryValue(ULONG type, ULONG subType, ULONG zero, ULONG zeroToo, ULONG* word,
                                         LPSAFEARRAY* array) override
    {
        const FaultPoints::Pause pause;
        HRESULT result = S_OK;
        if (this->m_owner.Ends(Step::Query, CallOf(L"QueryValue", type, subType, zero, zeroToo, *word, *array), result))
        {
            return result;
        }
        return this->m_owner.m_onQuery ? this->m_owner.m_onQuery(type, array) : S_OK;
    }

    HRESULT STDMETHODCALLTYPE SetValue(ULONG type, ULONG subType, ULONG zero, ULONG zeroToo, ULONG* word, ULONG*,
                                       LPSAFEARRAY array) override
    {
        const FaultPoints::Pause pause;
        return this->m_owner.Take(Step::Set, CallOf(L"SetValue", type, subType, zero, zeroToo, *word, array), type,
                                  array);
    }
};

class ControllerDouble::Controller : public Part, public IVdFrwkLocalController, public IConnectionPointContainer
{
public:
    using Part::Part;

    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID id, void** object) override
    {
        const FaultPoints::Pause pause;
        *object = nullptr;
        if (id == __uuidof(IConnectionPointContainer))
        {
            HRESULT result = S_OK;
            if (m_owner.Ends(Step::Container, L"QueryInterface", result))
            {
                return result;
            }
            *object = static_cast<IConnectionPointContainer*>(this);
        }
        else if (id == __uuidof(IUnknown) || id == __uuidof(IVdFrwkLocalController))
        {
            *object = static_cast<IVdFrwkLocalController*>(this);
        }
        else
        {
            return E_NOINTERFACE;
        }
        AddRef();
        return S_OK;
    }

    ULONG STDMETHODCALLTYPE AddRef() override { return Count(); }

    ULONG STDMETHODCALLTYPE Release() override { return Drop(); }

    HRESULT STDMETHODCALLTYPE DoCommand(ULONG type, ULONG subType, ULONG zero, ULONG zeroToo, ULONG* word, ULONG*,
                                        LPSAFEARRAY array) override
    {
        const FaultPoints::Pause pause;
        return m_owner.Take(Step::Command, CallOf(L"DoCommand", type, subType, zero, zeroToo, *word, array), type,
                            array);
    }

    HRESULT STDMETHODCALLTYPE Reserved5() override { return E_NOTIMPL; }

    HRESULT STDMETHODCALLTYPE Reserved6() override { return E_NOTIMPL; }

    HRESULT STDMETHODCALLTYPE Reserved7() override { return E_NOTIMPL; }

    HRESULT STDMETHODCALLTYPE Reserved8() override { return E_NOTIMPL; }

    HRESULT STDMETHODCALLTYPE Reserved9() override { return E_NOTIMPL; }

    HRESULT STDMETHODCALLTYPE Reserved10() override { return E_NOTIMPL; }

    HRESULT STDMETHODCALLTYPE GetActiveProfile(IVdFrwkProfile** profile) override
    {
        return Give(Step::Profile, L"GetActiveProfile", profile);
    }

    HRESULT STDMETHODCALLTYPE Reserved12() override { return E_NOTIMPL; }

    HRESULT STDMETHODCALLTYPE Reserved13() override { return E_NOTIMPL; }

    HRESULT STDMETHODCALLTYPE GetProperty(IVdFrwkProperty** property) override
    {
        return Give(Step::Property, L"GetProperty", property);
    }

    HRESULT STDMETHODCALLTYPE EnumConnectionPoints(IEnumConnectionPoints**) override { return E_NOTIMPL; }

    HRESULT STDMETHODCALLTYPE FindConnectionPoint(REFIID id, IConnectionPoint** point) override
    {
        const FaultPoints::Pause pause;
        *point = nullptr;
        const DWORD cookie = CookieOf(id);
        HRESULT result = S_OK;
        if (m_owner.Ends(Step::Find, L"FindConnectionPoint " + NameOf(cookie), result))
        {
            return result;
        }
        if (cookie == 0)
        {
            return CONNECT_E_NOCONNECTION;
        }
        *point = new Point(m_owner, cookie);
        (*point)->AddRef();
        return S_OK;
    }

private:
    template <class Interface>
    HRESULT Give(Step step, const std::wstring& call, Interface** values)
    {
        const FaultPoints::Pause pause;
        *values = nullptr;
        HRESULT result = S_OK;
        if (m_owner.Ends(step, call, result))
        {
            return result;
        }
        *values = new Values<Interface>(m_owner);
        (*values)->AddRef();
        return S_OK;
    }
};

class ControllerDouble::Factory : public IClassFactory
{
public:
    explicit Factory(ControllerDouble& owner) : m_owner(owner) {}

    virtual ~Factory() = default;

    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID id, void** object) override
    {
        const bool known = id == __uuidof(IUnknown) || id == __uuidof(IClassFactory);
        *object = known ? static_cast<IClassFactory*>(this) : nullptr;
        m_nCount += known;
        return known ? S_OK : E_NOINTERFACE;
    }

    ULONG STDMETHODCALLTYPE AddRef() override { return ++m_nCount; }

    ULONG STDMETHODCALLTYPE Release() override
    {
        const ULONG left = --m_nCount;
        if (left == 0)
        {
            delete this;
        }
        return left;
    }

    HRESULT STDMETHODCALLTYPE CreateInstance(IUnknown*, REFIID id, void** object) override
    {
        const FaultPoints::Pause pause;
        *object = nullptr;
        HRESULT result = S_OK;
        if (m_owner.Ends(Step::Create, L"CreateInstance", result))
        {
            return result;
        }
        auto* const controller = new Controller(m_owner);
        controller->AddRef();
        result = controller->QueryInterface(id, object);
        controller->Release();
        return result;
    }

    HRESULT STDMETHODCALLTYPE LockServer(BOOL) override { return S_OK; }

private:
    ControllerDouble& m_owner;
    ULONG m_nCount = 1;
};

ControllerDouble::ControllerDouble()
{
    auto* const factory = new Factory(*this);
    const HRESULT hr = ::CoRegisterClassObject(CLSID_VdFrwkLocalController, factory, CLSCTX_INPROC_SERVER,
                                               REGCLS_MULTIPLEUSE, &m_nRegistration);
    factory->Release();
    if (FAILED(hr))
    {
        throw std::runtime_error("the controller of the tests cannot be registered");
    }
}

ControllerDouble::~ControllerDouble()
{
    ::CoRevokeClassObject(m_nRegistration);
    DropSinks();
}

void ControllerDouble::DropSinks()
{
    for (const auto& [cookie, sink] : m_sinks)
    {
        sink->Release();
    }
    m_sinks.clear();
}

DWORD ControllerDouble::CookieOf(REFIID eventInterface)
{
    return eventInterface == __uuidof(IVdFrwkLocalEvents)     ? LocalCookie
           : eventInterface == __uuidof(IVdFrwkSessionEvents) ? SessionCookie
                                                              : 0;
}

bool ControllerDouble::Ends(Step step, const std::wstring& call, HRESULT& result)
{
    m_calls.push_back(call);
    if (m_onCall)
    {
        m_onCall(call);
    }
    if (FaultPoints::CallFails(FaultKind::Com))
    {
        result = E_OUTOFMEMORY;
        return true;
    }
    const auto found = m_failures.find(step);
    if (found == m_failures.end())
    {
        return false;
    }
    result = found->second;
    return true;
}

HRESULT ControllerDouble::Take(Step step, const std::wstring& call, ULONG type, LPSAFEARRAY array)
{
    HRESULT result = S_OK;
    if (Ends(step, call, result))
    {
        return result;
    }
    return m_onSend ? m_onSend(type, array) : S_OK;
}
