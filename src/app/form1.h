#pragma once

#include <array>
#include <functional>
#include <optional>

#include "app/setup_controls.h"
#include "ui/button.h"
#include "ui/check_box.h"
#include "ui/drive_list.h"
#include "ui/event_loop.h"
#include "ui/file_list.h"
#include "ui/folder_list.h"
#include "ui/form.h"
#include "ui/frame.h"
#include "ui/glyph.h"
#include "ui/label.h"
#include "ui/line.h"
#include "ui/option_button.h"
#include "ui/picture_box.h"
#include "ui/scroll_bar.h"
#include "ui/stage.h"
#include "ui/text_box.h"
#include "ui/timer.h"

namespace app {

/// The main window: the set-up of a show and, once it has begun, its surface. It holds the controls under
/// their names and lies them out; what happens at their events is wired by the application.
class Form1 : public ui::Form {
  public:
    /// `concealed`: for a show that starts at once; the set-up is not seen unless it is shown. `curtain`: see
    /// ui::Form.
    explicit Form1(ui::EventLoop& loop, bool concealed = false, const ui::Curtain* curtain = nullptr);

    /// Rounds the window's corners.
    void applyRegion();
    /// Brings the window up as the set-up, whatever was to be seen before.
    void showSetup();
    /// Takes a curtain off the screen: the show comes up elsewhere.
    void dropCurtain();
    /// Makes the window rectangular again.
    void dropRegion();
    ui::Rgb groundAt(POINT place) const override;
    /// Hides everything that belongs to the set-up, for good.
    void hideSetup();
    /// Covers a place on the screen, in pixels, and stays there whatever else is asked for; it can still be
    /// minimised. A form that is not on the screen yet takes the place unseen.
    void cover(const RECT& place);
    /// Brings a form that took its place unseen onto the screen, all painted.
    void uncover();
    /// The place that it covers; none in the set-up.
    const std::optional<RECT>& covered() const { return covered_; }
    /// Draws the program's emblem into Pic3.
    void drawEmblem();

    /// The controls as the engines take them.
    FolderLists lists() { return {Drive1, Dir1, File1, File2}; }
    Options options();
    ui::Stage stage() { return {Pic1, Pic2, Pic3, UT, Text1, EOT}; }
    ui::Choices choices();
    ui::Timers timers() { return {Timer1, Timer2, Timer3, Timer4, Timer5}; }

    /// Told of every message; for what the task bar sends to all windows.
    std::function<void(UINT message)> onOwnerMessage;
    /// The user's session ends; not told when a log-off was called off.
    std::function<void()> onSessionEnd;
    /// Whether the screen saver and the monitor's sleep are refused.
    std::function<bool()> keepsAwake;
    /// The screens have other sizes, places or scalings than before.
    std::function<void()> onScreens;

  private:
    // Groups outlive their buttons, so they come first.
    ui::OptionGroup typGroup_;
    ui::OptionGroup setGroup_;
    // What was made first lies in front: the words of controls that have no caption of their own.
    ui::Glyph screenGlyph_;
    ui::Label screenWord_;

  public:
    // where
    ui::DriveList Drive1;
    ui::FolderList Dir1;
    std::array<ui::OptionButton, 3> Typ;
    ui::FileList File1;
    ui::FileList File2;
    // go
    ui::PushButton Start;
    ui::PictureButton CTRL;
    ui::PictureButton Run;
    // how
    ui::TextBox IntT;
    ui::Label Label2;
    ui::ScrollBar IntS;
    ui::CheckBox LoopC;
    ui::CheckBox ShowFN;
    ui::CheckBox Check1;
    ui::CheckBox Musik;
    ui::CheckBox MUTE;
    ui::CheckBox Screen2;
    ui::Frame Frame1;

  private:
    std::array<ui::Label, 4> setDigits_;

  public:
    std::array<ui::OptionButton, 4> Option1;
    ui::PictureButton SAVE;
    // program
    ui::PushButton Help;
    ui::PictureButton ENDE;
    ui::Label Label1;
    ui::Line Line1;
    ui::Line Line2;
    // show; the first ones lie in front
    ui::PushButton EOT;
    ui::TextBox UT;
    ui::TextBox Text1;
    ui::PictureBox Pic3;
    ui::PictureBox Pic2;
    ui::PictureBox Pic1;

    ui::Timer Timer1;
    ui::Timer Timer2;
    ui::Timer Timer3;
    ui::Timer Timer4;
    ui::Timer Timer5;

  protected:
    void onDpiChanged(int dpi, const RECT& suggested) override;
    bool onMessage(UINT message, WPARAM w, LPARAM l, LRESULT& result) override;
    void drawGround(ui::Painting& painting) override;

  private:
    void keepCovering(WINDOWPOS& wanted) const;
    void wirePause();
    void setToolTips();
    void setAccessKeys();

    ui::Label pauseWord_;
    /// Whether the window shows its set-up, with its head and round corners.
    bool setup_ = true;
    bool rounded_ = false;
    std::optional<RECT> covered_;
    bool minimised_ = false;
};

}  // namespace app
