#pragma once

#include <array>

#include "ui/check_box.h"
#include "ui/drive_list.h"
#include "ui/file_list.h"
#include "ui/folder_list.h"
#include "ui/option_button.h"
#include "ui/scroll_bar.h"
#include "ui/text_box.h"

namespace app {

// The controls of the set-up in two groups, the same for every engine that works on them. They refer to the
// window's controls and are copied freely.

/// Where the pictures are.
struct FolderLists {
    ui::DriveList& Drive1;
    ui::FolderList& Dir1;
    ui::FileList& File1;
    ui::FileList& File2;
};

/// How they are shown: what an option set and a command line fill.
struct Options {
    ui::TextBox& IntT;
    ui::ScrollBar& IntS;
    ui::CheckBox& LoopC;
    ui::CheckBox& ShowFN;
    ui::CheckBox& MUTE;
    ui::CheckBox& Musik;
    ui::CheckBox& Check1;
    std::array<ui::OptionButton*, 4> Option1;
};

}  // namespace app
