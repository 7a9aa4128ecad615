#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace show {

/// Where a step of the show leads.
struct Step {
    int index = 0;           ///< the new `pictureIndex`; the number of items at the end of the list
    bool endOfList = false;  ///< the show ends, the last picture stays
    friend bool operator==(const Step&, const Step&) = default;
};

/// The next item after `pictureIndex` (-1: before the first) among `count`. After the last one the list
/// ends, or begins again where `loop` is set. A list that has become shorter counts as ended; an empty
/// list ends in any case.
Step nextStep(int pictureIndex, int count, bool loop);

/// `pictureIndex` for a step back (the step adds 1 again); std::nullopt on the first item and where the
/// result would lie below -1.
std::optional<int> backIndex(int pictureIndex);

/// The same while a step back, to `pictureIndex` + 1, is on its way already: one more.
std::optional<int> furtherBackIndex(int pictureIndex);

/// Whether the end of the list was reached, so that no further step is made.
bool isPastEnd(int pictureIndex, int count);

/// The index at which a show starts: the selected one, 0 for none (-1).
int startIndex(int selected);

/// The interval of a quick step.
inline constexpr int kQuickStepMs = 100;

/// The effect number that a typed character asks for: "a" ... "z" give 1 ... 26, "#" gives 0. Upper-case
/// letters ask for none.
std::optional<int> effectOfKey(wchar_t character);

/// Whether a key, by its virtual code, only goes with others or belongs to the computer: Shift, Ctrl, Alt,
/// Windows and lock keys, those for volume, media, browser and programs, sleep. Such a key steers nothing.
bool isBystanderKey(int virtualKey);

/// The pause in seconds, 1 ... 9, that a typed digit asks for.
std::optional<int> secondsOfKey(wchar_t character);

/// The index of the first folder whose name begins with `letter` in either case, std::nullopt for none.
/// Names are without their path; `letter` is any character, upper and lower case told apart for Latin
/// letters with and without accents.
std::optional<int> folderOfLetter(const std::vector<std::wstring>& names, wchar_t letter);

/// Left edge in pixels of the window for a show on the second screen: 1.2 primary-screen widths.
int secondScreenLeft(int primaryWidth);

/// A point on the screens, in pixels.
struct ScreenPoint {
    int x = 0;
    int y = 0;
    friend bool operator==(const ScreenPoint&, const ScreenPoint&) = default;
};

/// Where the pointer rests during a show on the second screen, for a window that fills it.
ScreenPoint secondScreenPointer(int windowLeft, int windowHeight);

}  // namespace show
