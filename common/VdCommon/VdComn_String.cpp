#include "common/VdCommon/VdComn_String.h"

#include <windows.h>

#include <algorithm>
#include <cwchar>
#include <memory>
#include <new>

namespace VdCommon::String
{

namespace
{

constexpr std::size_t DefaultBufferSize = 256;

// Zeroed, so that the text is terminated however much of the room is written.
std::unique_ptr<wchar_t[]> AllocateBuffer(std::size_t size)
{
    try
    {
        return std::make_unique<wchar_t[]>(size);
    }
    catch (const std::bad_alloc&)
    {
        throw new Exception(ERROR_INVALID_HANDLE);
    }
}

} // namespace

BufferSizes& ProcessBufferSizes() noexcept
{
    static BufferSizes sizes{DefaultBufferSize, DefaultBufferSize};
    if (sizes.initial == 0)
    {
        sizes.initial = DefaultBufferSize;
    }
    if (sizes.step == 0)
    {
        sizes.step = DefaultBufferSize;
    }
    return sizes;
}

bool Format(std::wstring& out, const wchar_t* format, ...)
{
    std::size_t size = 0;
    for (;;)
    {
        std::va_list arguments;
        va_start(arguments, format);
        const bool written = FormatV(out, size, format, arguments);
        va_end(arguments);
        if (written)
        {
            return true;
        }
    }
}

bool FormatV(std::wstring& out, std::size_t& size, const wchar_t* format, std::va_list arguments)
{
    if (size == 0)
    {
        size = ProcessBufferSizes().initial;
    }
    const auto buffer = AllocateBuffer(size);
    // One character less than the room: the function counts no terminator and calls a text without one a success.
    const int length = ::_vsnwprintf(buffer.get(), size - 1, format, arguments);
    if (length < 0)
    {
        size += ProcessBufferSizes().step;
        return false;
    }
    out.assign(buffer.get(), static_cast<std::size_t>(length));
    return true;
}

std::uint32_t CopyTString(wchar_t* destination, std::size_t size, const wchar_t* source) noexcept
{
    if (destination == nullptr || size == 0 || source == nullptr)
    {
        return ERROR_BAD_ARGUMENTS;
    }
    const std::size_t length = std::wcslen(source);
    const std::size_t copied = std::min(length, size - 1);
    std::wmemcpy(destination, source, copied);
    destination[copied] = L'\0';
    return copied == length ? ERROR_SUCCESS : ERROR_INSUFFICIENT_BUFFER;
}

} // namespace VdCommon::String
