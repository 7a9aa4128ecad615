// The whole program in a long show on the virtual clock, with real pictures that are deleted, replaced and
// added while its window is left and comes back. PANORELL_SOAK_STEPS sets how many steps.
#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <iostream>
#include <map>
#include <random>
#include <set>
#include <vector>

#include "support/app_stage.h"
#include "support/process_usage.h"

namespace app {
namespace {

using support::AppStage;

constexpr int kItems = 8;
constexpr std::ptrdiff_t kKept = 3;

int stepsWanted() {
    constexpr int kDefault = 200;
    const char* wanted = std::getenv("PANORELL_SOAK_STEPS");
    return wanted != nullptr ? std::atoi(wanted) : kDefault;
}

class ProgramSoak {
  public:
    ProgramSoak() {
        stage_.monitors.first = {0, 0, 200, 150};
        for (int i = 0; i < kItems; ++i) {
            replace(i);
        }
        stage_.pictures.file(L"Panorell.txt", "b0 Titel *D\r\nb3 *E=#\r\nb5 Noch einer\r\n");
        stage_.loadFolder(L" P=1 M=0 E=0");
        stage_.form().Run.click();
    }

    void step() {
        comeAndGo();
        act(pick(9));
        stage_.loop.advance(200 + pick(800));
        check();
        stage_.control.clear();
        // Nothing stays held: the next step is one again.
        if (stage_.form().EOT.visible()) {
            ++ends_;
            stage_.key(VK_LEFT);
        } else if (stage_.showState().showMode == show::kByHand) {
            stage_.type(L' ');
        }
        stage_.key(VK_UP);
    }
    /// Steps on until the show stands where two moments can be compared.
    void stepToAPicture() {
        do {
            step();
            stage_.loop.advance(150);
        } while (!stage_.loop.leaving() &&
                 (stage_.form().EOT.visible() || stage_.form().Pic3.image().empty()));
    }
    int ends() const { return ends_; }
    int compared() const { return compared_; }

  private:
    static std::wstring nameOf(int item) { return L"b" + std::to_wstring(item) + L".jpg"; }
    int pick(int below) { return std::uniform_int_distribution<int>(0, below - 1)(random_); }

    void replace(int item) {
        const auto colour = static_cast<std::uint32_t>(pick(0x1000000));
        stage_.picture(nameOf(item), colour, 80, 60);
        std::vector<std::uint32_t>& colours = colours_[nameOf(item)];
        colours.push_back(colour);
        colours.erase(colours.begin(), colours.end() - std::min<std::ptrdiff_t>(std::ssize(colours), kKept));
        gone_.erase(nameOf(item));
    }

    void comeAndGo() {
        changed_.clear();
        if (pick(3) != 0) {
            return;
        }
        const int item = pick(kItems);
        changed_ = nameOf(item);
        if (pick(2) == 0) {
            replace(item);
        } else {
            stage_.pictures.remove(changed_);
            gone_.insert(changed_);
        }
        if (pick(2) == 0) {
            stage_.activate(false);
            stage_.activate(true);
        }
    }

    void act(int what) {
        constexpr int kKeys[] = {VK_LEFT, VK_RIGHT, VK_RIGHT, VK_DOWN};
        if (what < 4) {
            stage_.key(kKeys[what]);
        } else if (what < 6 && !stage_.form().EOT.visible()) {
            constexpr wchar_t kCharacters[] = L"abcdmnwyz#?1";
            stage_.type(kCharacters[pick(static_cast<int>(std::size(kCharacters)) - 1)]);
        } else if (what == 6) {
            SendMessageW(stage_.form().Pic2.hwnd(), WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(9, 9));
        } else if (what == 7) {
            SendMessageW(stage_.form().Pic2.hwnd(), WM_RBUTTONDOWN, MK_RBUTTON, MAKELPARAM(9, 9));
        }
    }

    void check() {
        const show::ShowState& state = stage_.showState();
        EXPECT_FALSE(stage_.loop.leaving());
        EXPECT_GE(state.pictureIndex, -1);
        EXPECT_LE(state.pictureIndex, stage_.form().File1.count());
        EXPECT_NE(state.showMode, show::kNoShow);
        EXPECT_FALSE(stage_.form().Pic3.visible());
        EXPECT_EQ(stage_.form().EOT.visible(), state.pictureIndex == stage_.form().File1.count());
        const std::wstring name = state.currentPicture.substr(state.currentPicture.rfind(L'\\') + 1);
        const std::vector<std::uint32_t>& colours = colours_[name];
        // One that is gone leaves the picture before it standing.
        if (gone_.count(name) == 0 && name != changed_ && !state.quickStepPending) {
            ++compared_;
            EXPECT_TRUE(
                std::any_of(colours.begin(), colours.end(),
                            [this](std::uint32_t colour) { return support::alike(stage_.shown(), colour); }))
                << std::hex << stage_.shown();
        }
    }

    std::mt19937 random_{20'270'102};
    AppStage stage_;
    /// What each file has held last: one that is replaced, or goes and comes, while it stands is not
    /// reloaded.
    std::map<std::wstring, std::vector<std::uint32_t>> colours_;
    std::set<std::wstring> gone_;
    std::wstring changed_;
    int ends_ = 0;
    int compared_ = 0;
};

TEST(ProgramSoak, PicturesComeAndGoWhileTheShowGoesOn) {
    ProgramSoak soak;
    const int steps = stepsWanted();
    for (int i = 0; i < steps / 4; ++i) {
        soak.step();
    }
    soak.stepToAPicture();
    const support::ProcessUsage before = support::ProcessUsage::now();
    for (int i = steps / 4; i < steps && !testing::Test::HasFailure(); ++i) {
        soak.step();
    }
    soak.stepToAPicture();
    const support::ProcessUsage after = support::ProcessUsage::now();
    std::cout << steps << " steps, " << soak.compared() << " pictures compared, " << soak.ends() << " ends\n"
              << "after a quarter: " << before << "\nat the end:      " << after << std::endl;
    EXPECT_GT(soak.compared(), steps / 3);
    EXPECT_GT(soak.ends(), 0);
    constexpr unsigned kOwn = 4;  // the system's own come and go
    EXPECT_LE(after.handles, before.handles + kOwn);
    constexpr std::size_t kSlack = 4U << 20;
    EXPECT_LE(after.memory, before.memory + kSlack);
}

}  // namespace
}  // namespace app
