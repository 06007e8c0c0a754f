#include "tests/unit/resource/BuiltBitmap.h"

#include "tests/unit/resource/BuiltFile.h"

#include <cstring>

Bitmap ReadBitmap(unsigned number)
{
    const auto bytes = ResourceBytes(BuiltLanguageFile(), number, MAKEINTRESOURCEW(2));
    BITMAPINFOHEADER header{};
    std::memcpy(&header, bytes.data(), sizeof header);
    const std::size_t table = header.biBitCount == 4 ? 16 * sizeof(RGBQUAD) : 0;
    const std::size_t stride = (static_cast<std::size_t>(header.biWidth) * header.biBitCount + 31) / 32 * 4;
    const auto colours = bytes.subspan(sizeof header);
    const auto rows = colours.subspan(table);

    Bitmap bitmap{header.biWidth, header.biHeight, header.biBitCount, {}};
    for (int y = bitmap.height - 1; y >= 0; --y)
    {
        const auto row = rows.subspan(y * stride, stride);
        for (int x = 0; x < bitmap.width; ++x)
        {
            const std::size_t index = row[x / 2] >> (x % 2 == 0 ? 4 : 0) & 15;
            const auto colour = table == 0 ? row.subspan(x * 3, 3) : colours.subspan(index * 4, 4);
            bitmap.pixels.push_back(RGB(colour[2], colour[1], colour[0]));
        }
    }
    return bitmap;
}
