#pragma once

#include <gtest/gtest.h>
#include <windows.h>

#include <string>

#include "program/support/control.h"

namespace program {

/// Brings `form` to the front and waits until the keyboard belongs to it.
testing::AssertionResult bringToFront(HWND form);

/// Types one key (VK_...) into `form`. Fails without typing when the keyboard belongs to another window.
testing::AssertionResult pressKey(HWND form, WORD key);

/// Types characters: as keys where a key alone gives them, else as input without a key (VK_PACKET).
testing::AssertionResult typeText(HWND form, const std::wstring& text);

enum class MouseButton { Left, Right };

/// Moves the pointer to a place on the screen and waits until it is there.
testing::AssertionResult movePointer(POINT place);

/// Moves the pointer there and clicks.
testing::AssertionResult clickAt(POINT place, MouseButton button = MouseButton::Left);

/// Clicks the middle of a visible control. Fails when another window lies over that place.
testing::AssertionResult click(const Control& target, MouseButton button = MouseButton::Left);

/// Presses the left button at `from`, moves the pointer to `to` in some steps and stays there with the button
/// held down; `release` lets it go.
testing::AssertionResult beginDrag(POINT from, POINT to);
testing::AssertionResult release(POINT place);

/// The window that has the keyboard focus in the window's thread.
HWND focusIn(HWND form);

/// Whether the process that has the foreground shows a pointer at all.
bool pointerVisible();

}  // namespace program
