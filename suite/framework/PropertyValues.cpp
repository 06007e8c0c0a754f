#include "suite/framework/PropertyValues.h"

#include "suite/samples/UrlCategories.h"

#include <wininet.h>

namespace Framework
{

namespace
{

constexpr ValueKey CategoryGroups{3, 2};
constexpr ValueKey Connection{39, 4};

List Categories()
{
    List groups;
    for (const Samples::UrlCategory& category : Samples::UrlCategories)
    {
        groups.push_back(List{std::wstring(category.key), std::wstring(category.name)});
    }
    return groups;
}

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
        list.assign(1, Categories());
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
