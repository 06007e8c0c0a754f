#pragma once

#include "suite/framework/ValueSource.h"

namespace Framework
{

// Whether the machine has a connection to a network, as the system knows it.
bool IsConnected();

// What the framework knows and nobody can set:
//   3, 2     the category groups of the URL filter: one element, a list of records of key and name
//   39, 4    the connection: one element
class PropertyValues : public ValueSource
{
public:
    explicit PropertyValues(bool (*isConnected)() = IsConnected) : m_pIsConnected(isConnected) {}

    HRESULT Query(const ValueKey& key, List& list) const override;
    HRESULT Set(const ValueKey& key, const List& list) override;

private:
    bool (*m_pIsConnected)();
};

} // namespace Framework
