#pragma once

#include <functional>
#include <string>
#include <vector>

#include "ui/list_box.h"

namespace ui {

/// The way to a folder: its ancestors, itself opened, and its sub-folders, each a step further in.
///
/// A click on a folder raises onClick with that folder selected; return, or the right arrow, does the same
/// from the keyboard, the left arrow and backspace choose the parent. Opening it is left to onClick.
class FolderList : public ListBox {
  public:
    /// Begins at the root of the system's drive.
    explicit FolderList(const CreateArgs& args);

    /// The open folder, "C:\" for a root.
    const std::wstring& path() const { return path_; }
    /// Opens a folder (see platform::fullPath). Raises onChange when it becomes another one; the same folder
    /// is read anew. Throws platform::Error and changes nothing when it cannot be read.
    void setPath(const std::wstring& path);
    /// The folder that is selected in the list; the open one when none is.
    std::wstring selectedPath() const;
    /// The place of the first sub-folder, behind the ancestors and the open folder; count() when there is
    /// none.
    int firstSubFolder() const { return static_cast<int>(openRow_) + 1; }

    std::function<void()> onChange;

  protected:
    bool onMessage(UINT message, WPARAM w, LPARAM l, LRESULT& result) override;
    bool onKeyDown(int key, bool repeated) override;
    /// The system tells of selections by key as well; only onMessage and onKeyDown raise onClick.
    void chosen() override {}
    void drawRow(const DRAWITEMSTRUCT& item) const override;

  private:
    struct Row {
        std::wstring path;
        int depth = 0;
    };
    void show(const std::wstring& path, const std::vector<std::wstring>& subFolders);

    std::wstring path_;
    std::vector<Row> rows_;
    std::size_t openRow_ = 0;
    bool pressed_ = false;
};

}  // namespace ui
