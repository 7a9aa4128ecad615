#pragma once

#include <windows.h>

#include <string>
#include <vector>

namespace program {

/// A control of another process's window, as a user or a screen reader meets it. Every question is asked
/// anew. A window that does not answer within a few seconds gives empty answers instead of blocking the test.
class Control {
  public:
    explicit Control(HWND handle) : handle_(handle) {}

    HWND handle() const { return handle_; }
    bool exists() const { return handle_ && IsWindow(handle_); }

    /// Shown, and so are all windows around it.
    bool visible() const { return exists() && IsWindowVisible(handle_); }
    bool enabled() const { return exists() && IsWindowEnabled(handle_); }

    /// In screen coordinates.
    RECT rectangle() const;
    POINT centre() const;

    std::wstring text() const;

    /// Of a check box or option button: BST_UNCHECKED, BST_CHECKED or BST_INDETERMINATE.
    int checkState() const;

    /// Of a scroll bar: its position.
    int position() const;

    /// Of a list box: all its entries, and the index of the selected one (LB_ERR when none is).
    std::vector<std::wstring> items() const;
    int selectedItem() const;
    int topItem() const;

    /// Of a combo box.
    std::vector<std::wstring> choices() const;
    int selectedChoice() const;

    /// Presses a button without mouse or focus. Does not wait for what the button starts.
    void press() const;

  private:
    LRESULT ask(UINT message, WPARAM w = 0, LPARAM l = 0) const;
    std::vector<std::wstring> texts(UINT countMessage, UINT lengthMessage, UINT textMessage) const;

    HWND handle_;
};

/// The control with this id anywhere inside `form`; one that does not exist when there is none.
Control control(HWND form, int id);

}  // namespace program
