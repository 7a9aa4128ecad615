#pragma once

#include <windows.h>

#include <string>

#include "ui/twips.h"
#include "ui/vector_path.h"

namespace ui {

enum class MouseButton { Left, Right, Middle };

/// A mouse event: the button (for presses and releases) and the place in the window's client area, pixels.
struct MouseEvent {
    MouseButton button = MouseButton::Left;
    int x = 0;
    int y = 0;
    bool shift = false;
    bool control = false;
};

/// Base of every window and control: binds an object to a window handle and hands each message, decoded, to
/// a named handler, under the event loop's trap. It holds no settings, text or layout.
///
/// A handler that returns bool says whether it used the message up; otherwise the system's own behaviour
/// follows. The object must outlive its window or end it: the destructor destroys the window.
class Window {
  public:
    Window(const Window&) = delete;
    Window& operator=(const Window&) = delete;
    virtual ~Window();

    /// Null before creation and after WM_NCDESTROY.
    HWND hwnd() const { return hwnd_; }
    /// The object behind a handle, or null when the window is none of ours. For the window thread only.
    static Window* from(HWND window);
    /// Dots per inch of the monitor that the window is on; 96 before creation.
    int dpi() const;
    /// Size of the client area in pixels.
    SIZE clientSize() const;
    /// The colour behind a place in the client area (pixels), for what is drawn see-through there. A window
    /// that paints no ground of its own shows its parent's.
    virtual Rgb groundAt(POINT place) const;
    /// Whether what lies in the window is made out of sight: neither shown nor given tips before it is
    /// revealed.
    virtual bool concealed() const { return false; }

  protected:
    Window() = default;

    struct Style {
        const wchar_t* className = nullptr;
        const wchar_t* text = L"";
        DWORD style = 0;
        DWORD exStyle = 0;
        HWND parent = nullptr;
        int id = 0;
        int left = 0, top = 0, width = 0, height = 0;  ///< pixels
    };
    /// Creates a window of one of our own classes, registering the class on first use with `classStyle`.
    /// Throws platform::Error.
    void create(const Style& style, UINT classStyle = 0);
    /// Creates one of the system's controls and takes its messages. Throws platform::Error.
    void createSystem(const Style& style);
    void destroy();
    /// The system's own handling of a message, for what has to come before or after it; 0 once the window has
    /// ended.
    LRESULT callSystem(UINT message, WPARAM w, LPARAM l) const;

    /// Takes a message apart; only a control that needs a message without a handler below overrides it.
    virtual bool onMessage(UINT message, WPARAM w, LPARAM l, LRESULT& result);
    /// A message that the parent passed back to the control it is about (WM_COMMAND, colours, drawing).
    virtual bool onReflected(UINT message, WPARAM w, LPARAM l, LRESULT& result);

    virtual void onPaint(HDC dc, const RECT& area);
    /// False: the class has no handler of its own and the system paints.
    virtual bool paints() const { return false; }
    virtual bool onEraseBackground(HDC dc);
    virtual void onSize(int width, int height);
    virtual void onMove() {}
    virtual bool onKeyDown(int key, bool repeated);
    virtual bool onChar(wchar_t character);
    virtual bool onMouseDown(const MouseEvent& event);
    virtual bool onMouseUp(const MouseEvent& event);
    virtual bool onMouseMove(const MouseEvent& event);
    virtual bool onDoubleClick(const MouseEvent& event);
    virtual void onMouseLeave() {}
    virtual bool onWheel(int notches);
    virtual void onFocus(bool gained);
    virtual void onActivate(bool active);
    virtual bool onClose();
    virtual bool onHitTest(POINT screen, LRESULT& where);
    virtual bool onSetCursor();
    virtual void onDpiChanged(int dpi, const RECT& suggested);
    virtual void onEnabled(bool) {}
    virtual void onDestroyed() {}

    /// Keys reach the outermost window of our own before the control that has the focus.
    virtual bool onKeyDownPreview(int key, bool repeated);
    virtual bool onCharPreview(wchar_t character);

    /// Asks for onMouseLeave once, when the pointer leaves.
    void trackLeave();

  private:
    friend class FocusFrame;  // paints over what the system has painted

    static LRESULT CALLBACK ownProc(HWND window, UINT message, WPARAM w, LPARAM l) noexcept;
    static LRESULT CALLBACK systemProc(HWND window, UINT message, WPARAM w, LPARAM l) noexcept;
    static bool reflect(UINT message, WPARAM w, LPARAM l, LRESULT& result);
    bool dispatch(UINT message, WPARAM w, LPARAM l, LRESULT& result) noexcept;
    bool take(UINT message, WPARAM w, LPARAM l, LRESULT& result);
    bool takeKeyboard(UINT message, WPARAM w, LPARAM l);
    bool takeMouse(UINT message, WPARAM w, LPARAM l);
    void paint();
    void bind(HWND window);
    void unbind();
    Window* outermost() const;

    HWND hwnd_ = nullptr;
    WNDPROC system_ = DefWindowProcW;  ///< what handles a message that we do not
};

}  // namespace ui
