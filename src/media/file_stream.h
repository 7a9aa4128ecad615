#pragma once

#include <windows.h>

#include <cstdint>
#include <span>
#include <string>
#include <utility>
#include <vector>

#include "platform/handles.h"

namespace media {

/// The bytes of a file, and behind its end a few more, as one stream.
class FileStream {
  public:
    /// Opens the file for reading; others may read, rename and delete it meanwhile. Throws platform::Error.
    explicit FileStream(const std::wstring& path);

    /// Puts `bytes` behind the file's end.
    void append(std::vector<std::uint8_t> bytes) { appended_ = std::move(bytes); }

    /// In bytes, those put behind the end included.
    std::int64_t length() const { return fileLength_ + static_cast<std::int64_t>(appended_.size()); }

    /// Reads from byte `position` on into `target`; returns how many bytes there were, at most its size.
    /// May be called from any thread, once nothing is appended any more.
    std::size_t read(std::int64_t position, std::span<std::uint8_t> target) const;

  private:
    std::size_t readFile(std::int64_t position, std::span<std::uint8_t> target) const;

    platform::File file_;
    std::int64_t fileLength_ = 0;
    std::vector<std::uint8_t> appended_;
};

}  // namespace media
