#pragma once

#include <objbase.h>

// Joins a sink to the connection point of a source for one event interface. *cookie names the connection for
// AtlUnadvise; the source holds a reference on the sink as long as it lasts. E_INVALIDARG for no source, E_POINTER for
// a source that answers with success and returns no object, else what the source answers.
HRESULT AtlAdvise(IUnknown* source, IUnknown* sink, REFIID eventInterface, DWORD* cookie) noexcept;

// Ends the connection that the cookie names. Results as above; CONNECT_E_NOCONNECTION from a source that knows no such
// connection.
HRESULT AtlUnadvise(IUnknown* source, REFIID eventInterface, DWORD cookie) noexcept;
