#pragma once

#include "common/VdCommon/VdComn_Exception.h"

#include <cstdarg>
#include <cstddef>
#include <cstdint>
#include <string>

namespace VdCommon::String
{

// Thrown when a text buffer cannot be had: code 6.
class Exception : public VdCommon::Exception::Coded
{
public:
    using Coded::Coded;
};

// Sizes of a growing text buffer, in characters with the terminator: the first try, and what each retry adds.
struct BufferSizes
{
    std::size_t initial;
    std::size_t step;
};

// The sizes that the whole process uses, to read and to set. A size that is unset (0) is filled in with 256 here.
BufferSizes& ProcessBufferSizes() noexcept;

// Writes the text into `out` in the manner of wprintf, where %s is a wide text. An argument may lie in `out`.
// Returns true; throws Exception* when the memory for the text is missing.
bool Format(std::wstring& out, const wchar_t* format, ...);

// One pass of Format, for a caller who keeps an argument list and loops. `size` is the room in characters with the
// terminator; 0 stands for the initial size. Returns true when the text fitted; false with a larger `size` and an
// untouched `out` for a retry, which needs a fresh copy of the list. Throws Exception* when memory is missing.
bool FormatV(std::wstring& out, std::size_t& size, const wchar_t* format, std::va_list arguments);

// Copies `source` with its terminator into `destination`, room for `size` characters. Returns 0; 122 when the text was
// cut to fit (what fits is there, terminated); 160 for a null pointer or no room, with nothing written.
std::uint32_t CopyTString(wchar_t* destination, std::size_t size, const wchar_t* source) noexcept;

} // namespace VdCommon::String
