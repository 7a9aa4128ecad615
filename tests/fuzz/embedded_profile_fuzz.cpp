#include "fuzz/check.h"
#include "picture/embedded_profile.h"
#include "picture/jpeg_header.h"

#include <cstdint>
#include <vector>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::vector<std::uint8_t> file(data, data + size);
    if (const auto profile = picture::readEmbeddedProfile(file, picture::readJpegHead(file).profileParts)) {
        fuzz::check(!profile->empty() && profile->size() < file.size());
        fuzz::check(profile->size() <= picture::kMostProfileBytes);
    }
    return 0;
}
