#include "files/journal.h"

#include <algorithm>
#include <charconv>
#include <system_error>

#include "files/file_name.h"
#include "files/file_system.h"
#include "text/trimming.h"
#include "text/utf8.h"

namespace files {

namespace {

constexpr std::string_view kTitle = "Panorell-Journal ";
constexpr std::string_view kVersion = "1";
constexpr std::string_view kNothing = "-";
constexpr int kHexadecimal = 16;

std::uint64_t checksum(std::string_view bytes) {
    // FNV-1a: the question is only whether the file was written to its end.
    std::uint64_t sum = 14695981039346656037U;
    for (const char byte : bytes) {
        sum = (sum ^ static_cast<unsigned char>(byte)) * 1099511628211U;
    }
    return sum;
}

std::string number(std::uint64_t value, int base = 10) {
    char digits[24];
    const auto end = std::to_chars(std::begin(digits), std::end(digits), value, base).ptr;
    return {std::begin(digits), end};
}

std::optional<std::uint64_t> numberIn(std::string_view digits, int base = 10) {
    std::uint64_t value = 0;
    const auto [end, fault] = std::from_chars(digits.data(), digits.data() + digits.size(), value, base);
    if (fault != std::errc() || end != digits.data() + digits.size()) {
        return std::nullopt;
    }
    return value;
}

// A script may be in any code page, while the journal is lines of UTF-8.
std::string escaped(std::string_view bytes) {
    constexpr std::string_view kDigits = "0123456789ABCDEF";
    std::string text;
    text.reserve(bytes.size());
    for (const char byte : bytes) {
        const auto code = static_cast<unsigned char>(byte);
        if (code >= ' ' && code < 0x7F && byte != '%') {
            text += byte;
        } else {
            text += '%';
            text += kDigits[code / kHexadecimal];
            text += kDigits[code % kHexadecimal];
        }
    }
    return text;
}

std::optional<std::string> unescaped(std::string_view text) {
    std::string bytes;
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (text[i] != '%') {
            bytes += text[i];
            continue;
        }
        const auto code = numberIn(text.substr(i + 1, 2), kHexadecimal);
        if (!code || i + 2 >= text.size()) {
            return std::nullopt;
        }
        bytes += static_cast<char>(*code);
        i += 2;
    }
    return bytes;
}

std::string content(const std::optional<std::string>& bytes) {
    return bytes ? std::string("=").append(escaped(*bytes)) : std::string(kNothing);
}

void addLine(std::string& bytes, std::initializer_list<std::string> fields) {
    const char* gap = "";
    for (const std::string& field : fields) {
        bytes.append(gap).append(field);
        gap = "\t";
    }
    bytes += '\n';
}

std::string endLine(std::string_view before) {
    std::string line;
    addLine(line, {"end", number(before.size()), number(checksum(before), kHexadecimal)});
    return line;
}

std::vector<std::string_view> parts(std::string_view text, char gap) {
    std::vector<std::string_view> found;
    for (;;) {
        const std::size_t end = text.find(gap);
        found.push_back(text.substr(0, end));
        if (end == std::string_view::npos) {
            return found;
        }
        text.remove_prefix(end + 1);
    }
}

bool staysInside(std::wstring_view name) {
    return isCacheName(name) ? isPlainName(name.substr(kCacheFolder.size() + 1)) : isPlainName(name);
}

/// Takes the lines of a journal one after the other.
class Reader {
  public:
    explicit Reader(Journal& journal) : journal_(journal) {}

    bool line(std::string_view text) {
        fields_ = parts(text, '\t');
        const std::string_view kind = fields_.front();
        if (kind == "move") {
            return move();
        }
        if (kind == "script") {
            return script();
        }
        if (kind == "drop" && fields_.size() == 2) {
            journal_.drops.push_back(name(1));
            return good_ && isCacheName(journal_.drops.back());
        }
        if (kind == "deleted" && fields_.size() == 2) {
            journal_.deleted.push_back(name(1));
            return good_;
        }
        journal_.keep = journal_.keep || text == "keep";
        return text == "keep";
    }

  private:
    bool move() {
        constexpr std::size_t kFields = 9;
        if (fields_.size() != kFields) {
            return false;
        }
        JournalMove read{name(1),       name(2),      name(3), {value(4), value(5), value(6)},
                         attributes(7), attributes(8)};
        const bool cache = isCacheName(read.oldName);
        good_ = good_ && cache == isCacheName(read.newName) && cache == isCacheName(read.temporaryName);
        journal_.moves.push_back(std::move(read));
        return good_;
    }

    bool script() {
        constexpr std::size_t kFields = 5;
        if (fields_.size() != kFields) {
            return false;
        }
        journal_.temporaryScript = name(2);
        journal_.script = ScriptChange{name(1), bytes(3), bytes(4)};
        return good_ && isScriptName(journal_.script->name) && isScriptName(journal_.temporaryScript);
    }

    // A script may vanish; a picture never does.
    static bool isScriptName(std::wstring_view name) {
        constexpr std::wstring_view kExtension = L".txt";
        return !isCacheName(name) && name.size() > kExtension.size() &&
               text::equalsIgnoringCase(name.substr(name.size() - kExtension.size()), kExtension);
    }

    std::wstring name(std::size_t field) {
        const std::optional<std::wstring> text = text::decodeUtf8(fields_[field]);
        good_ = good_ && text && staysInside(*text);
        return text.value_or(std::wstring());
    }

    std::uint64_t value(std::size_t field) {
        const std::optional<std::uint64_t> read = numberIn(fields_[field]);
        good_ = good_ && read;
        return read.value_or(0);
    }

    std::uint32_t attributes(std::size_t field) {
        return static_cast<std::uint32_t>(value(field)) & kKeptAttributes;
    }

    std::optional<std::string> bytes(std::size_t field) {
        const std::string_view text = fields_[field];
        if (text == kNothing) {
            return std::nullopt;
        }
        std::optional<std::string> read = text.starts_with('=') ? unescaped(text.substr(1)) : std::nullopt;
        good_ = good_ && read;
        return read;
    }

    Journal& journal_;
    std::vector<std::string_view> fields_;
    bool good_ = true;
};

// A file whose content did not come to the medium is cut off or ends in zeros.
bool beginsLikeJournal(std::string_view bytes) {
    const std::string_view written = bytes.substr(0, bytes.find_last_not_of('\0') + 1);
    return written.starts_with(kTitle) || kTitle.starts_with(written);
}

Phase lastPhase(std::string_view marks) {
    Phase last = Phase::First;
    // What stands behind the last line end was not written to its end.
    std::vector<std::string_view> lines = parts(marks, '\n');
    lines.pop_back();
    for (const std::string_view line : lines) {
        for (const Phase phase : {Phase::First, Phase::Second, Phase::Done}) {
            if (phaseMark(phase) == std::string("\n").append(line).append("\n")) {
                last = phase;
            }
        }
    }
    return last;
}

}  // namespace

bool isCacheName(std::wstring_view name) {
    return name.size() > kCacheFolder.size() && name.starts_with(kCacheFolder) &&
           name[kCacheFolder.size()] == L'\\';
}

std::string journalBytes(const Journal& journal) {
    using text::encodeUtf8;
    std::string bytes = std::string(kTitle) + std::string(kVersion) + "\n";
    if (journal.keep) {
        addLine(bytes, {"keep"});
    }
    for (const JournalMove& move : journal.moves) {
        addLine(bytes, {"move", encodeUtf8(move.oldName), encodeUtf8(move.temporaryName),
                        encodeUtf8(move.newName), number(move.stamp.size), number(move.stamp.written),
                        number(move.stamp.number), number(move.oldAttributes), number(move.newAttributes)});
    }
    for (const std::wstring& name : journal.drops) {
        addLine(bytes, {"drop", encodeUtf8(name)});
    }
    for (const std::wstring& name : journal.deleted) {
        addLine(bytes, {"deleted", encodeUtf8(name)});
    }
    if (journal.script) {
        addLine(bytes, {"script", encodeUtf8(journal.script->name), encodeUtf8(journal.temporaryScript),
                        content(journal.script->before), content(journal.script->after)});
    }
    return bytes + endLine(bytes);
}

std::string phaseMark(Phase phase) {
    // The line end in front parts it from a mark that was torn.
    switch (phase) {
        case Phase::First:
            return "\nfirst\n";
        case Phase::Second:
            return "\nsecond\n";
        default:
            return "\ndone\n";
    }
}

JournalReading readJournal(std::string_view bytes) {
    JournalReading reading;
    if (!beginsLikeJournal(bytes)) {
        reading.kind = JournalReading::Kind::Foreign;
        return reading;
    }
    const std::size_t titleEnd = bytes.find('\n');
    if (titleEnd == std::string_view::npos || !bytes.starts_with(kTitle)) {
        return reading;
    }
    if (bytes.substr(kTitle.size(), titleEnd - kTitle.size()) != kVersion) {
        reading.kind = JournalReading::Kind::Foreign;
        return reading;
    }
    const std::size_t end = bytes.find("\nend\t");
    const std::string_view body = bytes.substr(0, end == std::string_view::npos ? 0 : end + 1);
    const std::string expected = endLine(body);
    if (body.empty() || !bytes.substr(body.size()).starts_with(expected)) {
        return reading;
    }
    reading.kind = JournalReading::Kind::Whole;
    Reader reader(reading.journal);
    std::string_view lines = body.substr(titleEnd + 1);
    for (; !lines.empty(); lines.remove_prefix(lines.find('\n') + 1)) {
        if (!reader.line(lines.substr(0, lines.find('\n')))) {
            reading.kind = JournalReading::Kind::Foreign;
        }
    }
    reading.phase = lastPhase(bytes.substr(body.size() + expected.size()));
    return reading;
}

}  // namespace files
