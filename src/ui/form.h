#pragma once

#include <functional>
#include <string>
#include <vector>

#include "ui/control.h"
#include "ui/curtain.h"
#include "ui/window.h"

namespace ui {

class Painting;

/// A top-level window that carries controls: paints their ground, walks the keyboard focus through them,
/// and lays them out anew when its DPI changes.
///
/// Keyboard: Tab and Shift+Tab go from control to control in the order of their creation, the arrow keys
/// choose within a group of option buttons, Alt and a control's letter works it. All other keys reach
/// onKey and onTyped first and then the control with the focus.
class Form : public Window {
  public:
    struct Args {
        const wchar_t* className = nullptr;  ///< the form's name
        std::wstring title{};
        Twips width = 0;  ///< of the client area
        Twips height = 0;
        bool borderless = false;
        bool fixedSize = false;  ///< a title and a close button only: its user cannot give it another size
        bool concealed = false;  ///< its controls are made out of sight, until it is shown
        /// Where it has a picture, it is on the screen at once; must outlive the form.
        const Curtain* curtain = nullptr;
        const Window* owner = nullptr;
    };
    /// Makes the form, centred on the work area of the primary monitor and not yet visible, or behind its
    /// curtain. Throws platform::Error.
    explicit Form(const Args& args);
    ~Form() override;

    bool concealed() const override { return concealed_; }
    /// Shows the form, all painted, and brings it to the front. One that is concealed is revealed. One behind
    /// its curtain is on the screen already, and what lies on it by now takes the curtain's place.
    void show();
    void hide();
    /// Paints the form and all its controls before it returns.
    void paintNow();
    /// Whether the form is on the screen, and not its curtain only.
    bool visible() const;
    void setTitle(const std::wstring& title);

    Rgb background() const { return background_; }
    void setBackground(Rgb colour);
    /// Cards behind the controls, in twips; later ones lie above.
    void setCards(std::vector<TwipsRect> cards);
    Rgb groundAt(POINT place) const override;

    /// Whether dragging the ground moves the form.
    void setMovable(bool movable) { movable_ = movable; }
    /// Whether Tab, arrow keys and Alt letters walk through the controls; else they are keys as all others.
    void setNavigation(bool on) { navigation_ = on; }
    /// All controls of the form, also those within frames, in the order of their creation.
    std::vector<Control*> controls() const;

    std::function<void(bool active)> onActivation;
    /// The pointer moved over the ground or over a control that lets it through.
    std::function<void(const MouseEvent&)> onMoved;
    std::function<void(const MouseEvent&)> onPressed;
    /// A key went down, or a character was typed; true uses it up.
    std::function<bool(int key, bool repeated)> onKey;
    std::function<bool(wchar_t character)> onTyped;
    /// The user wants the form closed (Alt+F4, task bar). It closes only if this is empty.
    std::function<void()> onCloseAsked;
    /// The form was laid out for another DPI.
    std::function<void()> onDpi;

  protected:
    /// What is out of sight stays so, but counts as any other form's from now on.
    void endConcealment() { concealed_ = false; }
    /// Takes the curtain off the screen, and with it the form, which is centred for another show().
    void dropCurtain(Twips width, Twips height);
    /// Draws more onto the ground, below the cards.
    virtual void drawGround(Painting&) {}

    bool onMessage(UINT message, WPARAM w, LPARAM l, LRESULT& result) override;
    bool paints() const override { return true; }
    void onPaint(HDC dc, const RECT& area) override;
    bool onEraseBackground(HDC dc) override;
    void onFocus(bool gained) override;
    void onActivate(bool active) override;
    bool onMouseDown(const MouseEvent& event) override;
    bool onMouseUp(const MouseEvent& event) override;
    bool onMouseMove(const MouseEvent& event) override;
    bool onKeyDownPreview(int key, bool repeated) override;
    bool onCharPreview(wchar_t character) override;
    bool onClose() override;
    void onDpiChanged(int dpi, const RECT& suggested) override;

  private:
    static bool filter(MSG& message);
    static bool closesList(const MSG& message);
    bool navigate(const MSG& message);
    bool takeTab(bool backwards);
    bool takeAccessKey(wchar_t letter);
    void showFocus();
    void keepGrip(int dpi);
    void moveTo(POINT pointer);
    void centre(Twips width, Twips height);
    void paintBelowControls();
    void paintTo(HDC dc, const RECT& area);
    RECT toPixelRect(const TwipsRect& place) const;

    Rgb background_;
    std::vector<TwipsRect> cards_;
    bool concealed_;
    const Curtain* curtain_ = nullptr;  ///< while it is on the screen
    bool movable_ = false;
    bool navigation_ = true;
    bool dragging_ = false;
    bool fresh_ = false;
    POINT grip_{};  ///< the place of the ground, in pixels, that the pointer holds
    int laidOutDpi_ = USER_DEFAULT_SCREEN_DPI;
    HWND lastFocus_ = nullptr;
};

}  // namespace ui
