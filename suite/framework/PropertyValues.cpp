#include "suite/framework/PropertyValues.h"

#include <wininet.h>

namespace Framework
{

namespace
{

constexpr ValueKey CategoryGroups{3, 2};
constexpr ValueKey Connection{39, 4};

} // namespace

bool IsConnected()
{
    DWORD how = 0;
    return InternetGetConnectedState(&how, 0) != FALSE;
}

HRESULT PropertyValues::Query(const ValueKey& key, List& list) const
{
    if (key == CategoryGroups)
    {
        list.assign(1, m_categories.Groups());
        return Success;
    }
    if (key == Connection)
    {
        list.assign(1, m_pIsConnected());
        return Success;
    }
    return Unknown;
}

HRESULT PropertyValues::Set(const ValueKey& key, const List&)
{
    return key == CategoryGroups || key == Connection ? E_ACCESSDENIED : Unknown;
}

} // namespace Framework
