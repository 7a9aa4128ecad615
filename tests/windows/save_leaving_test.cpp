// A save, and one that is taken back, run to their end whatever wants the program closed meanwhile.
#include <gmock/gmock.h>

#include "edit/operations.h"
#include "support/edit_stage.h"

namespace edit {
namespace {

using support::EditStage;
using testing::ElementsAre;

constexpr std::uint32_t kBlue = 0x404080;

class SaveLeavingTest : public testing::Test {
  protected:
    SaveLeavingTest() {
        stage.picturesOf({kBlue, kBlue, kBlue, kBlue});
        EXPECT_TRUE(stage.open());
        operations.emplace(
            Operations::Parts{stage.loop, stage.control, stage.fileSystem, *stage.overview, *stage.editing,
                              editorPath, [](const std::wstring&) { return true; },
                              [this] { return stage.titles; }, [this] { stage.overview->reload(); }});
    }
    HWND form() { return stage.overview->form().hwnd(); }
    /// Answers the question for the prefix, and has the program closed in every way once files move.
    void closeMeanwhile() {
        stage.loop.at(20, [] {
            SendMessageW(GetFocus(), WM_CHAR, L'P', 1);
            PostMessageW(GetFocus(), WM_KEYDOWN, VK_RETURN, 1);
        });
        stage.loop.at(300, [this] { askForTheEnd(); });
    }
    void askForTheEnd() {
        SendMessageW(form(), WM_CLOSE, 0, 0);
        sessionMayEnd = SendMessageW(form(), WM_QUERYENDSESSION, 0, 0) != FALSE;
        stage.loop.leave();
        leftAtOnce = stage.loop.leaving();
    }
    void expectHeldBack() {
        EXPECT_FALSE(sessionMayEnd);
        EXPECT_FALSE(leftAtOnce);
        EXPECT_TRUE(stage.loop.leaving()) << "afterwards";
        EXPECT_EQ(stage.left.times, 0) << "closing is dropped";
    }

    EditStage stage;
    std::wstring editorPath;
    std::optional<Operations> operations;
    bool sessionMayEnd = true;
    bool leftAtOnce = true;
};

TEST_F(SaveLeavingTest, ASaveRunsToItsEnd) {
    closeMeanwhile();
    EXPECT_TRUE(operations->save().save());
    EXPECT_THAT(stage.names(), ElementsAre(L"P001.jpg", L"P002.jpg", L"P003.jpg", L"P004.jpg"));
    for (const std::wstring& name : stage.names()) {
        EXPECT_TRUE(stage.exists(name));
    }
    expectHeldBack();
}

TEST_F(SaveLeavingTest, SoDoesOneThatIsTakenBack) {
    stage.loop.at(20, [] {
        SendMessageW(GetFocus(), WM_CHAR, L'P', 1);
        PostMessageW(GetFocus(), WM_KEYDOWN, VK_RETURN, 1);
    });
    ASSERT_TRUE(operations->save().save());
    stage.loop.at(300, [this] { askForTheEnd(); });
    // The overview is not loaded anew when the program is being left.
    stage.loop.guarded([this] { operations->save().takeBack(); });
    for (const wchar_t* name : {L"a.jpg", L"b.jpg", L"c.jpg", L"d.jpg"}) {
        EXPECT_TRUE(stage.exists(name));
    }
    expectHeldBack();
}

}  // namespace
}  // namespace edit
