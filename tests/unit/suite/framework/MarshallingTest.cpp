// Every method of the interfaces crosses an apartment with its arguments.

#include "common/VdFrwk.h"
#include "platform/dialog/UniqueHandle.h"
#include "suite/common/ComPtr.h"
#include "suite/framework/SafeArray.h"

#include <gtest/gtest.h>

#include <objbase.h>

#include <functional>
#include <string>
#include <thread>
#include <vector>

using Framework::List;
using Suite::ComPtr;

namespace
{

std::string Text(const VdFrwkBlock& block)
{
    std::string text = "[";
    for (const ULONG word : block.words)
    {
        text += std::to_string(word) + " ";
    }
    return text + "]";
}

std::string Text(ULONG number)
{
    return std::to_string(number) + " ";
}

std::string Text(LPSAFEARRAY array)
{
    const std::optional<List> list = Framework::ReadArray(array);
    return list ? "list of " + std::to_string(list->size()) : "no list";
}

constexpr HRESULT Answer = 0x00040200;

// Notes each call as text.
class Double : public IVdFrwkLocalEvents, public IVdFrwkSessionEvents, public IVdFrwkProfile
{
public:
    STDMETHODIMP QueryInterface(REFIID iid, void** object) override
    {
        *object =
            iid == __uuidof(IUnknown) || iid == __uuidof(IVdFrwkLocalEvents) ? static_cast<IVdFrwkLocalEvents*>(this)
            : iid == __uuidof(IVdFrwkSessionEvents) ? static_cast<void*>(static_cast<IVdFrwkSessionEvents*>(this))
            : iid == __uuidof(IVdFrwkProfile) || iid == __uuidof(IVdFrwkValues) ? static_cast<IVdFrwkProfile*>(this)
                                                                                : nullptr;
        return *object != nullptr ? S_OK : E_NOINTERFACE;
    }

    STDMETHODIMP_(ULONG) AddRef() override { return 2; }

    STDMETHODIMP_(ULONG) Release() override { return 1; }

    STDMETHODIMP OnCommandEvent(ULONG a, ULONG b, ULONG c, ULONG d, ULONG e, ULONG f, ULONG g, VdFrwkBlock h,
                                VdFrwkBlock i, LPSAFEARRAY j) override
    {
        return Note("command ", a, b, c, d, e, f, g, h, i, j);
    }

    STDMETHODIMP OnProfileEvent(ULONG a, VdFrwkBlock b, ULONG c, ULONG d, ULONG e, ULONG f, ULONG g, ULONG h,
                                VdFrwkBlock i, VdFrwkBlock j, LPSAFEARRAY k) override
    {
        return Note("profile ", a, b, c, d, e, f, g, h, i, j, k);
    }

    STDMETHODIMP OnStatusEvent(ULONG a, VdFrwkBlock b, ULONG c, ULONG d, ULONG e, ULONG f, ULONG g, ULONG h,
                               VdFrwkBlock i, VdFrwkBlock j, LPSAFEARRAY k) override
    {
        return Note("status ", a, b, c, d, e, f, g, h, i, j, k);
    }

    STDMETHODIMP OnPropertyEvent(ULONG a, VdFrwkBlock b, ULONG c, ULONG d, ULONG e, ULONG f, ULONG g, ULONG h,
                                 VdFrwkBlock i, VdFrwkBlock j, LPSAFEARRAY k) override
    {
        return Note("property ", a, b, c, d, e, f, g, h, i, j, k);
    }

    STDMETHODIMP OnSessionEvent(ULONG a, ULONG b, ULONG c, ULONG d, ULONG e, ULONG f, VdFrwkBlock g, VdFrwkBlock h,
                                LPSAFEARRAY i) override
    {
        return Note("session ", a, b, c, d, e, f, g, h, i);
    }

    STDMETHODIMP OnDetectionEvent(ULONG a, ULONG b, ULONG c, ULONG d, ULONG e, ULONG f, ULONG g, VdFrwkBlock h,
                                  VdFrwkBlock i, LPSAFEARRAY j) override
    {
        return Note("detection ", a, b, c, d, e, f, g, h, i, j);
    }

    STDMETHODIMP QueryValue(ULONG a, ULONG b, ULONG c, ULONG d, ULONG* word, LPSAFEARRAY* array) override
    {
        const HRESULT result = Note("query ", a, b, c, d, *word, *array);
        *word = 77;
        SafeArrayDestroy(*array);
        *array = Framework::MakeArray({1u, 2u}).release();
        return result;
    }

    STDMETHODIMP SetValue(ULONG a, ULONG b, ULONG c, ULONG d, ULONG* word, ULONG* result, LPSAFEARRAY array) override
    {
        const HRESULT answer = Note("set ", a, b, c, d, *word, *result, array);
        *word = 88;
        *result = 99;
        return answer;
    }

    std::vector<std::string> calls;

private:
    template <class... Arguments>
    HRESULT Note(std::string text, const Arguments&... arguments)
    {
        ((text += Text(arguments)), ...);
        calls.push_back(text);
        return Answer;
    }
};

// The proxies of the built library, for this process alone and without the registry.
class Proxies
{
public:
    Proxies() : m_library(LoadLibraryA(PROXY_LIBRARY))
    {
        const FARPROC found = GetProcAddress(m_library.get(), "DllGetClassObject");
        const auto get =
            reinterpret_cast<HRESULT(STDAPICALLTYPE*)(REFCLSID, REFIID, void**)>(reinterpret_cast<void*>(found));
        // Any of the interfaces' identifiers may serve as that of the class.
        constexpr IID Interfaces[] = {__uuidof(IVdFrwkValues),      __uuidof(IVdFrwkProfile),
                                      __uuidof(IVdFrwkProperty),    __uuidof(IVdFrwkLocalController),
                                      __uuidof(IVdFrwkLocalEvents), __uuidof(IVdFrwkSessionEvents),
                                      __uuidof(IVdFrwkRemoteEvents)};
        for (const IID& candidate : Interfaces)
        {
            if (FAILED(get(candidate, __uuidof(IPSFactoryBuffer), m_factory.PutVoid())))
            {
                continue;
            }
            EXPECT_EQ(CoRegisterClassObject(candidate, m_factory.Get(), CLSCTX_INPROC_SERVER, REGCLS_MULTIPLEUSE,
                                            &m_dwCookie),
                      S_OK);
            for (const IID& iid : Interfaces)
            {
                EXPECT_EQ(CoRegisterPSClsid(iid, candidate), S_OK);
            }
            return;
        }
        ADD_FAILURE() << "the library has no class";
    }

    ~Proxies()
    {
        CoRevokeClassObject(m_dwCookie);
        m_factory.Reset();
    }

private:
    UniqueModule m_library;
    ComPtr<IPSFactoryBuffer> m_factory;
    DWORD m_dwCookie = 0;
};

// Calls the double's interface from another apartment, while this one serves the call.
template <class Interface>
void CallFromAnotherApartment(Double& target, const std::function<void(Interface&)>& call)
{
    IStream* stream = nullptr;
    ASSERT_EQ(
        CoMarshalInterThreadInterfaceInStream(__uuidof(Interface), static_cast<IVdFrwkLocalEvents*>(&target), &stream),
        S_OK);
    const DWORD served = GetCurrentThreadId();
    std::thread caller(
        [&]
        {
            CoInitializeEx(nullptr, COINIT_MULTITHREADED);
            {
                const Proxies proxies;
                ComPtr<Interface> proxy;
                const HRESULT result = CoGetInterfaceAndReleaseStream(stream, __uuidof(Interface), proxy.PutVoid());
                EXPECT_EQ(result, S_OK);
                if (proxy)
                {
                    call(*proxy.Get());
                }
            }
            CoUninitialize();
            PostThreadMessageW(served, WM_NULL, 0, 0);
        });
    MSG message{};
    while (GetMessageW(&message, nullptr, 0, 0) > 0 && (message.hwnd != nullptr || message.message != WM_NULL))
    {
        DispatchMessageW(&message);
    }
    caller.join();
}

class MarshallingTest : public ::testing::Test
{
protected:
    MarshallingTest() { EXPECT_EQ(CoInitialize(nullptr), S_OK); }

    ~MarshallingTest() override
    {
        m_proxies.reset();
        CoUninitialize();
    }

    std::unique_ptr<Proxies> m_proxies;
    Double m_double;
};

constexpr VdFrwkBlock One{{11, 12, 13, 14}};
constexpr VdFrwkBlock Two{{21, 22, 23, 24}};
constexpr VdFrwkBlock Three{{31, 32, 33, 34}};

} // namespace

TEST_F(MarshallingTest, LocalEvents)
{
    m_proxies = std::make_unique<Proxies>();
    CallFromAnotherApartment<IVdFrwkLocalEvents>(
        m_double,
        [](IVdFrwkLocalEvents& sink)
        {
            EXPECT_EQ(sink.OnCommandEvent(1, 2, 3, 4, 5, 6, 7, One, Two, nullptr), Answer);
            EXPECT_EQ(sink.OnProfileEvent(1, One, 2, 3, 4, 5, 6, 7, Two, Three, Framework::MakeArray({1u}).get()),
                      Answer);
            EXPECT_EQ(sink.OnStatusEvent(1, One, 2, 3, 4, 5, 6, 7, Two, Three, nullptr), Answer);
            EXPECT_EQ(sink.OnPropertyEvent(1, One, 2, 3, 4, 5, 6, 7, Two, Three, nullptr), Answer);
        });
    const std::string blocks = "[11 12 13 14 ]2 3 4 5 6 7 [21 22 23 24 ][31 32 33 34 ]";
    EXPECT_EQ(m_double.calls,
              (std::vector<std::string>{"command 1 2 3 4 5 6 7 [11 12 13 14 ][21 22 23 24 ]no list",
                                        "profile 1 " + blocks + "list of 1", "status 1 " + blocks + "no list",
                                        "property 1 " + blocks + "no list"}));
}

TEST_F(MarshallingTest, SessionEvents)
{
    m_proxies = std::make_unique<Proxies>();
    CallFromAnotherApartment<IVdFrwkSessionEvents>(
        m_double,
        [](IVdFrwkSessionEvents& sink)
        {
            EXPECT_EQ(sink.OnSessionEvent(1, 2, 3, 4, 5, 6, One, Two, nullptr), Answer);
            EXPECT_EQ(sink.OnDetectionEvent(1, 2, 3, 4, 5, 6, 7, One, Two, Framework::MakeArray({1u, 2u}).get()),
                      Answer);
        });
    EXPECT_EQ(m_double.calls,
              (std::vector<std::string>{"session 1 2 3 4 5 6 [11 12 13 14 ][21 22 23 24 ]no list",
                                        "detection 1 2 3 4 5 6 7 [11 12 13 14 ][21 22 23 24 ]list of 2"}));
}

TEST_F(MarshallingTest, ValuesInAndOut)
{
    m_proxies = std::make_unique<Proxies>();
    CallFromAnotherApartment<IVdFrwkProfile>(m_double,
                                             [](IVdFrwkProfile& profile)
                                             {
                                                 ULONG word = 5;
                                                 ULONG result = 6;
                                                 SAFEARRAY* array = Framework::MakeArray({1u}).release();
                                                 EXPECT_EQ(profile.QueryValue(1, 2, 3, 4, &word, &array), Answer);
                                                 EXPECT_EQ(word, 77u);
                                                 const Framework::UniqueSafeArray owned(array);
                                                 EXPECT_EQ(Framework::ReadArray(array), (List{1u, 2u}));
                                                 EXPECT_EQ(profile.SetValue(1, 2, 3, 4, &word, &result, array), Answer);
                                                 EXPECT_EQ(word, 88u);
                                                 EXPECT_EQ(result, 99u);
                                             });
    EXPECT_EQ(m_double.calls, (std::vector<std::string>{"query 1 2 3 4 5 list of 1", "set 1 2 3 4 77 6 list of 2"}));
}
