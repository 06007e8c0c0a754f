#include "tests/support/PngFile.h"

#include "platform/dialog/ComPtr.h"

#include <wincodec.h>

#include <sstream>
#include <stdexcept>

namespace
{

constexpr UINT BytesPerPixel = 3; // blue, green, red

void Check(HRESULT status, const std::filesystem::path& path)
{
    if (FAILED(status))
    {
        std::ostringstream text;
        text << path.string() << " is no picture or cannot be written: status 0x" << std::hex
             << static_cast<unsigned long>(status);
        throw std::runtime_error(text.str());
    }
}

// The COM library for the life of the object, and the factory of the picture codecs.
class CodecFactory
{
public:
    CodecFactory() : m_initialised(CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED))
    {
        Check(m_factory.CoCreateInstance(CLSID_WICImagingFactory), "the system's picture codec");
    }

    ~CodecFactory()
    {
        m_factory.reset();
        if (SUCCEEDED(m_initialised))
        {
            CoUninitialize();
        }
    }

    CodecFactory(const CodecFactory&) = delete;
    CodecFactory& operator=(const CodecFactory&) = delete;

    IWICImagingFactory* operator->() const { return m_factory.get(); }

private:
    const HRESULT m_initialised;
    CComPtr<IWICImagingFactory> m_factory;
};

std::vector<BYTE> BytesOf(const Picture& picture)
{
    std::vector<BYTE> bytes;
    bytes.reserve(static_cast<std::size_t>(picture.Width()) * picture.Height() * BytesPerPixel);
    for (int y = 0; y < picture.Height(); ++y)
    {
        for (int x = 0; x < picture.Width(); ++x)
        {
            const COLORREF colour = picture.At(x, y);
            bytes.insert(bytes.end(), {GetBValue(colour), GetGValue(colour), GetRValue(colour)});
        }
    }
    return bytes;
}

Picture PictureFrom(int width, int height, const std::vector<BYTE>& bytes)
{
    Picture picture(width, height, 0);
    const BYTE* next = bytes.data();
    for (int y = 0; y < height; ++y)
    {
        for (int x = 0; x < width; ++x, next += BytesPerPixel)
        {
            picture.Set(x, y, RGB(next[2], next[1], next[0]));
        }
    }
    return picture;
}

} // namespace

Picture ReadPng(const std::filesystem::path& path)
{
    const CodecFactory factory;
    CComPtr<IWICBitmapDecoder> decoder;
    Check(factory->CreateDecoderFromFilename(path.c_str(), nullptr, GENERIC_READ, WICDecodeMetadataCacheOnDemand,
                                             decoder.put()),
          path);
    CComPtr<IWICBitmapFrameDecode> frame;
    Check(decoder->GetFrame(0, frame.put()), path);
    CComPtr<IWICFormatConverter> converter;
    Check(factory->CreateFormatConverter(converter.put()), path);
    Check(converter->Initialize(frame.get(), GUID_WICPixelFormat24bppBGR, WICBitmapDitherTypeNone, nullptr, 0,
                                WICBitmapPaletteTypeCustom),
          path);
    UINT width = 0;
    UINT height = 0;
    Check(converter->GetSize(&width, &height), path);
    std::vector<BYTE> bytes(std::size_t{width} * height * BytesPerPixel);
    Check(converter->CopyPixels(nullptr, width * BytesPerPixel, static_cast<UINT>(bytes.size()), bytes.data()), path);
    return PictureFrom(static_cast<int>(width), static_cast<int>(height), bytes);
}

void WritePng(const std::filesystem::path& path, const Picture& picture)
{
    const CodecFactory factory;
    CComPtr<IWICStream> stream;
    Check(factory->CreateStream(stream.put()), path);
    Check(stream->InitializeFromFilename(path.c_str(), GENERIC_WRITE), path);
    CComPtr<IWICBitmapEncoder> encoder;
    Check(factory->CreateEncoder(GUID_ContainerFormatPng, nullptr, encoder.put()), path);
    Check(encoder->Initialize(stream.get(), WICBitmapEncoderNoCache), path);
    CComPtr<IWICBitmapFrameEncode> frame;
    Check(encoder->CreateNewFrame(frame.put(), nullptr), path);
    Check(frame->Initialize(nullptr), path);
    Check(frame->SetSize(picture.Width(), picture.Height()), path);
    WICPixelFormatGUID format = GUID_WICPixelFormat24bppBGR;
    Check(frame->SetPixelFormat(&format), path);
    std::vector<BYTE> bytes = BytesOf(picture);
    Check(frame->WritePixels(picture.Height(), picture.Width() * BytesPerPixel, static_cast<UINT>(bytes.size()),
                             bytes.data()),
          path);
    Check(frame->Commit(), path);
    Check(encoder->Commit(), path);
}
