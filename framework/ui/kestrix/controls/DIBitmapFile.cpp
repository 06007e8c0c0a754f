#include "framework/ui/kestrix/controls/BitmapRows.h"
#include "framework/ui/kestrix/controls/DIBitmap.h"

#include <algorithm>
#include <cstring>
#include <iterator>
#include <new>

namespace
{

constexpr WORD FileMagic = 19778; // "BM"
constexpr wchar_t CutShort[] = L"Error:File cut short\n";
constexpr wchar_t BadHeader[] = L"Error:Header contradicts itself\n";

std::uint64_t Position(HANDLE file)
{
    LARGE_INTEGER position{};
    if (!SetFilePointerEx(file, {}, &position, FILE_CURRENT))
    {
        throw CutShort;
    }
    return static_cast<std::uint64_t>(position.QuadPart);
}

// How much of the file lies after this position.
std::uint64_t BytesFrom(HANDLE file, std::uint64_t position)
{
    LARGE_INTEGER size{};
    if (!GetFileSizeEx(file, &size) || static_cast<std::uint64_t>(size.QuadPart) < position)
    {
        throw CutShort;
    }
    return static_cast<std::uint64_t>(size.QuadPart) - position;
}

// The number of bytes that the file still had.
DWORD ReadUpTo(HANDLE file, void* target, DWORD bytes)
{
    DWORD read = 0;
    return ::ReadFile(file, target, bytes, &read, nullptr) ? read : 0;
}

void ReadAll(HANDLE file, void* target, DWORD bytes)
{
    if (ReadUpTo(file, target, bytes) != bytes)
    {
        throw CutShort;
    }
}

bool WriteAll(HANDLE file, const void* source, DWORD bytes)
{
    DWORD written = 0;
    return ::WriteFile(file, source, bytes, &written, nullptr) && written == bytes;
}

// The bytes of colours or masks that stand between header and rows.
DWORD TableBytes(const BITMAPINFOHEADER& header)
{
    return header.biCompression == BI_BITFIELDS
               ? BitmapRows::MaskBytes
               : BitmapRows::TableEntries(header.biBitCount) * static_cast<DWORD>(sizeof(RGBQUAD));
}

void CheckHeaders(const BITMAPFILEHEADER& fileHeader, const BITMAPINFOHEADER& header)
{
    if (!BitmapRows::HasPlainRows(header))
    {
        throw BadHeader;
    }
    const DWORD most = header.biBitCount <= BitmapRows::DeepestWithTable ? BitmapRows::TableEntries(header.biBitCount)
                                                                         : std::size(FullBitmapInfo{}.bmiColors);
    if (header.biClrUsed > most)
    {
        throw BadHeader;
    }
    if (fileHeader.bfOffBits < sizeof fileHeader + sizeof header + BitmapRows::ColourBytes(header))
    {
        throw BadHeader;
    }
}

UniqueFile OpenFile(const std::wstring& name, DWORD access, DWORD disposition)
{
    return UniqueFile(
        CreateFileW(name.c_str(), access, FILE_SHARE_READ, nullptr, disposition, FILE_ATTRIBUTE_NORMAL, nullptr));
}

} // namespace

bool CDIBitmap::Load(const std::wstring& fileName)
{
    Clear();
    const UniqueFile file = OpenFile(fileName, GENERIC_READ, OPEN_EXISTING);
    return file && Load(file.get());
}

bool CDIBitmap::Load(HANDLE file)
{
    Clear();
    try
    {
        ReadFile(file);
        return true;
    }
    catch (const wchar_t*)
    {
        Clear();
        return false;
    }
}

void CDIBitmap::ReadFile(HANDLE file)
{
    const std::uint64_t start = Position(file);
    BITMAPFILEHEADER fileHeader{};
    ReadAll(file, &fileHeader, sizeof fileHeader);
    if (fileHeader.bfType != FileMagic)
    {
        throw L"Error:Unexpected file type, not a DIB\n";
    }
    m_pInfo = std::make_unique<FullBitmapInfo>();
    BITMAPINFOHEADER& header = m_pInfo->bmiHeader;
    ReadAll(file, &header, sizeof header);
    if (header.biSize != sizeof header)
    {
        throw L"Error:OS2 PM BMP Format not supported\n";
    }
    CheckHeaders(fileHeader, header);
    // As much as a full colour table takes, whatever the depth; of a short file what there is.
    ReadUpTo(file, m_pInfo->bmiColors, sizeof m_pInfo->bmiColors);

    const std::uint64_t rows = start + fileHeader.bfOffBits;
    const DWORD bytes = BitmapRows::AllBytes(header);
    if (bytes == 0)
    {
        throw BadHeader;
    }
    if (BytesFrom(file, rows) < bytes)
    {
        throw CutShort;
    }
    m_pBits.reset(new (std::nothrow) BYTE[bytes]);
    if (m_pBits == nullptr)
    {
        throw L"could not allocate data storage\n";
    }
    LARGE_INTEGER place{};
    place.QuadPart = static_cast<LONGLONG>(rows);
    if (!SetFilePointerEx(file, place, nullptr, FILE_BEGIN))
    {
        throw CutShort;
    }
    ReadAll(file, m_pBits.get(), bytes);
    m_bPadded = true;
    // What the header says of these was checked above or is not needed; from here on it is what the system may rely on.
    header.biSizeImage = bytes;
    if (BitmapRows::TableEntries(header.biBitCount) == 0)
    {
        header.biClrUsed = 0;
    }
    if (header.biHeight < 0)
    {
        TurnOver();
    }
    MakePalette();
}

void CDIBitmap::TurnOver() noexcept
{
    BITMAPINFOHEADER& header = m_pInfo->bmiHeader;
    header.biHeight = -header.biHeight;
    const auto row = BitmapRows::PaddedBytes(static_cast<std::uint64_t>(header.biWidth), header.biBitCount);
    BYTE* low = m_pBits.get();
    BYTE* high = low + row * static_cast<std::size_t>(header.biHeight - 1);
    for (; low < high; low += row, high -= row)
    {
        std::swap_ranges(low, low + row, high);
    }
}

// From the last row to the second, so that no row is overwritten before it has moved; the first one stands right.
void CDIBitmap::Pad() noexcept
{
    const BITMAPINFOHEADER& header = m_pInfo->bmiHeader;
    const auto packed = BitmapRows::PackedBytes(static_cast<std::uint64_t>(header.biWidth), header.biBitCount);
    const auto padded = BitmapRows::PaddedBytes(static_cast<std::uint64_t>(header.biWidth), header.biBitCount);
    if (m_bPadded || packed == padded)
    {
        return;
    }
    for (LONG row = header.biHeight - 1; row > 0; --row)
    {
        std::memmove(m_pBits.get() + row * padded, m_pBits.get() + row * packed, packed);
    }
    m_bPadded = true;
}

bool CDIBitmap::Save(const std::wstring& fileName)
{
    if (!IsLoaded())
    {
        return false;
    }
    const UniqueFile file = OpenFile(fileName, GENERIC_WRITE, CREATE_ALWAYS);
    return file && Save(file.get());
}

bool CDIBitmap::Save(HANDLE file)
{
    if (!IsLoaded())
    {
        return false;
    }
    Pad();
    const BITMAPINFOHEADER& header = m_pInfo->bmiHeader;
    const DWORD table = TableBytes(header);
    const DWORD rows = BitmapRows::AllBytes(header);
    BITMAPFILEHEADER fileHeader{};
    fileHeader.bfType = FileMagic;
    fileHeader.bfOffBits = sizeof fileHeader + sizeof header + table;
    fileHeader.bfSize = fileHeader.bfOffBits + rows;
    return rows != 0 && WriteAll(file, &fileHeader, sizeof fileHeader) && WriteAll(file, &header, sizeof header) &&
           WriteAll(file, m_pInfo->bmiColors, table) && WriteAll(file, m_pBits.get(), rows);
}
