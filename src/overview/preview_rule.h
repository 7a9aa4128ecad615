#pragma once

#include <array>
#include <optional>
#include <string>
#include <string_view>

#include "ui/twips.h"

namespace overview {

/// How many buttons stand below the enlarged view: close, back to the start, pause, play, one without a
/// function, and the one that shows something about the item.
inline constexpr std::size_t kPreviewButtons = 6;

/// What the last button shows; the numbers are those its clicks count through.
enum class PreviewInfo { Title = 1, Date = 2, Name = 3, Position = 4 };

/// What there is to show of an item; an empty text is passed over.
struct PreviewTexts {
    std::wstring title;
    std::wstring date;
    std::wstring name;
    bool film = false;  ///< only a film has a position
};

/// What an item begins with: a film with its position, a picture with its date, or with the next that has
/// something to show.
PreviewInfo firstPreviewInfo(const PreviewTexts& texts);

/// What a click leads to: the next of the four that has something to show, the first one after the last. With
/// nothing else to show it stays.
PreviewInfo nextPreviewInfo(PreviewInfo now, const PreviewTexts& texts);

/// What a button shows of an item, but for the position.
std::wstring previewText(PreviewInfo info, const PreviewTexts& texts);

/// The title of an entry: the text up to the first "*", or all of it, without blanks at its ends.
std::wstring entryTitle(std::wstring_view entry);

/// A file's name without its extension: up to its first ".".
std::wstring nameWithoutExtension(std::wstring_view fileName);

/// How far a film is: "12.5/60 s" for 12,500 ms of a film with the length text "60".
std::wstring positionText(double positionMs, std::wstring_view lengthText);

/// A length in ms as seconds: the shortest decimal text.
std::wstring secondsText(double ms);

/// Where the enlarged view and what belongs to it lies.
struct PreviewLayout {
    ui::TwipsRect box;  ///< of the shape 4:3
    ui::TwipsRect sound;
    std::array<ui::TwipsRect, kPreviewButtons> buttons;
    friend bool operator==(const PreviewLayout&, const PreviewLayout&) = default;
};

/// Lays the enlarged view out within `area`: the largest box of 4:3 that leaves room for the row below it,
/// centred; below it, from the left, the switch for the sound (`soundWidth`) and the buttons, each directly
/// right of the one before. A width of 0 stands for what is not shown and takes no room; the last button
/// takes what is left of the box's width. Nothing goes beyond the box. An area with no room gives an empty
/// one.
PreviewLayout layoutPreview(const ui::TwipsRect& area, ui::Twips rowHeight, ui::Twips soundWidth,
                            const std::array<ui::Twips, kPreviewButtons>& widths);

}  // namespace overview
