#pragma once

#include "common/SrvFrwk_LibOrlDbMg.h"

// The event-log database library of the suite, and its provider. What was started is stopped in the reverse order, also
// when a later step fails.
class CDatabaseLibrary
{
public:
    // Loads the library from the installed folder and starts its provider, which belongs to the library. On a failure
    // nothing is left running and the provider stays as it was; a second call does nothing and succeeds.
    HRESULT Start(IDBManagerProvider*& provider);

    // The reverse; it stops at the first failure. The provider is null once it has ended. Success when it is null
    // already.
    HRESULT Stop(IDBManagerProvider*& provider);

private:
    // Each takes one step, calls the next one and undoes its own when that fails.
    HRESULT Load(IDBManagerProvider*& provider);
    HRESULT InitializeLibrary(IDBManagerProvider*& provider);
    HRESULT MakeProvider(IDBManagerProvider*& provider);
    HRESULT StartProvider(IDBManagerProvider& provider);

    HRESULT EndProvider(IDBManagerProvider*& provider);
    HRESULT Unload();

    SrvFrwk::Library::LibOrlDbMg cOrlDbMgLib;
};
