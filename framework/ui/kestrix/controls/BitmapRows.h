#pragma once

#include <windows.h>

#include <algorithm>
#include <cstdint>
#include <iterator>
#include <limits>

// The form of a bitmap and the sizes of its rows and colour table, from the fields of its header.
namespace BitmapRows
{

// Bitmaps of more bits a pixel hold their colours in the pixels themselves.
constexpr unsigned DeepestWithTable = 8;

// The masks after the header of a bitmap that names the bits of its colours, in bytes.
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

// Whether the bits of the colours are named by masks.
constexpr bool HasMasks(const BITMAPINFOHEADER& header)
{
    return header.biCompression == BI_BITFIELDS && (header.biBitCount == 16 || header.biBitCount == 32);
}

// Whether the depth is one that bitmaps have, and the rows are not packed.
constexpr bool HasPlainRows(const BITMAPINFOHEADER& header)
{
    constexpr WORD depths[] = {1, 4, 8, 16, 24, 32};
    const bool knowsDepth = std::ranges::find(depths, header.biBitCount) != std::end(depths);
    return knowsDepth && header.biPlanes == 1 && (header.biCompression == BI_RGB || HasMasks(header));
}

// The bytes of colours and masks between header and rows. A header that is longer than the first form holds its masks.
constexpr std::uint64_t ColourBytes(const BITMAPINFOHEADER& header)
{
    const std::uint64_t colours = header.biClrUsed != 0 ? header.biClrUsed : TableEntries(header.biBitCount);
    const bool hasMasksBehind = header.biSize == sizeof header && HasMasks(header);
    return colours * sizeof(RGBQUAD) + (hasMasksBehind ? MaskBytes : 0);
}

// The bytes of all rows; 0 for a size that is none or too large for the system's calls.
constexpr DWORD AllBytes(const BITMAPINFOHEADER& header)
{
    constexpr std::uint64_t most = std::numeric_limits<LONG>::max();
    const std::int64_t upward = header.biHeight;
    const auto height = static_cast<std::uint64_t>(upward < 0 ? -upward : upward);
    if (header.biWidth <= 0 || height == 0 || height > most)
    {
        return 0;
    }
    const std::uint64_t row = PaddedBytes(static_cast<std::uint64_t>(header.biWidth), header.biBitCount);
    return row > most / height ? 0 : static_cast<DWORD>(row * height);
}

} // namespace BitmapRows
