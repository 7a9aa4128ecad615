// A long show on the virtual clock: random keys, clicks and effects from a fixed seed while pictures come and
// go. PANORELL_SOAK_STEPS sets how many steps; the default keeps the suite short.
#include <gtest/gtest.h>

#include <cstdlib>
#include <random>

#include "support/leak_listener.h"
#include "support/show_stage.h"

namespace show {
namespace {

using support::FakePictures;
using support::ShowStage;

int stepsWanted() {
    constexpr int kDefault = 100;
    const char* wanted = std::getenv("PANORELL_SOAK_STEPS");
    return wanted != nullptr ? std::atoi(wanted) : kDefault;
}

class Soak {
  public:
    Soak() : stage_(names()) {
        stage_.Check1.setValue(1);
        stage_.LoopC.setValue(1);
        stage_.music.musicList = {L"01 Eins.mp3", L"99 Zu.mp3"};
        stage_.Musik.setValue(1);
        stage_.control.replyTo("where VIDEO source", "0 0 32 24");
        stage_.control.replyTo("status VIDEO length", "2500");
        const std::string script =
            "p01 Titel *P=1 *E=# *D\r\np05 *M=Eins\r\np07 *M=<\r\np09 Nur ein Titel\r\n";
        support::writeBytes(stage_.pathOf(L"Panorell.txt"), {script.begin(), script.end()});
        stage_.show.start();
        stage_.type(L' ');
    }

    void step() {
        planDisturbance();
        stage_.key(VK_RIGHT);
        stage_.loop.advance(150 + pick(400));
        check();
        stage_.control.clear();
        stage_.pictures.taken.clear();
        if (stage_.state.showMode == kByHand) {
            stage_.type(L' ');
        }
        stage_.key(VK_UP);
    }

  private:
    static std::vector<std::wstring> names() {
        std::vector<std::wstring> all;
        for (int i = 1; i <= 20; ++i) {
            const std::wstring number = (i < 10 ? L"0" : L"") + std::to_wstring(i);
            all.push_back(L"p" + number + (i % 9 == 0 ? L".mpg" : L".jpg"));
        }
        return all;
    }

    int pick(int below) { return std::uniform_int_distribution<int>(0, below - 1)(random_); }

    /// Something that happens in the middle of what runs then.
    void planDisturbance() {
        stage_.pictures.damaged.clear();
        if (pick(5) == 0) {
            stage_.pictures.damaged = {L"p0" + std::to_wstring(1 + pick(8)) + L".jpg"};
        }
        const int what = pick(12);
        stage_.loop.at(1 + pick(300), [this, what] {
            EXPECT_LE(++disturbing_, 1);
            disturb(what);
            --disturbing_;
        });
    }

    void disturb(int what) {
        constexpr int kKeys[] = {VK_LEFT, VK_RIGHT, VK_UP, VK_DOWN};
        constexpr wchar_t kCharacters[] = L"abcdefghijklmnopqrstuvwxyz#?+-.123 ";
        if (what < 4) {
            stage_.key(kKeys[what]);
        } else if (what < 10) {
            stage_.controls->keyPress(kCharacters[pick(static_cast<int>(std::size(kCharacters)) - 1)]);
        } else {
            stage_.controls->mousePressed(what == 10 ? ui::MouseButton::Left : ui::MouseButton::Right);
        }
    }

    void check() {
        EXPECT_GE(stage_.state.pictureIndex, -1);
        EXPECT_LE(stage_.state.pictureIndex, stage_.File1.count());
        EXPECT_TRUE(stage_.state.showMode == kByHand || stage_.state.showMode == kAutomatically);
        EXPECT_FALSE(stage_.runner.running()) << "no transition outlives the tick that it belongs to";
        EXPECT_EQ(stage_.Pic2.image().width(), 160);
        EXPECT_EQ(stage_.Pic2.image().height(), 120);
        EXPECT_LE(stage_.pictures.prepared.size(), 3U);
        // With a caption on it, or after a video, the surface holds more than the picture itself.
        if (!stage_.Timer3.enabled() && stage_.video.videoShowing == 0 && !stage_.pictures.taken.empty() &&
            stage_.pictures.taken.back() == stage_.state.currentPicture && stage_.pictures.damaged.empty()) {
            EXPECT_EQ(stage_.shown(), FakePictures::colourOf(stage_.state.currentPicture));
        }
    }

    std::mt19937 random_{20'261'121};
    ShowStage stage_;
    int disturbing_ = 0;
};

TEST(SoakTest, KeepsItsInvariantsAndItsHandles) {
    Soak soak;
    const int steps = stepsWanted();
    for (int i = 0; i < steps / 10; ++i) {
        soak.step();
    }
    const auto handles = support::liveHandles();
    for (int i = steps / 10; i < steps && !testing::Test::HasFailure(); ++i) {
        soak.step();
    }
    EXPECT_EQ(support::liveHandles(), handles) << "handles grow with the steps of a show";
}

}  // namespace
}  // namespace show
