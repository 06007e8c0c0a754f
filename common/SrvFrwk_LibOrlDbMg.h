#pragma once

#include "common/OrlDbMg.h"
#include "common/VdCommon/VdComn_Library.h"

namespace SrvFrwk::Library
{

// The suite's event-log database library and its four exports, which may be called while it is bound.
class LibOrlDbMg : public VdCommon::Library::Wrapper
{
public:
    // Loads the library of this folder (empty: wherever the platform finds it) and binds it. A failure is traced with
    // its code, one of those of InitializeLibrary; a library that lacks an export stays loaded.
    bool Initialize(const std::wstring& folder);

    // Unloads it. A failure is traced with its code, one of those of UnInitializeLibrary.
    bool Uninitialize();

    bool Bind(bool load, std::uint32_t* error) override;

    // Null while the library is not bound.
    OrlInitializeFunction Orl_Initialize = nullptr;
    OrlUninitializeFunction Orl_Uninitialize = nullptr;
    OrlCreateFunction Orl_CreateFunction = nullptr;
    OrlFreeFunction Orl_FreeFunction = nullptr;
};

} // namespace SrvFrwk::Library
