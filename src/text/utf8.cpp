#include "text/utf8.h"

#include <algorithm>
#include <array>

namespace text {

namespace {

constexpr char32_t kLastCode = 0x10FFFF;

constexpr bool isHighSurrogate(char32_t code) {
    return code >= 0xD800 && code <= 0xDBFF;
}

constexpr bool isLowSurrogate(char32_t code) {
    return code >= 0xDC00 && code <= 0xDFFF;
}

/// The number of bytes in the sequence that `lead` begins, 0 when it begins none.
constexpr std::size_t sequenceLength(unsigned char lead) {
    if (lead < 0x80) {
        return 1;
    }
    if (lead >= 0xC2 && lead <= 0xDF) {
        return 2;
    }
    if (lead >= 0xE0 && lead <= 0xEF) {
        return 3;
    }
    return lead >= 0xF0 && lead <= 0xF4 ? 4 : 0;
}

/// One character of two bytes and more at the front of `bytes`; std::nullopt when there is none.
std::optional<char32_t> decodeSequence(std::string_view bytes, std::size_t length) {
    constexpr std::array<char32_t, 5> smallest{0, 0, 0x80, 0x800, 0x10000};
    if (length < 2 || bytes.size() < length) {
        return std::nullopt;
    }
    char32_t code = static_cast<unsigned char>(bytes[0]) & (0xFFU >> (length + 1));
    for (std::size_t i = 1; i < length; ++i) {
        const auto byte = static_cast<unsigned char>(bytes[i]);
        if ((byte & 0xC0U) != 0x80U) {
            return std::nullopt;
        }
        code = (code << 6U) | (byte & 0x3FU);
    }
    if (code < smallest[length] || code > kLastCode) {
        return std::nullopt;
    }
    return code;
}

/// Puts a character at `to`, in one unit or two; the place behind it.
wchar_t* put(wchar_t* to, char32_t code) {
    if (sizeof(wchar_t) == 2 && code > 0xFFFF) {
        *to++ = static_cast<wchar_t>(0xD800 + ((code - 0x10000) >> 10U));
        *to++ = static_cast<wchar_t>(0xDC00 + ((code - 0x10000) & 0x3FFU));
    } else {
        *to++ = static_cast<wchar_t>(code);
    }
    return to;
}

void append(std::string& bytes, char32_t code) {
    const auto tail = [&](unsigned shift) { bytes += static_cast<char>(0x80U | ((code >> shift) & 0x3FU)); };
    if (code < 0x80) {
        bytes += static_cast<char>(code);
    } else if (code < 0x800) {
        bytes += static_cast<char>(0xC0U | (code >> 6U));
        tail(0);
    } else if (code < 0x10000) {
        bytes += static_cast<char>(0xE0U | (code >> 12U));
        tail(6);
        tail(0);
    } else {
        bytes += static_cast<char>(0xF0U | (code >> 18U));
        tail(12);
        tail(6);
        tail(0);
    }
}

char32_t codeOf(wchar_t c) {
    return sizeof(wchar_t) == 2 ? static_cast<char32_t>(static_cast<char16_t>(c))
                                : std::min(static_cast<char32_t>(c), kLastCode);
}

}  // namespace

bool hasUtf8Mark(std::string_view bytes) {
    return bytes.substr(0, kUtf8Mark.size()) == kUtf8Mark;
}

std::optional<std::wstring> decodeUtf8(std::string_view bytes) {
    // No sequence gives more units than it has bytes.
    std::wstring text(bytes.size(), L'\0');
    wchar_t* to = text.data();
    bool afterHigh = false;
    for (std::size_t at = 0; at < bytes.size();) {
        const auto lead = static_cast<unsigned char>(bytes[at]);
        if (lead < 0x80) {
            *to++ = static_cast<wchar_t>(lead);
            ++at;
            afterHigh = false;
            continue;
        }
        const std::size_t length = sequenceLength(lead);
        const std::optional<char32_t> code = decodeSequence(bytes.substr(at), length);
        if (!code || (afterHigh && isLowSurrogate(*code))) {
            return std::nullopt;
        }
        to = put(to, *code);
        afterHigh = isHighSurrogate(*code);
        at += length;
    }
    text.resize(static_cast<std::size_t>(to - text.data()));
    return text;
}

std::string encodeUtf8(std::wstring_view text) {
    std::string bytes;
    bytes.reserve(text.size() + text.size() / 8);
    for (std::size_t i = 0; i < text.size(); ++i) {
        char32_t code = codeOf(text[i]);
        if (isHighSurrogate(code) && i + 1 < text.size() && isLowSurrogate(codeOf(text[i + 1]))) {
            code = 0x10000 + ((code - 0xD800) << 10U) + (codeOf(text[i + 1]) - 0xDC00);
            ++i;
        }
        append(bytes, code);
    }
    return bytes;
}

std::string encodeUtf8File(std::wstring_view text) {
    return std::string(kUtf8Mark) + encodeUtf8(text);
}

}  // namespace text
