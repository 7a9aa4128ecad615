#include "picture/wic_picture.h"

#include <algorithm>
#include <cmath>
#include <cstring>
#include <optional>
#include <utility>

#include "picture/picture_size.h"
#include "picture/wic_transform.h"

namespace picture {

namespace {

/// A size that the decoder can reduce to, at least `minimum` and smaller than `full`.
std::optional<PictureSize> findReducedSize(BitmapSourceTransform& transform, PictureSize full,
                                           PictureSize minimum) {
    const double least = std::max(static_cast<double>(minimum.width) / full.width,
                                  static_cast<double>(minimum.height) / full.height);
    // The closest size may lie below the wanted one; then a larger one is asked for.
    double scale = least;
    while (scale < 1) {
        UINT width = static_cast<UINT>(std::ceil(full.width * scale));
        UINT height = static_cast<UINT>(std::ceil(full.height * scale));
        if (FAILED(transform.GetClosestSize(&width, &height))) {
            return std::nullopt;
        }
        const PictureSize found{static_cast<int>(width), static_cast<int>(height)};
        if (found.width >= minimum.width && found.height >= minimum.height) {
            return found.width < full.width && found.height < full.height ? std::optional(found)
                                                                          : std::nullopt;
        }
        scale *= 2;
    }
    return std::nullopt;
}

/// Bytes of a pixel of the formats that are read as they are: grey, blue-green-red, and that with a fourth
/// byte. 0 for every other.
int bytesPerPixelOf(const WICPixelFormatGUID& format) {
    if (IsEqualGUID(format, GUID_WICPixelFormat24bppBGR)) {
        return 3;
    }
    if (IsEqualGUID(format, GUID_WICPixelFormat8bppGray)) {
        return 1;
    }
    return IsEqualGUID(format, GUID_WICPixelFormat32bppBGR) ||
                   IsEqualGUID(format, GUID_WICPixelFormat32bppBGRA)
               ? 4
               : 0;
}

void toThreeBytes(const std::uint8_t* from, int bytesPerPixel, std::size_t pixels, std::uint8_t* to) {
    if (bytesPerPixel == 1) {
        for (std::size_t i = 0; i < pixels; ++i) {
            to[3 * i] = to[3 * i + 1] = to[3 * i + 2] = from[i];
        }
    } else {
        for (std::size_t i = 0; i < pixels; ++i) {
            to[3 * i] = from[4 * i];
            to[3 * i + 1] = from[4 * i + 1];
            to[3 * i + 2] = from[4 * i + 2];
        }
    }
}

}  // namespace

WicPicture::WicPicture(std::span<std::uint8_t> file)
    : factory_(platform::ComPtr<IWICImagingFactory>::create(CLSID_WICImagingFactory)) {
    platform::checkResult(factory_->CreateStream(stream_.put()), "IWICImagingFactory::CreateStream");
    platform::checkResult(stream_->InitializeFromMemory(file.data(), static_cast<DWORD>(file.size())),
                          "IWICStream::InitializeFromMemory");
    platform::ComPtr<IWICBitmapDecoder> decoder;
    platform::checkResult(factory_->CreateDecoderFromStream(stream_.get(), nullptr,
                                                            WICDecodeMetadataCacheOnDemand, decoder.put()),
                          "IWICImagingFactory::CreateDecoderFromStream");
    platform::checkResult(decoder->GetFrame(0, frame_.put()), "IWICBitmapDecoder::GetFrame");
    takeSize();
}

WicPicture::WicPicture(platform::ComPtr<IWICBitmapFrameDecode> frame)
    : factory_(platform::ComPtr<IWICImagingFactory>::create(CLSID_WICImagingFactory)),
      frame_(std::move(frame)) {
    takeSize();
}

void WicPicture::takeSize() {
    UINT width = 0;
    UINT height = 0;
    platform::checkResult(frame_->GetSize(&width, &height), "IWICBitmapSource::GetSize");
    constexpr UINT kMost = 1 << 24;
    if (width == 0 || height == 0 || width > kMost || height > kMost) {
        throw platform::Error("IWICBitmapSource::GetSize",
                              static_cast<unsigned long>(WINCODEC_ERR_IMAGESIZEOUTOFRANGE));
    }
    width_ = static_cast<int>(width);
    height_ = static_cast<int>(height);

    takeFormat();
}

void WicPicture::takeFormat() {
    WICPixelFormatGUID format{};
    platform::checkResult(frame_->GetPixelFormat(&format), "IWICBitmapSource::GetPixelFormat");
    if (const int bytes = bytesPerPixelOf(format); bytes != 0) {
        source_ = frame_.as<IWICBitmapSource>();
        sourceBytes_ = bytes;
        return;
    }
    // A converter may accept a format and then refuse every pixel of it; so one pixel is tried.
    for (const GUID& wanted : {GUID_WICPixelFormat24bppBGR, GUID_WICPixelFormat32bppBGRA}) {
        platform::ComPtr<IWICFormatConverter> converter;
        platform::checkResult(factory_->CreateFormatConverter(converter.put()),
                              "IWICImagingFactory::CreateFormatConverter");
        const HRESULT result = converter->Initialize(frame_.get(), wanted, WICBitmapDitherTypeNone, nullptr,
                                                     0.0, WICBitmapPaletteTypeCustom);
        const WICRect corner{0, 0, 1, 1};
        std::uint32_t pixel = 0;
        if (SUCCEEDED(result) && SUCCEEDED(converter->CopyPixels(&corner, sizeof pixel, sizeof pixel,
                                                                 reinterpret_cast<BYTE*>(&pixel)))) {
            source_ = converter.as<IWICBitmapSource>();
            sourceBytes_ = bytesPerPixelOf(wanted);
            return;
        }
    }
    throw platform::Error("IWICFormatConverter::CopyPixels",
                          static_cast<unsigned long>(WINCODEC_ERR_UNSUPPORTEDPIXELFORMAT));
}

void WicPicture::reduce(int minWidth, int minHeight) {
    const auto transform = frame_.as<BitmapSourceTransform>(kBitmapSourceTransformId);
    WICPixelFormatGUID format = GUID_WICPixelFormat24bppBGR;
    if (!transform || minWidth < 1 || minHeight < 1 || FAILED(transform->GetClosestPixelFormat(&format)) ||
        !IsEqualGUID(format, GUID_WICPixelFormat24bppBGR)) {
        return;
    }
    const auto size = findReducedSize(*transform.get(), {width_, height_}, {minWidth, minHeight});
    if (!size) {
        return;
    }
    const std::size_t stride = (static_cast<std::size_t>(size->width) * kBytesPerPixel + 3) / 4 * 4;
    std::vector<std::uint8_t> pixels(stride * static_cast<std::size_t>(size->height));
    if (FAILED(transform->CopyPixels(nullptr, static_cast<UINT>(size->width), static_cast<UINT>(size->height),
                                     &format, WICBitmapTransformRotate0, static_cast<UINT>(stride),
                                     static_cast<UINT>(pixels.size()), pixels.data()))) {
        return;  // Band by band more may come of a damaged file.
    }
    reduced_ = std::move(pixels);
    reducedStride_ = stride;
    width_ = size->width;
    height_ = size->height;
}

void WicPicture::read(int x, int y, int width, int rows, std::uint8_t* target, std::size_t stride) {
    const std::size_t rowBytes = static_cast<std::size_t>(width) * kBytesPerPixel;
    if (!reduced_.empty()) {
        for (int row = 0; row < rows; ++row) {
            std::memcpy(target + static_cast<std::size_t>(row) * stride,
                        reduced_.data() + static_cast<std::size_t>(y + row) * reducedStride_ +
                            static_cast<std::size_t>(x) * kBytesPerPixel,
                        rowBytes);
        }
        return;
    }
    if (!ended_ && readBand(x, y, width, rows, target, stride)) {
        started_ = true;
        return;
    }
    for (int row = 0; row < rows; ++row) {
        std::uint8_t* line = target + static_cast<std::size_t>(row) * stride;
        if (!ended_ && readBand(x, y + row, width, 1, line, stride)) {
            started_ = true;
            continue;
        }
        if (!started_) {
            throw platform::Error("IWICBitmapSource::CopyPixels",
                                  static_cast<unsigned long>(WINCODEC_ERR_BADIMAGE));
        }
        ended_ = true;
        std::memset(line, 0, rowBytes);
    }
}

bool WicPicture::readBand(int x, int y, int width, int rows, std::uint8_t* target, std::size_t stride) {
    const WICRect band{x, y, width, rows};
    const auto pixels = static_cast<std::size_t>(width);
    if (sourceBytes_ == kBytesPerPixel) {
        const std::size_t bytes = stride * static_cast<std::size_t>(rows - 1) + pixels * kBytesPerPixel;
        return SUCCEEDED(
            source_->CopyPixels(&band, static_cast<UINT>(stride), static_cast<UINT>(bytes), target));
    }
    const std::size_t foreignStride = pixels * static_cast<std::size_t>(sourceBytes_);
    foreign_.resize(foreignStride * static_cast<std::size_t>(rows));
    if (FAILED(source_->CopyPixels(&band, static_cast<UINT>(foreignStride),
                                   static_cast<UINT>(foreign_.size()), foreign_.data()))) {
        return false;
    }
    for (int row = 0; row < rows; ++row) {
        toThreeBytes(foreign_.data() + static_cast<std::size_t>(row) * foreignStride, sourceBytes_, pixels,
                     target + static_cast<std::size_t>(row) * stride);
    }
    return true;
}

}  // namespace picture
