#pragma once

#include <windows.h>

#include <string>
#include <vector>

namespace platform {

/// The dialog in which the system shows the properties of a file. It lives on its own: it stays open while
/// the program goes on, and nobody is told when it ends.
class PropertiesDialog {
  public:
    virtual ~PropertiesDialog() = default;

    /// Opens the dialog of a file, above `owner`. False where the system has none; it shows no message then.
    virtual bool open(HWND owner, const std::wstring& path) = 0;
    /// Whether the dialog of that file is the window that the keyboard works in.
    virtual bool isInFront(const std::wstring& path) const = 0;
    /// Presses and releases keys, one after the other, in the window that the keyboard works in.
    virtual void type(const std::vector<WORD>& keys) = 0;
};

/// The system's own.
class SystemPropertiesDialog : public PropertiesDialog {
  public:
    bool open(HWND owner, const std::wstring& path) override;
    bool isInFront(const std::wstring& path) const override;
    void type(const std::vector<WORD>& keys) override;
};

/// The keys of SystemPropertiesDialog::type as the system takes them: each one down and up again.
std::vector<INPUT> keyStrokes(const std::vector<WORD>& keys);

}  // namespace platform
