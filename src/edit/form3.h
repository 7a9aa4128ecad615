#pragma once

#include "edit/entry_line.h"
#include "edit/title_box.h"
#include "ui/button.h"
#include "ui/check_box.h"
#include "ui/combo_box.h"
#include "ui/form.h"
#include "ui/glyph.h"
#include "ui/label.h"

namespace edit {

/// The window in which the entry of one item is edited. It holds the controls under their names and lays them
/// out; EntryEditor fills them and carries out what they ask for.
class Form3 : public ui::Form {
  public:
    /// Hidden. `overview` is the window that it belongs to: it lies above that and ends with it.
    explicit Form3(const ui::Window& overview);

    /// Shows the arrow at the left or the right edge, at a height of the screen in pixels as far as the
    /// window reaches.
    void pointAt(bool left, int screenHeight);
    /// What stands in the boxes.
    EntryTexts texts() const;

    // In the order of the Tab key.
    ui::Label Label3;
    TitleBox UTT;
    ui::Label Label1;
    ui::ComboBox Combo1;
    ui::Label Label2;
    ui::ComboBox Combo2;
    ui::CheckBox Check1;
    ui::Label Label4;
    ui::ComboBox Combo3;
    ui::PushButton OK;
    ui::PushButton CANCEL;
    ui::Glyph Im1;  ///< at the left edge, points to the left
    ui::Glyph Im2;  ///< at the right edge, points to the right

  protected:
    void onFocus(bool gained) override;
};

}  // namespace edit
