#pragma once

#include "common/VdFrwk.h"
#include "suite/framework/ComObject.h"
#include "suite/framework/Service.h"

#include <ocidl.h>

namespace Framework
{

// The local controller, one for each activation: a client's way to the service that all of them share. The methods that
// keep a place in the interface answer E_NOTIMPL.
class Controller : public ComObject<IVdFrwkLocalController, IConnectionPointContainer>
{
public:
    // The service must outlive it.
    explicit Controller(Service& service) : ComObject(service.Objects()), m_service(service) {}

    STDMETHODIMP DoCommand(ULONG type, ULONG subType, ULONG, ULONG, ULONG* word, ULONG* result,
                           LPSAFEARRAY array) override;
    STDMETHODIMP GetActiveProfile(IVdFrwkProfile** profile) override;
    STDMETHODIMP GetProperty(IVdFrwkProperty** property) override;

    STDMETHODIMP Reserved5() override { return E_NOTIMPL; }

    STDMETHODIMP Reserved6() override { return E_NOTIMPL; }

    STDMETHODIMP Reserved7() override { return E_NOTIMPL; }

    STDMETHODIMP Reserved8() override { return E_NOTIMPL; }

    STDMETHODIMP Reserved9() override { return E_NOTIMPL; }

    STDMETHODIMP Reserved10() override { return E_NOTIMPL; }

    STDMETHODIMP Reserved12() override { return E_NOTIMPL; }

    STDMETHODIMP Reserved13() override { return E_NOTIMPL; }

    STDMETHODIMP EnumConnectionPoints(IEnumConnectionPoints** points) override;
    STDMETHODIMP FindConnectionPoint(REFIID iid, IConnectionPoint** point) override;

private:
    ~Controller() override;

    Suite::ComPtr<IConnectionPoint> MakePoint(const IID& iid);

    Service& m_service;
};

} // namespace Framework
