#include "media/frame_keeper.h"

#include <cstring>

namespace media {

namespace {

std::size_t bytesOf(const BITMAPINFOHEADER& format) {
    const auto width = static_cast<std::size_t>(format.biWidth);
    const auto height = static_cast<std::size_t>(format.biHeight < 0 ? -format.biHeight : format.biHeight);
    return (width * format.biBitCount + 31) / 32 * 4 * height;
}

}  // namespace

FrameKeeper::FrameKeeper(const BITMAPINFOHEADER& format) : format_(format), frameSize_(bytesOf(format)) {
    format_.biSize = sizeof(format_);
    format_.biClrUsed = 0;
}

bool FrameKeeper::canPaint(const BITMAPINFOHEADER& format) {
    return format.biWidth > 0 && format.biHeight != 0 && format.biCompression == BI_RGB &&
           (format.biBitCount == 24 || format.biBitCount == 32);
}

void FrameKeeper::clear() {
    const std::lock_guard lock(mutex_);
    firstStamp_.reset();
    last_.empty = true;
    before_.empty = true;
}

std::optional<Ticks> FrameKeeper::firstStamp() const {
    const std::lock_guard lock(mutex_);
    return firstStamp_;
}

bool FrameKeeper::paint(HDC dc, Ticks now) const {
    const std::lock_guard lock(mutex_);
    if (last_.empty) {
        return false;
    }
    const Frame& frame = last_.due > now && !before_.empty ? before_ : last_;
    BITMAPINFO info{};
    info.bmiHeader = format_;
    const auto across = static_cast<DWORD>(width());
    const auto down = static_cast<DWORD>(height());
    return SetDIBitsToDevice(dc, 0, 0, across, down, 0, 0, 0, down, frame.pixels.data(), &info,
                             DIB_RGB_COLORS) != 0;
}

STDMETHODIMP FrameKeeper::SampleCB(double, IMediaSample* sample) {
    BYTE* pixels = nullptr;
    if (FAILED(sample->GetPointer(&pixels)) ||
        static_cast<std::size_t>(sample->GetActualDataLength()) < frameSize_) {
        return S_OK;
    }
    REFERENCE_TIME begin = 0;
    REFERENCE_TIME end = 0;
    const bool timed = SUCCEEDED(sample->GetTime(&begin, &end));
    const std::lock_guard lock(mutex_);
    std::swap(last_, before_);
    last_.pixels.resize(frameSize_);
    std::memcpy(last_.pixels.data(), pixels, frameSize_);
    last_.due = timed ? begin : 0;
    last_.empty = false;
    if (!firstStamp_) {
        firstStamp_ = last_.due;
    }
    return S_OK;
}

STDMETHODIMP FrameKeeper::BufferCB(double, BYTE*, LONG) {
    return E_NOTIMPL;
}

}  // namespace media
