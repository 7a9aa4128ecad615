#pragma once

#include <functional>
#include <optional>

#include "ui/control.h"
#include "ui/label.h"

namespace ui {

/// A box for text to be typed. One line, in the middle of the box's height, unless `multiLine`; then lines
/// break at CR LF and where they are too wide.
class TextBox : public Control {
  public:
    struct Options {
        Alignment alignment = Alignment::Left;
        bool multiLine = false;
        bool readOnly = false;
        bool border = true;
        bool mouse = true;  ///< false: what lies below the box gets its mouse events
        int longest = 0;    ///< most characters that can be typed; 0: no bound
    };

    TextBox(const CreateArgs& args, const Options& options);
    explicit TextBox(const CreateArgs& args) : TextBox(args, Options{}) {}

    /// Raises onChange when the text becomes another one.
    void setText(const std::wstring& text) override;
    void setColours(Rgb text, Rgb ground);
    /// Puts the caret at the end.
    void caretToEnd();
    void selectAll();
    void press() override;

    /// The text is another one, whether typed or set from code.
    std::function<void()> onChange;
    std::function<void(bool gained)> onFocusChange;
    /// The return key; a box of one line has no use of its own for it.
    std::function<void()> onReturn;

  protected:
    bool onMessage(UINT message, WPARAM w, LPARAM l, LRESULT& result) override;
    bool onReflected(UINT message, WPARAM w, LPARAM l, LRESULT& result) override;
    void onFocus(bool gained) override;
    bool onChar(wchar_t character) override;
    bool onHitTest(POINT screen, LRESULT& where) override;

  private:
    void changed();
    int lineHeight() const;
    void paintMargins();

    bool multiLine_;
    bool mouse_;
    bool settingText_ = false;
    Rgb colour_;
    Rgb ground_;
    std::wstring lastText_;
};

}  // namespace ui
