#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace edit {

/// A day as the file's date is written.
struct Day {
    int day = 0;
    int month = 0;
    int year = 0;
};

/// "dd.mm.yy".
std::wstring shortDay(const Day& day);

/// A piece of what is written over a thumbnail.
struct SettingsPiece {
    std::wstring text{};
    bool dateFlag = false;  ///< tells that the date is shown; it has a colour of its own
    bool ownRow = true;     ///< begins a row where there is room for that
    int worth = 0;          ///< where not all have room, those of the least worth are left out
    friend bool operator==(const SettingsPiece&, const SettingsPiece&) = default;
};

/// What is written over the thumbnail of an item, from top to bottom: the date of its file (empty: unknown),
/// its name without extension, the title and the values of its entry, and whether it is a video.
std::vector<SettingsPiece> settingsPieces(std::wstring_view fileName, std::wstring_view entry,
                                          std::wstring_view date);

struct TextSize {
    int width = 0;
    int height = 0;
};

/// The size in pixels of a text in a font of that many points.
using MeasureText = std::function<TextSize(const std::wstring& text, int points)>;

/// Where a piece is written, in pixels from the thumbnail's top left corner. A text that is wider is cut.
struct PlacedPiece {
    std::size_t piece = 0;  ///< index
    int left = 0;
    int top = 0;
    int width = 0;
    int height = 0;
    friend bool operator==(const PlacedPiece&, const PlacedPiece&) = default;
};

struct SettingsLayout {
    int points = 0;  ///< of the font
    std::vector<PlacedPiece> pieces;
};

/// Lays the pieces out at the bottom of a thumbnail, as large as they have room, but never smaller than can
/// be read: then they share rows, are cut, and at last left out. `dpi` gives the margin.
SettingsLayout layOutSettings(const std::vector<SettingsPiece>& pieces, int width, int height, int dpi,
                              const MeasureText& measure);

inline constexpr int kLargestSettingsPoints = 12;
/// From here on a long text is rather cut than all of them made smaller.
inline constexpr int kComfortableSettingsPoints = 8;
inline constexpr int kSmallestSettingsPoints = 6;

}  // namespace edit
