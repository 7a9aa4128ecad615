#include "app/setup.h"

#include "app/help_text.h"
#include "app/option_set.h"
#include "app/version.h"
#include "platform/directory.h"
#include "ui/message_box.h"

namespace app {

namespace {

constexpr float kTitlePoints = 36.0F;
constexpr float kVersionPoints = 14.0F;

}  // namespace

Setup::Setup(const Parts& parts)
    : parts_(parts),
      sets_({parts.loop, parts.state, parts.settings, parts.form.lists(), parts.form.options(),
             parts.form.Pic2, parts.form.Pic3, parts.form.SAVE}),
      browser_({parts.loop, parts.state, parts.music, parts.video, parts.form.lists(), parts.form.Pic2,
                parts.form.Start, parts.form.Run}),
      parameters_({parts.state, parts.form.lists(), parts.form.options(),
                   [this](int index) { sets_.choose(index); }, [this] { browser_.fillLists(); }}) {
    wire();
}

void Setup::wire() {
    Form1& form = parts_.form;
    form.Drive1.onChange = [this] { browser_.driveChanged(); };
    form.Dir1.onChange = [this] { browser_.folderChanged(); };
    form.Dir1.onClick = [this] { browser_.folderClicked(); };
    form.File1.onClick = [this] { browser_.fileClicked(); };
    for (int i = 0; i < static_cast<int>(form.Typ.size()); ++i) {
        form.Typ[static_cast<std::size_t>(i)].onClick = [this, i] { browser_.filterClicked(i); };
    }
    for (int i = 0; i < kOptionSetCount; ++i) {
        form.Option1[static_cast<std::size_t>(i)].onChosen = [this, i] {
            // Choosing moves the focus in the middle of the press, so the button would not select itself.
            sets_.choose(i);
            parts_.form.Option1[static_cast<std::size_t>(i)].setSelected(true);
        };
    }
    sets_.onListsWanted = [this] { browser_.fillLists(); };
    form.Musik.onClick = [this] { browser_.musicClicked(); };
    form.Screen2.onClick = [this] { parts_.state.SecondScreen = parts_.form.Screen2.value(); };
    form.SAVE.onClick = [this] { sets_.store(); };
    form.Help.onClick = [this] {
        ui::messageBox(&parts_.form, helpText(), kHelpTitle, ui::MessageIcon::Information);
    };
    browser_.onError = [this](const std::wstring& text, const std::wstring& title) {
        ui::messageBox(&parts_.form, text, title, ui::MessageIcon::Exclamation);
    };
}

void Setup::load(const std::wstring& parameterText) {
    readEditor();
    if (!parameterText.empty()) {
        parameters_.apply(parseParameters(parameterText));
    } else {
        sets_.load();
        if (const auto index = optionSetIndex(parts_.state.CurrentSet)) {
            parts_.form.Option1[static_cast<std::size_t>(*index)].setSelected(true);
        }
    }
    browser_.fillLists();
    sets_.showFolderNames();
}

void Setup::readEditor() {
    const std::wstring path =
        parts_.settings.read(kProgramSection, kEditorKey.name, kEditorKey.fallback, kEditorKey.longest);
    parts_.state.EditorPath = platform::fileExists(path) ? path : L"";
}

bool Setup::typed(wchar_t character) {
    // A letter that no sub-folder begins with must not lead the list to an ancestor.
    return !parts_.form.IntT.hasFocus() && !browser_.selectFolder(character) && parts_.form.Dir1.hasFocus();
}

void Setup::showTitle() {
    setTitle(kTitlePoints, L"Panorell");
}

void Setup::showVersion() {
    setTitle(kVersionPoints, titleAndVersion(PANORELL_VERSION_MAJOR, PANORELL_VERSION_MINOR));
}

void Setup::setTitle(float points, const std::wstring& text) {
    ui::Label& label = parts_.form.Label1;
    ui::FontSpec font = label.fontSpec();
    if (label.text() == text && font.points == points) {
        return;
    }
    font.points = points;
    label.setFont(font);
    label.setText(text);
}

}  // namespace app
