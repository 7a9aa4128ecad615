#include "support/picture_writer.h"

#include <windows.h>

#include <wincodec.h>

#include <algorithm>
#include <atomic>
#include <filesystem>
#include <fstream>
#include <iterator>

#include "platform/com.h"
#include "platform/error.h"
#include "support/exif_bytes.h"

namespace support {

namespace {

using platform::checkResult;
using platform::ComPtr;

GUID containerOf(PictureKind kind) {
    switch (kind) {
        case PictureKind::Png:
            return GUID_ContainerFormatPng;
        case PictureKind::Bmp:
            return GUID_ContainerFormatBmp;
        default:
            return GUID_ContainerFormatJpeg;
    }
}

GUID formatOf(PictureKind kind) {
    switch (kind) {
        case PictureKind::GreyJpeg:
            return GUID_WICPixelFormat8bppGray;
        case PictureKind::CmykJpeg:
            return GUID_WICPixelFormat32bppCMYK;
        default:
            return GUID_WICPixelFormat24bppBGR;
    }
}

std::uint8_t part(std::uint32_t colour, int shift) {
    return static_cast<std::uint8_t>(colour >> shift);
}

void appendPixel(std::vector<std::uint8_t>& row, PictureKind kind, std::uint32_t colour) {
    if (kind == PictureKind::GreyJpeg) {
        row.push_back(part(colour, 8));
    } else if (kind == PictureKind::CmykJpeg) {
        for (const int shift : {16, 8, 0}) {
            row.push_back(static_cast<std::uint8_t>(255 - part(colour, shift)));
        }
        row.push_back(0);
    } else {
        for (const int shift : {0, 8, 16}) {
            row.push_back(part(colour, shift));
        }
    }
}

void setQuality(IPropertyBag2& options, float quality) {
    PROPBAG2 name{};
    wchar_t text[] = L"ImageQuality";
    name.pstrName = text;
    VARIANT value{};
    value.vt = VT_R4;
    value.fltVal = quality;
    checkResult(options.Write(1, &name, &value), "IPropertyBag2::Write");
}

}  // namespace

void writePicture(const std::wstring& path, PictureKind kind, int width, int height, const PictureRule& rule,
                  float quality) {
    const platform::ComApartment apartment;
    const auto factory = ComPtr<IWICImagingFactory>::create(CLSID_WICImagingFactory);
    ComPtr<IWICStream> stream;
    checkResult(factory->CreateStream(stream.put()), "CreateStream");
    checkResult(stream->InitializeFromFilename(path.c_str(), GENERIC_WRITE), "InitializeFromFilename");
    ComPtr<IWICBitmapEncoder> encoder;
    checkResult(factory->CreateEncoder(containerOf(kind), nullptr, encoder.put()), "CreateEncoder");
    checkResult(encoder->Initialize(stream.get(), WICBitmapEncoderNoCache), "Initialize");
    ComPtr<IWICBitmapFrameEncode> frame;
    ComPtr<IPropertyBag2> options;
    checkResult(encoder->CreateNewFrame(frame.put(), options.put()), "CreateNewFrame");
    if (IsEqualGUID(containerOf(kind), GUID_ContainerFormatJpeg)) {
        setQuality(*options.get(), quality);
    }
    checkResult(frame->Initialize(options.get()), "Initialize");
    checkResult(frame->SetSize(static_cast<UINT>(width), static_cast<UINT>(height)), "SetSize");
    GUID format = formatOf(kind);
    checkResult(frame->SetPixelFormat(&format), "SetPixelFormat");
    if (!IsEqualGUID(format, formatOf(kind))) {
        throw platform::Error("SetPixelFormat took another format", 0);
    }
    std::vector<std::uint8_t> row;
    for (int y = 0; y < height; ++y) {
        row.clear();
        for (int x = 0; x < width; ++x) {
            appendPixel(row, kind, rule(x, y));
        }
        row.resize((row.size() + 3) / 4 * 4);
        const auto bytes = static_cast<UINT>(row.size());
        checkResult(frame->WritePixels(1, bytes, bytes, row.data()), "WritePixels");
    }
    checkResult(frame->Commit(), "Commit");
    checkResult(encoder->Commit(), "Commit");
}

std::vector<std::uint8_t> cameraSegment(unsigned orientation, const std::vector<std::uint8_t>& thumbnail) {
    constexpr std::uint32_t kSecond = 8 + 2 + 12 + 4;
    constexpr std::uint32_t kPicture = kSecond + 2 + 2 * 12 + 4;
    ExifBytes exif(ExifBytes::Order::Motorola);
    exif.add(1, 2).entry(0x0112, 3, 1, orientation).add(thumbnail.empty() ? 0 : kSecond, 4);
    if (!thumbnail.empty()) {
        exif.add(2, 2).entry(0x0201, 4, 1, kPicture);
        exif.entry(0x0202, 4, 1, static_cast<std::uint32_t>(thumbnail.size())).add(0, 4).append(thumbnail);
    }
    return exifSegment(exif);
}

void insertSegment(const std::wstring& path, const std::vector<std::uint8_t>& segment) {
    std::vector<std::uint8_t> bytes = readBytes(path);
    bytes.insert(bytes.begin() + 2, segment.begin(), segment.end());
    writeBytes(path, bytes);
}

std::vector<std::uint8_t> readBytes(const std::wstring& path) {
    std::ifstream file(std::filesystem::path(path), std::ios::binary);
    if (!file) {
        throw platform::Error("opening a test file", 0);
    }
    return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
}

void writeBytes(const std::wstring& path, const std::vector<std::uint8_t>& bytes) {
    std::ofstream file(std::filesystem::path(path), std::ios::binary);
    file.write(reinterpret_cast<const char*>(bytes.data()), static_cast<std::streamsize>(bytes.size()));
    if (!file) {
        throw platform::Error("writing a test file", 0);
    }
}

TemporaryFolder::TemporaryFolder() {
    static std::atomic<int> counter = 0;
    wchar_t base[MAX_PATH + 1] = {};
    if (GetTempPathW(MAX_PATH + 1, base) == 0) {
        throw platform::Error("GetTempPathW", GetLastError());
    }
    path_ = std::wstring(base) + L"panorell_" + std::to_wstring(GetCurrentProcessId()) + L"_" +
            std::to_wstring(++counter);
    if (!CreateDirectoryW(path_.c_str(), nullptr)) {
        throw platform::Error("CreateDirectoryW", GetLastError());
    }
}

TemporaryFolder::~TemporaryFolder() {
    std::error_code ignored;
    std::filesystem::remove_all(path_, ignored);
}

}  // namespace support
