// The menu of an item as the overview opens it, and what happens to it when the program is left.
#include "edit/editing.h"

#include <commctrl.h>

#include <gmock/gmock.h>

#include "support/app_stage.h"
#include "support/edit_stage.h"

namespace edit {
namespace {

using support::EditStage;
using testing::Contains;
using testing::ElementsAre;
using testing::Not;

constexpr std::uint32_t kBlue = 0x404080;

TEST(Editing, TheMenuShowsWhatIsProvided) {
    EditStage stage;
    stage.picturesOf({kBlue, kBlue});
    ASSERT_TRUE(stage.open());
    EXPECT_THAT(
        stage.choose(0),
        ElementsAre(L"Bild vergrößern", L"Bild sperren", L"Bild-Einstellungen anzeigen", L"Bild löschen",
                    L"Minibilder speichern", L" Minibilder löschen", L"Beenden (zurück)"));
    int chosen = -1;
    stage.editing->provide(MenuCommand::Minf, [&](int index) { chosen = index; });
    EXPECT_TRUE(stage.offers(1, L"Datei-Info"));
    stage.choose(1, L"Datei-Info");
    EXPECT_EQ(chosen, 1);
}

TEST(Editing, WhatIsChosenIsDoneToTheItemWhereverItLiesThen) {
    EditStage stage;
    stage.picturesOf({kBlue, kBlue, kBlue});
    ASSERT_TRUE(stage.open());
    std::vector<int> chosen;
    stage.editing->provide(MenuCommand::Minf, [&](int index) { chosen.push_back(index); });
    stage.editing->onStateAsked = [&](MenuState&) { stage.overview->grid().move(2, 0); };
    stage.choose(2, L"Datei-Info");
    EXPECT_THAT(chosen, ElementsAre(0));
    stage.editing->onStateAsked = [&](MenuState&) { stage.record(1).fileName = L"anders.jpg"; };
    stage.choose(1, L"Datei-Info");
    EXPECT_THAT(chosen, ElementsAre(0)) << "the item is another one now";
}

TEST(Editing, EnlargingAsksForTheItem) {
    EditStage stage;
    stage.picturesOf({kBlue, kBlue});
    ASSERT_TRUE(stage.open());
    stage.choose(1, L"Bild vergrößern");
    EXPECT_EQ(stage.overview->enlarged().index(), 1);
}

TEST(Editing, OthersAddTheirPartOfTheState) {
    EditStage stage;
    stage.picturesOf({kBlue});
    stage.titles = {L"01 Lied.mp3"};
    ASSERT_TRUE(stage.open());
    stage.editing->provide(MenuCommand::Mmusi, [](int) {});
    EXPECT_THAT(stage.choose(0), Contains(L" Musik bearbeiten"));
    stage.editing->onStateAsked = [](MenuState& state) { state.musicTitles = true; };
    EXPECT_THAT(stage.choose(0), Contains(L"Musik bearbeiten"));
    stage.overview->music().show();
    EXPECT_THAT(stage.choose(0), Contains(L" Musik bearbeiten"));
}

TEST(Editing, ADragMakesSavingPossible) {
    EditStage stage;
    stage.picturesOf({kBlue, kBlue, kBlue});
    ASSERT_TRUE(stage.open());
    int saves = 0;
    stage.editing->setSave([&] {
        ++saves;
        return true;
    });
    EXPECT_THAT(stage.choose(0), Contains(L" Änderungen speichern"));
    stage.drag(0, 2);
    stage.choose(0, L"Änderungen speichern");
    EXPECT_EQ(saves, 1);
}

TEST(Editing, TheMenuKeyOpensTheMenuOfTheSelectedItem) {
    EditStage stage;
    stage.picturesOf({kBlue, kBlue});
    stage.pictures.hide(L"b.jpg");
    ASSERT_TRUE(stage.open());
    stage.overview->selection().select(1);
    const support::MenuChoice menu;
    SendMessageW(stage.panel(), WM_CONTEXTMENU, reinterpret_cast<WPARAM>(stage.panel()), -1);
    EXPECT_TRUE(menu.opened());
    EXPECT_TRUE(menu.offered(L"Bild freigeben"));
}

TEST(Editing, TheMenuOpensWhileTheOthersAreLoading) {
    EditStage stage;
    for (int i = 0; i < 30; ++i) {
        stage.picture(L"p" + std::to_wstring(i + 10) + L".jpg", kBlue, 1600, 1200);
    }
    stage.beginEditing();
    ASSERT_TRUE(stage.until([&] { return stage.overview->view().boxCount() == 30; }));
    EXPECT_THAT(stage.choose(0, L"Bild sperren"), Contains(L"Bild sperren"));
    EXPECT_TRUE(stage.attributes(L"p10.jpg") & FILE_ATTRIBUTE_HIDDEN);
    ASSERT_TRUE(stage.loaded());
    EXPECT_TRUE(stage.diagonalIs(0, overview::kLockColour));
}

TEST(Editing, AFolderThatCannotBeWrittenOffersOnlyLooking) {
    EditStage stage;
    stage.picturesOf({kBlue, kBlue});
    ASSERT_TRUE(stage.open());
    stage.overview->records().folderWritable = false;
    EXPECT_THAT(
        stage.choose(0),
        ElementsAre(L"Bild vergrößern", L" Bild sperren", L"Bild-Einstellungen anzeigen", L" Bild löschen",
                    L" Minibilder speichern", L" Minibilder löschen", L"Beenden (zurück)"));
}

/// Notes when the tips of a tooltip window are switched on and off.
class TipWatch {
  public:
    explicit TipWatch(HWND window) : window_(window) {
        SetWindowSubclass(window_, see, 1, reinterpret_cast<DWORD_PTR>(this));
    }
    ~TipWatch() { RemoveWindowSubclass(window_, see, 1); }
    TipWatch(const TipWatch&) = delete;
    TipWatch& operator=(const TipWatch&) = delete;
    bool on = true;
    bool wasOff = false;

  private:
    static LRESULT CALLBACK see(HWND window, UINT message, WPARAM w, LPARAM l, UINT_PTR, DWORD_PTR self) {
        auto& watch = *reinterpret_cast<TipWatch*>(self);
        if (message == TTM_ACTIVATE) {
            watch.on = w != 0;
            watch.wasOff = watch.wasOff || !watch.on;
        }
        return DefSubclassProc(window, message, w, l);
    }
    HWND window_;
};

TEST(Editing, NoTipLiesOverTheMenuNorOverWhatItOpens) {
    EditStage stage;
    stage.picturesOf({kBlue, kBlue});
    ASSERT_TRUE(stage.open());
    const TipWatch tips(stage.overview->tips().hWnd());
    bool during = true;
    stage.editing->provide(MenuCommand::Minf, [&](int) { during = tips.on; });
    stage.choose(0, L"Datei-Info");
    EXPECT_FALSE(during);
    EXPECT_TRUE(tips.wasOff && tips.on);
    {
        const Editing::WithoutTips open(*stage.editing);
        stage.choose(0, L"Datei-Info");
        EXPECT_FALSE(tips.on) << "something is open still";
    }
    EXPECT_TRUE(tips.on);
}

TEST(Editing, LeavingEndsAnOpenMenu) {
    EditStage stage;
    stage.picturesOf({kBlue, kBlue});
    ASSERT_TRUE(stage.open());
    bool chosen = false;
    stage.editing->provide(MenuCommand::Minf, [&](int) { chosen = true; });
    stage.loop.guarded([&] {
        const auto leaver = SetTimer(nullptr, 0, 50, [](HWND, UINT, UINT_PTR id, DWORD) {
            KillTimer(nullptr, id);
            ui::EventLoop::current().leave();
        });
        stage.editing->openMenu(0, stage.middleOf(0));
        KillTimer(nullptr, leaver);
    });
    EXPECT_TRUE(stage.loop.leaving());
    EXPECT_FALSE(chosen);
}

TEST(Editing, WhileItIsBlockedNothingIsLeftOrOpened) {
    EditStage stage;
    stage.picturesOf({kBlue, kBlue});
    ASSERT_TRUE(stage.open());
    {
        const Editing::Block outer(*stage.editing);
        { const Editing::Block inner(*stage.editing); }
        const support::MenuChoice menu;
        stage.editing->openMenu(0, stage.middleOf(0));
        EXPECT_FALSE(menu.opened());
        stage.editing->end();
        EXPECT_EQ(stage.left.times, 0);
        EXPECT_FALSE(stage.overview->form().Grid.enabled());
        EXPECT_FALSE(stage.overview->form().List1.enabled()) << "the music would be renamed";
        EXPECT_FALSE(stage.overview->form().OK.enabled());
    }
    EXPECT_TRUE(stage.overview->form().Grid.enabled());
    EXPECT_TRUE(stage.overview->form().List1.enabled());
    EXPECT_TRUE(stage.overview->form().OK.enabled());
    stage.editing->end();
    EXPECT_EQ(stage.left.times, 1);
}

}  // namespace
}  // namespace edit
