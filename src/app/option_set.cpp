#include "app/option_set.h"

#include "text/text_number.h"
#include "text/trimming.h"

namespace app {

namespace {

constexpr auto npos = std::wstring_view::npos;

int checkState(const OptionReader& read, const OptionKey& key) {
    const std::wstring value = cutOptionValue(key, read(key));
    const std::wstring_view digit = text::trimmed(value);
    if (digit.size() != 1 || digit.front() < L'0' || digit.front() > L'2') {
        return key.fallback[0] - L'0';
    }
    return static_cast<int>(digit.front() - L'0');
}

/// The first character of the last component of a path.
std::size_t lastComponent(std::wstring_view path) {
    const std::size_t backslash = path.rfind(L'\\');
    return backslash == npos ? 0 : backslash + 1;
}

}  // namespace

std::wstring cutOptionValue(const OptionKey& key, std::wstring_view value) {
    return std::wstring(text::untilNul(value).substr(0, key.longest));
}

OptionSet readOptionSet(const OptionReader& read) {
    const auto text = [&](const OptionKey& key) { return cutOptionValue(key, read(key)); };
    OptionSet set;
    set.delay = text(kDelayKey);
    set.loop = checkState(read, kLoopKey);
    set.date = checkState(read, kDateKey);
    set.sound = checkState(read, kSoundKey);
    set.music = checkState(read, kMusicKey);
    set.effects = checkState(read, kEffectsKey);
    set.drive = text(kDriveKey);
    set.dir = text(kDirKey);
    return set;
}

bool writeOptionSet(const OptionSet& set, const OptionWriter& write) {
    return write(kDriveKey, set.drive) && write(kDirKey, set.dir) && write(kDelayKey, set.delay) &&
           write(kLoopKey, std::to_wstring(set.loop)) && write(kDateKey, std::to_wstring(set.date)) &&
           write(kSoundKey, std::to_wstring(set.sound)) && write(kMusicKey, std::to_wstring(set.music)) &&
           write(kEffectsKey, std::to_wstring(set.effects));
}

std::wstring optionSetName(int index) {
    return L"Set" + std::to_wstring(index + 1);
}

std::optional<int> optionSetIndex(std::wstring_view name) {
    const int number = text::wholeNumber16(text::lastCharacters(name, 1));
    if (number < 1 || number > kOptionSetCount) {
        return std::nullopt;
    }
    return number - 1;
}

std::wstring folderDisplayName(std::wstring_view path) {
    const std::size_t begin = lastComponent(path);
    const std::size_t dot = path.find(L'.');
    if (dot == npos) {
        return std::wstring(path.substr(begin));
    }
    return dot < begin ? std::wstring() : std::wstring(path.substr(begin, dot - begin));
}

std::wstring withBackslash(std::wstring_view programDir) {
    std::wstring result(programDir);
    if (result.empty() || result.back() != L'\\') {
        result += L'\\';
    }
    return result;
}

bool usesScreenShape(std::wstring_view value) {
    return text::trimmed(value) != L"4:3";
}

bool matchesColours(std::wstring_view value) {
    return !text::equalsIgnoringCase(text::trimmed(value), L"off");
}

}  // namespace app
