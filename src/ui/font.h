#pragma once

#include <windows.h>

#include <string>

namespace ui {

/// A font as a form asks for it; the size in points, so that it grows with the DPI.
struct FontSpec {
    std::wstring face = L"Segoe UI";
    float points = 9.0F;
    bool bold = false;
    // NOLINTNEXTLINE(modernize-use-nullptr): the check mistakes the comparison that the compiler writes.
    friend auto operator<=>(const FontSpec&, const FontSpec&) = default;
};

/// The font for a DPI, made once and kept for the program's life. Never null: an unknown face gives the
/// system's nearest.
HFONT font(const FontSpec& spec, int dpi);

/// The size of one line of text in pixels.
SIZE measureText(const std::wstring& text, HFONT font);

/// The height in pixels of a text that breaks at line ends, and at blanks where it is wider than `width`
/// pixels: as a Label shows it.
int measureHeight(const std::wstring& text, HFONT font, int width);

}  // namespace ui
