#include "edit/editing.h"

#include <commctrl.h>

#include <utility>

#include "edit/item_file.h"
#include "ui/message_box.h"

namespace edit {

// The keyboard goes to the window itself meanwhile: with all of it disabled nothing else would hear it.
Editing::Block::Block(Editing& editing) : editing_(editing) {
    ++editing_.blocks_;
    overview::Form2& form = editing_.overview_.form();
    editing_.overview_.drag().cancel();
    std::vector<ui::Control*> controls{&form.Grid, &form.List1, &form.OK, &form.CAN, &form.Ton};
    for (ui::PushButton& button : form.Command) {
        controls.push_back(&button);
    }
    for (ui::Control* control : controls) {
        if (control->enabled()) {
            control->setEnabled(false);
            disabled_.push_back(control);
        }
    }
    SetFocus(form.hwnd());
}

Editing::Block::~Block() {
    --editing_.blocks_;
    overview::Form2& form = editing_.overview_.form();
    for (ui::Control* control : disabled_) {
        control->setEnabled(true);
    }
    if (form.Grid.enabled() && GetFocus() == form.hwnd()) {
        form.Grid.setFocus();
    }
}

Editing::Editing(ui::EventLoop& loop, overview::Overview& overview)
    : overview_(overview),
      menu_(overview.form()),
      lock_({overview.records(), overview.grid(), overview.store()}),
      deletion_({loop, overview.records(), overview.view(), overview.grid()}),
      settings_(overview.records(), overview.view()),
      store_({loop, overview.records(), overview.grid(), overview.store()}),
      end_({overview.form(), overview.form().Timer1, overview.records()}) {
    provideOwn();
    overview_.onMenu = [this](int index, POINT screen) { openMenu(index, screen); };
    // The boxes are there until others take their places: their texts would be those of other items.
    overview_.onLoad = [this] { settings_.setShown(false); };
    overview_.form().onCloseAsked = [this] { end(); };
    store_.onProgress = [this](int done, int all) { overview_.form().showProgress(done, all); };
    end_.listed = [this] { return listed(); };
    end_.onLeave = [this](std::optional<int> index) { onLeave(index); };
}

Editing::~Editing() {
    overview_.onMenu = nullptr;
    overview_.onLoad = nullptr;
    overview_.form().onCloseAsked = nullptr;
}

void Editing::provideOwn() {
    provide(MenuCommand::Mvor, [this](int index) { overview_.enlarged().enlarge(index); });
    provide(MenuCommand::Msperr, [this](int index) { refuse(lock_.lock(index)); });
    provide(MenuCommand::Mfrei, [this](int index) {
        if (overview_.records().thumbRecords[static_cast<std::size_t>(index)].deleted) {
            deletion_.takeBack(index);
        } else {
            refuse(lock_.unlock(index));
        }
    });
    provide(MenuCommand::Mopt, [this](int) { settings_.setShown(true); });
    provide(MenuCommand::Mdel, [this](int index) { deletion_.mark(index); });
    provide(MenuCommand::Mmin, [this](int) { storeThumbnails(); });
    provide(MenuCommand::MminL, [this](int) { store_.remove(); });
    provide(MenuCommand::Mab, [this](int) { end(); });
}

void Editing::setSave(std::function<bool()> save) {
    end_.onSave = save;
    provide(MenuCommand::Msav, [save = std::move(save)](int) { save(); });
}

MenuState Editing::stateOf(int index) const {
    MenuState state = menuStateOf(overview_.records(), index);
    state.storePresent = overview_.store().present();
    state.settingsShown = settings_.shown();
    state.musicShown = overview_.form().List1.visible();
    if (onStateAsked) {
        onStateAsked(state);
    }
    return state;
}

void Editing::holdTips(int more) {
    tipsHeld_ += more;
    SendMessageW(overview_.tips().hWnd(), TTM_ACTIVATE, tipsHeld_ == 0 ? TRUE : FALSE, 0);
}

void Editing::openMenu(int index, POINT screen) {
    if (blocks_ > 0) {
        return;
    }
    // A tip for the place where the pointer comes to rest on the menu would lie over what that opens.
    const WithoutTips still(*this);
    const std::wstring fileName = overview_.records().thumbRecords[static_cast<std::size_t>(index)].fileName;
    const auto chosen = menu_.choose(stateOf(index), screen);
    if (!chosen) {
        return;
    }
    // What the menu covered is painted before anything takes its time. Nothing else may come in between: a
    // window that is closed right now would save. While the menu was open the item may have moved.
    RedrawWindow(overview_.form().hwnd(), nullptr, nullptr, RDW_UPDATENOW | RDW_ALLCHILDREN);
    if (const auto now = itemNamed(overview_.records(), fileName)) {
        menu_.run(*chosen, *now);
    }
}

void Editing::refuse(const std::wstring& sentence) {
    if (!sentence.empty()) {
        ui::messageBox(&overview_.form(), sentence, L" Fehler", ui::MessageIcon::Exclamation);
    }
}

bool Editing::keyWhileStoring(int key) {
    if (key == VK_ESCAPE) {
        store_.stop();
    }
    return true;
}

void Editing::storeThumbnails() {
    overview::Form2& form = overview_.form();
    endAsked_ = false;
    StoreCommands::End kept;
    {
        const Block block(*this);
        const auto former = std::exchange(form.onKey, [this](int key, bool) { return keyWhileStoring(key); });
        kept = store_.save();
        form.onKey = former;
        if (kept.all) {
            settings_.setShown(false);
        }
    }
    refuse(kept.fault);
    if (endAsked_) {
        end();
    }
}

void Editing::end() {
    if (blocks_ > 0) {
        endAsked_ = store_.saving();
        store_.stop();
        return;
    }
    overview_.enlarged().close();
    end_.run();
}

}  // namespace edit
