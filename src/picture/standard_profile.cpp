#include "picture/standard_profile.h"

#include <array>
#include <cmath>
#include <cstddef>
#include <string_view>

#include "picture/colour_profile.h"

namespace picture {

namespace {

using Bytes = std::vector<std::uint8_t>;

void append(Bytes& bytes, std::string_view letters) {
    for (const char letter : letters) {
        bytes.push_back(static_cast<std::uint8_t>(letter));
    }
}

void appendNumber(Bytes& bytes, std::uint32_t value, int length) {
    for (int i = length - 1; i >= 0; --i) {
        bytes.push_back(static_cast<std::uint8_t>(value >> (8 * i)));
    }
}

/// The start of an element: its type and four bytes that are always 0.
Bytes elementOf(std::string_view type) {
    Bytes element;
    append(element, type);
    appendNumber(element, 0, 4);
    return element;
}

void appendFixed(Bytes& bytes, double value) {
    appendNumber(bytes, static_cast<std::uint32_t>(std::lround(value * 65536)), 4);
}

Bytes xyzElement(double x, double y, double z) {
    Bytes element = elementOf("XYZ ");
    for (const double value : {x, y, z}) {
        appendFixed(element, value);
    }
    return element;
}

Bytes curveElement(const ToneCurve& curve) {
    constexpr std::uint32_t kEntries = 1024;
    Bytes element = elementOf("curv");
    appendNumber(element, kEntries, 4);
    for (std::uint32_t i = 0; i < kEntries; ++i) {
        const double light = curve.at(static_cast<double>(i) / (kEntries - 1));
        appendNumber(element, static_cast<std::uint32_t>(std::lround(light * 65535)), 2);
    }
    return element;
}

Bytes textElement(std::string_view text) {
    Bytes element = elementOf("text");
    append(element, text);
    element.push_back(0);
    return element;
}

/// A name in plain letters; its two other forms are empty.
Bytes nameElement(std::string_view name) {
    constexpr std::size_t kOtherForms = 4 + 4 + 2 + 1 + 67;
    Bytes element = elementOf("desc");
    appendNumber(element, static_cast<std::uint32_t>(name.size() + 1), 4);
    append(element, name);
    element.push_back(0);
    element.resize(element.size() + kOtherForms);
    return element;
}

/// The header of 128 bytes, for a profile of `size` bytes.
Bytes headerOf(std::size_t size) {
    Bytes header;
    appendNumber(header, static_cast<std::uint32_t>(size), 4);
    appendNumber(header, 0, 4);
    appendNumber(header, 0x02100000, 4);
    append(header, "mntrRGB XYZ ");
    // Year, month, day, hour, minute and second of its making.
    for (const std::uint32_t part : {2026U, 1U, 1U, 0U, 0U, 0U}) {
        appendNumber(header, part, 2);
    }
    append(header, "acsp");
    header.resize(68);
    // The light D50, as every header has it.
    for (const double value : {0.9642, 1.0, 0.8249}) {
        appendFixed(header, value);
    }
    header.resize(128);
    return header;
}

}  // namespace

std::vector<std::uint8_t> standardProfileBytes() {
    struct Element {
        std::string_view tag;
        Bytes bytes;  ///< empty: those of the element before
    };
    const ColourProfile& profile = standardProfile();
    const Matrix3& matrix = profile.toXyz;
    const auto column = [&matrix](std::size_t i) {
        return xyzElement(matrix[0][i], matrix[1][i], matrix[2][i]);
    };
    const std::array<Element, 9> elements = {{
        {"desc", nameElement("sRGB")},
        {"cprt", textElement("None")},
        {"wtpt", xyzElement(0.9505, 1, 1.0891)},
        {"rXYZ", column(0)},
        {"gXYZ", column(1)},
        {"bXYZ", column(2)},
        {"rTRC", curveElement(profile.curves[0])},
        {"gTRC", {}},
        {"bTRC", {}},
    }};
    Bytes table;
    Bytes contents;
    appendNumber(table, elements.size(), 4);
    const std::size_t start = 128 + 4 + 12 * elements.size();
    std::size_t offset = 0;
    std::size_t length = 0;
    for (const Element& element : elements) {
        if (!element.bytes.empty()) {
            offset = start + contents.size();
            length = element.bytes.size();
            contents.insert(contents.end(), element.bytes.begin(), element.bytes.end());
            contents.resize((contents.size() + 3) / 4 * 4);
        }
        append(table, element.tag);
        appendNumber(table, static_cast<std::uint32_t>(offset), 4);
        appendNumber(table, static_cast<std::uint32_t>(length), 4);
    }
    Bytes bytes = headerOf(start + contents.size());
    bytes.insert(bytes.end(), table.begin(), table.end());
    bytes.insert(bytes.end(), contents.begin(), contents.end());
    return bytes;
}

}  // namespace picture
