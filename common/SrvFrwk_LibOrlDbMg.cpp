#include "common/SrvFrwk_LibOrlDbMg.h"

#include "common/VdCommon/VdComn_DebugLog.h"
#include "common/VdCommon/VdComn_FolderName.h"

namespace SrvFrwk::Library
{

namespace
{

constexpr wchar_t FileName[] = L"OrlDbMg.dll";

} // namespace

bool LibOrlDbMg::Initialize(const std::wstring& folder)
{
    std::uint32_t error = ERROR_SUCCESS;
    if (!InitializeLibrary(VdCommon::WithSeparator(folder) + FileName, &error))
    {
        VD_TRACE(Error, L"*** LibOrlDbMg::Initialize() - InitializeLibrary() failed. [0x%08x]", error);
        return false;
    }
    return true;
}

bool LibOrlDbMg::Uninitialize()
{
    std::uint32_t error = ERROR_SUCCESS;
    if (!UnInitializeLibrary(&error))
    {
        VD_TRACE(Error, L"*** LibOrlDbMg::Uninitialize() - UnInitializeLibrary() failed. [0x%08x]", error);
        return false;
    }
    return true;
}

bool LibOrlDbMg::Bind(bool load, std::uint32_t* error)
{
    using VdCommon::Export;
    return BindLibrary(
        load, error, Export{L"Orl_Initialize", &Orl_Initialize}, Export{L"Orl_Uninitialize", &Orl_Uninitialize},
        Export{L"Orl_CreateFunction", &Orl_CreateFunction}, Export{L"Orl_FreeFunction", &Orl_FreeFunction});
}

} // namespace SrvFrwk::Library
