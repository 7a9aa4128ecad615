#include "overview/entry_lines.h"

#include "text/trimming.h"

namespace overview {

namespace {

constexpr auto npos = std::wstring_view::npos;

std::wstring_view withoutKey(std::wstring_view line, std::wstring_view key) {
    return line.size() > key.size() ? line.substr(key.size() + 1) : std::wstring_view{};
}

}  // namespace

std::wstring LineOwners::ownerOf(std::wstring_view line) const {
    // The longest key comes first.
    for (std::size_t end = line.size(); end != 0 && end != npos; end = line.rfind(L' ', end - 1)) {
        std::wstring key(line.substr(0, end));
        if (keys_.contains(key)) {
            return key;
        }
    }
    return {};
}

Entries entriesOf(std::wstring_view scriptText, const std::vector<std::wstring>& keys) {
    const LineOwners owners(keys);
    std::unordered_map<std::wstring, std::vector<std::wstring_view>> lines;
    for (const std::wstring_view line : script::splitLines(scriptText)) {
        if (const std::wstring key = owners.ownerOf(line); !key.empty()) {
            lines[key].push_back(line);
        }
    }
    Entries entries;
    for (const auto& [key, own] : lines) {
        if (own.size() == 1) {
            entries[key] = std::wstring(withoutKey(own.front(), key));
            continue;
        }
        script::EntryReader reader(key);
        for (const std::wstring_view line : own) {
            reader.line(line);
        }
        entries[key] = entryText(reader.entry());
    }
    return entries;
}

script::Entry entryMeaning(std::wstring_view entry) {
    // A key of no letters, and the character behind it.
    script::EntryReader reader(L"");
    reader.line(L" " + std::wstring(entry));
    return reader.entry();
}

std::wstring entryText(const script::Entry& meaning) {
    std::wstring text = meaning.title;
    text.erase(text.find_last_not_of(L' ') + 1);
    if (!meaning.pause.empty()) {
        text += L" *P=" + meaning.pause;
    }
    if (!meaning.effect.empty()) {
        text += L" *E=" + meaning.effect;
    }
    if (meaning.dateFlag) {
        text += L" *D";
    }
    if (meaning.music) {
        text += L" *M=" + *meaning.music;
    }
    return text;
}

}  // namespace overview
