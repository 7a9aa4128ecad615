#include "edit/editing_end.h"

#include "edit/start_index_rule.h"
#include "ui/message_box.h"

namespace edit {

// A window can be closed from outside while it asks: that asks no second time.
class EditingEnd::Asking {
  public:
    explicit Asking(bool& asking) : asking_(asking) { asking_ = true; }
    ~Asking() { asking_ = false; }
    Asking(const Asking&) = delete;
    Asking& operator=(const Asking&) = delete;

  private:
    bool& asking_;
};

bool EditingEnd::mayLeave() {
    const Asking asking(asking_);
    if (!parts_.records.changed || !parts_.records.folderWritable || !onSave) {
        return true;
    }
    return !ui::messageBox(&parts_.owner, L"Änderungen speichern ?", L" Bearbeiten beenden",
                           ui::MessageIcon::Question, ui::MessageButtons::YesNo) ||
           onSave();
}

void EditingEnd::run() {
    parts_.Timer1.setEnabled(false);
    if (asking_ || !mayLeave()) {
        return;
    }
    std::vector<std::wstring> items;
    for (const overview::ThumbRecord& record : parts_.records.thumbRecords) {
        items.push_back(record.fileName);
    }
    onLeave(startIndexOf(items, parts_.records.pressedIndex, listed()));
}

}  // namespace edit
