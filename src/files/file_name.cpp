#include "files/file_name.h"

#include <algorithm>
#include <array>
#include <cstdint>

#include "text/trimming.h"

namespace files {

namespace {

constexpr std::size_t kLongestName = 255;

bool isForbidden(wchar_t c) {
    constexpr std::wstring_view kForbidden = L"\\/:*?\"<>|";
    return static_cast<std::uint32_t>(c) < L' ' || kForbidden.find(c) != std::wstring_view::npos;
}

bool hasForbidden(std::wstring_view name) {
    return std::any_of(name.begin(), name.end(), isForbidden);
}

// The digits of COM and LPT, of which the system knows superscript ones as well.
bool isPortDigit(wchar_t c) {
    return (c >= L'1' && c <= L'9') || c == L'\u00B9' || c == L'\u00B2' || c == L'\u00B3';
}

bool isDevice(std::wstring_view name) {
    constexpr std::array<std::wstring_view, 6> kDevices{L"CON", L"PRN",    L"AUX",
                                                        L"NUL", L"CONIN$", L"CONOUT$"};
    // The system drops blanks before the dot: "NUL .txt" is the device too.
    const std::wstring_view stem = text::trimmed(name.substr(0, name.find(L'.')));
    const auto isStem = [&](std::wstring_view device) { return text::equalsIgnoringCase(stem, device); };
    if (std::any_of(kDevices.begin(), kDevices.end(), isStem)) {
        return true;
    }
    constexpr std::size_t kPortLength = 4;
    return stem.size() == kPortLength && isPortDigit(stem.back()) &&
           (text::equalsIgnoringCase(stem.substr(0, 3), L"COM") ||
            text::equalsIgnoringCase(stem.substr(0, 3), L"LPT"));
}

}  // namespace

NameFault nameFault(std::wstring_view name) {
    if (name.empty()) {
        return NameFault::Empty;
    }
    if (hasForbidden(name)) {
        return NameFault::Character;
    }
    if (name.back() == L' ' || name.back() == L'.') {
        return NameFault::TrailingBlankOrDot;
    }
    if (isDevice(name)) {
        return NameFault::Reserved;
    }
    return name.size() > kLongestName ? NameFault::TooLong : NameFault::None;
}

bool isPlainName(std::wstring_view name) {
    return !name.empty() && name != L"." && name != L".." && !hasForbidden(name);
}

}  // namespace files
