#include "overview/tool_tip_text.h"

#include "overview/entry_lines.h"
#include "text/trimming.h"

namespace overview {

std::wstring toolTipText(std::wstring_view entry, bool video, std::wstring_view date) {
    const script::Entry meaning = entryMeaning(entry);
    std::wstring lines;
    const auto add = [&](std::wstring_view line) { lines.append(line).append(L"\r"); };
    if (const std::wstring_view title = text::trimmed(meaning.title); !title.empty()) {
        add(title);
    }
    if (!meaning.pause.empty()) {
        add(L"Pause:" + meaning.pause + L"s    ");
    }
    if (!meaning.effect.empty()) {
        add(L"nächster Effekt:" + meaning.effect);
    }
    if (meaning.dateFlag) {
        add(L"Datum anzeigen");
    }
    if (meaning.music) {
        add(L"Musik: " + *meaning.music);
    }
    if (video) {
        add(L"[Video]");
    }
    add(date);
    return lines;
}

}  // namespace overview
