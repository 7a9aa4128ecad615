#include "app/overview.h"

#include <string>

#include "app/folder_recovery.h"
#include "platform/directory.h"
#include "platform/monitors.h"

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
    if (!overview_) {
        overview_.emplace(overview::Overview::Parts{
            parts_.loop, parts_.control, form, fileSystem_, parts_.music,
            [this](HWND window) {
                return parts_.surfaces.coloursOf(platform::Monitors::current().areaOf(window));
            },
            [&form] { return form.File2.entries(); }});
        overview_->form().onCloseAsked = [this] { endEditing(); };
    }
    form.hide();
    recoverFolder(parts_.loop, fileSystem_, folder, &form);
    // The titles may have other names than when the set-up read them.
    form.File2.refresh();
    form.File1.setWithHidden(true);
    overview_->open(folder, form.File1.pattern());
}

// The set-up is not built again: the program starts anew with its settings.
void Overview::endEditing() {
    overview_->form().hide();
    overview_->form().Timer1.setEnabled(false);
    parts_.shutdown.endEditing();
}

}  // namespace app
