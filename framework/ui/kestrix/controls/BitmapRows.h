#pragma once

#include <windows.h>

#include <cstdint>

// The sizes of a bitmap's rows and colour table, from the fields of its header.
namespace BitmapRows
{

// Bitmaps of more bits a pixel hold their colours in the pixels themselves.
constexpr unsigned DeepestWithTable = 8;

// The masks behind the header of a bitmap that names the bits of its colours, in bytes.
constexpr DWORD MaskBytes = 3 * sizeof(DWORD);

// The bytes of a row without padding, and with padding to a multiple of four. No width of 31 bits overflows.
constexpr std::uint64_t PackedBytes(std::uint64_t width, unsigned bitCount)
{
    return (width * bitCount + 7) / 8;
}

constexpr std::uint64_t PaddedBytes(std::uint64_t width, unsigned bitCount)
{
    return (width * bitCount + 31) / 32 * 4;
}

// The entries of a full colour table: 2, 16, 256, or none.
constexpr DWORD TableEntries(unsigned bitCount)
{
    return bitCount <= DeepestWithTable ? 1u << bitCount : 0;
}

} // namespace BitmapRows
