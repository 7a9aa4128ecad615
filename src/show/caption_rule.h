#pragma once

#include <array>
#include <string>
#include <string_view>
#include <vector>

namespace show {

/// A place on the show screen; all lengths of captions are in twips.
struct CaptionPlace {
    float left = 0;
    float top = 0;
    friend bool operator==(const CaptionPlace&, const CaptionPlace&) = default;
};

/// The end button `EOT`: its top left corner, so that it stands in the centre of the screen.
CaptionPlace endButtonPlace(float screenWidth, float screenHeight, float buttonWidth, float buttonHeight);

/// The top of the title box `UT`, which spans the screen's width.
float titleTop(float screenHeight, float boxHeight);

/// The tops of the title box while it slides out, one after the other from below its standing place to
/// below the screen; each is followed by a wait of kSlideStepMs. Never empty.
std::vector<float> titleSlide(float screenHeight, float boxHeight);
inline constexpr int kSlideStepMs = 30;

/// One printing of the date stamp.
struct DatePrint {
    CaptionPlace place;
    bool bright = false;  ///< false: black shadow, true: the cyan text itself
    friend bool operator==(const DatePrint&, const DatePrint&) = default;
};

inline constexpr int kDateFontPoints = 16;

/// The date stamp: nine copies as a shadow, then the text in their middle, in the order of printing.
/// `textWidth` is the width of the text in the main window's font, half the size that it is printed in.
std::array<DatePrint, 10> dateStamp(float screenWidth, float textWidth);

/// The text of the information line for a picture's key and an effect index 0 ... 25, as "Bild1 (A)".
std::wstring informationText(std::wstring_view pictureKey, int effectIndex);

/// Width of the information line for the width of its text, and its left edge at the right of the screen.
float informationWidth(float textWidth);
float informationLeft(float screenWidth, float width);

}  // namespace show
