// Every effect on a real window: what stands on the screen after each step, read back from the screen.
#include "show/transition_runner.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <functional>
#include <vector>

#include "picture/surface.h"
#include "support/effect_model.h"
#include "support/import_hook.h"
#include "support/virtual_loop.h"
#include "ui/form.h"

namespace show {
namespace {

using support::EffectModel;
using support::Picture;

constexpr int kWidth = 161;
constexpr int kHeight = 121;
constexpr std::uint32_t kNewMark = 0xFF;  // in blue, which the old picture has none of
constexpr int kEveryStep = 5;

/// Tells when a transition waits for its timer: the step before is drawn then.
class StepLoop : public support::VirtualLoop {
  public:
    std::function<void()> onWait;

  protected:
    void block(double due) override {
        if (onWait) {
            onWait();
        }
        VirtualLoop::block(due);
    }
};

Picture painted(int width, int height, std::uint32_t mark) {
    Picture picture(width, height);
    for (int y = 0; y < height; ++y) {
        for (int x = 0; x < width; ++x) {
            picture.row(y)[x] = static_cast<std::uint32_t>(x * 255 / width) << 16 |
                                static_cast<std::uint32_t>(y * 255 / height) << 8 | mark;
        }
    }
    return picture;
}

picture::Pixels pixelsOf(const Picture& picture) {
    picture::Pixels pixels(picture.width, picture.height);
    std::copy(picture.pixels.begin(), picture.pixels.end(), pixels.data.begin());
    return pixels;
}

class Stage {
  public:
    Stage(const Picture& before, const Picture& after) {
        Check1.setValue(1);
        form.show();
        Pic2.movePixels(0, 0, before.width, before.height);
        Pic2.setImage(pixelsOf(before));
        Pic2.show();
        Pic3.movePixels(0, 0, before.width, before.height);
        Pic3.setImage(pixelsOf(after));
        loop.settle();
    }

    /// What the screen shows where the surface lies.
    Picture screen() {
        loop.settle();
        GdiFlush();
        POINT place{};
        ClientToScreen(Pic2.hwnd(), &place);
        picture::Surface copy(kWidth, kHeight);
        const platform::WindowDc desktop(nullptr);
        BitBlt(copy.dc(), 0, 0, kWidth, kHeight, desktop.get(), place.x, place.y, SRCCOPY);
        GdiFlush();
        Picture picture(kWidth, kHeight);
        std::transform(copy.bits(), copy.bits() + picture.pixels.size(), picture.pixels.begin(),
                       [](std::uint32_t pixel) { return pixel & 0xFFFFFF; });
        return picture;
    }
    /// Windows come up in their own time.
    bool shows(const Picture& expected) {
        for (int tries = 0; tries < 1000; ++tries) {
            if (screen() == expected) {
                return true;
            }
            Sleep(2);
        }
        return false;
    }
    bool holds(const Picture& expected) const {
        GdiFlush();
        return std::equal(expected.pixels.begin(), expected.pixels.end(), Pic2.image().bits());
    }

    StepLoop loop;
    ui::Form form{{.className = L"PanorellTestRunner", .title = L"", .width = 9000, .height = 6000}};
    ui::CheckBox Check1{{.parent = form, .visible = false}};
    ui::PictureBox Pic3{{.parent = form, .visible = false}};
    ui::PictureBox Pic2{{.parent = form}};
    ui::Timer Timer2{loop, 10, ui::Timer::Pacing::FromTick};
    TransitionRunner runner{{loop, Pic2, Pic3, Timer2, Check1}};
};

/// Stretched pictures are compared by their outline only: which columns a stretch leaves out is the system's.
Picture comparable(Picture picture, int index) {
    if (index >= 12 && index <= 14) {
        for (std::uint32_t& pixel : picture.pixels) {
            pixel &= kNewMark;
        }
    }
    return picture;
}

std::string letterOf(const testing::TestParamInfo<int>& info) {
    return std::string(1, static_cast<char>('A' + info.param));
}

class EffectOnScreen : public testing::TestWithParam<int> {};

TEST_P(EffectOnScreen, ShowsEachStepAndEndsWithTheNewPicture) {
    const int index = GetParam();
    const Picture before = painted(kWidth, kHeight, 0);
    const Picture after = painted(kWidth, kHeight, kNewMark);
    Stage stage(before, after);
    ASSERT_TRUE(stage.shows(before));
    EffectModel model(index, before, after);
    int drawn = 0;
    stage.loop.onWait = [&] {
        if (stage.Timer2.enabled() && drawn % kEveryStep == 0) {
            model.runTo(drawn);
            EXPECT_EQ(comparable(stage.screen(), index), comparable(model.screen(), index))
                << "after " << drawn << " steps";
        }
        ++drawn;
    };
    stage.runner.effectNumber = index + 1;
    stage.runner.run([] {});
    stage.loop.onWait = nullptr;
    EXPECT_EQ(drawn, model.plan().paced ? model.plan().stepCount : 0);
    EXPECT_TRUE(stage.holds(after));
    EXPECT_EQ(stage.screen(), after);
    EXPECT_FALSE(stage.Pic3.visible());
    EXPECT_TRUE(stage.Pic2.autoRedraw());
    EXPECT_FALSE(stage.Timer2.enabled());
    EXPECT_EQ(stage.Timer2.interval(), kStepInterval);
    EXPECT_EQ(stage.runner.currentEffect, (index + 1) % kEffectCount);
}

TEST_P(EffectOnScreen, CompletedInTheMiddleShowsTheNewPictureAtOnce) {
    const int index = GetParam();
    const Picture before = painted(kWidth, kHeight, 0);
    const Picture after = painted(kWidth, kHeight, kNewMark);
    Stage stage(before, after);
    ASSERT_TRUE(stage.shows(before));
    const int steps = effectPlan(index, kWidth, kHeight).stepCount;
    int drawn = 0;
    stage.loop.onWait = [&] {
        if (++drawn == steps / 2) {
            stage.runner.complete();
        }
    };
    stage.runner.effectNumber = index + 1;
    stage.runner.run([] {});
    stage.loop.onWait = nullptr;
    EXPECT_LE(drawn, steps / 2 + 1);
    EXPECT_TRUE(stage.holds(after));
    EXPECT_EQ(stage.screen(), after);
}

// As when another window is moved across, a mouse button is pressed or the information line goes.
TEST_P(EffectOnScreen, APaintInTheMiddleLeavesNoTrace) {
    const int index = GetParam();
    const Picture before = painted(kWidth, kHeight, 0);
    const Picture after = painted(kWidth, kHeight, kNewMark);
    Stage stage(before, after);
    ASSERT_TRUE(stage.shows(before));
    const EffectPlan plan = effectPlan(index, kWidth, kHeight);
    int drawn = 0;
    EffectModel model(index, before, after);
    int repaints = 0;
    stage.loop.onWait = [&] {
        if (!stage.Timer2.enabled()) {
            return;
        }
        // Nine times: at once again, a part and the whole.
        const int ninths = ++drawn * 9 / std::max(1, plan.stepCount);
        if (ninths <= repaints) {
            return;
        }
        ++repaints;
        model.runTo(drawn - 1);
        const RECT uncovered{10 * repaints, 10, 20 + 15 * repaints, 111};
        for (const RECT* area : {&uncovered, &uncovered, static_cast<const RECT*>(nullptr)}) {
            InvalidateRect(stage.Pic2.hwnd(), area, FALSE);
            EXPECT_EQ(comparable(stage.screen(), index), comparable(model.screen(), index))
                << "after " << drawn - 1 << " steps";
        }
    };
    stage.runner.effectNumber = index + 1;
    stage.runner.run([] {});
    stage.loop.onWait = nullptr;
    EXPECT_EQ(repaints, plan.paced ? 9 : 0);
    EXPECT_TRUE(stage.holds(after));
    EXPECT_EQ(stage.screen(), after);
}

INSTANTIATE_TEST_SUITE_P(AtoZ, EffectOnScreen, testing::Range(0, kEffectCount), letterOf);

TEST(TransitionRunner, AnEffectThatIsNoneShowsTheNewPicture) {
    const Picture before = painted(kWidth, kHeight, 0);
    const Picture after = painted(kWidth, kHeight, kNewMark);
    Stage stage(before, after);
    ASSERT_TRUE(stage.shows(before));
    stage.runner.effectNumber = 33;
    stage.runner.run([] {});
    EXPECT_TRUE(stage.holds(after));
    EXPECT_EQ(stage.screen(), after);
    EXPECT_EQ(stage.runner.currentEffect, 33 % kEffectCount);
}

std::vector<int> stretchModes;

const support::ImportHook* modeHook = nullptr;

int WINAPI noteMode(HDC dc, int mode) {
    stretchModes.push_back(mode);
    return modeHook->original<decltype(SetStretchBltMode)>()(dc, mode);
}

TEST(TransitionRunner, StretchesLeaveRowsOutInsteadOfBlendingThem) {
    const Picture before = painted(kWidth, kHeight, 0);
    const Picture after = painted(kWidth, kHeight, kNewMark);
    Stage stage(before, after);
    stretchModes.clear();
    const support::ImportHook hook("SetStretchBltMode", noteMode);
    modeHook = &hook;
    stage.runner.effectNumber = 13;
    stage.runner.run([] {});
    EXPECT_FALSE(stretchModes.empty());
    EXPECT_TRUE(
        std::all_of(stretchModes.begin(), stretchModes.end(), [](int mode) { return mode == COLORONCOLOR; }));
}

TEST(TransitionRunner, StretchesOfALargeSurfaceEndWithTheNewPicture) {
    const Picture before = painted(2561, 1601, 0);
    const Picture after = painted(2561, 1601, kNewMark);
    for (int index = 12; index <= 14; ++index) {
        Stage stage(before, after);
        stage.runner.effectNumber = index + 1;
        stage.runner.run([] {});
        EXPECT_TRUE(stage.holds(after)) << index;
    }
}

}  // namespace
}  // namespace show
