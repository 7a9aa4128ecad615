#pragma once

#include <string>

#include "ui/window.h"

namespace ui {

enum class MessageIcon { None, Information, Exclamation, Question };
enum class MessageButtons { Ok, YesNo };

/// Shows a message and waits for its button; true for OK and Yes. `owner` may be null. When the program is
/// being left meanwhile the box closes and Leaving is thrown.
bool messageBox(const Window* owner, const std::wstring& text, const std::wstring& title, MessageIcon icon,
                MessageButtons buttons = MessageButtons::Ok);

}  // namespace ui
