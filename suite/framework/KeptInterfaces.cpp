#include "suite/framework/KeptInterfaces.h"

#include "common/VdFrwk.h"
#include "suite/common/ComPtr.h"

#include <windows.h>

#include <objbase.h>
#include <ocidl.h>

#include <algorithm>

namespace Framework
{

namespace
{

const IID* const Interfaces[] = {
    &__uuidof(IClassFactory),         &__uuidof(IVdFrwkLocalController), &__uuidof(IVdFrwkProfile),
    &__uuidof(IVdFrwkProperty),       &__uuidof(IConnectionPoint),       &__uuidof(IConnectionPointContainer),
    &__uuidof(IEnumConnectionPoints), &__uuidof(IEnumConnections),
};

// Has the interfaces in name alone: no client ever gets it.
class Placeholder : public IUnknown
{
public:
    STDMETHODIMP QueryInterface(REFIID iid, void** object) override
    {
        const bool isOne = std::ranges::any_of(Interfaces, [&](const IID* each) { return *each == iid; });
        *object = isOne || iid == __uuidof(IUnknown) ? this : nullptr;
        return *object == nullptr ? E_NOINTERFACE : S_OK;
    }

    STDMETHODIMP_(ULONG) AddRef() override { return 1; }

    STDMETHODIMP_(ULONG) Release() override { return 1; }
};

Placeholder g_placeholder;

} // namespace

KeptInterfaces::KeptInterfaces()
{
    Suite::ComPtr<IStream> stream;
    if (FAILED(CreateStreamOnHGlobal(nullptr, TRUE, stream.Put())))
    {
        return;
    }
    for (const IID* const each : Interfaces)
    {
        CoMarshalInterface(stream.Get(), *each, &g_placeholder, MSHCTX_LOCAL, nullptr, MSHLFLAGS_TABLESTRONG);
    }
}

KeptInterfaces::~KeptInterfaces()
{
    CoDisconnectObject(&g_placeholder, 0);
}

} // namespace Framework
