// Bitmap files, and what is drawn and saved of them.

#include "framework/ui/kestrix/controls/DIBitmap.h"
#include "suite/common/KernelHandle.h"
#include "tests/fuzz/Harness.h"
#include "tests/support/TemporaryFolder.h"
#include "tests/ui/framework/ui/kestrix/controls/BitmapFile.h"

#include <algorithm>
#include <cstring>

using namespace Fuzz;

namespace
{

constexpr int CanvasSize = 32; // pixels

// A file with room for more colours before its rows.
std::string FileOf(WORD bits, LONG width, LONG height, std::size_t colours, DWORD compression = BI_RGB)
{
    BitmapFile file(width, height, bits);
    file.header.biCompression = compression;
    file.table.resize(file.table.size() + colours);
    file.fileHeader.bfOffBits += static_cast<DWORD>(colours * sizeof(RGBQUAD));
    return file.Bytes();
}

BITMAPINFOHEADER InfoOf(std::string_view file)
{
    BITMAPINFOHEADER info{};
    std::memcpy(&info, file.data() + sizeof(BITMAPFILEHEADER), sizeof info);
    return info;
}

// The rows of a file from the lowest to the highest, as its headers say. Throws std::out_of_range for a short file.
std::vector<std::string_view> RowsOf(std::string_view bytes)
{
    BITMAPFILEHEADER file{};
    std::memcpy(&file, bytes.data(), sizeof file);
    const BITMAPINFOHEADER info = InfoOf(bytes);
    const std::size_t row = (static_cast<std::size_t>(info.biWidth) * info.biBitCount + 31) / 32 * 4;
    std::vector<std::string_view> rows;
    for (LONG i = 0; i < std::abs(info.biHeight); ++i)
    {
        rows.push_back(bytes.substr(file.bfOffBits + static_cast<std::size_t>(i) * row, row));
    }
    if (info.biHeight < 0)
    {
        std::ranges::reverse(rows);
    }
    return rows;
}

class BitmapReader : public Reader
{
    std::vector<std::wstring> Samples() const override
    {
        // Three colours of a bitmap that has masks are these.
        std::vector<std::string> files{FileOf(16, 4, 4, 3, BI_BITFIELDS), FileOf(32, 4, 4, 3, BI_BITFIELDS)};
        for (const WORD bits : {1, 4, 8, 16, 24, 32})
        {
            files.insert(files.end(), {FileOf(bits, 7, 5, 0), FileOf(bits, 3, -4, 0), FileOf(bits, 3, 2, 256)});
        }
        return UnitsOf(files);
    }

    std::size_t Read(std::string_view input) override
    {
        Write(input);
        CDIBitmap bitmap;
        const bool loads = bitmap.Load(m_file.get());
        ExpectSame(bitmap.IsLoaded(), loads, "whether there is a picture");
        Draw(bitmap);
        Rewind(m_saved.get());
        ExpectSame(bitmap.Save(m_saved.get()), loads, "whether the picture can be saved");
        if (!loads)
        {
            return 0;
        }
        Rewind(m_saved.get());
        CDIBitmap again;
        Expect(again.Load(m_saved.get()), "the saved picture cannot be loaded");
        ExpectSame(again.GetWidth(), bitmap.GetWidth(), "the width of the saved picture");
        const std::string saved = ReadBytes(m_folder.File(L"saved.bmp"));
        Expect(RowsOf(saved) == RowsOf(input), "the saved rows are others");
        const BITMAPINFOHEADER info = InfoOf(saved);
        Expect(info.biClrUsed <= (info.biBitCount <= 8 ? 1U << info.biBitCount : 0), "more colours than there can be");
        return static_cast<std::size_t>(bitmap.GetBitCount()) * 4 + (bitmap.GetWidth() > 7) * 2 +
               (bitmap.GetHeight() > 5);
    }

    Suite::KernelHandle Open(const wchar_t* name) const
    {
        return Suite::OpenShared(m_folder.File(name).c_str(), GENERIC_READ | GENERIC_WRITE, CREATE_ALWAYS);
    }

    static void Rewind(HANDLE file) { SetFilePointer(file, 0, nullptr, FILE_BEGIN); }

    void Write(std::string_view bytes) const
    {
        DWORD written = 0;
        Rewind(m_file.get());
        Expect(WriteFile(m_file.get(), bytes.data(), static_cast<DWORD>(bytes.size()), &written, nullptr) &&
                   SetEndOfFile(m_file.get()),
               "the file cannot be written");
        Rewind(m_file.get());
    }

    void Draw(const CDIBitmap& bitmap) const
    {
        CMemoryDC dc;
        const HGDIOBJ before = SelectObject(dc, m_canvas.get());
        bitmap.DrawDIB(dc, {2, 3, CanvasSize, CanvasSize}, {1, 1});
        bitmap.DrawDIB(dc, 1, 1);
        bitmap.DrawDIB(dc, 0, 0, CanvasSize, CanvasSize);
        SelectObject(dc, before);
    }

    const TemporaryFolder m_folder;
    const Suite::KernelHandle m_file = Open(L"read.bmp");
    const Suite::KernelHandle m_saved = Open(L"saved.bmp");
    const UniqueBitmap m_canvas{CreateCompatibleBitmap(CMemoryDC(), CanvasSize, CanvasSize)};
};

const Registration<BitmapReader>
    Bitmap({.name = "bitmap", .reads = "bitmap files of every depth", .form = Form::Bytes, .inputs = 4'000});

} // namespace
