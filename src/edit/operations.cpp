#include "edit/operations.h"

#include <algorithm>

#include "edit/editor_command.h"
#include "ui/input_box.h"
#include "ui/message_box.h"

namespace edit {

Operations::Operations(const Parts& parts)
    : parts_(parts),
      form3_(parts.overview.form()),
      bin_([this] { return parts_.overview.form().hwnd(); }),
      entries_({parts.loop, form3_, parts.overview.records(), parts.musicFiles,
                [this](int index) { return parts_.overview.view().onScreen(index); },
                [this](int index) { redraw(index); },
                [this](int index) { parts_.overview.grid().tipChanged(index); },
                [this] { parts_.editing.settings().refresh(); },
                [this](bool allowed) {
                    if (allowed) {
                        withoutTips_.reset();
                    } else {
                        withoutTips_.emplace(parts_.editing);
                    }
                }}),
      dates_({parts.overview.records(), dialogue(),
              [this](int index) {
                  parts_.overview.grid().tipChanged(index);
                  parts_.editing.settings().refresh();
              }}),
      info_({parts.loop, parts.overview.records(), properties_,
             [this] { return parts_.overview.form().hwnd(); }, dialogue(ui::MessageIcon::Information)}),
      external_({parts.loop, parts.overview.records(), parts.EditorPath, dialogue(), desk(), parts.keepPath}),
      save_({parts.loop, parts.fileSystem, bin_, parts.control, parts.overview.records(), saveDialog(),
             saveGrid()}) {
    entries_.onRefused = [this](const std::wstring& sentence) { parts_.editing.refuse(sentence); };
    parts_.overview.onChanged = [this] { entries_.recordsChanged(); };
    provide();
}

Operations::~Operations() {
    parts_.overview.onChanged = nullptr;
}

Dialogue Operations::dialogue(ui::MessageIcon icon) {
    return {
        [this](const Question& question) {
            return ui::inputBox(&parts_.overview.form(), {question.title, question.prompt, question.text});
        },
        [this, icon](const std::wstring& text, const std::wstring& title) {
            ui::messageBox(&parts_.overview.form(), text, title, icon);
        }};
}

ExternalEditor::Desk Operations::desk() {
    return {[this](const std::wstring& notice) {
                block(true);
                parts_.overview.form().showNotice(notice);
            },
            [this] {
                parts_.overview.form().showNotice({});
                block(false);
            },
            [this](const std::wstring& fileName) { parts_.overview.store().remove(fileName); },
            [this](int index) { redraw(index); }};
}

SaveDialog Operations::saveDialog() {
    return {
        [this](const ui::InputQuestion& question) { return ui::inputBox(&parts_.overview.form(), question); },
        [this](const std::wstring& question) {
            return ui::messageBox(&parts_.overview.form(), question, L"  Speichern",
                                  ui::MessageIcon::Question, ui::MessageButtons::YesNo);
        },
        [this](const std::wstring& sentence) { parts_.editing.refuse(sentence); },
        [this](bool on) { block(on); },
        [this](int done, int all, const std::wstring& at) {
            parts_.overview.form().showProgress(done, all);
            parts_.overview.form().showNotice(at);
        }};
}

SaveGrid Operations::saveGrid() {
    return {[this] {
                entries_.close();
                parts_.overview.enlarged().close();
                parts_.overview.grid().stop();
            },
            [this](const std::vector<int>& indices) { removeItems(indices); },
            [this] {
                parts_.overview.filesRenamed();
                parts_.editing.settings().refresh();
            },
            parts_.reload};
}

void Operations::provide() {
    Editing& editing = parts_.editing;
    editing.provide(MenuCommand::Minf, [this](int index) { info_.show(index); });
    editing.provide(MenuCommand::Mdate, [this](int index) { dates_.change(index); });
    editing.provide(MenuCommand::Mauf, [this](int index) { external_.run(index); });
    editing.provide(MenuCommand::Mprog, [this](int index) { external_.choose(index); });
    editing.provide(MenuCommand::Munt, [this](int index) { entries_.open(index); });
    editing.provide(MenuCommand::TakeSaveBack, [this](int) { save_.takeBack(); });
    editing.provide(MenuCommand::Mmusi, [this](int) { parts_.overview.music().show(); });
    editing.provide(MenuCommand::Mdel, [this](int index) {
        parts_.editing.deletion().mark(index);
        entries_.recordsChanged();
    });
    editing.setSave([this] { return save_.save(); });
    editing.onStateAsked = [this](MenuState& state) { fillState(state); };
}

void Operations::fillState(MenuState& state) const {
    state.musicTitles = parts_.overview.music().hasTitles();
    state.saveToTakeBack = save_.canTakeBack();
    state.editorName = external_.known() ? programName(parts_.EditorPath) : std::wstring();
}

void Operations::redraw(int index) {
    // A film that is being watched is not ended for its thumbnail.
    if (parts_.overview.enlarged().isOpen()) {
        return;
    }
    const auto thumbnail = parts_.overview.grid().redraw(index);
    if (thumbnail) {
        const auto& record = parts_.overview.records().thumbRecords[static_cast<std::size_t>(index)];
        parts_.overview.store().save(record.fileName, *thumbnail);
    }
}

void Operations::removeItems(const std::vector<int>& indices) {
    // The selected item stays selected; one that was deleted gives its place to the next.
    const int selected = parts_.overview.records().pressedIndex;
    const auto before = std::lower_bound(indices.begin(), indices.end(), selected) - indices.begin();
    parts_.overview.grid().remove(indices);
    const int last = parts_.overview.records().thumbCount() - 1;
    parts_.overview.selection().select(std::min(selected - static_cast<int>(before), last));
}

// What a save or the image program stopped goes on when it has ended.
void Operations::block(bool on) {
    if (on) {
        block_.emplace(parts_.editing);
    } else {
        block_.reset();
        parts_.overview.grid().resume();
    }
}

}  // namespace edit
