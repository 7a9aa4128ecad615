#include "app/overview.h"

#include <string>

#include "app/folder_recovery.h"
#include "app/option_set.h"
#include "files/file_filter.h"
#include "platform/directory.h"
#include "platform/monitors.h"
#include "platform/short_path.h"
#include "ui/message_box.h"

namespace app {

void Overview::open() {
    Form1& form = parts_.form;
    for (ui::Timer* timer : {&form.Timer1, &form.Timer2, &form.Timer3, &form.Timer4, &form.Timer5}) {
        timer->setEnabled(false);
    }
    parts_.video.close();
    const std::wstring folder = form.Dir1.path();
    parts_.music.musicFolder = platform::joinPath(folder, L"");
    parts_.tray.remove();
    // While the set-up is still seen: it may take its time, and have something to tell.
    recoverFolder(parts_.loop, fileSystem_, folder, &form);
    if (!overview_) {
        make();
    }
    form.hide();
    form.File1.setWithHidden(true);
    overview_->open(folder, form.File1.pattern());
}

void Overview::make() {
    overview_.emplace(overview::Overview::Parts{
        parts_.loop, parts_.control, parts_.form, fileSystem_, parts_.music,
        [this](HWND window) {
            return parts_.surfaces.coloursOf(platform::Monitors::current().areaOf(window));
        },
        [this] { return titles(); }});
    editing_.emplace(parts_.loop, *overview_);
    editing_->listed = [this] { return listed(); };
    editing_->onLeave = [this](std::optional<int> startIndex) { leave(startIndex); };
    operations_.emplace(edit::Operations::Parts{parts_.loop, parts_.control, fileSystem_, *overview_,
                                                *editing_, parts_.state.EditorPath,
                                                [this](const std::wstring& path) { return keepEditor(path); },
                                                [this] { return titles(); }, [this] { reload(); }});
}

// The folder is opened anew, so what was interrupted there is put right first.
void Overview::reload() {
    recoverFolder(parts_.loop, fileSystem_, std::wstring(overview_->records().folder), &overview_->form());
    overview_->reload();
}

bool Overview::close() {
    if (!overview_ || !overview_->form().visible()) {
        return false;
    }
    editing_->end();
    return true;
}

bool Overview::keepEditor(const std::wstring& path) const {
    const std::wstring kept = platform::storablePath(path, kEditorKey.longest);
    return kept.size() <= kEditorKey.longest && parts_.settings.write(kProgramSection, kEditorKey.name, kept);
}

// The music list gives the titles other names, of which the set-up's list is not told.
std::vector<std::wstring> Overview::titles() const {
    parts_.form.File2.refresh();
    return parts_.form.File2.entries();
}

// The main window's list is the show's own.
std::vector<std::wstring> Overview::listed() const {
    ui::FileList& files = parts_.form.File1;
    files.setWithHidden(false);
    files.setPattern(files::kTypPatterns[0]);
    return files.entries();
}

// The set-up is not built again: the program starts anew with its settings.
void Overview::leave(std::optional<int> startIndex) {
    operations_->entries().close();
    overview_->form().hide();
    if (!parts_.shutdown.endEditing(startIndex)) {
        overview_->form().show();
        ui::messageBox(&overview_->form(), kNoRestart, kNoRestartTitle, ui::MessageIcon::Exclamation);
    }
}

}  // namespace app
