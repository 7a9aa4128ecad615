#pragma once

#include "ui/check_box.h"
#include "ui/file_list.h"
#include "ui/folder_list.h"
#include "ui/picture_box.h"
#include "ui/scroll_bar.h"
#include "ui/text_box.h"
#include "ui/timer.h"

namespace ui {

// The controls and timers of a show in three groups, the same for every engine that works on more than a few
// of them: what is seen, what its user chose, and what paces it. They refer to a form's controls and are
// copied freely.

/// What a show is seen on.
struct Stage {
    PictureBox& Pic1;  ///< hidden: the size of the picture shown, the last frame of a video
    PictureBox& Pic2;  ///< the surface; a video's window lies in it
    PictureBox& Pic3;  ///< the next picture, and the cover over Pic2
    TextBox& UT;       ///< the title
    TextBox& Text1;    ///< the information line
    Control& EOT;      ///< the end button
};

/// What its user chose before it began. A show reads them; IntS follows the digit keys, Musik the show
/// script.
struct Choices {
    FileList& File1;
    const FolderList& Dir1;
    ScrollBar& IntS;
    const CheckBox& LoopC;
    const CheckBox& ShowFN;
    const CheckBox& Check1;
    CheckBox& Musik;
    const CheckBox& MUTE;
    const CheckBox& Screen2;
};

/// What paces it. Each timer's tick belongs to the one engine named here; others only set it.
struct Timers {
    Timer& Timer1;  ///< the step to the next item: the show; a video sets its length, an entry its pause
    Timer& Timer2;  ///< the steps of a transition: the transition runner
    Timer& Timer3;  ///< takes captions away: the captions
    Timer& Timer4;  ///< the fade back to the music: video playback
    Timer& Timer5;  ///< the rotation of the music: background music
};

}  // namespace ui
