#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "program/support/temporary_folder.h"
#include "program/support/test_pictures.h"

namespace program {

/// A temporary folder filled for a show.
class PictureFolder {
  public:
    PictureFolder() = default;

    /// A folder with pictures 1 ... `count` of one size, named bild01.jpg, bild02.jpg ...
    explicit PictureFolder(int count, int width = 800, int height = 600);

    const std::wstring& path() const { return folder_.path(); }
    std::wstring file(const std::wstring& name) const { return folder_.file(name); }

    /// Adds a picture under this name.
    void add(const std::wstring& name, const TestPicture& picture);

    /// Adds a picture file that cannot be decoded.
    void addDamaged(const std::wstring& name);

    /// Writes the show script, bytes as they stand.
    void writeScript(std::string_view lines);

    /// The pictures added, in the order they were added.
    const std::vector<TestPicture>& pictures() const { return pictures_; }

  private:
    TemporaryFolder folder_;
    std::vector<TestPicture> pictures_;
};

/// "bild07.jpg" for 7.
std::wstring pictureName(int number);

}  // namespace program
