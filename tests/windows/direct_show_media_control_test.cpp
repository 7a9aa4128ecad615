#include "media/direct_show_media_control.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>

#include "media/film_window.h"
#include "media/media_command.h"
#include "media_fixture.h"
#include "support/film_frame.h"

namespace media {
namespace {

using support::FilmWindow;
using support::kLastFrame;
using support::mediaFile;
using support::milliseconds;
using support::pumpFor;
using support::pumpUntil;

class DirectShow : public support::MediaTest {
  protected:
    DirectShow() : MediaTest(BackEnd::DirectShow) {}

    static unsigned code(MediaError error) { return static_cast<unsigned>(error); }
};

/// The time of one frame, in milliseconds.
constexpr double kFrameTime = 40;

struct Film {
    const char* name;
    const char* source;
    int length;
};

class Films : public DirectShow, public testing::WithParamInterface<Film> {};

TEST_P(Films, AreSilentlyCuedAtTheirFirstFrame) {
    ASSERT_EQ(openFilm(GetParam().name), 0u);
    EXPECT_EQ(ask("where VIDEO source"), GetParam().source);
    EXPECT_NEAR(number("status VIDEO length"), GetParam().length, 1);
    EXPECT_EQ(ask("status VIDEO mode"), "stopped");
    EXPECT_EQ(number("status VIDEO position"), 0);
    EXPECT_EQ(frameNow(), 0);
    pumpFor(200);
    EXPECT_EQ(frameNow(), 0) << "a film stands until it is played";
}

// The show measures a film's time by the reported length, and takes the frame that is on view then.
TEST_P(Films, ShowEveryFrameAndTheLastWhenTheLengthIsOver) {
    ASSERT_EQ(openFilm(GetParam().name), 0u);
    const int length = number("status VIDEO length");
    send("play VIDEO");
    const double begin = milliseconds();
    int before = 0;
    double late = 0;  // as late as the machine's other work makes the frames
    while (milliseconds() < begin + length - 60) {
        pumpFor(5);
        const double asked = milliseconds() - begin;
        const auto frame = frameNow();
        ASSERT_TRUE(frame.has_value()) << "no whole frame after frame " << before;
        ASSERT_GE(*frame, before) << "a step back";
        if (*frame != kLastFrame) {
            const double due = *frame * kFrameTime;
            EXPECT_LT(due, milliseconds() - begin + 60) << "a frame before its time";
            late = std::max(late, asked - due - kFrameTime);
        }
        before = *frame;
    }
    ASSERT_TRUE(pumpUntil([&] { return milliseconds() >= begin + length + std::max(0.0, late - 20); }, 5000));
    EXPECT_EQ(frameNow(), kLastFrame) << "late by up to " << late << " ms";
    pumpFor(300);
    EXPECT_EQ(frameNow(), kLastFrame) << "stays after the end";
    EXPECT_EQ(window_.frameOnScreen(), kLastFrame) << "and on the screen";
    EXPECT_EQ(ask("status VIDEO mode"), "stopped");
    EXPECT_EQ(number("status VIDEO position"), length);
    InvalidateRect(window_.child(), nullptr, TRUE);
    pumpFor(50);
    EXPECT_EQ(window_.frameOnScreen(), kLastFrame) << "painted anew";
}

INSTANTIATE_TEST_SUITE_P(Real, Films,
                         testing::Values(Film{"film_352x288.mpg", "0 0 352 288", 3000},
                                         Film{"film_1280x720.mpg", "0 0 1280 720", 1520},
                                         Film{"film_short.mpg", "0 0 352 288", 1000},
                                         Film{"silent.mpg", "0 0 352 288", 2000},
                                         Film{"elementary.mpg", "0 0 352 288", 1000}),
                         [](const auto& film) {
                             std::string name = film.param.name;
                             return name.substr(0, name.find('.'));
                         });

TEST_F(DirectShow, ScreenShowsTheFilmInThePlaceItWasPut) {
    ASSERT_EQ(openFilm("film_352x288.mpg"), 0u);
    EXPECT_FALSE(IsWindowVisible(window_.child())) << "a film comes on view when it is played";
    send("play VIDEO");
    RECT place{};
    GetWindowRect(window_.child(), &place);
    EXPECT_EQ(place.left, FilmWindow::kLeft);
    EXPECT_EQ(place.top, FilmWindow::kTop);
    EXPECT_EQ(place.right, FilmWindow::kLeft + FilmWindow::kWidth);
    EXPECT_EQ(place.bottom, FilmWindow::kTop + FilmWindow::kHeight);
    EXPECT_TRUE(pumpUntil([&] { return window_.frameOnScreen().value_or(0) > 5; }, 2000));
}

TEST_F(DirectShow, PauseStandsOnItsFrameAndPlayGoesOnThere) {
    ASSERT_EQ(openFilm("film_352x288.mpg"), 0u);
    send("play VIDEO");
    ASSERT_TRUE(pumpUntil([&] { return number("status VIDEO position") >= 600; }, 2000));
    EXPECT_EQ(ask("status VIDEO mode"), "playing");
    send("pause VIDEO");
    EXPECT_EQ(ask("status VIDEO mode"), "paused");
    const int position = number("status VIDEO position");
    const int frame = frameNow().value_or(-1);
    EXPECT_NEAR(frame * 40, position, 100);
    pumpFor(700);
    EXPECT_EQ(number("status VIDEO position"), position);
    EXPECT_EQ(frameNow(), frame);
    send("play VIDEO");
    const double resumed = milliseconds();
    pumpFor(400);
    EXPECT_NEAR(frameNow().value_or(-1) * 40 - frame * 40, milliseconds() - resumed, 120)
        << "no leap over the time that it stood";
    const int length = number("status VIDEO length");
    EXPECT_TRUE(pumpUntil([&] { return number("status VIDEO position") == length; }, 3000));
    EXPECT_EQ(frameNow(), kLastFrame);
}

TEST_F(DirectShow, StopKeepsFrameAndPositionAndPlayGoesOnThere) {
    ASSERT_EQ(openFilm("film_352x288.mpg"), 0u);
    send("play VIDEO");
    ASSERT_TRUE(pumpUntil([&] { return number("status VIDEO position") >= 600; }, 2000));
    send("stop VIDEO");
    EXPECT_EQ(ask("status VIDEO mode"), "stopped");
    pumpFor(100);
    const int frame = frameNow().value_or(-1);
    EXPECT_NEAR(frame, 15, 3);
    EXPECT_NEAR(window_.frameOnScreen().value_or(-1), frame, 1) << "the frame stays on view";
    send("play VIDEO");
    pumpFor(200);
    EXPECT_NEAR(frameNow().value_or(-1), frame + 5, 3);
}

TEST_F(DirectShow, PlayFromTheStartAndPauseStandsOnTheFirstFrame) {
    ASSERT_EQ(openFilm("film_352x288.mpg"), 0u);
    for (int round = 0; round < 3; ++round) {
        send("play VIDEO");
        ASSERT_TRUE(pumpUntil([&] { return number("status VIDEO position") >= 500; }, 2000));
        if (round == 1) {
            send("pause VIDEO");
        }
        EXPECT_EQ(send("play VIDEO from 0").error, 0u);
        EXPECT_EQ(send("pause VIDEO").error, 0u);
        EXPECT_EQ(ask("status VIDEO mode"), "paused");
        pumpFor(300);
        EXPECT_LE(frameNow().value_or(-1), 1);
        EXPECT_GE(frameNow().value_or(-1), 0);
        EXPECT_LE(window_.frameOnScreen().value_or(-1), 1);
        EXPECT_LT(number("status VIDEO position"), 60);
    }
    send("play VIDEO");
    EXPECT_TRUE(pumpUntil([&] { return frameNow() == kLastFrame; }, 5000)) << "and plays to the end";
}

TEST_F(DirectShow, AfterTheEndPlaysAgainFromTheStartOnly) {
    ASSERT_EQ(openFilm("film_short.mpg"), 0u);
    send("play VIDEO");
    ASSERT_TRUE(pumpUntil([&] { return frameNow() == kLastFrame; }, 3000));
    ASSERT_TRUE(pumpUntil([&] { return ask("status VIDEO mode") == "stopped"; }, 1000));
    EXPECT_EQ(send("play VIDEO").error, 0u);
    EXPECT_EQ(ask("status VIDEO mode"), "stopped");
    send("play VIDEO from 0");
    EXPECT_EQ(ask("status VIDEO mode"), "playing");
    EXPECT_TRUE(pumpUntil([&] { return frameNow().value_or(kLastFrame) < 10; }, 500));
    EXPECT_TRUE(pumpUntil([&] { return frameNow() == kLastFrame; }, 3000));
}

TEST_F(DirectShow, TwoFilmsInARow) {
    for (const char* name : {"film_short.mpg", "film_1280x720.mpg", "film_short.mpg"}) {
        ASSERT_EQ(openFilm(name), 0u) << name;
        send("play VIDEO");
        EXPECT_TRUE(pumpUntil([&] { return window_.frameOnScreen() == kLastFrame; }, 3000)) << name;
        send("stop VIDEO");
        send("close VIDEO");
        EXPECT_EQ(window_.child(), nullptr) << "no window is left over";
    }
}

TEST_F(DirectShow, ClicksReachTheParent) {
    ASSERT_EQ(openFilm("film_short.mpg"), 0u);
    send("play VIDEO");
    pumpFor(100);
    ASSERT_NE(window_.child(), nullptr);
    disableChildren(GetParent(window_.child()));
    EXPECT_FALSE(IsWindowEnabled(window_.child()));
    SetCursorPos(FilmWindow::kLeft + 300, FilmWindow::kTop + 200);
    INPUT press[2]{};
    press[0].type = press[1].type = INPUT_MOUSE;
    press[0].mi.dwFlags = MOUSEEVENTF_LEFTDOWN;
    press[1].mi.dwFlags = MOUSEEVENTF_LEFTUP;
    SendInput(2, press, sizeof(INPUT));
    EXPECT_TRUE(pumpUntil([&] { return window_.clicks() == 1; }, 2000));
}

TEST_F(DirectShow, NonsenseChangesNothing) {
    ASSERT_EQ(openFilm("film_352x288.mpg"), 0u);
    send("play VIDEO");
    struct Case {
        std::string command;
        MediaError error;
    };
    const std::string film = mediaFile("film_short.mpg");
    const Case cases[] = {
        {"", MediaError::MissingCommand},
        {"halt VIDEO", MediaError::UnrecognizedCommand},
        {"stop", MediaError::MissingDeviceName},
        {"stop VIDEO at once", MediaError::UnrecognizedKeyword},
        {"stop AUDIO", MediaError::InvalidDeviceName},
        {"close AUDIO", MediaError::InvalidDeviceName},
        {"play AUDIO", MediaError::InvalidDeviceName},
        {"play VIDEO from 999999", MediaError::OutOfRange},
        {"play VIDEO from soon", MediaError::BadInteger},
        {"put VIDEO window at 0 0 10", MediaError::MissingArgument},
        {"put AUDIO window at 0 0 10 10", MediaError::InvalidDeviceName},
        {"set VIDEO time format frames", MediaError::BadTimeFormat},
        {"setaudio VIDEO volume to -1", MediaError::OutOfRange},
        {"status VIDEO speed", MediaError::UnrecognizedKeyword},
        {"where AUDIO source", MediaError::InvalidDeviceName},
        {"update VIDEO hdc", MediaError::MissingArgument},
        {"update VIDEO hdc 0", MediaError::DeviceNotReady},
        {"open " + film + " alias VIDEO", MediaError::DuplicateAlias},
        {"open " + film + " alias OTHER parent 1 style child", MediaError::NoWindow},
        {"open C:\\no\\such\\film.mpg alias OTHER", MediaError::FileNotFound},
        {"open C:\\windows alias OTHER", MediaError::FileNotFound},
        {"open  alias VIDEO parent 5 style child", MediaError::UnrecognizedKeyword},
    };
    for (const Case& one : cases) {
        const MediaReply reply = control_->send(one.command, kReplySize);
        EXPECT_EQ(reply.error, code(one.error)) << one.command;
        EXPECT_EQ(reply.text, "") << one.command;
    }
    EXPECT_EQ(ask("status VIDEO mode"), "playing");
    EXPECT_EQ(ask("where VIDEO source"), "0 0 352 288");
    EXPECT_EQ(send("stop OTHER").error, code(MediaError::InvalidDeviceName)) << "nothing was opened";
    EXPECT_TRUE(pumpUntil([&] { return frameNow() == kLastFrame; }, 4000)) << "the film went on";
}

TEST_F(DirectShow, RepliesFitTheirBuffer) {
    ASSERT_EQ(openFilm("film_352x288.mpg"), 0u);
    EXPECT_EQ(control_->send("where VIDEO source", 128).text, "0 0 352 288");
    EXPECT_EQ(control_->send("where VIDEO source", 6).text, "0 0 3");
    EXPECT_EQ(control_->send("where VIDEO source", 0).text, "");
    EXPECT_EQ(control_->send("WHERE video Source", 128).text, "0 0 352 288") << "case matters nowhere";
}

class Unplayable : public DirectShow, public testing::WithParamInterface<const char*> {};

TEST_P(Unplayable, FailsInSilenceAndTheNextFilmPlays) {
    double begin = milliseconds();
    ASSERT_EQ(openFilm("film_short.mpg"), 0u);
    const double opening = milliseconds() - begin;
    send("close VIDEO");
    begin = milliseconds();
    EXPECT_EQ(openFilm(GetParam()), code(MediaError::InvalidFile));
    for (const char* command : {"play VIDEO", "stop VIDEO", "close VIDEO"}) {
        EXPECT_EQ(send(command).error, code(MediaError::InvalidDeviceName)) << command;
    }
    EXPECT_EQ(ask("status VIDEO length"), "");
    EXPECT_EQ(frameNow(), std::nullopt);
    EXPECT_LT(milliseconds() - begin, 4 * opening + 2000) << "holds the program up";
    EXPECT_EQ(window_.child(), nullptr);
    EXPECT_EQ(openFilm("film_short.mpg"), 0u);
    EXPECT_EQ(frameNow(), 0);
}

INSTANTIATE_TEST_SUITE_P(Files, Unplayable, testing::Values("damaged.mpg", "empty.mpg", "damaged.mp3"));

TEST_F(DirectShow, ATruncatedFilmPlaysAsFarAsItGoes) {
    ASSERT_EQ(openFilm("truncated.mpg"), 0u);
    EXPECT_EQ(frameNow(), 0);
    send("play VIDEO");
    EXPECT_TRUE(pumpUntil([&] { return frameNow().value_or(0) >= 20; }, 3000));
    pumpFor(1500);
    const int length = number("status VIDEO length");
    EXPECT_GT(length, 0);
    EXPECT_LT(length, 3100);
    EXPECT_EQ(send("stop VIDEO").error, 0u);
    EXPECT_EQ(send("close VIDEO").error, 0u);
}

TEST_F(DirectShow, AliasesAreIndependent) {
    ASSERT_EQ(send("open " + mediaFile("tone440.mp3") + " alias AUDIO").error, 0u);
    EXPECT_NEAR(number("status AUDIO length"), 8000, 100);
    send("setaudio AUDIO volume to 200");
    send("play AUDIO");
    ASSERT_EQ(openFilm("film_short.mpg"), 0u);
    EXPECT_EQ(send("where AUDIO source").error, code(MediaError::NoWindow)) << "a title has no picture";
    send("play VIDEO");
    ASSERT_TRUE(pumpUntil([&] { return number("status AUDIO position") >= 300; }, 2000));
    send("stop VIDEO");
    send("close VIDEO");
    const int position = number("status AUDIO position");
    EXPECT_TRUE(pumpUntil([&] { return number("status AUDIO position") >= position + 300; }, 2000));
    EXPECT_EQ(ask("status AUDIO mode"), "playing");
    ASSERT_EQ(openFilm("film_short.mpg"), 0u);
    send("play VIDEO");
    send("close AUDIO");
    EXPECT_TRUE(pumpUntil([&] { return frameNow() == kLastFrame; }, 3000));
}

TEST_F(DirectShow, TakesEveryVolume) {
    ASSERT_EQ(openFilm("film_short.mpg"), 0u);
    EXPECT_EQ(send("set VIDEO audio all on").error, 0u);
    for (const int volume : {0, 1, 40, 500, 600, 1000, 1001, 99999}) {
        EXPECT_EQ(send("setaudio VIDEO volume to " + std::to_string(volume)).error, 0u) << volume;
    }
    ASSERT_EQ(openFilm("silent.mpg"), code(MediaError::DuplicateAlias));
    send("close VIDEO");
    ASSERT_EQ(openFilm("silent.mpg"), 0u);
    EXPECT_EQ(send("setaudio VIDEO volume to 500").error, 0u) << "no sound is no failure";
}

TEST_F(DirectShow, OpensAndClosesManyTimes) {
    for (int round = 0; round < 10; ++round) {
        ASSERT_EQ(openFilm("film_short.mpg"), 0u) << round;
        if (round % 2 == 0) {
            send("play VIDEO");
        }
        if (round % 3 == 0) {
            pumpFor(50);
            send("stop VIDEO");
        }
        EXPECT_EQ(send("close VIDEO").error, 0u) << round;
    }
}

TEST_F(DirectShow, AFileCanBeRenamedOnceItIsClosed) {
    wchar_t folder[MAX_PATH];
    GetTempPathW(MAX_PATH, folder);
    const std::wstring copy = std::wstring(folder) + L"panorell film.mpg";
    const std::wstring renamed = std::wstring(folder) + L"panorell film 2.mpg";
    DeleteFileW(renamed.c_str());
    ASSERT_TRUE(
        CopyFileA(mediaFile("film_short.mpg").c_str(), std::string(copy.begin(), copy.end()).c_str(), FALSE));
    ASSERT_EQ(send("open \"" + std::string(copy.begin(), copy.end()) + "\" alias VIDEO").error, 0u);
    EXPECT_EQ(send("close VIDEO").error, 0u);
    EXPECT_TRUE(MoveFileW(copy.c_str(), renamed.c_str()));
    DeleteFileW(renamed.c_str());
}

}  // namespace
}  // namespace media
