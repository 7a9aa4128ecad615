#include "app/application.h"

#include <windows.h>

#include <exception>

#include "app/folder_recovery.h"
#include "app/option_set.h"
#include "app/resource_ids.h"
#include "ui/message_box.h"

namespace app {

namespace {

constexpr char kTrayTip[] = "Panorell";
constexpr wchar_t kEscape = 27;

}  // namespace

Application::Application(ui::EventLoop& loop, media::MediaControl& control, const std::wstring& programDir,
                         const Parameters& parameters)
    : loop_(loop),
      settings_(withBackslash(programDir) + std::wstring(kSettingsFile)),
      surfaces_(settings_),
      first_(pictures_, surfaces_, parameters),
      form_(loop, parameters.runAtOnce, first_.curtain()),
      tray_(form_.hwnd(), LoadIconW(GetModuleHandleW(nullptr), MAKEINTRESOURCEW(PANORELL_ICON)), kTrayTip),
      show_(loop, control, form_, surfaces_, first_),
      setup_({loop, form_, state_, settings_, show_.music(), show_.video()}),
      shutdown_({loop, control, tray_, setup_.parameters(), state_, form_.Pic2, form_.Pic3}),
      overview_({loop, control, form_, tray_, surfaces_, show_.music(), show_.video(), shutdown_, state_,
                 settings_}) {
    state_.ProgramDir = withBackslash(programDir);
    wireSetup();
    wireShow();
    wireWindow();
}

void Application::wireSetup() {
    setup_.browser().colours = [this] { return show_.screen().colours(); };
    setup_.browser().onFolder = [this](const std::wstring& folder) {
        recoverFolder(loop_, fileSystem_, folder, form_.visible() ? &form_ : nullptr);
    };
    setup_.browser().onAboutToShow = [this](const std::wstring& path) { show_.prepare(path); };
    form_.Start.onClick = [this] { begin(&Show::start); };
    form_.Run.onClick = [this] { begin(&Show::run); };
    form_.CTRL.onClick = [this] {
        if (form_.File1.count() > 0) {
            setup_.browser().setPreviewing(false);
            overview_.open();
        }
    };
    form_.ENDE.onClick = [this] { shutdown_.clipboardEnd(); };
    form_.Pic3.onClick = [this] {
        if (show_.screen().inSetup()) {
            shutdown_.clipboardEnd();
        }
    };
    form_.Pic3.onMoved = [this](const ui::MouseEvent&) {
        if (show_.screen().inSetup()) {
            setup_.showVersion();
        }
    };
    form_.onMoved = [this](const ui::MouseEvent&) {
        if (show_.screen().inSetup()) {
            setup_.showTitle();
        }
    };
}

void Application::wireShow() {
    show_.onStarted = [this] {
        state_.rememberedDrive = form_.Drive1.drive();
        state_.rememberedFolder = form_.Dir1.path();
    };
    show_.onEnd = [this] { shutdown_.showEnd(); };
    show_.onRestart = [this] { restart(); };
    form_.onKey = [this](int key, bool repeated) {
        escapeHeld_ = key == VK_ESCAPE && repeated;
        return show_.keyDown(key);
    };
    form_.onTyped = [this](wchar_t character) { return typed(character); };
}

void Application::wireWindow() {
    form_.onActivation = [this](bool active) {
        if (active) {
            show_.keepItemAcross([this] { setup_.browser().refreshCount(); });
            show_.activated();
        }
    };
    form_.onCloseAsked = [this] {
        if (show_.running()) {
            show_.stop();
        } else if (!overview_.close()) {
            shutdown_.clipboardEnd();
        }
    };
    form_.onDpi = [this] { setup_.browser().previewAgain(); };
    form_.onOwnerMessage = [this](UINT message) { tray_.onOwnerMessage(message); };
    form_.onSessionEnd = [this] { tray_.remove(); };
    form_.keepsAwake = [this] { return show_.keepsAwake(); };
    form_.onScreens = [this] { show_.screensChanged(); };
}

bool Application::typed(wchar_t character) {
    if (show_.typed(character)) {
        return true;
    }
    if (character == kEscape) {
        // One that is held down since it closed a list or a box is meant for that alone.
        if (!escapeHeld_) {
            shutdown_.clipboardEnd();
        }
        return true;
    }
    return setup_.typed(character);
}

void Application::load(const std::wstring& parameterText) {
    if (!form_.concealed()) {
        form_.showSetup();
        loop_.doEvents();
    }
    try {
        loadBehind(parameterText);
    } catch (const std::exception&) {
        setup_.browser().setPreviewing(show_.screen().inSetup());
        showUnlessSeen();
        throw;
    }
    showUnlessSeen();
}

// Of a show that starts at once only the first picture is seen yet.
void Application::loadBehind(const std::wstring& parameterText) {
    setup_.load(parameterText);
    tray_.add();
    form_.CTRL.setEnabled(true);
    form_.Screen2.setValue(state_.SecondScreen);
    if (parseParameters(parameterText).runAtOnce) {
        begin(&Show::run);
    }
}

// Where nothing can be shown the set-up comes up after all, whatever was in the way.
void Application::showUnlessSeen() {
    if (form_.visible()) {
        return;
    }
    if (show_.screen().inSetup()) {
        form_.showSetup();
    } else {
        form_.show();
    }
}

void Application::restart() {
    if (!shutdown_.restart()) {
        ui::messageBox(&form_, kNoRestart, kNoRestartTitle, ui::MessageIcon::Exclamation);
    }
}

// A preview that is still on its way must not come into the show, nor one that moving the window to a monitor
// of another scaling asks for. Without files there is no show, and the set-up goes on.
void Application::begin(void (Show::*how)()) {
    setup_.browser().setPreviewing(false);
    (show_.*how)();
    setup_.browser().setPreviewing(show_.screen().inSetup());
}

}  // namespace app
