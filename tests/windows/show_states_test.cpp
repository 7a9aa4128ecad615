// Every key and mouse button in every state that a show can be met in.
#include <gmock/gmock.h>

#include <functional>
#include <map>
#include <string>

#include "support/app_stage.h"
#include "support/show_stage.h"

namespace show {
namespace {

using support::ShowStage;

constexpr wchar_t kEscape = 27;
constexpr int kShown = 2;  // index of the item shown while the list has not ended
constexpr int kCount = 6;

enum class State { InPicture, InTransition, InSlide, HeldByDown, HeldByClick, InFade, AfterEnd };

constexpr State kInTheList[] = {State::InPicture, State::InTransition, State::InSlide, State::HeldByDown,
                                State::HeldByClick};
constexpr State kAtTheEnd[] = {State::InFade, State::AfterEnd};

const char* nameOf(State state) {
    constexpr const char* kNames[] = {"picture",       "transition", "slide",    "held by DOWN",
                                      "held by click", "fade",       "after end"};
    return kNames[static_cast<int>(state)];
}

class StateStage : public ShowStage {
  public:
    StateStage() : ShowStage(names()) {
        music.musicList = {L"01 Lied.mp3"};
        Musik.setValue(1);
        writeScript("p2 Am Strand\r\n");
    }

    /// Brings the show into a state, lets `action` happen in it and whatever follows within half a second.
    void happens(State met, const std::function<void()>& action) {
        const bool end = met == State::InFade || met == State::AfterEnd;
        File1.setSelectedIndex(end ? kCount - 1 : kShown - 1);
        show.start();
        loop.advance(600);  // the time of a double click
        type(L' ');
        const auto observed = [this, action] {
            control.clear();
            action();
        };
        if (end) {
            reachEnd(met == State::InFade, observed);
        } else {
            reachItem(met, observed);
        }
        loop.advance(400);
    }

    void press(const std::string& what) {
        const std::map<std::string, int> keys{
            {"DOWN", VK_DOWN}, {"UP", VK_UP}, {"LEFT", VK_LEFT}, {"RIGHT", VK_RIGHT}, {"ENTER", VK_RETURN}};
        const auto found = keys.find(what);
        if (found != keys.end()) {
            key(found->second);
        } else if (what == "left" || what == "right") {
            controls.mousePressed(what == "left" ? ui::MouseButton::Left : ui::MouseButton::Right);
        } else {
            type(static_cast<wchar_t>(what.front()));
        }
    }

  private:
    static std::vector<std::wstring> names() {
        std::vector<std::wstring> all;
        for (int i = 0; i < kCount; ++i) {
            all.push_back(L"p" + std::to_wstring(i) + L".jpg");
        }
        return all;
    }

    void reachItem(State met, const std::function<void()>& action) {
        if (met == State::InTransition) {
            Check1.setValue(1);
            runner.effectNumber = 2;  // "B": three seconds
        }
        key(VK_RIGHT);
        if (met == State::InTransition) {
            loop.at(100 + 600, [this, action] {
                EXPECT_TRUE(runner.running());
                action();
            });
            loop.advance(100);
            return;
        }
        loop.advance(110);
        ASSERT_EQ(state.pictureIndex, kShown);
        if (met == State::InSlide) {
            const float standing = UT.top();
            loop.at(3990 + 100, [this, standing, action] {
                EXPECT_TRUE(UT.visible());
                EXPECT_GT(UT.top(), standing);
                action();
            });
            loop.advance(4000);
            return;
        }
        if (met == State::HeldByDown) {
            press("DOWN");
        } else if (met == State::HeldByClick) {
            press("left");
        }
        action();
    }

    void reachEnd(bool fading, const std::function<void()>& action) {
        if (!fading) {
            loop.advance(5100);
            ASSERT_TRUE(EOT.visible());
            action();
            return;
        }
        loop.at(5000 + 1000 + 2000, [this, action] {
            EXPECT_TRUE(EOT.visible());
            EXPECT_THAT(control.commands().back(), testing::StartsWith("setaudio AUDIO volume to 1"));
            action();
        });
        loop.advance(5100);
    }
};

struct Row {
    const char* what;
    int index;
    int mode;
    int pausedFlag;
    bool runs;  ///< whether Timer1 goes on
};

void expectRows(State state, const std::vector<Row>& rows) {
    for (const Row& row : rows) {
        SCOPED_TRACE(std::string(nameOf(state)) + ": " + row.what);
        StateStage stage;
        stage.happens(state, [&] { stage.press(row.what); });
        EXPECT_EQ(stage.state.pictureIndex, row.index);
        EXPECT_EQ(stage.state.showMode, row.mode);
        EXPECT_EQ(stage.state.pausedFlag, row.pausedFlag);
        EXPECT_EQ(stage.Timer1.enabled(), row.runs);
        EXPECT_EQ(stage.restarts, 0);
        EXPECT_EQ(stage.ends, 0);
        EXPECT_EQ(stage.EOT.visible(), row.index == kCount);
    }
}

TEST(ShowStates, WhileTheShowStepsByItself) {
    for (const State state : {State::InPicture, State::InTransition, State::InSlide}) {
        expectRows(state, {{"DOWN", 2, 2, 1, false},
                           {"UP", 3, 2, 0, true},
                           {"LEFT", 1, 2, 0, true},
                           {"RIGHT", 3, 2, 0, true},
                           {"ENTER", 2, 2, 0, true},
                           {" ", 2, 2, 0, true},
                           {"7", 2, 2, 0, true},
                           {"c", 2, 2, 0, true},
                           {"#", 2, 2, 0, true},
                           {"?", 2, 2, 0, true},
                           {"+", 2, 2, 0, true},
                           {"left", 2, 1, 0, false},
                           {"right", 3, 2, 0, true}});
    }
}

TEST(ShowStates, HeldByDown) {
    expectRows(State::HeldByDown, {{"DOWN", 2, 2, 1, false},
                                   {"UP", 3, 2, 0, true},
                                   {"LEFT", 1, 2, 1, false},
                                   {"RIGHT", 3, 2, 1, false},
                                   {"ENTER", 2, 2, 1, false},
                                   {" ", 2, 2, 1, false},
                                   {"7", 2, 2, 1, true},
                                   {"c", 2, 2, 1, false},
                                   {"?", 2, 2, 1, false},
                                   {"left", 3, 2, 1, false},
                                   {"right", 3, 2, 0, true}});
}

TEST(ShowStates, HeldByAClick) {
    expectRows(State::HeldByClick, {{"DOWN", 2, 1, 1, false},
                                    {"UP", 3, 2, 0, true},
                                    {"LEFT", 1, 1, 0, false},
                                    {"RIGHT", 3, 1, 0, false},
                                    {"ENTER", 2, 1, 0, false},
                                    {" ", 2, 2, 0, true},
                                    {"7", 2, 1, 0, true},
                                    {"c", 2, 1, 0, false},
                                    {"?", 2, 1, 0, false},
                                    {"left", 3, 1, 0, false},
                                    {"right", 3, 2, 0, true}});
}

TEST(ShowStates, WhenTheListHasEnded) {
    for (const State state : kAtTheEnd) {
        expectRows(state, {{"DOWN", 6, 2, 1, false},
                           {"UP", 6, 2, 0, false},
                           {"LEFT", 5, 2, 0, true},
                           {"RIGHT", 6, 2, 0, false},
                           {"ENTER", 6, 2, 0, false},
                           {"left", 6, 2, 0, false},
                           {"right", 6, 2, 0, false}});
    }
}

struct Effect {
    wchar_t character;
    int effectNumber;
    int pauseBar;
    int volume;
    std::vector<std::string> commands;
    bool information;
};

TEST(ShowStates, CharactersActInEveryState) {
    const Effect effects[] = {
        {L'c', 3, 56, 200, {}, false},
        {L'z', 26, 56, 200, {}, false},
        {L'C', 5, 56, 200, {}, false},
        {L'#', 0, 56, 200, {}, false},
        {L'1', 5, 60, 200, {}, false},
        {L'7', 5, 54, 200, {}, false},
        {L'0', 5, 56, 200, {}, false},
        {L'?', 5, 56, 200, {}, true},
        {L'+', 5, 56, 220, {"setaudio AUDIO volume to 220"}, false},
        {L'-', 5, 56, 180, {"setaudio AUDIO volume to 180"}, false},
        {L'.', 5, 56, 200, {"setaudio AUDIO volume to 0"}, false},
        {L'\u00E4', 5, 56, 200, {}, false},
    };
    for (const State state : kInTheList) {
        for (const Effect& effect : effects) {
            SCOPED_TRACE(std::string(nameOf(state)) + ": character " + std::to_string(effect.character));
            StateStage stage;
            std::vector<std::string> sent;
            stage.happens(state, [&] {
                stage.runner.effectNumber = 5;
                stage.type(effect.character);
                sent = stage.control.take();
                EXPECT_EQ(stage.runner.effectNumber, effect.effectNumber);
                stage.runner.effectNumber = 1;
            });
            EXPECT_EQ(stage.IntS.value(), effect.pauseBar);
            EXPECT_EQ(stage.music.musicVolume, effect.volume);
            EXPECT_EQ(sent, effect.commands);
            EXPECT_EQ(stage.Text1.visible(), effect.information);
        }
    }
}

TEST(ShowStates, CharactersOnlyRestartWhenTheListHasEnded) {
    for (const State state : kAtTheEnd) {
        for (const wchar_t character : {L'c', L'#', L'7', L'?', L'+', L'-', L'.', L' ', L'x', L'\r'}) {
            SCOPED_TRACE(std::string(nameOf(state)) + ": character " + std::to_string(character));
            StateStage stage;
            std::vector<std::string> sent;
            stage.happens(state, [&] {
                stage.type(character);
                stage.type(character);
                sent = stage.control.take();
            });
            EXPECT_EQ(stage.restarts, 1);
            EXPECT_EQ(stage.ends, 0);
            EXPECT_EQ(stage.runner.effectNumber, 0);
            EXPECT_EQ(stage.IntS.value(), 56);
            EXPECT_EQ(stage.music.musicVolume, 200);
            EXPECT_TRUE(sent.empty());
            EXPECT_FALSE(stage.Text1.visible());
            EXPECT_EQ(stage.state.pictureIndex, kCount);
        }
    }
}

TEST(ShowStates, EscapeEndsTheShowInEveryState) {
    for (const State state : {State::InPicture, State::InTransition, State::InSlide, State::HeldByDown,
                              State::HeldByClick, State::InFade, State::AfterEnd}) {
        SCOPED_TRACE(nameOf(state));
        StateStage stage;
        stage.happens(state, [&] { stage.type(kEscape); });
        EXPECT_EQ(stage.ends, 1);
        EXPECT_EQ(stage.restarts, 0);
        EXPECT_EQ(stage.state.showMode, kNoShow);
        EXPECT_FALSE(stage.Timer1.enabled());
        EXPECT_FALSE(stage.Timer5.enabled());
        EXPECT_FALSE(stage.runner.running());
    }
}

// The handler that waits is unwound, and the program is left.
TEST(ShowStates, EscapeLeavesTheProgramFromEveryWait) {
    struct Wait {
        const char* name;
        const char* script;
        double at;  ///< ms after the start of the show, which steps every second
    };
    for (const Wait& wait : {Wait{"transition", "a *E=B\r\n", 2500.0}, Wait{"slide", "a Titel\r\n", 4100.0},
                             Wait{"end", "", 2500.0}, Wait{"fade", "", 4500.0}}) {
        SCOPED_TRACE(wait.name);
        support::AppStage stage;
        stage.picture(L"a.jpg");
        if (wait.name != std::string("slide")) {
            stage.picture(L"b.jpg");
        }
        stage.pictures.file(L"01 Lied.mp3");
        stage.pictures.file(L"Panorell.txt", wait.script);
        stage.loadFolder(L" P=1 M=1 E=0");
        stage.form().Check1.setValue(1);
        if (wait.name == std::string("slide")) {
            stage.form().Start.click();
        } else {
            stage.form().Run.click();
        }
        stage.loop.at(wait.at, [&] { stage.type(kEscape); });
        stage.loop.advance(12'000);
        EXPECT_TRUE(stage.loop.leaving());
        EXPECT_EQ(stage.showState().showMode, kNoShow);
        EXPECT_EQ(stage.system.count("tray delete"), 1);
        EXPECT_THAT(stage.control.commands(), testing::Contains("close AUDIO"));
    }
}

TEST(ShowStates, NothingActsBeforeAShow) {
    for (const char* what : {"DOWN", "UP", "LEFT", "RIGHT", "ENTER", " ", "7", "c", "#", "?", "+", "-", ".",
                             "\x1B", "left", "right"}) {
        SCOPED_TRACE(what);
        StateStage stage;
        stage.runner.effectNumber = 5;
        stage.press(what);
        stage.loop.advance(400);
        EXPECT_EQ(stage.state.pictureIndex, 0);
        EXPECT_EQ(stage.state.showMode, kNoShow);
        EXPECT_EQ(stage.state.pausedFlag, 0);
        EXPECT_FALSE(stage.Timer1.enabled());
        EXPECT_EQ(stage.runner.effectNumber, 5);
        EXPECT_EQ(stage.IntS.value(), 56);
        EXPECT_EQ(stage.music.musicVolume, 200);
        EXPECT_TRUE(stage.control.commands().empty());
        EXPECT_FALSE(stage.Text1.visible());
        EXPECT_EQ(stage.ends + stage.restarts, 0);
        EXPECT_EQ(stage.screen.pointer().pointerHidden(), 0);
    }
}

}  // namespace
}  // namespace show
