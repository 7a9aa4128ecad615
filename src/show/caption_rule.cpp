#include "show/caption_rule.h"

namespace show {

namespace {

constexpr float kShadowStep = 20;  // twips
constexpr int kShadowSide = 3;
constexpr int kSlideSteps = 10;
constexpr float kInformationRoom = 1.4F;

}  // namespace

CaptionPlace endButtonPlace(float screenWidth, float screenHeight, float buttonWidth, float buttonHeight) {
    return {screenWidth / 2 - buttonWidth / 2, screenHeight / 2 - buttonHeight / 2};
}

float titleTop(float screenHeight, float boxHeight) {
    return screenHeight - 2 * boxHeight;
}

std::vector<float> titleSlide(float screenHeight, float boxHeight) {
    const float start = titleTop(screenHeight, boxHeight);
    std::vector<float> tops;
    for (int step = 1; step < kSlideSteps; ++step) {
        tops.push_back(start + (screenHeight - start) * static_cast<float>(step) / kSlideSteps);
    }
    tops.push_back(screenHeight);
    return tops;
}

std::array<DatePrint, 10> dateStamp(float screenWidth, float textWidth) {
    const float left = screenWidth / 2 - textWidth;
    std::array<DatePrint, 10> prints;
    std::size_t next = 0;
    for (int column = 0; column < kShadowSide; ++column) {
        for (int row = 0; row < kShadowSide; ++row) {
            const float x = left + static_cast<float>(column) * kShadowStep;
            prints[next++] = {{x, static_cast<float>(row) * kShadowStep}, false};
        }
    }
    prints[next] = {{left + kShadowStep, kShadowStep}, true};
    return prints;
}

std::wstring informationText(std::wstring_view pictureKey, int effectIndex) {
    const auto letter = static_cast<wchar_t>(effectIndex + L'A');
    return std::wstring(pictureKey) + L" (" + letter + L")";
}

float informationWidth(float textWidth) {
    return textWidth * kInformationRoom;
}

float informationLeft(float screenWidth, float width) {
    return screenWidth - width;
}

}  // namespace show
