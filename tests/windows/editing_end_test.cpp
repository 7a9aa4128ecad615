// The overview is left: the question, what is saved, and where the program begins again.
#include "edit/editing_end.h"

#include <gmock/gmock.h>

#include "support/app_stage.h"
#include "support/edit_stage.h"

namespace edit {
namespace {

using support::Answer;
using support::EditStage;
using testing::IsEmpty;

constexpr std::uint32_t kBlue = 0x404080;

class EditingEndTest : public testing::Test {
  protected:
    void open() {
        stage.picturesOf({kBlue, kBlue, kBlue});
        ASSERT_TRUE(stage.open());
        stage.editing->setSave([this] {
            ++saves;
            return saved;
        });
    }
    EditStage stage;
    int saves = 0;
    bool saved = true;
};

TEST_F(EditingEndTest, WithoutChangesNothingIsAsked) {
    open();
    const Answer answer(IDYES);
    stage.choose(1, L"Beenden (zurück)");
    EXPECT_THAT(answer.seen(), IsEmpty());
    EXPECT_EQ(saves, 0);
    EXPECT_EQ(stage.left.times, 1);
    EXPECT_EQ(stage.left.startIndex, 1);
}

TEST_F(EditingEndTest, NoLeavesWithoutSaving) {
    open();
    stage.overview->records().changed = true;
    const Answer answer(IDNO);
    stage.choose(1, L"Beenden (zurück)");
    ASSERT_EQ(answer.seen().size(), 1U);
    EXPECT_EQ(answer.seen()[0].text, L"Änderungen speichern ?");
    EXPECT_EQ(answer.seen()[0].title, L" Bearbeiten beenden");
    EXPECT_EQ(saves, 0);
    EXPECT_EQ(stage.left.times, 1);
}

TEST_F(EditingEndTest, YesSavesAndLeaves) {
    open();
    stage.overview->records().changed = true;
    const Answer answer(IDYES);
    stage.choose(1, L"Beenden (zurück)");
    EXPECT_EQ(saves, 1);
    EXPECT_EQ(stage.left.times, 1);
}

TEST_F(EditingEndTest, ASaveThatWroteNothingKeepsTheOverviewOpen) {
    open();
    stage.overview->records().changed = true;
    saved = false;
    const Answer answer(IDYES);
    stage.choose(1, L"Beenden (zurück)");
    EXPECT_EQ(saves, 1);
    EXPECT_EQ(stage.left.times, 0);
    EXPECT_TRUE(stage.overview->form().visible());
}

TEST_F(EditingEndTest, WhatCannotBeSavedIsNotAskedFor) {
    open();
    stage.overview->records().changed = true;
    stage.overview->records().folderWritable = false;
    const Answer answer(IDYES);
    stage.editing->end();
    EXPECT_THAT(answer.seen(), IsEmpty());
    EXPECT_EQ(stage.left.times, 1);
}

TEST_F(EditingEndTest, ClosingTheWindowIsTheSame) {
    open();
    stage.overview->records().changed = true;
    const Answer answer(IDNO);
    SendMessageW(stage.overview->form().hwnd(), WM_CLOSE, 0, 0);
    EXPECT_EQ(answer.seen().size(), 1U);
    EXPECT_EQ(stage.left.times, 1);
}

TEST_F(EditingEndTest, ClosingOnceMoreWhileItAsksAsksOnlyOnce) {
    open();
    stage.overview->records().changed = true;
    int asked = 0;
    const support::MessageBoxes boxes([&] {
        ++asked;
        SendMessageW(stage.overview->form().hwnd(), WM_CLOSE, 0, 0);
        PostMessageW(FindWindowW(L"#32770", L" Bearbeiten beenden"), WM_COMMAND, IDNO, 0);
    });
    stage.editing->end();
    EXPECT_EQ(asked, 1);
    EXPECT_EQ(stage.left.times, 1);
}

TEST_F(EditingEndTest, ClosingInTheMiddleOfLoading) {
    for (int i = 0; i < 30; ++i) {
        stage.picture(L"p" + std::to_wstring(i) + L".jpg", kBlue, 1600, 1200);
    }
    stage.beginEditing();
    ASSERT_TRUE(stage.overview->grid().loading());
    SendMessageW(stage.overview->form().hwnd(), WM_CLOSE, 0, 0);
    EXPECT_EQ(stage.left.times, 1);
}

TEST_F(EditingEndTest, TheTimerOfTheFilmStopsFirst) {
    open();
    stage.overview->records().changed = true;
    stage.overview->form().Timer1.setEnabled(true);
    bool running = true;
    const support::MessageBoxes boxes([&] {
        running = stage.overview->form().Timer1.enabled();
        PostMessageW(FindWindowW(L"#32770", L" Bearbeiten beenden"), WM_COMMAND, IDNO, 0);
    });
    stage.editing->end();
    EXPECT_FALSE(running);
}

TEST_F(EditingEndTest, TheProgramBeginsAtTheItemOrTheNextOne) {
    open();
    stage.listed = {L"b.jpg", L"c.jpg"};
    stage.overview->selection().select(0);
    stage.editing->end();
    EXPECT_EQ(stage.left.startIndex, 0) << "the next one, where it is locked";
    stage.overview->selection().select(2);
    stage.editing->end();
    EXPECT_EQ(stage.left.startIndex, 1);
    stage.overview->selection().select(-1);
    stage.editing->end();
    EXPECT_EQ(stage.left.startIndex, std::nullopt);
}

/// With the whole program: the commands, the restart, and the list of the show that is read again.
class EditingEndOfTheProgram : public testing::Test {
  protected:
    void open() {
        for (const wchar_t* name : {L"a.jpg", L"b.jpg", L"c.jpg", L"d.jpg"}) {
            stage.picture(name);
        }
        stage.loadFolder();
        stage.form().CTRL.click();
        stage.loop.settle();
        ASSERT_NE(stage.application->overview(), nullptr);
        ASSERT_TRUE(stage.until([&] { return !overview().grid().loading(); }));
        stage.control.clear();
    }
    overview::Overview& overview() { return *stage.application->overview(); }
    void close() { SendMessageW(overview().form().hwnd(), WM_CLOSE, 0, 0); }

    support::AppStage stage;
};

TEST_F(EditingEndOfTheProgram, ItEndsTheFilmAndStartsAnewAtTheItem) {
    open();
    stage.pictures.hide(L"a.jpg");
    overview().selection().select(2);
    close();
    EXPECT_THAT(stage.control.commands(), testing::ElementsAre("stop VIDEO", "close VIDEO"));
    ASSERT_EQ(stage.system.started.size(), 1U);
    EXPECT_EQ(stage.system.started[0], stage.program.path() + L"\\Panorell.exe " + stage.pictures.path() +
                                           L" P=5 D=0 E=0 V=1 M=1 L=1");
    EXPECT_TRUE(stage.loop.leaving());
    EXPECT_FALSE(overview().form().visible());
}

TEST_F(EditingEndOfTheProgram, TheNewOneHasHalfASecondToComeBeforeThisOneEnds) {
    open();
    double waited = 0;
    const double before = stage.loop.slept();
    stage.loop.onSleep = [&] {
        EXPECT_EQ(stage.system.started.size(), 1U) << "it was started before";
        EXPECT_FALSE(stage.loop.leaving());
    };
    close();
    waited = stage.loop.slept() - before;
    EXPECT_DOUBLE_EQ(waited, 500);
    EXPECT_TRUE(stage.loop.leaving());
}

TEST_F(EditingEndOfTheProgram, WhereItCannotBeStartedAnewTheOverviewStaysAndSaysSo) {
    open();
    stage.system.startFails = true;
    {
        const support::MessageBoxes boxes;
        close();
        ASSERT_EQ(boxes.seen().size(), 1U);
        EXPECT_EQ(boxes.seen()[0].text, L"Panorell konnte nicht neu gestartet werden.");
    }
    EXPECT_FALSE(stage.loop.leaving());
    EXPECT_TRUE(overview().form().visible());
    stage.system.startFails = false;
    close();
    EXPECT_EQ(stage.system.started.size(), 1U);
    EXPECT_TRUE(stage.loop.leaving());
}

TEST_F(EditingEndOfTheProgram, ClosingTheHiddenSetUpIsClosingTheOverview) {
    open();
    overview().records().changed = true;
    const Answer answer(IDNO);
    SendMessageW(stage.form().hwnd(), WM_CLOSE, 0, 0);
    EXPECT_EQ(answer.seen().size(), 1U);
    EXPECT_EQ(stage.system.started.size(), 1U);
    EXPECT_TRUE(stage.loop.leaving());
}

}  // namespace
}  // namespace edit
