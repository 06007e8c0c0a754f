#include "platform/dialog/ResourceText.h"

#include "platform/dialog/FrameworkState.h"
#include "platform/dialog/ModuleState.h"

#include <cerrno>
#include <cwchar>

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

std::int32_t LoadNumber(UINT textId, std::int32_t fallback)
{
    errno = 0;
    const long value = std::wcstol(LoadText(textId).c_str(), nullptr, 10);
    return errno == ERANGE || value < 1 ? fallback : static_cast<std::int32_t>(value);
}
