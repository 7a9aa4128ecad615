#pragma once

#include <gtest/gtest.h>

#include <optional>
#include <vector>

#include "overview/grid_rule.h"
#include "program/support/panorell.h"
#include "program/support/picture_folder.h"

namespace program {

/// Tests of the real program's overview, as it is seen on the screen.
class OverviewTest : public testing::Test {
  protected:
    /// Starts the program with a folder and goes into its overview, the pointer beside all items.
    void open(const PictureFolder& folder);
    /// From the set-up, which stands there already, into the overview.
    void enter();
    HWND form() const { return panorell_.windowNow(L"Form2"); }
    /// The boxes' places on the screen in the order of the grid.
    std::vector<RECT> boxes() const;
    /// Which pictures the boxes show on the screen, by number; 0 for none that is right to the pixel.
    /// Empty while the boxes do not lie as the layout's rule says for their number.
    std::vector<int> shown(const std::vector<TestPicture>& pictures) const;
    testing::AssertionResult becomes(const PictureFolder& folder, const std::vector<int>& expected) const;
    POINT middle(int index) const;
    /// A place in the window where no item is, so that no frame lies around one of them.
    POINT beside() const;

    Panorell panorell_;

  private:
    struct Known {
        int number = 0;
        picture::Pixels expected;
    };
    static int recognise(const picture::Pixels& seen, const std::vector<Known>& known);
    /// The grid's layout for so many boxes; none where they lie otherwise, as while they are made.
    std::optional<overview::GridLayout> layoutOf(const std::vector<RECT>& all) const;
};

}  // namespace program
