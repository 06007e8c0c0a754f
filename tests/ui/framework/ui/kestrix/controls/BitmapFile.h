#pragma once

#include <windows.h>

#include <cstdint>
#include <string>
#include <vector>

// A bitmap file for tests, whose fields may be spoilt before its bytes are asked for.
struct BitmapFile
{
    BITMAPFILEHEADER fileHeader{};
    BITMAPINFOHEADER header{};
    std::vector<RGBQUAD> table;
    std::string rows; // as they stand in the file, padding included

    // A sound file of this size and depth: a full table of greys at 8 bits and fewer, and rows that count their bytes.
    BitmapFile(LONG width, LONG height, WORD bitCount);

    std::string Bytes() const;

    // Without the header of the file, as a resource holds it.
    std::string ResourceBytes() const { return Bytes().substr(sizeof fileHeader); }
};

inline BitmapFile::BitmapFile(LONG width, LONG height, WORD bitCount)
{
    const auto stride = (static_cast<std::size_t>(width) * bitCount + 31) / 32 * 4;
    for (std::size_t i = 0; i < stride * static_cast<std::size_t>(height < 0 ? -height : height); ++i)
    {
        rows.push_back(static_cast<char>(i * 7 + 3));
    }
    if (bitCount <= 8)
    {
        const int count = 1 << bitCount;
        for (int i = 0; i < count; ++i)
        {
            const auto grey = static_cast<BYTE>(i * 255 / (count - 1));
            table.push_back({grey, grey, grey, 0});
        }
    }
    header = {sizeof header, width, height, 1, bitCount, BI_RGB, static_cast<DWORD>(rows.size()), 0, 0, 0, 0};
    fileHeader.bfType = 0x4D42;
    fileHeader.bfOffBits = static_cast<DWORD>(sizeof fileHeader + sizeof header + table.size() * sizeof(RGBQUAD));
    fileHeader.bfSize = fileHeader.bfOffBits + static_cast<DWORD>(rows.size());
}

inline std::string BitmapFile::Bytes() const
{
    const auto bytes = [](const auto& value)
    { return std::string(reinterpret_cast<const char*>(&value), sizeof value); };
    std::string all = bytes(fileHeader) + bytes(header);
    for (const RGBQUAD& colour : table)
    {
        all += bytes(colour);
    }
    return all + rows;
}
