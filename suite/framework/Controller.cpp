#include "suite/framework/Controller.h"

#include "suite/framework/ComEnumerator.h"
#include "suite/framework/ConnectionPoint.h"
#include "suite/framework/ValuesObject.h"

#include <olectl.h>

#include <algorithm>

namespace Framework
{

namespace
{

constexpr IID EventInterfaces[] = {__uuidof(IVdFrwkLocalEvents), __uuidof(IVdFrwkSessionEvents)};

struct Points
{
    using Interface = IEnumConnectionPoints;
    using Item = IConnectionPoint*;
    using Stored = Suite::ComPtr<IConnectionPoint>;

    static IConnectionPoint* Give(const Stored& point) { return Stored(point).Detach(); }
};

} // namespace

Controller::~Controller()
{
    m_service.Events().UnadviseAll(static_cast<IConnectionPointContainer*>(this));
}

HRESULT Controller::DoCommand(ULONG type, ULONG subType, ULONG, ULONG, ULONG* word, ULONG* result, LPSAFEARRAY array)
{
    return WithoutExceptions(
        [&]
        {
            if (word == nullptr || result == nullptr)
            {
                return E_POINTER;
            }
            const std::optional<List> list = ReadArray(array);
            return list ? m_service.DoCommand({type, subType}, *list) : E_INVALIDARG;
        });
}

HRESULT Controller::GetActiveProfile(IVdFrwkProfile** profile)
{
    return WithoutExceptions(
        [&]
        {
            if (profile == nullptr)
            {
                return E_POINTER;
            }
            *profile = nullptr;
            *profile = new ValuesObject<IVdFrwkProfile>(m_table, m_service.Profile());
            return Success;
        });
}

HRESULT Controller::GetProperty(IVdFrwkProperty** property)
{
    return WithoutExceptions(
        [&]
        {
            if (property == nullptr)
            {
                return E_POINTER;
            }
            *property = nullptr;
            *property = new ValuesObject<IVdFrwkProperty>(m_table, m_service.Property());
            return Success;
        });
}

HRESULT Controller::EnumConnectionPoints(IEnumConnectionPoints** points)
{
    return WithoutExceptions(
        [&]
        {
            if (points == nullptr)
            {
                return E_POINTER;
            }
            *points = nullptr;
            std::vector<Suite::ComPtr<IConnectionPoint>> all;
            for (const IID& iid : EventInterfaces)
            {
                all.push_back(MakePoint(iid));
            }
            *points = new ComEnumerator<Points>(m_table, std::move(all));
            return S_OK;
        });
}

HRESULT Controller::FindConnectionPoint(REFIID iid, IConnectionPoint** point)
{
    return WithoutExceptions(
        [&]
        {
            if (point == nullptr)
            {
                return E_POINTER;
            }
            *point = nullptr;
            if (std::ranges::find(EventInterfaces, iid) == std::end(EventInterfaces))
            {
                return CONNECT_E_NOCONNECTION;
            }
            *point = MakePoint(iid).Detach();
            return S_OK;
        });
}

Suite::ComPtr<IConnectionPoint> Controller::MakePoint(const IID& iid)
{
    return Suite::ComPtr<IConnectionPoint>::Attach(
        new ConnectionPoint(m_service, Suite::ComPtr<IConnectionPointContainer>(this), iid));
}

} // namespace Framework
