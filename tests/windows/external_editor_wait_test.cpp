// What happens to the window and its messages while the user's image program runs.
#include <gmock/gmock.h>

#include <atomic>
#include <thread>

#include "external_editor_fixture.h"

namespace edit {
namespace {

using testing::IsEmpty;

/// A form that counts how often it paints.
class PaintedForm : public ui::Form {
  public:
    PaintedForm()
        : Form({.className = L"PanorellTestPainted", .title = L"Test", .width = 6000, .height = 4000}) {}
    std::atomic<int> paints = 0;

  protected:
    void drawGround(ui::Painting&) override { ++paints; }
};

/// What a user does from outside while the editor runs, on a thread of its own.
class Meanwhile {
  public:
    template <typename Actions>
    explicit Meanwhile(Actions actions) : thread_(std::move(actions)) {}
    ~Meanwhile() { thread_.join(); }
    Meanwhile(const Meanwhile&) = delete;
    Meanwhile& operator=(const Meanwhile&) = delete;

    template <typename State>
    static bool reached(State state) {
        constexpr int kTries = 2000;
        for (int i = 0; i < kTries && !state(); ++i) {
            Sleep(5);
        }
        return state();
    }

  private:
    std::thread thread_;
};

TEST_F(ExternalEditorTest, WhileItRunsTheWindowOnlyPaints) {
    PaintedForm form;
    form.show();
    test_.loop.settle();
    std::vector<std::string> events;
    form.onCloseAsked = [&] { events.emplace_back("close"); };
    form.onPressed = [&](const ui::MouseEvent&) { events.emplace_back("press"); };
    form.onKey = [&](int, bool) {
        events.emplace_back("key");
        return true;
    };
    ui::Timer timer(test_.loop, 1);
    timer.onTimer = [&] { events.emplace_back("timer"); };
    job("wait append");
    bool painted = false;
    {
        const Meanwhile user([&] {
            Meanwhile::reached([&] { return started(); });
            const int before = form.paints;
            PostMessageW(form.hwnd(), WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(5, 5));
            PostMessageW(form.hwnd(), WM_LBUTTONUP, 0, MAKELPARAM(5, 5));
            PostMessageW(form.hwnd(), WM_RBUTTONDOWN, MK_RBUTTON, MAKELPARAM(5, 5));
            PostMessageW(form.hwnd(), WM_KEYDOWN, VK_RETURN, 1);
            PostMessageW(form.hwnd(), WM_SYSKEYDOWN, VK_F4, 1 << 29);
            PostMessageW(form.hwnd(), WM_SYSCOMMAND, SC_CLOSE, 0);
            PostMessageW(form.hwnd(), WM_CLOSE, 0, 0);
            InvalidateRect(form.hwnd(), nullptr, FALSE);
            painted = Meanwhile::reached([&] { return form.paints > before; });
            letGoOn();
        });
        timer.setEnabled(true);
        editor().run(0);
    }
    EXPECT_TRUE(painted);
    EXPECT_THAT(events, IsEmpty());
    timer.setEnabled(false);
    test_.loop.settle();
    EXPECT_THAT(events, IsEmpty()) << "nothing is made up for afterwards";
    EXPECT_EQ(content(), "a pictureedited");
    ASSERT_GT(log_.size(), 1u);
    EXPECT_EQ(log_[1], "block Warten auf \xABpicture_editor\xBB ...");
}

TEST_F(ExternalEditorTest, LeavingIsHeldBackUntilTheTimesAreBack) {
    job("wait append");
    const DWORD thread = GetCurrentThreadId();
    {
        const Meanwhile user([&] {
            Meanwhile::reached([&] { return started(); });
            PostThreadMessageW(thread, WM_QUIT, 0, 0);
            letGoOn();
        });
        editor().run(0);
    }
    EXPECT_EQ(scene_.facts(kName).times, before_);
    EXPECT_EQ(content(), "a pictureedited");
    EXPECT_EQ(log_.back(), "unblock");
    EXPECT_TRUE(test_.loop.leaving());
}

}  // namespace
}  // namespace edit
