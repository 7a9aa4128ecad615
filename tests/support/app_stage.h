#pragma once

#include <windows.h>

#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "app/application.h"
#include "platform/monitors.h"
#include "support/advance_until.h"
#include "support/picture_writer.h"
#include "support/recording_media_control.h"
#include "support/scratch_folder.h"
#include "support/system_calls.h"
#include "support/virtual_loop.h"

namespace support {

/// Where a window lies on the screen, in pixels.
inline RECT windowOf(HWND window) {
    RECT place{};
    GetWindowRect(window, &place);
    return place;
}

/// A small monitor, so that a show on it is quick, with one more to its right if a test wants it.
class FakeMonitors : public platform::Monitors {
  public:
    RECT areaOf(HWND window) const override {
        const RECT place = windowOf(window);
        return areaAt({place.left, place.top});
    }
    RECT areaAt(POINT place) const override { return second && place.x >= first.right ? *second : first; }
    RECT workAreaOf(HWND window) const override {
        RECT area = areaOf(window);
        area.bottom -= taskBar;
        return area;
    }
    int primaryWidth() const override { return first.right - first.left; }
    int dpiOf(HWND window) const override {
        RECT place{};
        GetWindowRect(GetAncestor(window, GA_ROOT), &place);
        const int here = second && place.left >= first.right ? secondDpi : dpi;
        return here != 0 ? here : Monitors::dpiOf(window);
    }

    RECT first{0, 0, 640, 480};
    std::optional<RECT> second;
    int taskBar = 0;  ///< pixels at the lower edge of each
    /// Dots per inch of the monitors; 0: the system's.
    int dpi = 0;
    int secondDpi = 0;
};

/// The whole program with real controls, real files in temporary folders and a virtual clock; media commands
/// are recorded, and what it asks of the system is watched.
class AppStage {
  public:
    AppStage() {
        platform::Monitors::replace(&monitors);
        create();
    }
    ~AppStage() {
        application.reset();
        platform::Monitors::replace(nullptr);
    }
    AppStage(const AppStage&) = delete;
    AppStage& operator=(const AppStage&) = delete;

    void create() { application.emplace(loop, control, program.path()); }
    void load(const std::wstring& parameterText = L"") {
        loop.guarded([&] { application->load(parameterText); });
        loop.settle();
    }
    /// Loads in the folder of pictures, with more parameters behind it, and waits for its preview.
    void loadFolder(const std::wstring& parameters = L"") {
        load(pictures.path() + parameters);
        previewed();
    }

    app::Form1& form() { return application->form(); }
    app::ProgramState& state() { return application->state(); }
    const show::ShowState& showState() { return application->showState(); }

    /// Writes a picture of one colour.
    void picture(const std::wstring& name, std::uint32_t colour = 0x336699, int width = 160,
                 int height = 120) {
        writePicture(pictures / name, PictureKind::Jpeg, width, height, [=](int, int) { return colour; });
    }

    /// As advanceUntil().
    bool until(const std::function<bool()>& reached) { return advanceUntil(loop, reached); }
    /// Waits for the preview; false when none ends.
    bool previewed() {
        return until([this] { return !application->previewLoading(); });
    }
    /// The colour in the middle of Pic2.
    std::uint32_t shown() {
        GdiFlush();
        const picture::Surface& image = form().Pic2.image();
        if (image.empty()) {
            return 0;
        }
        const int middle = image.height() / 2 * image.width() + image.width() / 2;
        return image.bits()[middle] & 0xFFFFFFU;
    }

    void click(const ui::Control& target, int x = 4, int y = 4) {
        SendMessageW(target.hwnd(), WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(x, y));
        SendMessageW(target.hwnd(), WM_LBUTTONUP, 0, MAKELPARAM(x, y));
        loop.settle();
    }
    /// A key or a character to the control that has the focus.
    void key(int virtualKey) {
        SendMessageW(focused(), WM_KEYDOWN, static_cast<WPARAM>(virtualKey), 1);
        loop.settle();
    }
    void type(wchar_t character) {
        SendMessageW(focused(), WM_CHAR, character, 1);
        loop.settle();
    }
    void activate(bool active = true) {
        SendMessageW(form().hwnd(), WM_ACTIVATE, active ? WA_ACTIVE : WA_INACTIVE, 0);
        loop.settle();
    }

    SystemCalls system;
    VirtualLoop loop;
    RecordingMediaControl control;
    FakeMonitors monitors;
    ScratchFolder program;
    ScratchFolder pictures;
    std::optional<app::Application> application;

  private:
    HWND focused() {
        const HWND focus = GetFocus();
        return focus != nullptr && IsChild(form().hwnd(), focus) != FALSE ? focus : form().hwnd();
    }
};

/// Two colours differ no more than a picture file of good quality makes them.
inline bool alike(std::uint32_t a, std::uint32_t b, int most = 12) {
    for (const int shift : {0, 8, 16}) {
        const int difference = static_cast<int>((a >> shift) & 0xFF) - static_cast<int>((b >> shift) & 0xFF);
        if (difference > most || difference < -most) {
            return false;
        }
    }
    return true;
}

}  // namespace support
