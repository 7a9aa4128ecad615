#pragma once

#include <functional>
#include <string>
#include <vector>

#include "ui/control.h"

namespace ui {

/// A list of texts, each with a number (item data) behind it. Indices start at 0.
class ListBox : public Control {
  public:
    enum class Selection { Single, Multiple };

    explicit ListBox(const CreateArgs& args, Selection selection = Selection::Single);

    int count() const;
    std::wstring item(int index) const;
    void add(const std::wstring& text, int data = 0);
    /// Throws std::out_of_range for an index beyond 0 ... count.
    void insert(int index, const std::wstring& text, int data = 0);
    /// Throws std::out_of_range.
    void remove(int index);
    /// Empties the list; nothing is selected then.
    void clear();
    int itemData(int index) const;
    void setItemData(int index, int data);

    /// The selected item (of a multiple selection: the one with the focus), or -1.
    int selectedIndex() const;
    /// Selects an item and scrolls it into view; -1 selects none. Raises onClick when another item becomes
    /// selected, as a user's choice does. Throws std::out_of_range.
    void setSelectedIndex(int index);
    bool selected(int index) const;
    /// For a multiple selection; raises nothing.
    void setSelected(int index, bool selected);
    /// The first item in view.
    int topIndex() const;
    void setTopIndex(int index);
    /// The item at a place of the client area (pixels); -1 where there is none, as below the last one.
    int itemAt(int x, int y) const;
    /// Which items of a multiple selection are selected, by index; what lies beyond `highlights` is not. The
    /// item with the focus and the items in view stay; raises nothing.
    void setHighlights(const std::vector<bool>& highlights);

    /// The selection changed, or its user clicked the selected item again.
    std::function<void()> onClick;
    /// The second press of a double click, which is no onPressed; an onReleased follows.
    std::function<void(const MouseEvent&)> onDoubleClicked;
    /// A mouse button went down, or up, over the list; the selection is up to date. For drag and drop.
    std::function<void(const MouseEvent&)> onPressed;
    std::function<void(const MouseEvent&)> onReleased;
    /// The return key.
    std::function<void()> onReturn;
    /// The space key, which then does not change the selection by itself.
    std::function<void()> onSpace;

  protected:
    void applyMeasures() override;
    bool onMessage(UINT message, WPARAM w, LPARAM l, LRESULT& result) override;
    bool onReflected(UINT message, WPARAM w, LPARAM l, LRESULT& result) override;
    bool onKeyDown(int key, bool repeated) override;
    bool onChar(wchar_t character) override;
    /// Draws a row: its text, cut with an ellipsis.
    virtual void drawRow(const DRAWITEMSTRUCT& row) const;
    /// The colour behind a row: paper, or a selection that is paler without the focus.
    static Rgb rowGround(const DRAWITEMSTRUCT& row);
    /// The user's choice of an item.
    virtual void chosen();

    /// Replaces all items at once, without selection, event or repainting in between.
    void replaceItems(const std::vector<std::wstring>& items);
    void select(int index);

  private:
    void checkIndex(int index, int count) const;

    bool multiple_;
};

}  // namespace ui
