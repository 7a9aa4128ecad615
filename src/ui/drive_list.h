#pragma once

#include <string>
#include <vector>

#include "ui/combo_box.h"

namespace ui {

/// The drives of the computer by letter, each with its kind. The list is read anew whenever it drops down.
class DriveList : public ComboBox {
  public:
    /// Begins at the system's drive.
    explicit DriveList(const CreateArgs& args);

    /// Letter and colon, "C:".
    const std::wstring& drive() const { return drive_; }
    /// The letter that `drive` begins with, in either case. Raises onChange when it becomes another one.
    /// Throws platform::Error (ERROR_INVALID_DRIVE) and changes nothing when there is no such drive.
    void setDrive(const std::wstring& drive);
    void refresh();

  protected:
    void onDropDown() override { refresh(); }
    void changed() override;

  private:
    std::vector<std::wstring> drives_;
    std::wstring drive_;
};

}  // namespace ui
