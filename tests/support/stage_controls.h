#pragma once

#include "files/file_filter.h"
#include "ui/button.h"
#include "ui/event_loop.h"
#include "ui/form.h"
#include "ui/stage.h"

namespace support {

/// The controls and timers of a show on a bare form that is not shown, for engines without the program.
class StageControls {
  public:
    StageControls(ui::EventLoop& loop, ui::Form& form)
        : File1({.parent = form}, files::isListed, files::kTypPatterns[0]),
          Dir1({.parent = form}),
          IntS({.parent = form}, {1, 60, 56}),
          LoopC({.parent = form}),
          Screen2({.parent = form}),
          MUTE({.parent = form, .visible = false}),
          Musik({.parent = form}),
          ShowFN({.parent = form}),
          Check1({.parent = form}),
          UT({.parent = form, .place = {0, 0, 2000, 300}, .visible = false}),
          Text1({.parent = form, .place = {0, 0, 2000, 300}, .visible = false}),
          EOT({.parent = form, .text = L"Ende", .visible = false}),
          Pic3({.parent = form, .visible = false}),
          Pic2({.parent = form}),
          Pic1({.parent = form, .visible = false}),
          Timer1(loop, 10000),
          Timer2(loop, 10, ui::Timer::Pacing::FromTick),
          Timer3(loop, 4000),
          Timer4(loop, 0),
          Timer5(loop, 2000) {}

    ui::Stage stage() { return {Pic1, Pic2, Pic3, UT, Text1, EOT}; }
    ui::Choices choices() { return {File1, Dir1, IntS, LoopC, ShowFN, Check1, Musik, MUTE, Screen2}; }
    ui::Timers timers() { return {Timer1, Timer2, Timer3, Timer4, Timer5}; }

    ui::FileList File1;
    ui::FolderList Dir1;
    ui::ScrollBar IntS;
    ui::CheckBox LoopC;
    ui::CheckBox Screen2;
    ui::CheckBox MUTE;
    ui::CheckBox Musik;
    ui::CheckBox ShowFN;
    ui::CheckBox Check1;
    ui::TextBox UT;
    ui::TextBox Text1;
    ui::PushButton EOT;
    ui::PictureBox Pic3;
    ui::PictureBox Pic2;
    ui::PictureBox Pic1;
    ui::Timer Timer1;
    ui::Timer Timer2;
    ui::Timer Timer3;
    ui::Timer Timer4;
    ui::Timer Timer5;
};

}  // namespace support
