#pragma once

#include <gtest/gtest.h>
#include <windows.h>

#include <functional>
#include <memory>
#include <optional>
#include <string>

#include "media/media_back_end.h"
#include "media/media_control.h"

namespace support {

/// Milliseconds of a steady clock.
double milliseconds();

/// Lets window messages run until `reached` or for `timeout` ms; whether it was reached.
bool pumpUntil(const std::function<bool()>& reached, int timeout);

/// Lets window messages run for `duration` ms.
void pumpFor(int duration);

/// A file of tests/data/media in the form that commands want it.
std::string mediaFile(const std::string& name);

/// A visible window on the screen, 640 x 480, that films are shown in.
class FilmWindow {
  public:
    static constexpr int kLeft = 200;
    static constexpr int kTop = 150;
    static constexpr int kWidth = 640;
    static constexpr int kHeight = 480;

    FilmWindow();
    ~FilmWindow();
    FilmWindow(const FilmWindow&) = delete;
    FilmWindow& operator=(const FilmWindow&) = delete;

    HWND handle() const { return window_; }
    std::string handleText() const;
    /// The only child window, or null.
    HWND child() const { return GetWindow(window_, GW_CHILD); }
    /// Clicks that reached the window itself.
    int clicks() const { return clicks_; }
    /// What the screen shows of the client area, see filmFrame().
    std::optional<int> frameOnScreen() const;

  private:
    static LRESULT CALLBACK handle(HWND window, UINT message, WPARAM wide, LPARAM wise) noexcept;

    HWND window_ = nullptr;
    int clicks_ = 0;
};

/// Real commands on real files.
class MediaTest : public testing::Test {
  protected:
    explicit MediaTest(media::BackEnd backEnd) : control_(media::createMediaControl(backEnd)) {}
    void TearDown() override;

    media::MediaReply send(const std::string& command) { return control_->send(command); }
    std::string ask(const std::string& command) { return control_->send(command, media::kReplySize).text; }
    int number(const std::string& command);
    /// Opens a film under VIDEO in the window, silent, as large as the window; the error number.
    unsigned openFilm(const std::string& name);
    /// Which frame "update" paints now; see filmFrame().
    std::optional<int> frameNow();

    FilmWindow window_;
    std::unique_ptr<media::MediaControl> control_;
};

}  // namespace support
