#pragma once

#include "script/show_script.h"

#include <string>
#include <string_view>

namespace test {

/// The show-script reader written down step by step, with positions counted from 1 and every step taken
/// on every line: slow, and plain enough to compare the real one with.
class LiteralScriptReader {
  public:
    static script::Entry read(std::wstring_view text, const std::wstring& key) {
        LiteralScriptReader reader;
        for (const std::wstring_view line : script::splitLines(text)) {
            reader.step(std::wstring(line), key);
        }
        return {reader.title_, reader.pause_, reader.effect_, reader.music_, reader.dateFlag_};
    }

  private:
    /// The position of `what` from 1 on, 0 for none.
    static std::size_t position(const std::wstring& text, const std::wstring& what) {
        const std::size_t at = text.find(what);
        return at == std::wstring::npos ? 0 : at + 1;
    }

    static std::wstring middle(const std::wstring& text, std::size_t from) {
        return from > text.size() ? std::wstring() : text.substr(from - 1);
    }

    static std::wstring left(const std::wstring& text, std::size_t count) { return text.substr(0, count); }

    void step(const std::wstring& line, const std::wstring& key) {
        if (left(line, key.size()) == key) {
            title_ = middle(line, key.size() + 2);
        }
        if (const std::size_t p = position(title_, L"*")) {
            markers_ = middle(title_, p);
            title_ = left(title_, p - 1);
        }
        if (markers_.empty()) {
            return;
        }
        if (const std::size_t p = position(markers_, L"*P=")) {
            pause_ = middle(markers_, p + 3);
            if (const std::size_t q = position(pause_, L" ")) {
                pause_ = left(pause_, q - 1);
            }
        }
        if (const std::size_t p = position(markers_, L"*E=")) {
            effect_ = left(middle(markers_, p + 3), 1);
        }
        if (const std::size_t p = position(markers_, L"*M=")) {
            music_ = middle(markers_, p + 3);
        }
        if (position(markers_, L"*D") != 0) {
            dateFlag_ = true;
        }
    }

    std::wstring title_;
    std::wstring markers_;
    std::wstring pause_;
    std::wstring effect_;
    std::optional<std::wstring> music_;
    bool dateFlag_ = false;
};

}  // namespace test
