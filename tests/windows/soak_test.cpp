// A long show on the virtual clock: random keys, clicks and effects from a fixed seed while pictures come and
// go. PANORELL_SOAK_STEPS sets how many steps; the default keeps the suite short.
#include <gtest/gtest.h>

#include <cstdlib>
#include <iostream>
#include <random>

#include "support/leak_listener.h"
#include "support/process_usage.h"
#include "support/show_stage.h"

namespace show {
namespace {

using support::FakePictures;
using support::ShowStage;

constexpr int kItems = 20;
constexpr int kWatchMs = 37;  // in the middle of whatever waits

int stepsWanted() {
    constexpr int kDefault = 500;
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
        stage_.control.onSend = [this](const std::string& command) {
            if (command.rfind("open ", 0) == 0 && command.find(" alias VIDEO ") != std::string::npos) {
                stage_.pictures.lastLoaded.clear();
            }
        };
        stage_.pictures.onTake = [this] {
            EXPECT_FALSE(stage_.runner.running()) << "a picture is loaded in the middle of a transition";
        };
        stage_.writeScript(
            "p01 Titel *P=1 *E=# *D\r\np05 *M=Eins\r\np07 *M=<\r\np09 Nur ein Titel\r\np12 *E=x *D\r\n");
        stage_.show.start();
        stage_.type(L' ');
        watch_.onTimer = [this] { checkAlways(); };
        watch_.setEnabled(true);
        disturbance_.onTimer = [this] {
            disturbance_.setEnabled(false);
            checkAlways();
            disturb(pick(12));
            checkAlways();
        };
    }

    void step() {
        comeAndGo();
        disturbance_.setInterval(1 + pick(300));
        disturbance_.setEnabled(true);
        stage_.key(VK_RIGHT);
        stage_.loop.advance(150 + pick(400));
        check();
        stage_.control.clear();
        stage_.pictures.taken.clear();
        goOn();
    }

    /// Steps on until a picture stands whole on the screen, so that two moments can be compared.
    void stepToAPicture() {
        do {
            step();
        } while (stage_.pictures.lastLoaded.empty() || stage_.Pic3.image().empty() || stage_.show.atEnd());
    }

    /// How many effects were met in their middle.
    int effectsSeen() const { return static_cast<int>(effects_.size()); }
    int ends() const { return ends_; }
    int checks() const { return checks_; }

  private:
    static std::wstring nameOf(int item) {
        const std::wstring number = (item < 10 ? L"0" : L"") + std::to_wstring(item);
        return L"p" + number + (item % 9 == 0 ? L".mpg" : L".jpg");
    }
    static std::vector<std::wstring> names() {
        std::vector<std::wstring> all;
        for (int i = 1; i <= kItems; ++i) {
            all.push_back(nameOf(i));
        }
        return all;
    }

    int pick(int below) { return std::uniform_int_distribution<int>(0, below - 1)(random_); }

    /// Pictures are deleted, damaged or replaced, and the list is read anew now and then.
    void comeAndGo() {
        stage_.pictures.damaged.clear();
        if (pick(5) == 0) {
            stage_.pictures.damaged = {nameOf(1 + pick(kItems))};
        }
        if (pick(20) == 0) {
            const std::wstring path = stage_.pathOf(nameOf(1 + pick(kItems)));
            if (DeleteFileW(path.c_str()) == FALSE) {
                support::writeBytes(path, {'x'});
            }
            stage_.File1.refresh();
            // As its window does on becoming active: the index stays within the list.
            stage_.state.pictureIndex = std::min(stage_.state.pictureIndex, stage_.File1.count() - 1);
        }
        stage_.LoopC.setValue(pick(4) == 0 ? 0 : 1);
    }

    void goOn() {
        if (stage_.show.atEnd()) {
            ++ends_;
            EXPECT_TRUE(stage_.EOT.visible());
            stage_.key(VK_LEFT);
            return;
        }
        if (stage_.state.showMode == kByHand) {
            stage_.type(L' ');
        }
        stage_.key(VK_UP);
    }

    void disturb(int what) {
        constexpr int kKeys[] = {VK_LEFT, VK_RIGHT, VK_UP, VK_DOWN};
        constexpr wchar_t kCharacters[] = L"abcdefghijklmnopqrstuvwxyz#?+-.123 ";
        if (what < 4) {
            stage_.key(kKeys[what]);
        } else if (what < 10) {
            stage_.controls.keyPress(kCharacters[pick(static_cast<int>(std::size(kCharacters)) - 1)]);
        } else {
            stage_.controls.mousePressed(what == 10 ? ui::MouseButton::Left : ui::MouseButton::Right);
        }
    }

    /// What holds at any moment, also in the middle of a transition, a slide or a fade.
    void checkAlways() {
        ++checks_;
        EXPECT_GE(stage_.state.pictureIndex, -1);
        EXPECT_LE(stage_.state.pictureIndex, stage_.File1.count());
        EXPECT_TRUE(stage_.state.showMode == kByHand || stage_.state.showMode == kAutomatically);
        EXPECT_EQ(stage_.Pic2.image().width(), 160);
        EXPECT_EQ(stage_.Pic2.image().height(), 120);
        if (stage_.runner.running()) {
            EXPECT_TRUE(stage_.Timer1.firing()) << "a transition belongs to a tick";

            effects_.insert(stage_.runner.currentEffect);
        }
    }

    void check() {
        checkAlways();
        EXPECT_FALSE(stage_.runner.running()) << "no transition outlives the tick that it belongs to";
        EXPECT_FALSE(stage_.Pic3.visible());
        EXPECT_LE(stage_.pictures.prepared.size(), 3U);
        // Captions stand above and below the middle.
        if (!stage_.pictures.lastLoaded.empty()) {
            EXPECT_EQ(stage_.shown(), FakePictures::colourOf(stage_.pictures.lastLoaded));
        }
    }

    std::mt19937 random_{20'261'121};
    ShowStage stage_;
    ui::Timer watch_{stage_.loop, kWatchMs};
    ui::Timer disturbance_{stage_.loop};
    std::set<int> effects_;
    int ends_ = 0;
    int checks_ = 0;
};

TEST(SoakTest, KeepsItsInvariantsAndItsHandles) {
    Soak soak;
    const int steps = stepsWanted();
    for (int i = 0; i < steps / 10; ++i) {
        soak.step();
    }
    soak.stepToAPicture();
    const auto handles = support::liveHandles();
    const support::ProcessUsage before = support::ProcessUsage::now();
    for (int i = steps / 10; i < steps && !testing::Test::HasFailure(); ++i) {
        soak.step();
    }
    soak.stepToAPicture();
    const support::ProcessUsage after = support::ProcessUsage::now();
    std::cout << steps << " steps, " << soak.checks() << " checks, " << soak.effectsSeen() << " effects, "
              << soak.ends() << " ends\n"
              << "after a tenth: " << before << "\nat the end:    " << after << std::endl;
    EXPECT_EQ(support::liveHandles(), handles) << "handles grow with the steps of a show";
    ASSERT_GT(before.handles, 0U);
    ASSERT_GT(before.memory, 0U);
    EXPECT_LE(after.handles, before.handles + 2) << "the system's own come and go";
    constexpr std::size_t kSlack = 2U << 20;
    EXPECT_LE(after.memory, before.memory + kSlack);
    if (steps >= 500) {
        EXPECT_EQ(soak.effectsSeen(), kEffectCount - 2) << "all that are drawn step by step";
        EXPECT_GT(soak.ends(), 0);
    }
}

}  // namespace
}  // namespace show
