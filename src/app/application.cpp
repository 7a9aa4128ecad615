#include "app/application.h"

#include <windows.h>

#include <algorithm>
#include <utility>

#include "app/help_text.h"
#include "app/option_set.h"
#include "app/resource_ids.h"
#include "app/version.h"
#include "platform/monitors.h"
#include "show/fit_rule.h"
#include "ui/message_box.h"

namespace app {

namespace {

constexpr char kTrayTip[] = "Panorell";
constexpr float kTitlePoints = 36.0F;
constexpr float kVersionPoints = 14.0F;
constexpr wchar_t kEscape = 27;

std::array<ui::OptionButton*, 4> optionsOf(Form1& form) {
    return {&form.Option1[0], &form.Option1[1], &form.Option1[2], &form.Option1[3]};
}

bool isFile(const std::wstring& path) {
    const DWORD attributes = GetFileAttributesW(path.c_str());
    return attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_DIRECTORY) == 0;
}

}  // namespace

Application::Application(ui::EventLoop& loop, media::MediaControl& control, const std::wstring& programDir)
    : loop_(loop),
      control_(control),
      settings_(withBackslash(programDir) + std::wstring(kSettingsFile)),
      form_(loop),
      screen_(form_),
      tray_(form_.hwnd(), LoadIconW(GetModuleHandleW(nullptr), MAKEINTRESOURCEW(PANORELL_ICON)), kTrayTip),
      runner_({loop, form_.Pic2, form_.Pic3, form_.Timer2, form_.Check1}),
      captions_({loop, show_, form_.Pic2, form_.Pic3, form_.UT, form_.Text1, form_.Timer3}),
      video_({loop, control, show_, music_, form_.Pic1, form_.Pic2, form_.Pic3, form_.Timer1, form_.Timer4,
              form_.MUTE, [this] { return player_.playing(); }, [this] { return runner_.running(); }}),
      player_({loop, control, music_, form_.Timer5, form_.Musik,
               [this] { return runner_.running() || video_.sounds(); }}),
      script_({show_, captions_, runner_, music_, player_, form_.Timer1, form_.Musik, form_.ShowFN,
               [this] { return form_.Dir1.path(); }}),
      slideshow_({loop,
                  show_,
                  screen_,
                  pointer_,
                  pictures_,
                  runner_,
                  captions_,
                  script_,
                  control,
                  video_,
                  player_,
                  music_,
                  form_.File1,
                  form_.Dir1,
                  form_.IntS,
                  form_.LoopC,
                  form_.Screen2,
                  form_.MUTE,
                  form_.Pic1,
                  form_.Pic2,
                  form_.Pic3,
                  form_.Text1,
                  form_.EOT,
                  form_.Timer1,
                  form_.Timer5,
                  [this](int width, int height) { return shapeFor(width, height); },
                  [this] {
                      state_.rememberedDrive = form_.Drive1.drive();
                      state_.rememberedFolder = form_.Dir1.path();
                  }}),
      sets_({loop, state_, settings_, form_.Drive1, form_.Dir1, form_.File1, form_.IntT, form_.IntS,
             form_.LoopC, form_.ShowFN, form_.MUTE, form_.Musik, form_.Check1, form_.Pic2, form_.Pic3,
             optionsOf(form_)}),
      browser_({loop,
                state_,
                music_,
                form_.Drive1,
                form_.Dir1,
                form_.File1,
                form_.File2,
                {&form_.Typ[0], &form_.Typ[1], &form_.Typ[2]},
                form_.Pic2,
                form_.Start,
                form_.Run,
                [this](const std::wstring& path) { video_.OpenAndPlayVideo(path); },
                [this] { video_.close(); },
                [this](const std::wstring& path) { aboutToShow(path); },
                [this](const std::wstring& text, const std::wstring& title) {
                    ui::messageBox(&form_, text, title, ui::MessageIcon::Exclamation);
                }}),
      parameters_({state_, form_.Drive1, form_.Dir1, form_.File1, form_.IntT, form_.IntS, form_.ShowFN,
                   form_.LoopC, form_.MUTE, form_.Musik, optionsOf(form_),
                   [this](int index) { sets_.choose(index); }}),
      shutdown_({loop, control, tray_, parameters_, form_.Pic2, form_.Pic3}),
      controls_({loop, show_, screen_, pointer_, slideshow_, runner_, captions_, video_, player_, form_.IntS,
                 form_.Timer1, form_.Pic2, [this] { shutdown_.restart(); }}) {
    state_.ProgramDir = withBackslash(programDir);
    wireSetup();
    wireShow();
}

void Application::wireSetup() {
    form_.Drive1.onChange = [this] { browser_.driveChanged(); };
    form_.Dir1.onChange = [this] { browser_.folderChanged(); };
    form_.Dir1.onClick = [this] { browser_.folderClicked(); };
    form_.File1.onClick = [this] { browser_.fileClicked(); };
    for (int i = 0; i < 3; ++i) {
        form_.Typ[static_cast<std::size_t>(i)].onClick = [this, i] { browser_.filterClicked(i); };
    }
    for (int i = 0; i < kOptionSetCount; ++i) {
        form_.Option1[static_cast<std::size_t>(i)].onChosen = [this, i] {
            // Choosing moves the focus in the middle of the press, so the button would not select itself.
            sets_.choose(i);
            form_.Option1[static_cast<std::size_t>(i)].setSelected(true);
        };
    }
    form_.Musik.onClick = [this] { browser_.musicClicked(); };
    form_.Screen2.onClick = [this] { state_.SecondScreen = form_.Screen2.value(); };
    form_.SAVE.onClick = [this] { sets_.store(); };
    form_.Help.onClick = [this] {
        ui::messageBox(&form_, helpText(), kHelpTitle, ui::MessageIcon::Information);
    };
    form_.ENDE.onClick = [this] { shutdown_.clipboardEnd(); };
    form_.Pic3.onClick = [this] {
        if (screen_.inSetup()) {
            shutdown_.clipboardEnd();
        }
    };
    form_.Pic3.onMoved = [this](const ui::MouseEvent&) { showVersion(); };
    form_.onMoved = [this](const ui::MouseEvent&) { showTitle(); };
    form_.onActivation = [this](bool active) {
        if (active) {
            activated();
        }
    };
    form_.onCloseAsked = [this] {
        if (show_.showMode == show::kNoShow) {
            shutdown_.clipboardEnd();
        } else {
            slideshow_.stop();
        }
    };
    form_.onDpi = [this] { browser_.previewAgain(); };
    form_.onOwnerMessage = [this](UINT message) {
        tray_.onOwnerMessage(message);
        if (message == WM_ENDSESSION) {
            tray_.remove();
        }
    };
}

void Application::wireShow() {
    form_.Start.onClick = [this] { startShow(); };
    form_.Run.onClick = [this] { pressRun(); };
    form_.EOT.onClick = [this] { slideshow_.stop(); };
    slideshow_.onEnd = [this] { shutdown_.showEnd(); };
    form_.Pic2.onPressed = [this](const ui::MouseEvent& event) { controls_.mousePressed(event.button); };
    form_.onKey = [this](int key, bool) { return controls_.keyDown(key); };
    form_.onTyped = [this](wchar_t character) { return typed(character); };
}

bool Application::typed(wchar_t character) {
    if (controls_.keyPress(character)) {
        return true;
    }
    if (character == kEscape) {
        shutdown_.clipboardEnd();
        return true;
    }
    // A letter that no sub-folder begins with must not lead the list to an ancestor.
    return !form_.IntT.hasFocus() && !browser_.selectFolder(character) && form_.Dir1.hasFocus();
}

void Application::load(const std::wstring& parameterText) {
    form_.applyRegion();
    form_.show();
    loop_.doEvents();
    readEditor();
    // Parameters and sets that name the folder where the lists begin tell of no change.
    browser_.folderChanged();
    const Parameters parameters = parseParameters(parameterText);
    if (!parameterText.empty()) {
        parameters_.apply(parameters);
    } else {
        sets_.load();
        if (const auto index = optionSetIndex(state_.CurrentSet)) {
            form_.Option1[static_cast<std::size_t>(*index)].setSelected(true);
        }
    }
    sets_.showFolderNames();
    tray_.add();
    form_.CTRL.setEnabled(true);
    form_.Screen2.setValue(state_.SecondScreen);
    if (parameters.runAtOnce) {
        pressRun();
    }
}

void Application::readEditor() {
    const std::wstring path =
        settings_.read(kProgramSection, kEditorKey.name, kEditorKey.fallback, kEditorKey.longest);
    state_.EditorPath = isFile(path) ? path : L"";
}

// A preview that is still on its way must not come into the show.
void Application::startShow() {
    browser_.endPreview();
    slideshow_.start();
}

void Application::pressRun() {
    startShow();
    controls_.keyPress(L' ');
}

double Application::shapeFor(int width, int height) const {
    const std::wstring value =
        settings_.read(kProgramSection, kShapeKey.name, kShapeKey.fallback, kShapeKey.longest);
    return usesScreenShape(value) ? static_cast<double>(width) / height : show::kDesignShape;
}

// The picture that a show would begin with is decoded for the whole monitor while its user still looks at the
// set-up window.
void Application::aboutToShow(const std::wstring& path) {
    const RECT monitor = platform::Monitors::current().areaOf(form_.hwnd());
    const int width = monitor.right - monitor.left;
    const int height = monitor.bottom - monitor.top;
    pictures_.setSurface(width, height, shapeFor(width, height));
    pictures_.prepare({path});
}

void Application::activated() {
    keepPictureByName();
    pointer_.show();
    if (show_.showMode == show::kAutomatically && !slideshow_.atEnd()) {
        pointer_.hide();
    }
}

// Files may come and go while another window is in front; the item shown keeps its place by name.
void Application::keepPictureByName() {
    const bool showing = show_.showMode != show::kNoShow && !slideshow_.atEnd();
    std::wstring name;
    if (showing && show_.pictureIndex >= 0 && show_.pictureIndex < form_.File1.count()) {
        name = form_.File1.entries()[static_cast<std::size_t>(show_.pictureIndex)];
    }
    const bool atEnd = slideshow_.atEnd();
    browser_.refreshCount();
    if (atEnd) {
        show_.pictureIndex = form_.File1.count();
    } else if (!name.empty()) {
        const int index = form_.File1.indexOf(name);
        // The next file took the place of one that is gone, and a step adds 1.
        show_.pictureIndex = index >= 0 ? index : std::min(show_.pictureIndex, form_.File1.count()) - 1;
    }
}

void Application::showTitle() {
    if (screen_.inSetup()) {
        setTitle(kTitlePoints, L"Panorell");
    }
}

void Application::showVersion() {
    if (screen_.inSetup()) {
        setTitle(kVersionPoints, titleAndVersion(PANORELL_VERSION_MAJOR, PANORELL_VERSION_MINOR));
    }
}

void Application::setTitle(float points, const std::wstring& text) {
    ui::FontSpec font = form_.Label1.fontSpec();
    if (form_.Label1.text() == text && font.points == points) {
        return;
    }
    font.points = points;
    form_.Label1.setFont(font);
    form_.Label1.setText(text);
}

}  // namespace app
