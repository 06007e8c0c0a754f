#include "tests/support/PngFile.h"

#include <wincodec.h>

#include <memory>
#include <sstream>
#include <stdexcept>

namespace
{

constexpr std::size_t BytesPerPixel = 3; // blue, green, red

struct Releaser
{
    void operator()(IUnknown* object) const { object->Release(); }
};

template <class Interface>
using ComPointer = std::unique_ptr<Interface, Releaser>;

// The COM library for the life of the object, and the factory of the picture codecs.
class CodecFactory
{
public:
    CodecFactory() : m_initialised(CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED))
    {
        IWICImagingFactory* factory = nullptr;
        if (SUCCEEDED(CoCreateInstance(CLSID_WICImagingFactory, nullptr, CLSCTX_INPROC_SERVER,
                                       __uuidof(IWICImagingFactory), reinterpret_cast<void**>(&factory))))
        {
            m_factory.reset(factory);
        }
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

    IWICImagingFactory* operator->() const
    {
        if (m_factory == nullptr)
        {
            throw std::runtime_error("the system has no picture codecs");
        }
        return m_factory.get();
    }

private:
    const HRESULT m_initialised;
    ComPointer<IWICImagingFactory> m_factory;
};

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

// What a call puts at an address: Take<IWICStream>(path, [&](IWICStream** address) { return call(address); }).
template <class Interface>
ComPointer<Interface> Take(const std::filesystem::path& path, const auto& call)
{
    Interface* object = nullptr;
    Check(call(&object), path);
    return ComPointer<Interface>(object);
}

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

} // namespace

Picture ReadPng(const std::filesystem::path& path)
{
    const CodecFactory factory;
    const auto decoder =
        Take<IWICBitmapDecoder>(path,
                                [&](IWICBitmapDecoder** address)
                                {
                                    return factory->CreateDecoderFromFilename(path.c_str(), nullptr, GENERIC_READ,
                                                                              WICDecodeMetadataCacheOnDemand, address);
                                });
    const auto frame = Take<IWICBitmapFrameDecode>(path, [&](IWICBitmapFrameDecode** address)
                                                   { return decoder->GetFrame(0, address); });
    const auto converter = Take<IWICFormatConverter>(path, [&](IWICFormatConverter** address)
                                                     { return factory->CreateFormatConverter(address); });
    Check(converter->Initialize(frame.get(), GUID_WICPixelFormat24bppBGR, WICBitmapDitherTypeNone, nullptr, 0,
                                WICBitmapPaletteTypeCustom),
          path);
    UINT width = 0;
    UINT height = 0;
    Check(converter->GetSize(&width, &height), path);
    std::vector<BYTE> bytes(std::size_t{width} * height * BytesPerPixel);
    Check(converter->CopyPixels(nullptr, width * BytesPerPixel, static_cast<UINT>(bytes.size()), bytes.data()), path);

    Picture picture(static_cast<int>(width), static_cast<int>(height), 0);
    const BYTE* next = bytes.data();
    for (int y = 0; y < picture.Height(); ++y)
    {
        for (int x = 0; x < picture.Width(); ++x, next += BytesPerPixel)
        {
            picture.Set(x, y, RGB(next[2], next[1], next[0]));
        }
    }
    return picture;
}

void WritePng(const std::filesystem::path& path, const Picture& picture)
{
    const CodecFactory factory;
    const auto stream = Take<IWICStream>(path, [&](IWICStream** address) { return factory->CreateStream(address); });
    Check(stream->InitializeFromFilename(path.c_str(), GENERIC_WRITE), path);
    const auto encoder =
        Take<IWICBitmapEncoder>(path, [&](IWICBitmapEncoder** address)
                                { return factory->CreateEncoder(GUID_ContainerFormatPng, nullptr, address); });
    Check(encoder->Initialize(stream.get(), WICBitmapEncoderNoCache), path);
    const auto frame = Take<IWICBitmapFrameEncode>(path, [&](IWICBitmapFrameEncode** address)
                                                   { return encoder->CreateNewFrame(address, nullptr); });
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
