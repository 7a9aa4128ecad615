#include "files/file_stamp.h"

namespace files {

namespace {

constexpr std::uint64_t kSecond = 10'000'000;
constexpr std::uint64_t kHour = 3600 * kSecond;
constexpr std::uint64_t kDay = 24 * kHour;
constexpr std::uint64_t kRounding = 2 * kSecond;

bool sameTime(std::uint64_t one, std::uint64_t other) {
    const std::uint64_t apart = one > other ? one - other : other - one;
    const std::uint64_t beyondHours = apart % kHour;
    return apart <= kDay + kRounding && (beyondHours <= kRounding || kHour - beyondHours <= kRounding);
}

}  // namespace

bool sameFile(const FileStamp& one, const FileStamp& other) {
    const bool otherNumber = one.number != 0 && other.number != 0 && one.number != other.number;
    return one.size == other.size && !otherNumber && sameTime(one.written, other.written);
}

}  // namespace files
