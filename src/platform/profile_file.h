#pragma once

#include <cstddef>
#include <string>

namespace platform {

/// A settings file of sections and "key=value" lines, read and written by the system's profile strings in
/// the system's code page. Nothing is kept between reads.
class ProfileFile {
  public:
    /// `path`: full; the file need not exist.
    explicit ProfileFile(std::wstring path) : path_(std::move(path)) {}

    /// The first `longest` characters of a value; `fallback`, cut likewise, where file, section or key is
    /// missing.
    std::wstring read(const std::wstring& section, const std::wstring& key, const std::wstring& fallback,
                      std::size_t longest) const;
    /// Whether the value was written. A file that cannot be written stays as it was.
    bool write(const std::wstring& section, const std::wstring& key, const std::wstring& value) const;

    const std::wstring& path() const { return path_; }

  private:
    std::wstring path_;
};

}  // namespace platform
