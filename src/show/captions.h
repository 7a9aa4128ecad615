#pragma once

#include <string>

#include "show/show_state.h"
#include "ui/event_loop.h"
#include "ui/picture_box.h"
#include "ui/text_box.h"
#include "ui/timer.h"

namespace show {

/// The texts over the picture: the title in UT, the date printed onto Pic2, the information line Text1.
class Captions {
  public:
    struct Parts {
        ui::EventLoop& loop;
        const ShowState& state;
        ui::PictureBox& Pic2;
        ui::PictureBox& Pic3;
        ui::TextBox& UT;
        ui::TextBox& Text1;
        ui::Timer& Timer3;
    };
    explicit Captions(const Parts& parts);

    /// Shows a title at its place; Timer3 takes it away.
    void showTitle(const std::wstring& title);
    /// Prints a date onto Pic2, in cyan over a black shadow; Timer3 takes it away. Pic3 takes a copy of the
    /// screen before, which removal restores.
    void stampDate(const std::wstring& date);
    /// Takes standing captions away at once, before a step loads the next picture.
    void end();

    /// Gives Pic2 its clean image back beneath a standing date, before its surface changes.
    void liftDate();
    /// Places the captions anew on a surface that has another size or scaling, and prints a standing date
    /// onto the image that Pic2 holds now.
    void surfaceChanged();

    /// Brings the information line up to date, whether it is visible or not.
    void updateInformation(int effectIndex);
    void toggleInformation(int effectIndex);

  private:
    std::wstring fitted(const std::wstring& title) const;
    void placeTitle();
    void printDate();
    void remove();
    void restoreScreen();
    float screenWidth() const;
    float screenHeight() const;

    Parts parts_;
    bool stamped_ = false;
    std::wstring title_;
    std::wstring date_;
    /// Counts the ends of captions, so that a title sliding out notices that it was ended meanwhile.
    int ended_ = 0;
};

}  // namespace show
