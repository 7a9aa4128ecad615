#include "program/support/picture_file.h"

#include <windows.h>

#include <wincodec.h>

#include "platform/error.h"

namespace program {
namespace {

void require(HRESULT result, const char* call) {
    if (FAILED(result)) {
        throw platform::Error(call, static_cast<unsigned long>(result));
    }
}

/// Releases a COM interface.
template <class Interface>
class Com {
  public:
    Com() = default;
    Com(const Com&) = delete;
    Com& operator=(const Com&) = delete;
    ~Com() {
        if (pointer_) {
            pointer_->Release();
        }
    }
    Interface* operator->() const { return pointer_; }
    Interface* get() const { return pointer_; }
    Interface** out() { return &pointer_; }

  private:
    Interface* pointer_ = nullptr;
};

void createFactory(Com<IWICImagingFactory>& factory) {
    require(CoCreateInstance(CLSID_WICImagingFactory, nullptr, CLSCTX_INPROC_SERVER, IID_IWICImagingFactory,
                             reinterpret_cast<void**>(factory.out())),
            "CoCreateInstance");
}

std::vector<BYTE> threeBytesAPixel(const picture::Pixels& picture) {
    std::vector<BYTE> bytes;
    bytes.reserve(picture.data.size() * 3);
    for (const std::uint32_t pixel : picture.data) {
        bytes.push_back(static_cast<BYTE>(pixel));
        bytes.push_back(static_cast<BYTE>(pixel >> 8));
        bytes.push_back(static_cast<BYTE>(pixel >> 16));
    }
    return bytes;
}

void setQuality(IPropertyBag2* options, float quality) {
    wchar_t name[] = L"ImageQuality";
    PROPBAG2 property = {};
    property.pstrName = name;
    VARIANT value = {};
    value.vt = VT_R4;
    value.fltVal = quality;
    options->Write(1, &property, &value);
}

void write(const std::wstring& path, const picture::Pixels& picture, const GUID& format) {
    Com<IWICImagingFactory> factory;
    createFactory(factory);
    Com<IWICStream> stream;
    require(factory->CreateStream(stream.out()), "CreateStream");
    require(stream->InitializeFromFilename(path.c_str(), GENERIC_WRITE), "InitializeFromFilename");
    Com<IWICBitmapEncoder> encoder;
    require(factory->CreateEncoder(format, nullptr, encoder.out()), "CreateEncoder");
    require(encoder->Initialize(stream.get(), WICBitmapEncoderNoCache), "Initialize");
    Com<IWICBitmapFrameEncode> frame;
    Com<IPropertyBag2> options;
    require(encoder->CreateNewFrame(frame.out(), options.out()), "CreateNewFrame");
    if (IsEqualGUID(format, GUID_ContainerFormatJpeg)) {
        setQuality(options.get(), 0.92F);
    }
    require(frame->Initialize(options.get()), "Initialize");
    const UINT width = static_cast<UINT>(picture.width);
    const UINT height = static_cast<UINT>(picture.height);
    require(frame->SetSize(width, height), "SetSize");
    WICPixelFormatGUID pixelFormat = GUID_WICPixelFormat24bppBGR;
    require(frame->SetPixelFormat(&pixelFormat), "SetPixelFormat");
    std::vector<BYTE> bytes = threeBytesAPixel(picture);
    require(frame->WritePixels(height, width * 3, static_cast<UINT>(bytes.size()), bytes.data()),
            "WritePixels");
    require(frame->Commit(), "Commit");
    require(encoder->Commit(), "Commit");
}

}  // namespace

void writeJpeg(const std::wstring& path, const picture::Pixels& picture) {
    write(path, picture, GUID_ContainerFormatJpeg);
}

void writePng(const std::wstring& path, const picture::Pixels& picture) {
    write(path, picture, GUID_ContainerFormatPng);
}

picture::Pixels readPicture(const std::wstring& path) {
    Com<IWICImagingFactory> factory;
    createFactory(factory);
    Com<IWICBitmapDecoder> decoder;
    require(factory->CreateDecoderFromFilename(path.c_str(), nullptr, GENERIC_READ,
                                               WICDecodeMetadataCacheOnDemand, decoder.out()),
            "CreateDecoderFromFilename");
    Com<IWICBitmapFrameDecode> frame;
    require(decoder->GetFrame(0, frame.out()), "GetFrame");
    Com<IWICFormatConverter> converter;
    require(factory->CreateFormatConverter(converter.out()), "CreateFormatConverter");
    require(converter->Initialize(frame.get(), GUID_WICPixelFormat32bppBGR, WICBitmapDitherTypeNone, nullptr,
                                  0, WICBitmapPaletteTypeCustom),
            "Initialize");
    UINT width = 0;
    UINT height = 0;
    require(converter->GetSize(&width, &height), "GetSize");
    picture::Pixels picture(static_cast<int>(width), static_cast<int>(height));
    require(converter->CopyPixels(nullptr, width * 4, width * height * 4,
                                  reinterpret_cast<BYTE*>(picture.data.data())),
            "CopyPixels");
    for (std::uint32_t& pixel : picture.data) {
        pixel &= 0xFFFFFF;
    }
    return picture;
}

}  // namespace program
