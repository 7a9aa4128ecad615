#include "overview/store_rule.h"

#include <algorithm>

#include "text/trimming.h"

namespace overview {

namespace {

constexpr wchar_t kFirstCapital = L'\u00C0';
constexpr wchar_t kLastCapital = L'\u00DE';
constexpr wchar_t kTimes = L'\u00D7';  // no letter, though it stands among them
constexpr wchar_t kToSmall = 0x20;

wchar_t folded(wchar_t c) {
    const bool capital = c >= kFirstCapital && c <= kLastCapital && c != kTimes;
    return capital ? static_cast<wchar_t>(c + kToSmall) : text::lowerAscii(c);
}

}  // namespace

std::wstring thumbnailName(std::wstring_view fileName) {
    return std::wstring(fileName.substr(0, fileName.find(L'.'))) + L".bmp";
}

std::wstring foldedName(std::wstring_view name) {
    std::wstring result(name);
    std::transform(result.begin(), result.end(), result.begin(), folded);
    return result;
}

std::unordered_set<std::wstring> sharedThumbnails(const std::vector<std::wstring>& fileNames) {
    std::unordered_set<std::wstring> seen;
    std::unordered_set<std::wstring> shared;
    for (const std::wstring& name : fileNames) {
        std::wstring thumbnail = foldedName(thumbnailName(name));
        if (!seen.insert(thumbnail).second) {
            shared.insert(std::move(thumbnail));
        }
    }
    return shared;
}

}  // namespace overview
