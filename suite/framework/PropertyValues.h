#pragma once

#include "suite/framework/CategoryFile.h"
#include "suite/framework/ValueSource.h"

namespace Framework
{

// Whether the machine has a connection to a network, as the system knows it.
bool IsConnected();

// What the framework knows and no client can set:
//   3, 2     the category groups of the URL filter: one element, a list of records of key and name (CategoryFile.h)
//   39, 4    the connection: one element
class PropertyValues : public ValueSource
{
public:
    // The file of the category groups lies in the folder.
    explicit PropertyValues(const std::filesystem::path& folder, bool (*isConnected)() = IsConnected)
        : m_categories(folder), m_pIsConnected(isConnected)
    {
    }

    HRESULT Query(const ValueKey& key, List& list) const override;
    HRESULT Set(const ValueKey& key, const List& list) override;

private:
    const CategoryFile m_categories;
    bool (*m_pIsConnected)();
};

} // namespace Framework
