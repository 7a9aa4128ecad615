#include "media/music_list.h"

#include "text/text_number.h"
#include "text/trimming.h"

#include <algorithm>
#include <cmath>

namespace media {

namespace {

constexpr std::size_t kPrefixLength = 3;
constexpr std::size_t kExtensionLength = 4;

bool beginsWithDigit(std::wstring_view text) {
    return !text.empty() && text.front() >= L'0' && text.front() <= L'9';
}

}  // namespace

std::wstring musicEntry(std::wstring_view fileName) {
    const std::wstring name(fileName);
    return beginsWithDigit(fileName) ? name : L"   " + name;
}

std::vector<std::wstring> musicEntries(const std::vector<std::wstring>& fileNames) {
    std::vector<std::wstring> entries;
    entries.reserve(fileNames.size());
    for (const std::wstring& name : fileNames) {
        entries.push_back(musicEntry(name));
    }
    return entries;
}

bool isLocked(std::wstring_view entry) {
    return entry.substr(0, 2) == L"99";
}

std::wstring fileNameOfEntry(std::wstring_view entry) {
    return std::wstring(text::trimmed(entry));
}

std::wstring musicTitle(std::wstring_view fileName) {
    const std::size_t prefix = beginsWithDigit(fileName) ? kPrefixLength : 0;
    if (fileName.size() < prefix + kExtensionLength) {
        return {};
    }
    return std::wstring(fileName.substr(prefix, fileName.size() - prefix - kExtensionLength));
}

int nextMusicIndex(int index, int count) {
    return index + 1 < count ? index + 1 : 0;
}

Rotation skipLocked(const std::vector<std::wstring>& musicList, int index) {
    const int count = static_cast<int>(musicList.size());
    int at = index >= 0 && index < count ? index : 0;
    if (count == 0) {
        return {at, false};
    }
    int skipped = 0;
    while (isLocked(musicList[static_cast<std::size_t>(at)])) {
        at = nextMusicIndex(at, count);
        if (++skipped > count) {
            return {at, false};
        }
    }
    return {at, true};
}

int requestedIndex(const std::vector<std::wstring>& musicList, std::wstring_view request, int index) {
    for (std::size_t i = musicList.size(); i-- > 0;) {
        if (musicList[i].find(request) != std::wstring::npos) {
            return static_cast<int>(i);
        }
    }
    return index;
}

bool isBeforeEnd(float secondsOfDay, int musicEndTime) {
    return static_cast<double>(secondsOfDay) < musicEndTime;
}

int musicEndTime(float secondsOfDay, std::string_view lengthReply) {
    return text::wholeNumber(std::floor(secondsOfDay + text::numericValue(lengthReply) + 2));
}

}  // namespace media
