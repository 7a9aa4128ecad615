#pragma once

#include <functional>
#include <string>

#include "ui/control.h"

namespace ui {

/// A list of texts that drops down from a box showing the selected one.
class ComboBox : public Control {
  public:
    explicit ComboBox(const CreateArgs& args);

    int count() const;
    std::wstring item(int index) const;
    void add(const std::wstring& text);
    void clear();
    /// -1 when none is selected.
    int selectedIndex() const;
    /// Raises onChange when another item becomes selected, as a user's choice does. Throws
    /// std::out_of_range; -1 selects none.
    void setSelectedIndex(int index);
    /// Whether the list is open. Its keys are its own then: Escape closes it and changes nothing.
    bool droppedDown() const;
    /// Closes the open list; the item chosen before stays.
    void cancel();

    std::function<void()> onChange;

  protected:
    void applyMeasures() override;
    bool onReflected(UINT message, WPARAM w, LPARAM l, LRESULT& result) override;
    void drawRow(const DRAWITEMSTRUCT& row) const;
    /// The list is about to drop down.
    virtual void onDropDown() {}
    virtual void changed();
    void select(int index);

  private:
    void takeChoice();

    int lastIndex_ = -1;
    bool cancelled_ = false;
};

}  // namespace ui
