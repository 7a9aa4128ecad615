#include "fuzz/check.h"
#include "script/picture_key.h"
#include "script/show_script.h"
#include "support/literal_script_reader.h"
#include "text/utf8.h"

#include <algorithm>
#include <cstdint>
#include <string>

namespace {

using fuzz::check;

void checkEntry(const std::wstring& text, const std::wstring& key) {
    const script::Entry entry = script::readEntry(text, key);
    check(entry == test::LiteralScriptReader::read(text, key));
    check(entry.title.find(L'*') == std::wstring::npos);
    check(entry.pause.find(L' ') == std::wstring::npos);
    check(entry.effect.size() <= 1);
    check(script::pauseMilliseconds(entry.pause) >= 0);
    check(script::effectNumberOf(entry.effect).has_value() == !entry.effect.empty());
    check(script::PictureKey(key).find_first_of(L".\\") == std::wstring::npos);
}

void checkLines(const std::wstring& text) {
    std::size_t characters = 0;
    for (const std::wstring_view line : script::splitLines(text)) {
        check(line.find_first_of(L"\r\n") == std::wstring_view::npos);
        characters += line.size();
    }
    for (const wchar_t c : text) {
        characters += c == L'\r' || c == L'\n' ? 1U : 0U;
    }
    check(characters == text.size());
}

}  // namespace

/// The first line of the input is the key, the rest the script; read byte by byte and as UTF-8.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string_view bytes(reinterpret_cast<const char*>(data), size);
    const std::size_t end = std::min(bytes.find('\n'), size);
    const std::string_view keyBytes = bytes.substr(0, end);
    const std::string_view textBytes = bytes.substr(std::min(end + 1, size));
    const std::wstring key(data, data + end);
    const std::wstring text(data + (size - textBytes.size()), data + size);
    checkLines(text);
    checkEntry(text, key);
    check(text::decodeUtf8(text::encodeUtf8(text)) == text);
    const auto wideText = text::decodeUtf8(textBytes);
    const auto wideKey = text::decodeUtf8(keyBytes);
    if (wideText && wideKey) {
        check(text::encodeUtf8(*wideText) == textBytes);
        checkEntry(*wideText, *wideKey);
    }
    return 0;
}
