#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

namespace support {

enum class PictureKind { Jpeg, GreyJpeg, CmykJpeg, Png, Bmp };

/// The colour 0x00RRGGBB of pixel (x, y).
using PictureRule = std::function<std::uint32_t(int x, int y)>;

/// Writes a picture file with Windows' own encoder, row by row. For a JPEG, `quality` is 0 to 1.
/// Throws platform::Error.
void writePicture(const std::wstring& path, PictureKind kind, int width, int height, const PictureRule& rule,
                  float quality = 0.95F);

/// The EXIF block of a camera as a JPEG segment (with its marker): an orientation of any value and, when
/// `thumbnail` holds a JPEG file, that.
std::vector<std::uint8_t> cameraSegment(unsigned orientation,
                                        const std::vector<std::uint8_t>& thumbnail = {});

/// Puts a segment behind the start-of-image marker of a JPEG file.
void insertSegment(const std::wstring& path, const std::vector<std::uint8_t>& segment);

std::vector<std::uint8_t> readBytes(const std::wstring& path);
void writeBytes(const std::wstring& path, const std::vector<std::uint8_t>& bytes);

/// An empty folder that lives as long as the object.
class TemporaryFolder {
  public:
    TemporaryFolder();
    ~TemporaryFolder();
    TemporaryFolder(const TemporaryFolder&) = delete;
    TemporaryFolder& operator=(const TemporaryFolder&) = delete;

    std::wstring file(const std::wstring& name) const { return path_ + L"\\" + name; }

  private:
    std::wstring path_;
};

}  // namespace support
