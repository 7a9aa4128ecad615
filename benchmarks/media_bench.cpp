// Films and cross-fades of sound.

#include <windows.h>

#include <stdexcept>
#include <string>

#include "bench_main.h"
#include "media/media_back_end.h"
#include "media/video_playback.h"
#include "platform/com.h"
#include "platform/short_path.h"
#include "run_program.h"
#include "support/stage_controls.h"
#include "ui/form.h"
#include "ui/windows_loop.h"

namespace bench {

namespace {

std::wstring mediaFile(const wchar_t* name) {
    std::string folder = PANORELL_TEST_DATA "/media/";
    std::wstring path(folder.begin(), folder.end());
    for (wchar_t& c : path) {
        c = c == L'/' ? L'\\' : c;
    }
    return path + name;
}

double processorMs() {
    FILETIME ignored{};
    FILETIME kernel{};
    FILETIME user{};
    GetProcessTimes(GetCurrentProcess(), &ignored, &ignored, &kernel, &user);
    const auto ms = [](const FILETIME& time) {
        return static_cast<double>(std::uint64_t{time.dwHighDateTime} << 32 | time.dwLowDateTime) / 1e4;
    };
    return ms(kernel) + ms(user);
}

/// A show surface as large as the screen on which a film plays.
class Stage {
  public:
    Stage() {
        const int width = GetSystemMetrics(SM_CXSCREEN);
        const int height = GetSystemMetrics(SM_CYSCREEN);
        SetWindowPos(form.hwnd(), HWND_TOP, 0, 0, width, height, SWP_SHOWWINDOW);
        form.show();
        for (ui::PictureBox* box : {&controls.Pic2, &controls.Pic3}) {
            box->movePixels(0, 0, width, height);
            box->clear();
        }
        controls.Pic2.show();
        loop.doEvents();
        controls.MUTE.setValue(1);
    }
    ~Stage() {
        playback.close();
        control->send("close AUDIO");
    }

    void open(const wchar_t* film) {
        playback.videoShowing = 1;
        playback.OpenAndPlayVideo(mediaFile(film));
        playback.ArmVideoLength();
    }
    /// Lets `ms` milliseconds pass.
    void play(double ms) {
        for (const double end = loop.now() + ms; loop.now() < end;) {
            loop.doEvents();
            Sleep(1);
        }
    }
    /// Until the film's middle is no longer black on the screen.
    void waitForFrame() {
        constexpr double kPatienceMs = 20'000;
        const POINT middle{GetSystemMetrics(SM_CXSCREEN) / 2, GetSystemMetrics(SM_CYSCREEN) / 2};
        for (const double end = loop.now() + kPatienceMs; screenColour(middle) == 0;) {
            if (loop.now() > end) {
                throw std::runtime_error("no frame came");
            }
            loop.doEvents();
            Sleep(1);
        }
    }
    void playMusic() {
        control->send("open " + platform::shortPath(mediaFile(L"tone440.mp3")) + " alias AUDIO");
        control->send("setaudio AUDIO volume to " + std::to_string(music.musicVolume));
        control->send("play AUDIO");
    }

    platform::ComApartment com{platform::ComApartment::Kind::SingleThreaded};
    ui::WindowsLoop loop;
    std::unique_ptr<media::MediaControl> control = media::createMediaControl();
    media::MusicState music;
    ui::Form form{
        {.className = L"PanorellBenchFilm", .title = L"", .width = 100, .height = 100, .borderless = true}};
    support::StageControls controls{loop, form};
    // Without music to bring back, a capture does not fade.
    media::VideoPlayback playback{{loop, *control, music, controls.stage(), controls.choices(),
                                   controls.timers(), [] { return false; }, [] { return false; }}};
};

double openToFrame(const wchar_t* film) {
    Stage stage;
    return milliseconds([&] {
        stage.open(film);
        stage.waitForFrame();
    });
}

double processorShare(const wchar_t* film) {
    constexpr double kPartMs = 1000;
    Stage stage;
    stage.open(film);
    stage.waitForFrame();
    const double before = processorMs();
    const double time = milliseconds([&] { stage.play(kPartMs); });
    return 100 * (processorMs() - before) / time;
}

double capture(const wchar_t* film) {
    Stage stage;
    stage.open(film);
    stage.waitForFrame();
    stage.play(500);
    return milliseconds([&] { stage.playback.CaptureLastFrameAndClose(); });
}

double ramp(void (media::VideoPlayback::*fade)()) {
    Stage stage;
    stage.playMusic();
    stage.open(L"film_352x288.mpg");
    stage.waitForFrame();
    return milliseconds([&] { (stage.playback.*fade)(); });
}

constexpr wchar_t kSmall[] = L"film_352x288.mpg";
constexpr wchar_t kLarge[] = L"film_1280x720.mpg";

const Figure kFrameSmall("media_open_to_frame_352x288", "ms", 5, [] { return openToFrame(kSmall); });
const Figure kFrameLarge("media_open_to_frame_1280x720", "ms", 5, [] { return openToFrame(kLarge); });
const Figure kShareSmall("media_processor_share_352x288", "%", 3, [] { return processorShare(kSmall); });
const Figure kShareLarge("media_processor_share_1280x720", "%", 3, [] { return processorShare(kLarge); });
const Figure kCaptureSmall("media_capture_352x288", "ms", 5, [] { return capture(kSmall); });
const Figure kCaptureLarge("media_capture_1280x720", "ms", 5, [] { return capture(kLarge); });
const Figure kToVideo("media_ramp_to_video", "ms", 3,
                      [] { return ramp(&media::VideoPlayback::RampToVideo); });
const Figure kToMusic("media_ramp_to_music", "ms", 3,
                      [] { return ramp(&media::VideoPlayback::RampToMusic); });

}  // namespace

}  // namespace bench
