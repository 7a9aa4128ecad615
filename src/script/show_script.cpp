#include "script/show_script.h"

#include "text/text_number.h"

#include <algorithm>

namespace script {

namespace {

constexpr auto npos = std::wstring_view::npos;

/// The text behind the first occurrence of `marker`, where its value begins.
std::optional<std::wstring_view> behind(std::wstring_view markers, std::wstring_view marker) {
    const std::size_t at = markers.find(marker);
    if (at == npos) {
        return std::nullopt;
    }
    return markers.substr(at + marker.size());
}

template <typename Take>
void forEachLine(std::wstring_view text, Take take) {
    std::size_t begin = 0;
    while (begin < text.size()) {
        std::size_t end = begin;
        while (end < text.size() && text[end] != L'\n' && text[end] != L'\r') {
            ++end;
        }
        take(text.substr(begin, end - begin));
        const bool pair = end + 1 < text.size() && text[end] == L'\r' && text[end + 1] == L'\n';
        begin = end + (pair ? 2 : 1);
    }
}

}  // namespace

std::wstring scriptPath(std::wstring_view folder) {
    return std::wstring(folder) + L"\\" + kScriptFile;
}

void EntryReader::matchingLine(std::wstring_view text) {
    const std::wstring_view rest = text.substr(std::min(key_.size() + 1, text.size()));
    const std::size_t star = rest.find(L'*');
    entry_.title = rest.substr(0, star);
    if (star != npos) {
        readMarkers(rest.substr(star));
    }
}

void EntryReader::readMarkers(std::wstring_view markers) {
    if (const auto pause = behind(markers, L"*P=")) {
        entry_.pause = pause->substr(0, pause->find(L' '));
    }
    if (const auto effect = behind(markers, L"*E=")) {
        entry_.effect = effect->substr(0, 1);
    }
    if (const auto music = behind(markers, L"*M=")) {
        entry_.music = std::wstring(*music);
    }
    if (markers.find(L"*D") != npos) {
        entry_.dateFlag = true;
    }
}

std::vector<std::wstring_view> splitLines(std::wstring_view text) {
    std::vector<std::wstring_view> lines;
    forEachLine(text, [&](std::wstring_view line) { lines.push_back(line); });
    return lines;
}

Entry readEntry(std::wstring_view text, std::wstring_view key) {
    EntryReader reader(key);
    forEachLine(text, [&](std::wstring_view line) { reader.line(line); });
    return reader.entry();
}

bool showsTitle(std::wstring_view title) {
    return !title.empty() && title != L" ";
}

int pauseMilliseconds(std::wstring_view pause) {
    return std::max(0, text::wholeNumber(text::numericValue(pause) * 1000));
}

std::optional<int> effectNumberOf(std::wstring_view effect) {
    if (effect.empty()) {
        return std::nullopt;
    }
    constexpr char32_t last = 0x10FFFF;
    const char32_t code = std::min(static_cast<char32_t>(effect.front()), last);
    return code == U'#' ? 0 : static_cast<int>(code) - 64;
}

}  // namespace script
