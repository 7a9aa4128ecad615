#pragma once

#include <functional>
#include <vector>

#include "ui/control.h"
#include "ui/focus_frame.h"

namespace ui {

class OptionGroup;

/// Where in its place an option button draws its mark: halfway down, or at the top with room below for a word
/// that lies in front and lets the pointer through.
enum class MarkPlace { Centre, Top };

/// One of several buttons of which at most one is selected. The focus alone never selects one.
class OptionButton : public Control {
  public:
    OptionButton(const CreateArgs& args, OptionGroup& group, MarkPlace mark = MarkPlace::Centre);
    ~OptionButton() override;

    bool selected() const;
    /// Selecting one deselects the others of its group and raises onClick; so does a user's click.
    void setSelected(bool selected);
    OptionGroup& group() const { return group_; }
    void press() override;
    bool underlines() const override { return true; }

    /// The button became the selected one, by its user or from code.
    std::function<void()> onClick;
    /// Its user chose the button, with the mouse (when the mouse button goes down) or the keyboard, also
    /// when it is the selected one already. Comes before onClick.
    std::function<void()> onChosen;

  protected:
    bool onMessage(UINT message, WPARAM w, LPARAM l, LRESULT& result) override;
    bool onReflected(UINT message, WPARAM w, LPARAM l, LRESULT& result) override;

  private:
    friend class OptionGroup;
    void choose();

    OptionGroup& group_;
    bool takingFocus_ = false;
    bool chosenByMouse_ = false;
    FocusFrame focusFrame_{*this};
};

/// The option buttons that exclude one another, in the order in which the arrow keys walk through them.
/// Outlives its buttons. One of them takes part in the tab order: the selected one, or else the first.
class OptionGroup {
  public:
    OptionGroup() = default;
    OptionGroup(const OptionGroup&) = delete;
    OptionGroup& operator=(const OptionGroup&) = delete;

    const std::vector<OptionButton*>& buttons() const { return buttons_; }
    /// The place of the selected button, or -1.
    int selectedIndex() const;
    /// Chooses the visible, enabled button `steps` away from one, as the arrow keys do.
    void chooseFrom(const OptionButton& button, int steps);

  private:
    friend class OptionButton;
    void deselectOthers(const OptionButton& button);
    void updateTabStop();

    std::vector<OptionButton*> buttons_;
};

}  // namespace ui
