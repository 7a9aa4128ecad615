#pragma once

#include <windows.h>

#include <functional>
#include <string>

#include "edit/dialogue.h"
#include "overview/thumb_record.h"
#include "platform/properties_dialog.h"
#include "ui/event_loop.h"
#include "ui/timer.h"

namespace edit {

/// "Datei-Info": shows the system's properties of an item's file and leads that dialog to the picture's
/// details; where the system has no such dialog, a box tells what the program knows of the file.
class FileInfo {
  public:
    struct Parts {
        ui::EventLoop& loop;
        const overview::ThumbRecords& records;
        platform::PropertiesDialog& dialog;
        /// The window above which the dialog opens.
        std::function<HWND()> owner;
        Dialogue dialogue;
    };
    explicit FileInfo(Parts parts);

    /// Throws Leaving.
    void show(int index);

  private:
    void leadToDetails();
    void tellDetails(const std::wstring& path);

    Parts parts_;
    std::wstring path_;  ///< of the dialog that is about to appear
    ui::Timer appearing_;
};

}  // namespace edit
