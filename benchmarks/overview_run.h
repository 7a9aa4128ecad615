#pragma once

#include <string>

namespace bench {

/// What the overview of a folder took, from the press of its button in the set-up on.
struct OverviewRun {
    double paintedMs = 0;      ///< until its window is on the screen
    double filledMs = 0;       ///< until every item has been dealt with
    int windows = 0;           ///< that lie in the window then
    int gdiObjects = 0;        ///< of the process then
    double peakMegabytes = 0;  ///< the most memory of the process
    int boxWidth = 0;          ///< pixels of the place of one thumbnail
    int boxHeight = 0;
};

/// Starts the program with a folder of more than a hundred items, opens its overview and ends the program
/// when all is shown. Throws std::runtime_error when a step does not come within some minutes.
OverviewRun openOverview(const std::wstring& folder);

}  // namespace bench
