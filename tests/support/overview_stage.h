#pragma once

#include <windows.h>

#include <cstdint>
#include <cstdlib>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "files/windows_file_system.h"
#include "media/music_state.h"
#include "overview/bitmap_file.h"
#include "overview/overview.h"
#include "support/advance_until.h"
#include "support/picture_writer.h"
#include "support/recording_media_control.h"
#include "support/scratch_folder.h"
#include "support/virtual_loop.h"
#include "ui/form.h"

namespace support {

/// The overview of a temporary folder with real windows and a virtual clock; films are recorded commands,
/// and their frames are of one colour.
class OverviewStage {
  public:
    static constexpr std::uint32_t kFilmColour = 0x206020;

    OverviewStage()
        : beside({.className = L"PanorellTestForm", .title = L"Test", .width = 6000, .height = 4000}) {
        control.replyTo("where VIDEO source", "0 0 320 240");
        control.onSend = [this](const std::string& command) { paintFrame(command); };
    }

    std::wstring picture(const std::wstring& name, std::uint32_t colour = 0x336699, int width = 160,
                         int height = 120) {
        writePicture(pictures / name, PictureKind::Jpeg, width, height, [=](int, int) { return colour; });
        return pictures / name;
    }
    void picturesOf(const std::vector<std::uint32_t>& colours) {
        for (std::size_t i = 0; i < colours.size(); ++i) {
            picture(std::wstring(1, static_cast<wchar_t>(L'a' + i)) + L".jpg", colours[i]);
        }
    }
    std::wstring film(const std::wstring& name) { return pictures.file(name, "film"); }
    /// Puts a bitmap of one colour into the store.
    void keep(const std::wstring& name, std::uint32_t colour, int width = 40, int height = 30) {
        pictures.folder(L"Mini");
        picture::Pixels pixels(width, height);
        std::fill(pixels.data.begin(), pixels.data.end(), colour);
        writeBytes(pictures / (L"Mini\\" + name), overview::encodeBitmap(pixels));
    }
    std::optional<picture::Pixels> kept(const std::wstring& name) {
        return overview::readThumbnail(pictures / (L"Mini\\" + name));
    }

    /// Begins to load, as far as it gets in one turn.
    void begin(const std::wstring& pattern = L"*.jpg;*.mpg") { begin(pattern, pictures.path()); }
    void begin(const std::wstring& pattern, const std::wstring& folder) {
        overview.emplace(overview::Overview::Parts{loop, control, beside, fileSystem, music,
                                                   [](HWND) { return picture::ColourTarget(); },
                                                   [this] { return titles; }});
        overview->onMenu = [this](int index, POINT place) {
            menuIndex = index;
            menuPlace = place;
        };
        overview->open(folder, pattern);
    }
    /// Loads until nothing is left to do.
    bool open(const std::wstring& pattern = L"*.jpg;*.mpg") {
        begin(pattern);
        return loaded();
    }
    bool loaded() {
        return until([this] { return !overview->grid().loading(); });
    }
    /// As advanceUntil().
    bool until(const std::function<bool()>& reached) { return advanceUntil(loop, reached); }

    overview::ThumbRecord& record(int index) {
        return overview->records().thumbRecords[static_cast<std::size_t>(index)];
    }
    std::vector<std::wstring> names() {
        std::vector<std::wstring> result;
        for (const overview::ThumbRecord& one : overview->records().thumbRecords) {
            result.push_back(one.fileName);
        }
        return result;
    }
    /// The colour in the middle of an item's image.
    std::uint32_t colour(int index) {
        const picture::Pixels& image = overview->grid().image(index);
        return image.empty() ? 0xFFFFFFFF : image.row(image.height / 2)[image.width / 2] & 0xFFFFFFU;
    }
    /// What an item's box shows on the screen.
    picture::Pixels seen(int index) {
        loop.settle();
        const HWND box = overview->view().box(index)->hwnd();
        UpdateWindow(box);
        RECT client{};
        GetClientRect(box, &client);
        picture::Surface surface(client.right, client.bottom);
        const platform::WindowDc dc(box);
        BitBlt(surface.dc(), 0, 0, client.right, client.bottom, dc.get(), 0, 0, SRCCOPY);
        picture::Pixels pixels = surface.pixels();
        for (std::uint32_t& pixel : pixels.data) {
            pixel &= 0xFFFFFFU;
        }
        return pixels;
    }
    bool mentions(int index, std::uint32_t colour) {
        const picture::Pixels pixels = seen(index);
        return std::find(pixels.data.begin(), pixels.data.end(), colour) != pixels.data.end();
    }

    HWND box(int index) { return overview->view().box(index)->hwnd(); }
    HWND panel() { return overview->form().Grid.hwnd(); }
    POINT middleOf(int index) {
        const RECT place = overview->view().onScreen(index);
        return {(place.left + place.right) / 2, (place.top + place.bottom) / 2};
    }
    void press(int index, UINT message = WM_LBUTTONDOWN) {
        RECT client{};
        GetClientRect(box(index), &client);
        SendMessageW(box(index), message, MK_LBUTTON, MAKELPARAM(client.right / 2, client.bottom / 2));
    }
    void dragTo(POINT screen) {
        ScreenToClient(panel(), &screen);
        SendMessageW(panel(), WM_MOUSEMOVE, MK_LBUTTON, MAKELPARAM(screen.x, screen.y));
    }
    void dropAt(POINT screen) {
        ScreenToClient(panel(), &screen);
        SendMessageW(panel(), WM_LBUTTONUP, 0, MAKELPARAM(screen.x, screen.y));
        loop.settle();
    }
    void drag(int source, int target) {
        press(source);
        dragTo(middleOf(target));
        dropAt(middleOf(target));
    }
    void key(int virtualKey) {
        SendMessageW(panel(), WM_KEYDOWN, static_cast<WPARAM>(virtualKey), 1);
        loop.settle();
    }
    void controlKey(int virtualKey) {
        BYTE before[256]{};
        GetKeyboardState(before);
        BYTE held[256]{};
        std::copy(std::begin(before), std::end(before), std::begin(held));
        held[VK_CONTROL] = 0x80;
        SetKeyboardState(held);
        SendMessageW(panel(), WM_KEYDOWN, static_cast<WPARAM>(virtualKey), 1);
        SetKeyboardState(before);
        loop.settle();
    }

    VirtualLoop loop;
    RecordingMediaControl control;
    ScratchFolder pictures;
    files::WindowsFileSystem fileSystem;
    media::MusicState music;
    std::vector<std::wstring> titles;
    ui::Form beside;
    std::optional<overview::Overview> overview;
    int menuIndex = -1;
    POINT menuPlace{};

  private:
    // A device context's number in a command has 32 bits, which are all that the system uses of it.
    void paintFrame(const std::string& command) {
        const std::string begin = "update VIDEO hdc ";
        if (!command.starts_with(begin) || !paintsFrames) {
            return;
        }
        const auto number = static_cast<LONG>(std::strtoul(command.c_str() + begin.size(), nullptr, 10));
        const RECT all{0, 0, 320, 240};
        const HDC dc = reinterpret_cast<HDC>(static_cast<LONG_PTR>(number));
        SetDCBrushColor(dc, RGB(kFilmColour >> 16, kFilmColour >> 8 & 0xFF, kFilmColour & 0xFF));
        FillRect(dc, &all, static_cast<HBRUSH>(GetStockObject(DC_BRUSH)));
    }

  public:
    bool paintsFrames = true;
};

}  // namespace support
