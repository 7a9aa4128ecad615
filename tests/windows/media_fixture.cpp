#include "media_fixture.h"

#include <vector>

#include "platform/code_page.h"
#include "platform/handles.h"
#include "platform/short_path.h"
#include "support/film_frame.h"

namespace support {

namespace {

/// A memory bitmap of a film's size, filled with a colour that no film has.
class Canvas {
  public:
    Canvas(int width, int height) : width_(width), height_(height) {
        BITMAPINFO info{};
        info.bmiHeader = {sizeof(BITMAPINFOHEADER), width, -height, 1, 32, BI_RGB, 0, 0, 0, 0, 0};
        void* bits = nullptr;
        bitmap_ = platform::Bitmap(CreateDIBSection(nullptr, &info, DIB_RGB_COLORS, &bits, nullptr, 0));
        bits_ = static_cast<std::uint32_t*>(bits);
        dc_ = platform::MemoryDc(CreateCompatibleDC(nullptr));
        for (int i = 0; i < width * height; ++i) {
            bits_[i] = 0x123456;
        }
    }

    /// Calls `paint` with the device context, and gives the frame that is painted then.
    template <typename Paint>
    std::optional<int> frameAfter(Paint paint) {
        {
            const platform::Selection selected(dc_.get(), bitmap_.get());
            paint(dc_.get());
            GdiFlush();
        }
        return filmFrame([this](int x, int y) { return bits_[y * width_ + x] & 0xFFFFFF; }, width_, height_);
    }

  private:
    int width_;
    int height_;
    platform::Bitmap bitmap_;
    platform::MemoryDc dc_;
    std::uint32_t* bits_ = nullptr;
};

}  // namespace

double milliseconds() {
    LARGE_INTEGER count{};
    LARGE_INTEGER frequency{};
    QueryPerformanceCounter(&count);
    QueryPerformanceFrequency(&frequency);
    return static_cast<double>(count.QuadPart) * 1000.0 / static_cast<double>(frequency.QuadPart);
}

bool pumpUntil(const std::function<bool()>& reached, int timeout) {
    const double end = milliseconds() + timeout;
    while (true) {
        MSG message;
        while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) {
            TranslateMessage(&message);
            DispatchMessageW(&message);
        }
        if (reached()) {
            return true;
        }
        if (milliseconds() >= end) {
            return false;
        }
        MsgWaitForMultipleObjects(0, nullptr, FALSE, 5, QS_ALLINPUT);
    }
}

void pumpFor(int duration) {
    pumpUntil([] { return false; }, duration);
}

std::string mediaFile(const std::string& name) {
    return platform::shortPath(platform::fromCodePage(PANORELL_TEST_DATA "/media/" + name));
}

FilmWindow::FilmWindow() {
    WNDCLASSW kind{};
    kind.lpfnWndProc = handle;
    kind.hInstance = GetModuleHandleW(nullptr);
    kind.lpszClassName = L"FilmWindow";
    kind.hbrBackground = static_cast<HBRUSH>(GetStockObject(BLACK_BRUSH));
    RegisterClassW(&kind);
    window_ =
        CreateWindowExW(WS_EX_TOPMOST, kind.lpszClassName, L"Film", WS_POPUP | WS_VISIBLE | WS_CLIPCHILDREN,
                        kLeft, kTop, kWidth, kHeight, nullptr, nullptr, kind.hInstance, nullptr);
    SetWindowLongPtrW(window_, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(this));
    UpdateWindow(window_);
}

FilmWindow::~FilmWindow() {
    DestroyWindow(window_);
}

LRESULT CALLBACK FilmWindow::handle(HWND window, UINT message, WPARAM wide, LPARAM wise) noexcept {
    if (message == WM_LBUTTONDOWN) {
        ++reinterpret_cast<FilmWindow*>(GetWindowLongPtrW(window, GWLP_USERDATA))->clicks_;
    }
    return DefWindowProcW(window, message, wide, wise);
}

std::string FilmWindow::handleText() const {
    return std::to_string(reinterpret_cast<std::uintptr_t>(window_));
}

std::optional<int> FilmWindow::frameOnScreen() const {
    Canvas canvas(kWidth, kHeight);
    const platform::WindowDc screen(nullptr);
    return canvas.frameAfter(
        [&](HDC dc) { BitBlt(dc, 0, 0, kWidth, kHeight, screen.get(), kLeft, kTop, SRCCOPY); });
}

void MediaTest::TearDown() {
    for (const char* alias : {"VIDEO", "AUDIO"}) {
        send(std::string("stop ") + alias);
        send(std::string("close ") + alias);
    }
}

int MediaTest::number(const std::string& command) {
    const std::string text = ask(command);
    return text.empty() ? -1 : std::stoi(text);
}

unsigned MediaTest::openFilm(const std::string& name) {
    const media::MediaReply reply =
        send("open " + mediaFile(name) + " alias VIDEO parent " + window_.handleText() + " style child");
    send("set VIDEO audio all off");
    send(" put VIDEO window at 0 0 " + std::to_string(FilmWindow::kWidth) + " " +
         std::to_string(FilmWindow::kHeight));
    send("set VIDEO time format milliseconds");
    return reply.error;
}

std::optional<int> MediaTest::frameNow() {
    const std::string source = ask("where VIDEO source");
    const std::size_t third = source.rfind(' ');
    if (third == std::string::npos) {
        return std::nullopt;
    }
    const std::size_t second = source.rfind(' ', third - 1);
    Canvas canvas(std::stoi(source.substr(second)), std::stoi(source.substr(third)));
    return canvas.frameAfter(
        [&](HDC dc) { send("update VIDEO hdc " + std::to_string(reinterpret_cast<std::uintptr_t>(dc))); });
}

}  // namespace support
