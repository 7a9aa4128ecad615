#include "edit/editing_end.h"

#include "edit/start_index_rule.h"
#include "ui/message_box.h"

namespace edit {

bool EditingEnd::mayLeave() {
    if (!parts_.records.changed || !parts_.records.folderWritable || !onSave) {
        return true;
    }
    return !ui::messageBox(&parts_.owner, L"Änderungen speichern ?", L" Bearbeiten beenden",
                           ui::MessageIcon::Question, ui::MessageButtons::YesNo) ||
           onSave();
}

void EditingEnd::run() {
    parts_.Timer1.setEnabled(false);
    if (!mayLeave()) {
        return;
    }
    std::vector<std::wstring> items;
    for (const overview::ThumbRecord& record : parts_.records.thumbRecords) {
        items.push_back(record.fileName);
    }
    onLeave(startIndexOf(items, parts_.records.pressedIndex, listed()));
}

}  // namespace edit
