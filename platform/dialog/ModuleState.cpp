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

namespace
{

// A block holds for each of its texts a word with its length and then its characters, without a terminator. A block
// that the module does not have returns empty texts.
std::unique_ptr<FrameworkState::TextBlock> ReadTextBlock(std::size_t index)
{
    auto block = std::make_unique<FrameworkState::TextBlock>();
    const std::span<const std::byte> bytes = GetResourceBytes(static_cast<UINT>(index) + 1, RT_STRING);
    const auto* next = reinterpret_cast<const wchar_t*>(bytes.data());
    const wchar_t* const end = next + bytes.size() / sizeof(wchar_t);
    for (std::wstring& text : *block)
    {
        if (next == end || *next > end - next - 1)
        {
            break;
        }
        text.assign(next + 1, *next);
        next += 1 + *next;
    }
    return block;
}

} // namespace

const std::wstring& LoadText(UINT id)
{
    FrameworkState& state = GetFrameworkState();
    const std::size_t index = id / FrameworkState::TextsPerBlock;
    if (index >= state.textBlocks.size())
    {
        return state.strNoText;
    }
    auto& block = state.textBlocks[index];
    if (block == nullptr)
    {
        block = ReadTextBlock(index);
    }
    return (*block)[id % FrameworkState::TextsPerBlock];
}
