#include "files/file_filter.h"

#include "text/trimming.h"

namespace files {

namespace {

constexpr auto npos = std::wstring_view::npos;

bool matchesOne(std::wstring_view name, std::wstring_view pattern) {
    std::size_t n = 0;
    std::size_t p = 0;
    std::size_t star = npos;
    std::size_t resume = 0;
    while (n < name.size()) {
        if (p < pattern.size() && pattern[p] == L'*') {
            star = p++;
            resume = n;
        } else if (p < pattern.size() &&
                   (pattern[p] == L'?' || text::lowerAscii(pattern[p]) == text::lowerAscii(name[n]))) {
            ++p;
            ++n;
        } else if (star != npos) {
            p = star + 1;
            n = ++resume;
        } else {
            return false;
        }
    }
    return pattern.find_first_not_of(L'*', p) == npos;
}

bool endsIn(std::wstring_view nameOrPath, std::wstring_view three) {
    return text::equalsIgnoringCase(text::lastCharacters(nameOrPath, 3), three);
}

}  // namespace

bool matchesPattern(std::wstring_view name, std::wstring_view patterns) {
    while (!patterns.empty()) {
        const std::wstring_view pattern = text::trimmed(patterns.substr(0, patterns.find(L';')));
        if (!pattern.empty() && matchesOne(name, pattern)) {
            return true;
        }
        const std::size_t next = patterns.find(L';');
        patterns = next == npos ? std::wstring_view{} : patterns.substr(next + 1);
    }
    return false;
}

bool isListed(std::wstring_view name, bool hidden, std::wstring_view patterns, bool includeHidden) {
    return (includeHidden || !hidden) && matchesPattern(name, patterns);
}

bool isVideoName(std::wstring_view nameOrPath) {
    return endsIn(nameOrPath, L"mpg");
}

bool isPictureName(std::wstring_view nameOrPath) {
    return endsIn(nameOrPath, L"jpg");
}

}  // namespace files
