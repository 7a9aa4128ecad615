#include "media/file_stream.h"

#include <algorithm>

#include "platform/error.h"

namespace media {

FileStream::FileStream(const std::wstring& path)
    : file_(CreateFileW(path.c_str(), GENERIC_READ, FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE,
                        nullptr, OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr)) {
    LARGE_INTEGER size{};
    if (!file_ || !GetFileSizeEx(file_.get(), &size)) {
        throw platform::Error("CreateFile", GetLastError());
    }
    fileLength_ = size.QuadPart;
}

std::size_t FileStream::read(std::int64_t position, std::span<std::uint8_t> target) const {
    if (position < 0 || position >= length()) {
        return 0;
    }
    std::size_t done = 0;
    if (position < fileLength_) {
        const auto inFile = static_cast<std::uint64_t>(fileLength_ - position);
        done = readFile(
            position, target.first(static_cast<std::size_t>(std::min<std::uint64_t>(target.size(), inFile))));
        if (done < inFile) {
            return done;
        }
    }
    const auto skip = static_cast<std::size_t>(position + static_cast<std::int64_t>(done) - fileLength_);
    const std::size_t more = std::min(target.size() - done, appended_.size() - skip);
    std::copy_n(appended_.begin() + static_cast<std::ptrdiff_t>(skip), more,
                target.begin() + static_cast<std::ptrdiff_t>(done));
    return done + more;
}

std::size_t FileStream::readFile(std::int64_t position, std::span<std::uint8_t> target) const {
    std::size_t done = 0;
    while (done < target.size()) {
        const auto at = static_cast<std::uint64_t>(position) + done;
        OVERLAPPED where{};
        where.Offset = static_cast<DWORD>(at & 0xFFFFFFFF);
        where.OffsetHigh = static_cast<DWORD>(at >> 32);
        const DWORD wanted = static_cast<DWORD>(std::min<std::size_t>(target.size() - done, 1u << 24));
        DWORD got = 0;
        if (!ReadFile(file_.get(), target.data() + done, wanted, &got, &where) || got == 0) {
            break;
        }
        done += got;
    }
    return done;
}

}  // namespace media
