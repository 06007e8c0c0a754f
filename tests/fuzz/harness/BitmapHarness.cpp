// Bitmap files, and what is drawn and saved of them.

#include "framework/ui/kestrix/controls/DIBitmap.h"
#include "tests/fuzz/harness/Harnesses.h"
#include "tests/support/TemporaryFolder.h"

#include <cstring>

namespace Fuzz
{

namespace
{

constexpr int CanvasSize = 32; // pixels

// Where the number of bits a pixel stands, and what a file has for it.
std::string FileOf(WORD bits, LONG width, LONG height, DWORD compression)
{
    const DWORD table = bits <= 8 ? 4u << bits : compression == BI_BITFIELDS ? 12 : 0;
    const auto row = static_cast<DWORD>((width * bits + 31) / 32 * 4);
    BITMAPFILEHEADER file{};
    file.bfType = 0x4D42;
    file.bfOffBits = sizeof(BITMAPFILEHEADER) + sizeof(BITMAPINFOHEADER) + table;
    BITMAPINFOHEADER info{sizeof info, width, height, 1, bits, compression, 0, 0, 0, 0, 0};
    std::string bytes(file.bfOffBits + row * static_cast<DWORD>(std::abs(height)), '\x5A');
    std::memcpy(bytes.data(), &file, sizeof file);
    std::memcpy(bytes.data() + sizeof file, &info, sizeof info);
    return bytes;
}

class BitmapReader : public Reader
{
public:
    BitmapReader()
        : m_file(MakeFile(L"read.bmp")),
          m_saved(MakeFile(L"saved.bmp")),
          m_canvas(CreateCompatibleBitmap(CMemoryDC(), CanvasSize, CanvasSize))
    {
    }

    std::vector<std::string> Samples() const override
    {
        std::vector<std::string> files;
        for (const WORD bits : {1, 4, 8, 16, 24, 32})
        {
            files.push_back(FileOf(bits, 7, 5, BI_RGB));
            files.push_back(FileOf(bits, 3, -4, BI_RGB));
        }
        files.push_back(FileOf(16, 4, 4, BI_BITFIELDS));
        files.push_back(FileOf(32, 4, 4, BI_BITFIELDS));
        return files;
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
        ExpectSame(again.GetHeight(), bitmap.GetHeight(), "the height of the saved picture");
        return static_cast<std::size_t>(bitmap.GetBitCount()) * 4 + (bitmap.GetWidth() > 7) * 2 +
               (bitmap.GetHeight() > 5);
    }

private:
    UniqueFile MakeFile(const wchar_t* name) const
    {
        return UniqueFile(CreateFileW(m_folder.File(name).c_str(), GENERIC_READ | GENERIC_WRITE, 0, nullptr,
                                      CREATE_ALWAYS, FILE_ATTRIBUTE_NORMAL, nullptr));
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
    const UniqueFile m_file;
    const UniqueFile m_saved;
    const UniqueBitmap m_canvas;
};

} // namespace

constinit const Harness BitmapHarness{.name = "bitmap",
                                      .reads = "bitmap files of every depth",
                                      .form = Form::Bytes,
                                      .inputs = 4'000,
                                      .separators = {},
                                      .words = {},
                                      .make = &Make<BitmapReader>};

} // namespace Fuzz
