#include "app/parameter_text.h"

#include "text/text_number.h"
#include "text/trimming.h"

#include <algorithm>

namespace app {

namespace {

constexpr auto npos = std::wstring_view::npos;
constexpr std::wstring_view kProgramFile = L"Panorell.exe ";
constexpr std::wstring_view kKeyLetters = L"PDEVMSLR";

/// Up to `length` characters behind the first occurrence of `key`; fewer at the end of the text.
std::optional<std::wstring_view> valueOf(std::wstring_view text, std::wstring_view key, std::size_t length) {
    const std::size_t at = text.find(key);
    if (at == npos) {
        return std::nullopt;
    }
    return text.substr(at + key.size(), length);
}

/// The value of a one-character key when it is a digit from `first` to `last`.
std::optional<int> digitOf(std::wstring_view text, std::wstring_view key, wchar_t first, wchar_t last) {
    const auto value = valueOf(text, key, 1);
    if (!value || value->empty() || value->front() < first || value->front() > last) {
        return std::nullopt;
    }
    return static_cast<int>(value->front() - L'0');
}

std::optional<int> checkStateOf(std::wstring_view text, std::wstring_view key) {
    return digitOf(text, key, L'0', L'2');
}

std::wstring withoutQuotes(std::wstring_view text) {
    std::wstring result(text);
    std::erase(result, L'"');
    return result;
}

/// Whether a text holds a blank, a key letter and "=": then it is more than a folder.
bool holdsKey(std::wstring_view text) {
    for (std::size_t at = text.find(L'='); at != npos; at = text.find(L'=', at + 1)) {
        if (at >= 2 && text[at - 2] == L' ' && kKeyLetters.find(text[at - 1]) != npos) {
            return true;
        }
    }
    return false;
}

/// A folder in quotes of its own: everything between them. Quotes around the whole of a parameter text
/// enclose keys too and do not count.
std::optional<std::wstring_view> quotedFolder(std::wstring_view text) {
    const std::size_t colon = text.find(L':');
    if (colon == npos || colon < 2 || text[colon - 2] != L'"' || text[colon - 1] == L'"') {
        return std::nullopt;
    }
    const std::size_t closing = text.find(L'"', colon);
    if (closing == npos) {
        return std::nullopt;
    }
    const std::wstring_view folder = text.substr(colon - 1, closing - colon + 1);
    return holdsKey(folder) ? std::nullopt : std::optional(folder);
}

/// The folder of a text without quotes; std::nullopt when no drive letter stands before a ":".
std::optional<std::wstring_view> plainFolder(std::wstring_view text) {
    const std::size_t colon = text.find(L':');
    if (colon == npos || colon == 0) {
        return std::nullopt;
    }
    const std::size_t equals = text.find(L'=', colon);
    return text.substr(colon - 1, equals == npos ? npos : equals - colon - 1);
}

}  // namespace

std::wstring buildParameterText(const ParameterState& state) {
    std::wstring text = state.folder + L" P=" + state.pauseText;
    text += L" D=" + std::to_wstring(state.date);
    text += L" E=" + std::to_wstring(state.loop);
    text += L" V=" + std::to_wstring(state.videoSound);
    text += L" M=" + std::to_wstring(state.music);
    if (state.optionIndex) {
        text += L" S=" + std::to_wstring(*state.optionIndex + 1);
    }
    return text;
}

std::wstring buildCommand(std::wstring_view programDir, const ParameterState& state) {
    return std::wstring(programDir).append(kProgramFile) + buildParameterText(state);
}

std::wstring buildRestartCommand(std::wstring_view programDir, const ParameterState& state, int startIndex) {
    return buildCommand(programDir, state) + L" L=" + std::to_wstring(startIndex);
}

Parameters parseParameters(std::wstring_view given) {
    const std::wstring text = withoutQuotes(given);
    Parameters result;
    if (const auto digit = digitOf(text, L"S=", L'1', L'4')) {
        result.optionIndex = *digit - 1;
    }
    if (const auto plain = plainFolder(text)) {
        result.drive = text.substr(text.find(L':') - 1, 2);
        result.folder = std::wstring(quotedFolder(given).value_or(*plain));
    }
    if (const auto pause = valueOf(text, L"P=", 2)) {
        result.pauseText = std::wstring(text::trimmed(*pause));
    }
    result.date = checkStateOf(text, L"D=");
    result.loop = checkStateOf(text, L"E=");
    result.videoSound = checkStateOf(text, L"V=");
    result.music = checkStateOf(text, L"M=");
    if (const auto index = valueOf(text, L"L=", 1)) {
        result.startIndex = text::wholeNumber16(*index);
    }
    result.runAtOnce = text.find(L"R=1") != npos;
    return result;
}

std::wstring_view parametersOfCommandLine(std::wstring_view commandLine) {
    commandLine = text::trimmed(commandLine);
    const bool quoted = !commandLine.empty() && commandLine.front() == L'"';
    const std::size_t end = quoted ? commandLine.find(L'"', 1) : commandLine.find(L' ');
    const std::wstring_view parameters =
        end == npos ? std::wstring_view{} : text::trimmed(commandLine.substr(end + 1));
    // A pair of quotes is how a shortcut or a shell writes that there is none.
    return parameters == L"\"\"" ? std::wstring_view{} : parameters;
}

}  // namespace app
