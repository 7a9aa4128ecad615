#pragma once

#include <windows.h>

#include <wincodec.h>

#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

#include "picture/area_average.h"
#include "platform/com.h"

namespace picture {

/// A picture that Windows decodes, as rows of 24 bits a pixel: each band is taken from the decoder when the
/// scaler asks for it, so the program holds no second copy. Rows that a damaged file does not give are black;
/// it is an Error when even the first band is missing.
class WicPicture : public RowSource {
  public:
    /// Opens the first picture of a file in memory. `file` must outlive the object. Throws Error.
    explicit WicPicture(std::span<std::uint8_t> file);
    /// Takes an opened frame.
    explicit WicPicture(platform::ComPtr<IWICBitmapFrameDecode> frame);

    int width() const { return width_; }
    int height() const { return height_; }

    /// Where the decoder can give the picture at a reduced size of at least `minWidth` x `minHeight`, takes
    /// it from there at the smallest such size; width() and height() then tell that size.
    void reduce(int minWidth, int minHeight);

    void read(int x, int y, int width, int rows, std::uint8_t* target, std::size_t stride) override;

  private:
    void takeSize();
    void takeFormat();
    bool readBand(int x, int y, int width, int rows, std::uint8_t* target, std::size_t stride);

    platform::ComPtr<IWICImagingFactory> factory_;
    platform::ComPtr<IWICStream> stream_;
    platform::ComPtr<IWICBitmapFrameDecode> frame_;
    platform::ComPtr<IWICBitmapSource>
        source_;                         ///< the frame, or its conversion to a format that is read as it is
    int sourceBytes_ = kBytesPerPixel;   ///< of one pixel of source_
    std::vector<std::uint8_t> foreign_;  ///< a band whose pixels have another number of bytes
    std::vector<std::uint8_t> reduced_;
    std::size_t reducedStride_ = 0;
    int width_ = 0;
    int height_ = 0;
    bool started_ = false;  ///< some row was decoded
    bool ended_ = false;    ///< a row could not be decoded: the rest is black
};

}  // namespace picture
