#include "suite/framework/Server.h"

#include "common/VdFrwk.h"
#include "suite/common/Folders.h"
#include "suite/framework/Apartment.h"
#include "suite/framework/CallerAccess.h"
#include "suite/framework/ClassFactory.h"
#include "suite/framework/ComObject.h"
#include "suite/framework/DatabaseLogs.h"
#include "suite/framework/Instance.h"
#include "suite/framework/KeptInterfaces.h"
#include "suite/framework/LocalCalendar.h"
#include "suite/framework/ProgramPath.h"
#include "suite/framework/Service.h"
#include "suite/framework/Trace.h"

#include <algorithm>
#include <system_error>

namespace Framework
{

namespace
{

using std::chrono::milliseconds;
using SteadyClock = std::chrono::steady_clock;

constexpr milliseconds FirstClient{30'000};    // how long the client that started the service may take to come
constexpr milliseconds BetweenLooks{60'000};   // at the date
constexpr milliseconds PendingActivation{300}; // between getting the class object and using it
constexpr milliseconds LeftCall{300};          // of a client that has ended, until a look at what it has made
constexpr milliseconds Refusal{3000};          // of clients, which look for the class once a second

void Require(HRESULT result, const char* what)
{
    if (FAILED(result))
    {
        throw std::system_error(result, std::system_category(), what);
    }
}

// To be called once, before the first use of COM.
void SecureCom()
{
    CallerAccess access;
    Require(CoInitializeSecurity(access.Descriptor(), -1, nullptr, nullptr, RPC_C_AUTHN_LEVEL_PKT_PRIVACY,
                                 RPC_C_IMP_LEVEL_IDENTIFY, nullptr, EOAC_NONE, nullptr),
            "COM cannot be closed to strangers");
}

// Refuses whoever comes.
class RefusingFactory : public ComObject<IClassFactory>
{
public:
    explicit RefusingFactory(ObjectTable& table) : ComObject(table) {}

    STDMETHODIMP CreateInstance(IUnknown*, REFIID, void** object) override
    {
        if (object == nullptr)
        {
            return E_POINTER;
        }
        *object = nullptr;
        return CO_E_SERVER_EXEC_FAILURE;
    }

    STDMETHODIMP LockServer(BOOL) override { return CO_E_SERVER_EXEC_FAILURE; }
};

// The class, as clients find it while the object lives. The lock keeps the factory for the next client when the last
// one lets go of it: see docs/decisions/0089-calls-that-wine-loses.md.
class ClassRegistration
{
public:
    explicit ClassRegistration(IUnknown& factory) : m_factory(factory)
    {
        Require(CoRegisterClassObject(__uuidof(VdFrwkLocalController), &factory, CLSCTX_LOCAL_SERVER,
                                      REGCLS_MULTIPLEUSE, &m_dwCookie),
                "the class cannot be offered to clients");
        CoLockObjectExternal(&m_factory, TRUE, FALSE);
    }

    ~ClassRegistration()
    {
        CoRevokeClassObject(m_dwCookie);
        CoLockObjectExternal(&m_factory, FALSE, TRUE);
    }

    ClassRegistration(const ClassRegistration&) = delete;
    ClassRegistration& operator=(const ClassRegistration&) = delete;

private:
    IUnknown& m_factory;
    DWORD m_dwCookie = 0;
};

// How much of a time is left since a moment; 0 when it is over.
milliseconds Left(SteadyClock::time_point since, milliseconds time)
{
    const auto left = std::chrono::ceil<milliseconds>(since + time - SteadyClock::now());
    return std::max(left, milliseconds(0));
}

DWORD Timeout(milliseconds time)
{
    return static_cast<DWORD>(time.count());
}

// Until nobody uses the service. The count of uses for CoReleaseServerProcess is one more in here than that of the
// clients, so that their last one going does not yet shut the door that the idle time leaves open.
void ServeClients(Service& service, const Instance& instance, milliseconds idle)
{
    ObjectTable& objects = service.Objects();
    CoAddRefServerProcess();
    bool hadEnded = false; // a client, who may have left a call
    while (true)
    {
        service.PurgeIfDue();
        milliseconds wait = hadEnded ? LeftCall : BetweenLooks;
        if (const auto since = objects.UnusedSince())
        {
            const milliseconds left = Left(*since, objects.WasUsed() ? idle : std::max(idle, FirstClient));
            // Shuts the door in the same step when it counts down to 0: a client either came in before or starts a
            // process of its own.
            if (left == milliseconds(0) && CoReleaseServerProcess() == 0)
            {
                return;
            }
            if (left == milliseconds(0))
            {
                CoAddRefServerProcess();
            }
            wait = std::min(wait, left);
        }
        const HANDLE handles[] = {instance.ExitRequested(), objects.Changed()};
        if (WaitForMultipleObjects(2, handles, FALSE, Timeout(wait)) == WAIT_OBJECT_0)
        {
            service.RaiseExit();
        }
        hadEnded = objects.DisconnectEndedClients();
    }
}

// Not every system shuts the door: who has the class object by now may still activate, and is served until he goes.
void ServeLateClients(ObjectTable& objects)
{
    const SteadyClock::time_point start = SteadyClock::now();
    while (!objects.UnusedSince() || Left(start, PendingActivation) > milliseconds(0))
    {
        WaitForSingleObject(objects.Changed(), Timeout(PendingActivation));
        objects.DisconnectEndedClients();
    }
}

// Not every system tells a client that the server it waits for has ended: it would wait for half a minute.
void RefuseClients()
{
    ObjectTable objects;
    const auto factory = Suite::ComPtr<RefusingFactory>::Attach(new RefusingFactory(objects));
    const ClassRegistration registration(*factory.Get());
    Sleep(Timeout(Refusal));
}

// False when another process is the service.
bool BecomeTheService(Instance& instance)
{
    try
    {
        return instance.Acquire();
    }
    catch (const InstanceBlocked& blocked)
    {
        Trace(blocked.what());
        RefuseClients();
        throw;
    }
}

} // namespace

void Serve(const Options& options)
{
    const Apartment apartment;
    Require(apartment.Result(), "COM cannot be used");
    SecureCom();
    Instance instance;
    if (!BecomeTheService(instance))
    {
        return;
    }
    const KeptInterfaces interfaces;
    const std::filesystem::path folder = Suite::DataFolder().value_or(ProgramPath().parent_path());
    ObjectTable objects;
    ValueStore store(folder);
    DatabaseLogs logs(folder);
    const LocalCalendar calendar;
    const Journal journal(folder);
    Service service(objects, store, logs, calendar, journal);
    const auto factory = Suite::ComPtr<ClassFactory>::Attach(new ClassFactory(service));
    {
        const ClassRegistration registration(*factory.Get());
        instance.SetRunning(true);
        ServeClients(service, instance, options.idle);
        instance.SetRunning(false);
    }
    ServeLateClients(objects);
}

} // namespace Framework
