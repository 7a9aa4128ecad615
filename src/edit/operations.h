#pragma once

#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "edit/editing.h"
#include "edit/entry_editor.h"
#include "edit/external_editor.h"
#include "edit/file_dates.h"
#include "edit/file_info.h"
#include "edit/form3.h"
#include "edit/save.h"
#include "edit/system_bin.h"
#include "files/file_system.h"
#include "media/media_control.h"
#include "overview/overview.h"
#include "platform/properties_dialog.h"
#include "ui/event_loop.h"
#include "ui/message_box.h"

namespace edit {

/// The operations of the overview's menu that have engines of their own: entries, dates, file
/// information, the image program, music and saving. Makes them and puts them into the menu.
class Operations {
  public:
    struct Parts {
        ui::EventLoop& loop;
        media::MediaControl& control;
        files::FileSystem& fileSystem;
        overview::Overview& overview;
        Editing& editing;
        /// Full path of the image program; empty for none.
        std::wstring& EditorPath;
        /// Keeps that path for the next time; whether it could.
        std::function<bool(const std::wstring& path)> keepPath;
        /// The folder's music files, in their order.
        std::function<std::vector<std::wstring>()> musicFiles;
        /// Loads the overview of its folder anew.
        std::function<void()> reload;
    };
    explicit Operations(const Parts& parts);
    ~Operations();
    Operations(const Operations&) = delete;
    Operations& operator=(const Operations&) = delete;

    Save& save() { return save_; }
    EntryEditor& entries() { return entries_; }

  private:
    Dialogue dialogue(ui::MessageIcon icon = ui::MessageIcon::Exclamation);
    ExternalEditor::Desk desk();
    SaveDialog saveDialog();
    SaveGrid saveGrid();
    void provide();
    void fillState(MenuState& state) const;
    void redraw(int index);
    void removeItems(const std::vector<int>& indices);
    void block(bool on);

    Parts parts_;
    Form3 form3_;
    SystemBin bin_;
    platform::SystemPropertiesDialog properties_;
    EntryEditor entries_;
    FileDates dates_;
    FileInfo info_;
    ExternalEditor external_;
    Save save_;
    std::optional<Editing::Block> block_;
    std::optional<Editing::WithoutTips> withoutTips_;
};

}  // namespace edit
