#include "platform/dialog/ModuleState.h"

#include "platform/dialog/FrameworkState.h"

FrameworkState& GetFrameworkState() noexcept
{
    static FrameworkState state;
    return state;
}

HINSTANCE AfxGetInstanceHandle() noexcept
{
    return GetModuleHandleW(nullptr);
}

HMODULE AfxGetResourceHandle() noexcept
{
    const HMODULE module = GetFrameworkState().hResource;
    return module != nullptr ? module : AfxGetInstanceHandle();
}

void AfxSetResourceHandle(HMODULE module) noexcept
{
    FrameworkState& state = GetFrameworkState();
    state.hResource = module;
    for (auto& block : state.textBlocks)
    {
        block.reset();
    }
}

std::span<const std::byte> GetResourceBytes(UINT id, const wchar_t* type) noexcept
{
    const HMODULE module = AfxGetResourceHandle();
    const HRSRC resource = FindResourceW(module, MAKEINTRESOURCEW(id), type);
    const HGLOBAL loaded = resource != nullptr ? LoadResource(module, resource) : nullptr;
    const auto* const bytes = static_cast<const std::byte*>(LockResource(loaded));
    return bytes != nullptr ? std::span(bytes, SizeofResource(module, resource)) : std::span<const std::byte>();
}
