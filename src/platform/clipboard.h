#pragma once

#include <windows.h>

#include <string>

namespace platform {

/// Puts text on the clipboard in the place of what was there; false when another program holds it for
/// longer than a moment. `owner` may be null.
bool setClipboardText(HWND owner, const std::wstring& text);

/// The text on the clipboard; empty when there is none.
std::wstring clipboardText();

}  // namespace platform
