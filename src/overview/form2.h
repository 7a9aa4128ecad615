#pragma once

#include <array>
#include <functional>

#include "overview/form2_layout.h"
#include "overview/grid_panel.h"
#include "ui/button.h"
#include "ui/check_box.h"
#include "ui/event_loop.h"
#include "ui/form.h"
#include "ui/label.h"
#include "ui/list_box.h"
#include "ui/picture_box.h"
#include "ui/progress_bar.h"
#include "ui/timer.h"

namespace overview {

/// The overview of a folder: the grid of thumbnails, beside it the music list, and over it the big box with
/// its row of buttons. It holds the controls under their names and lays them out; what happens at their
/// events is wired by Overview.
class Form2 : public ui::Form {
  public:
    /// On the monitor that `beside` lies on, nearly as large as that.
    Form2(ui::EventLoop& loop, const ui::Window& beside);

    /// Lays the controls out; to be called when the music list was shown or hidden, for which the grid makes
    /// room.
    void layOut();
    /// The controls lie where they belong for another size.
    std::function<void()> onLaidOut;
    /// How much of the thumbnails is there; all of them (or none wanted) hides the bar.
    void showProgress(int done, int all);
    /// Where the buttons of an enlarged item lie, on a ground of their own; empty for none.
    void setRow(const ui::TwipsRect& row);
    /// Says something in the middle of the thumbnails; the empty text takes it away.
    void showNotice(const std::wstring& text);
    const Form2Layout& places() const { return places_; }

    GridPanel Grid;
    ui::Label List1Caption;
    ui::ListBox List1;
    ui::PushButton OK;
    ui::PushButton CAN;
    ui::PictureBox Pic3;
    ui::CheckBox Ton;
    std::array<ui::PushButton, 6> Command;
    ui::PictureBox Pic2;
    ui::Label Notice;
    ui::ProgressBar Progress;
    ui::Timer Timer1;
    ui::Timer Timer2;

  protected:
    bool onMessage(UINT message, WPARAM w, LPARAM l, LRESULT& result) override;
    void onSize(int width, int height) override;
    void onDpiChanged(int dpi, const RECT& suggested) override;

  private:
    void setGrounds();
    /// The least that a user can make of the window, in pixels.
    POINT smallestSize() const;

    Form2Layout places_;
    ui::TwipsRect row_;
    bool made_ = false;
};

}  // namespace overview
