#pragma once

#include "ui/text_box.h"

namespace edit {

/// A box for a title, in one line. A "*" is refused with a beep, typed or pasted, and line breaks that are
/// pasted become blanks.
class TitleBox : public ui::TextBox {
  public:
    explicit TitleBox(const ui::CreateArgs& args) : TextBox(args) {}

  protected:
    bool onMessage(UINT message, WPARAM w, LPARAM l, LRESULT& result) override;
    bool onChar(wchar_t character) override;

  private:
    void paste();
};

}  // namespace edit
