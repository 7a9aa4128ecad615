#include "edit/entry_line.h"

#include <optional>

#include "media/music_list.h"
#include "overview/entry_lines.h"
#include "text/text_number.h"
#include "text/trimming.h"

namespace edit {

namespace {

constexpr auto npos = std::wstring_view::npos;
constexpr int kLongestPause = 60;
constexpr int kEffectOffset = 63;
constexpr int kFirstEffect = L'A' - kEffectOffset;
constexpr int kLastEffect = L'Z' - kEffectOffset;
constexpr wchar_t kStar = L'*';

/// The text behind the first occurrence of a marker.
std::optional<std::wstring_view> behind(std::wstring_view line, std::wstring_view marker) {
    const std::size_t at = line.find(marker);
    return at == npos ? std::nullopt : std::optional(line.substr(at + marker.size()));
}

int pauseIndex(std::wstring_view text) {
    const int seconds = text::wholeNumber(text::numericValue(text));
    return seconds >= 1 && seconds <= kLongestPause ? seconds : 0;
}

int musicIndex(std::wstring_view text, const std::vector<std::wstring>& musicFiles) {
    int index = -1;
    for (std::size_t i = 0; i < musicFiles.size(); ++i) {
        if (musicFiles[i].find(text) != npos) {
            index = static_cast<int>(i) + 1;
        }
    }
    return index;
}

void append(std::wstring& line, std::wstring_view marker, std::wstring_view value) {
    if (!value.empty()) {
        line += marker;
        line += text::trimmed(value);
    }
}

}  // namespace

std::vector<std::wstring> pauseItems() {
    std::vector<std::wstring> items{L""};
    for (int seconds = 1; seconds <= kLongestPause; ++seconds) {
        items.push_back(std::to_wstring(seconds));
    }
    return items;
}

std::vector<std::wstring> effectItems() {
    std::vector<std::wstring> items{L"", L" #"};
    for (wchar_t letter = L'A'; letter <= L'Z'; ++letter) {
        items.push_back(std::wstring{L' ', letter});
    }
    return items;
}

int effectIndex(wchar_t effect) {
    if (effect == L'#') {
        return 1;
    }
    const int index = static_cast<int>(effect) - kEffectOffset;
    return index >= kFirstEffect && index <= kLastEffect ? index : 0;
}

std::vector<std::wstring> musicItems(const std::vector<std::wstring>& musicFiles) {
    if (musicFiles.empty()) {
        return {};
    }
    std::vector<std::wstring> items{L""};
    for (const std::wstring& name : musicFiles) {
        items.push_back(media::musicTitle(name));
    }
    items.emplace_back(media::kStopRequest);
    return items;
}

EntryFields readEntryLine(std::wstring_view line, const std::vector<std::wstring>& musicFiles) {
    EntryFields fields;
    const std::size_t star = line.find(kStar);
    fields.title = star == npos ? line : text::trimmed(line.substr(0, star));
    if (const auto pause = behind(line, L"*P=")) {
        fields.pause = pauseIndex(pause->substr(0, pause->find(kStar)));
    }
    if (const auto effect = behind(line, L"*E="); effect && !effect->empty()) {
        fields.effect = effectIndex(effect->front());
    }
    fields.date = line.find(L"*D") != npos;
    if (const auto music = behind(line, L"*M=")) {
        fields.music = musicIndex(*music, musicFiles);
    }
    return fields;
}

std::wstring writeEntryLine(const EntryTexts& texts) {
    std::wstring line(text::trimmed(texts.title));
    append(line, L" *P=", texts.pause);
    append(line, L" *E=", texts.effect);
    if (texts.date) {
        line += L" *D";
    }
    append(line, L" *M=", texts.music);
    return line;
}

std::wstring editedEntryLine(std::wstring_view line, const EntryTexts& opened, const EntryTexts& now) {
    std::wstring written = writeEntryLine(now);
    const bool loses = overview::entryMeaning(line) != overview::entryMeaning(written);
    return now == opened && loses ? std::wstring(line) : written;
}

TitleText titleText(std::wstring_view text) {
    TitleText title;
    for (std::size_t i = 0; i < text.size(); ++i) {
        const bool secondOfPair = i > 0 && text[i - 1] == L'\r' && text[i] == L'\n';
        if (text[i] == kStar) {
            title.refused = true;
        } else if (!secondOfPair) {
            title.text += text[i] == L'\r' || text[i] == L'\n' ? L' ' : text[i];
        }
    }
    return title;
}

std::wstring editorCaption(int index) {
    return L"   Untertitel/Pause/Musik  bearbeiten  (Bild " + std::to_wstring(index + 1) + L")";
}

}  // namespace edit
