#pragma once

#include <windows.h>

#include <string>
#include <unordered_map>

namespace ui {

/// One tooltip window of the system, for the tools of one owner window: a thin layer over its messages.
///
/// Before Create, and when no window could be made, every member does nothing and reads give 0. Texts may
/// have several lines, parted by CR; they reach the tooltip in the system's code page. The class has a few
/// ways of its own that are to stay: see ForeColor, BackColor and setMaxTipWidth.
class clstt {
  public:
    /// Side of the margin: the number that Margin takes.
    enum Side { Left = 0, Top = 1, Right = 2, Bottom = 3 };

    clstt() = default;
    ~clstt();
    clstt(const clstt&) = delete;
    clstt& operator=(const clstt&) = delete;

    /// Makes the tooltip window for the tools of `owner`; a second call keeps the first window. Whether
    /// there is one.
    bool Create(HWND owner);

    /// Attaches a text to a control; the tooltip watches the control's mouse messages by itself. Nothing
    /// happens for an empty text.
    void AddTool(HWND control, const std::wstring& text);
    /// Detaches the control.
    void RemoveTool(HWND control);
    /// The text of a control's tool; empty where it has none.
    std::wstring ToolText(HWND control) const;
    /// Replaces the text of a control's tool.
    void setToolText(HWND control, const std::wstring& text);
    int ToolCount() const;

    /// The background colour (COLORREF). The message is given the address of a value too, which it ignores.
    COLORREF BackColor() const;
    void setBackColor(COLORREF colour);
    /// Sets the text colour to 0 instead of asking for it, and gives what that message answers.
    COLORREF ForeColor() const;
    void setForeColor(COLORREF colour);

    /// A delay in ms; `which` is one of TTDT_... .
    int DelayTime(int which) const;
    /// Of `which` only the two lowest bits count.
    void setDelayTime(int which, int ms);

    /// One side of the margin in pixels; 0 for a side that there is not.
    int Margin(int side) const;
    void setMargin(int side, int value);

    /// The width in pixels beyond which lines break; -1 for no bound.
    int MaxTipWidth() const;
    /// Hands the tooltip not the width but the address of a value that holds it, below 1 as -1: what the
    /// tooltip takes for the width is a number beyond every screen, and lines break at CR only.
    void setMaxTipWidth(int width);

    HWND hWnd() const { return window_; }
    HWND ToolTipHandle() const { return window_; }

  private:
    LRESULT send(UINT message, WPARAM w = 0, LPARAM l = 0) const;
    void sendTool(UINT message, HWND control, const std::wstring& text) const;

    HWND window_ = nullptr;
    HWND owner_ = nullptr;
    std::unordered_map<HWND, std::wstring> texts_;
};

}  // namespace ui
