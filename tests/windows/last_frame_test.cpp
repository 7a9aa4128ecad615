// The frame that stays when a film is left, from devices that give it and from those that do not.
#include "media/last_frame.h"

#include <gmock/gmock.h>

#include "media/direct_show_media_control.h"
#include "media/fallback_media_control.h"
#include "media_fixture.h"
#include "support/film_frame.h"
#include "support/import_hook.h"
#include "support/video_stage.h"

namespace media {
namespace {

using support::VideoStage;
using testing::Contains;
using testing::ElementsAre;
using testing::Not;
using testing::StartsWith;

constexpr std::uint32_t kScreenColour = 0x2060A0;

/// A film in a box on the screen whose device cannot paint its frame.
class DeafStage : public VideoStage {
  public:
    DeafStage() : VideoStage({L"a.jpg", L"b.mpg"}, "5000") {
        Pic2.movePixels(0, 0, 160, 120);
        form.show();
        control.onSend = nullptr;
    }
    static picture::Surface one(std::uint32_t colour) {
        picture::Surface surface(160, 120);
        surface.fill(RGB(colour >> 16 & 0xFF, colour >> 8 & 0xFF, colour & 0xFF));
        return surface;
    }
    /// Shows a film's window of one colour in the box and waits until the screen shows it.
    void showFilm() {
        film_.emplace(ui::CreateArgs{.parent = Pic2});
        film_->movePixels(0, 0, 160, 120);
        film_->setImage(one(kScreenColour));
        for (int i = 0; i < 1000 && onScreen() != kScreenColour; ++i) {
            loop.settle();
            Sleep(2);
        }
        ASSERT_EQ(onScreen(), kScreenColour);
    }
    void cover() {
        UT.move({0, 0, 1000, 300});
        UT.toFront();
        UT.show();
        loop.settle();
    }

  private:
    std::uint32_t onScreen() {
        POINT place{80, 60};
        ClientToScreen(Pic2.hwnd(), &place);
        const platform::WindowDc desktop(nullptr);
        const COLORREF pixel = GetPixel(desktop.get(), place.x, place.y);
        return static_cast<std::uint32_t>(GetRValue(pixel) << 16 | GetGValue(pixel) << 8 | GetBValue(pixel));
    }

    std::optional<ui::PictureBox> film_;
};

std::uint32_t middleOf(const picture::Surface& surface) {
    GdiFlush();
    return surface.bits()[surface.height() / 2 * surface.width() + surface.width() / 2] & 0xFFFFFF;
}

TEST(LastFrame, IsWhatTheDevicePaints) {
    VideoStage stage({L"a.mpg"}, "5000");
    const auto frame = lastFrame(stage.control, stage.Pic2, stage.pathOf(L"a.mpg"));
    ASSERT_TRUE(frame);
    EXPECT_EQ(frame->width(), 32);
    EXPECT_EQ(frame->height(), 24);
    EXPECT_EQ(middleOf(*frame), VideoStage::kFrame);
}

TEST(LastFrame, IsAskedForAlsoWhereTheSizeIsNotKnown) {
    VideoStage stage({L"a.mpg"}, "5000");
    stage.Pic2.movePixels(0, 0, 160, 120);
    stage.control.replyTo("where VIDEO source", "");
    const auto frame = lastFrame(stage.control, stage.Pic2, stage.pathOf(L"a.mpg"));
    EXPECT_THAT(stage.control.commands(), Contains(StartsWith("update VIDEO hdc ")));
    ASSERT_TRUE(frame);
    EXPECT_EQ(frame->width(), 160);
}

TEST(LastFrame, HasTheSizeOfItsBoxWhereADamagedHeadTellsAnImpossibleOne) {
    VideoStage stage({L"a.mpg"}, "5000");
    stage.Pic2.movePixels(0, 0, 160, 120);
    for (const char* size : {"0 0 4097 24", "0 0 32 4097", "0 0 0 24", "0 0 32 -1"}) {
        stage.control.replyTo("where VIDEO source", size);
        const auto frame = lastFrame(stage.control, stage.Pic2, stage.pathOf(L"a.mpg"));
        ASSERT_TRUE(frame) << size;
        EXPECT_EQ(frame->width(), 160) << size;
        EXPECT_EQ(frame->height(), 120) << size;
    }
}

/// Paints something, but answers that it could not.
class Unsure : public MediaControl {
  public:
    explicit Unsure(MediaControl& painter) : painter_(painter) {}
    MediaReply send(const std::string& command, int replySize) override {
        MediaReply reply = painter_.send(command, replySize);
        reply.error = command.rfind("update", 0) == 0 ? 276 : reply.error;
        return reply;
    }

  private:
    MediaControl& painter_;
};

TEST(LastFrame, IsNotTakenFromADeviceThatAnswersAnError) {
    VideoStage stage({L"a.mpg"}, "5000");
    Unsure control(stage.control);
    EXPECT_FALSE(lastFrame(control, stage.Pic2, stage.pathOf(L"a.mpg")));
}

// Nothing was painted, whether the device says so or not.
TEST(LastFrame, IsCopiedFromTheScreenWhereNothingLiesOverIt) {
    DeafStage stage;
    stage.showFilm();
    const auto frame = lastFrame(stage.control, stage.Pic2, stage.pathOf(L"b.mpg"));
    ASSERT_TRUE(frame);
    EXPECT_EQ(middleOf(*frame), kScreenColour);
    EXPECT_THAT(stage.control.commands(), Not(Contains(StartsWith("open "))));
}

TEST(LastFrame, IsLookedForBesideWhereACaptionLiesOverIt) {
    DeafStage stage;
    stage.showFilm();
    stage.cover();
    stage.control.replyTo("status VIDEO position", "3000");
    const auto frame = lastFrame(stage.control, stage.Pic2, stage.pathOf(L"b.mpg"));
    EXPECT_FALSE(frame) << "nor was it found there";
    const auto commands = stage.control.commands();
    EXPECT_THAT(commands, Contains(testing::EndsWith(" alias FRAME")));
    EXPECT_THAT(commands, Contains("set FRAME audio all off"));
    EXPECT_THAT(commands, Contains("play FRAME from 2800"));
    EXPECT_THAT(commands, Contains("play FRAME from 1800")) << "a second look, further from the end";
    EXPECT_EQ(commands.back(), "close FRAME");
}

TEST(LastFrame, ThatCannotBeHadLeavesTheSurfaceAsItIs) {
    DeafStage stage;
    stage.showFilm();
    stage.cover();
    stage.Pic2.setImage(DeafStage::one(0x808080));
    stage.video.videoShowing = 1;
    stage.video.CaptureLastFrameAndClose();
    EXPECT_EQ(middleOf(stage.Pic2.image()), 0x808080U) << "not black";
    EXPECT_EQ(stage.video.videoShowing, 0);
    EXPECT_TRUE(stage.Pic2.visible());
}

TEST(LastFrame, OfAHiddenBoxIsNotLookedForOnTheScreen) {
    DeafStage stage;
    stage.form.hide();
    EXPECT_FALSE(lastFrame(stage.control, stage.Pic2, stage.pathOf(L"b.mpg")));
    EXPECT_THAT(stage.control.commands(), Contains(testing::EndsWith(" alias FRAME")));
}

TEST(LastFrame, OfAMinimisedWindowIsNotLookedForOnTheScreen) {
    DeafStage stage;
    stage.showFilm();
    ShowWindow(stage.form.hwnd(), SW_MINIMIZE);
    ASSERT_TRUE(IsIconic(stage.form.hwnd()));
    EXPECT_FALSE(lastFrame(stage.control, stage.Pic2, stage.pathOf(L"b.mpg")));
    EXPECT_THAT(stage.control.commands(), Contains(testing::EndsWith(" alias FRAME")));
}

TEST(LastFrame, IsLookedForBesideWhereAnotherProgramLiesOverIt) {
    DeafStage stage;
    stage.showFilm();
    RECT film{};
    GetWindowRect(stage.Pic2.hwnd(), &film);
    const HWND other = CreateWindowExW(WS_EX_TOPMOST, L"Static", L"", WS_POPUP, film.left + 20, film.top + 20,
                                       30, 30, nullptr, nullptr, nullptr, nullptr);
    ShowWindow(other, SW_SHOWNOACTIVATE);
    EXPECT_FALSE(lastFrame(stage.control, stage.Pic2, stage.pathOf(L"b.mpg")));
    EXPECT_THAT(stage.control.commands(), Contains(testing::EndsWith(" alias FRAME")));
    DestroyWindow(other);
}

/// Plays like the device that it stands before, but paints no frame.
class NoFrames : public MediaControl {
  public:
    MediaReply send(const std::string& command, int replySize) override {
        return command.rfind("update", 0) == 0 ? MediaReply{{}, 276} : real_.send(command, replySize);
    }

  private:
    DirectShowMediaControl real_;
};

// A real film: the back-end behind the deaf one opens it beside and finds the frame that is on view, but for
// what it looks further back.
TEST(LastFrame, OfARealFilmIsFoundBesideIt) {
    VideoStage stage({L"a.jpg"}, "5000");
    FallbackMediaControl control(std::make_unique<NoFrames>(),
                                 [] { return std::make_unique<DirectShowMediaControl>(); });
    const std::string film = support::mediaFile("film_352x288.mpg");
    ASSERT_EQ(control.send("open " + film + " alias VIDEO").error, 0U);
    control.send("set VIDEO audio all off");
    control.send("play VIDEO");
    const auto position = [&] { return std::stoi(control.send("status VIDEO position", kReplySize).text); };
    ASSERT_TRUE(support::pumpUntil([&] { return position() > 1500; }, 5000));
    control.send("stop VIDEO");
    const int at = position();
    const std::wstring path(film.begin(), film.end());
    const auto frame = lastFrame(control, stage.Pic2, path);
    ASSERT_TRUE(frame);
    GdiFlush();
    const auto number =
        support::filmFrame([&](int x, int y) { return frame->bits()[y * frame->width() + x] & 0xFFFFFF; },
                           frame->width(), frame->height());
    ASSERT_TRUE(number) << "a whole frame of the film";
    EXPECT_NEAR(*number * 40.0, at, 700.0) << "25 frames a second; where decoding can begin";
    control.send("close VIDEO");
}

BOOL WINAPI refusedStretch(HDC, int, int, int, int, HDC, int, int, int, int, DWORD) {
    return FALSE;
}

// As while the computer is locked.
TEST(LastFrame, IsNotMadeUpWhereTheScreenCannotBeRead) {
    DeafStage stage;
    stage.showFilm();
    const support::ImportHook hook("StretchBlt", refusedStretch);
    EXPECT_FALSE(lastFrame(stage.control, stage.Pic2, stage.pathOf(L"b.mpg")));
    EXPECT_THAT(stage.control.commands(), Contains(testing::EndsWith(" alias FRAME")));
}

}  // namespace
}  // namespace media
