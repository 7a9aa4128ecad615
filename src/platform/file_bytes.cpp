#include "platform/file_bytes.h"

#include <windows.h>

#include <algorithm>

#include "platform/directory.h"
#include "platform/error.h"
#include "platform/handles.h"

namespace platform {

std::vector<std::uint8_t> readFileBytes(const std::wstring& path, std::size_t most, std::size_t spare) {
    const File file(CreateFileW(unlimitedPath(path).c_str(), GENERIC_READ,
                                FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE, nullptr,
                                OPEN_EXISTING, FILE_FLAG_SEQUENTIAL_SCAN, nullptr));
    if (!file) {
        throw Error("CreateFileW", GetLastError());
    }
    LARGE_INTEGER size{};
    if (!GetFileSizeEx(file.get(), &size)) {
        throw Error("GetFileSizeEx", GetLastError());
    }
    const auto wanted = static_cast<std::size_t>(
        std::min<std::uint64_t>(most, static_cast<std::uint64_t>(std::max<LONGLONG>(0, size.QuadPart))));
    std::vector<std::uint8_t> bytes;
    bytes.reserve(wanted + spare);
    bytes.resize(wanted);
    std::size_t done = 0;
    while (done < wanted) {
        constexpr std::size_t kPortion = std::size_t{64} << 20;
        DWORD read = 0;
        if (!ReadFile(file.get(), bytes.data() + done, static_cast<DWORD>(std::min(kPortion, wanted - done)),
                      &read, nullptr)) {
            throw Error("ReadFile", GetLastError());
        }
        if (read == 0) {
            break;
        }
        done += read;
    }
    bytes.resize(done);
    return bytes;
}

}  // namespace platform
