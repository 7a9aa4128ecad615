// The thumbnails of a folder are stored, and the store is removed.
#include "edit/store_commands.h"

#include <gmock/gmock.h>

#include "support/app_stage.h"
#include "support/edit_stage.h"
#include "support/import_hook.h"

namespace edit {
namespace {

using overview::kLockColour;
using support::alike;
using support::EditStage;
using support::MessageBoxes;
using testing::ElementsAre;
using testing::Pair;
using testing::StartsWith;

constexpr std::uint32_t kBlue = 0x404080;
constexpr std::uint32_t kRed = 0x804040;

std::uint32_t middle(const picture::Pixels& pixels) {
    return pixels.row(pixels.height / 2)[pixels.width / 2] & 0xFFFFFFU;
}

TEST(StoreCommands, EveryThumbnailIsStoredAsItsBoxShowsIt) {
    EditStage stage;
    stage.picturesOf({kBlue, kRed});
    stage.film(L"f.mpg");
    ASSERT_TRUE(stage.open());
    EXPECT_TRUE(stage.offers(0, L"Minibilder speichern"));
    EXPECT_TRUE(stage.offers(0, L" Minibilder löschen"));
    stage.choose(0, L"Minibilder speichern");
    const overview::GridLayout& layout = stage.overview->view().layout();
    const std::uint32_t colours[] = {kBlue, kRed, EditStage::kFilmColour};
    const wchar_t* names[] = {L"a.bmp", L"b.bmp", L"f.bmp"};
    for (std::size_t i = 0; i < 3; ++i) {
        const auto kept = stage.kept(names[i]);
        ASSERT_TRUE(kept) << i;
        EXPECT_EQ(kept->width, layout.imageWidth());
        EXPECT_EQ(kept->height, layout.imageHeight());
        EXPECT_TRUE(alike(middle(*kept), colours[i])) << i;
    }
    const auto film = *stage.kept(L"f.bmp");
    EXPECT_GT(std::count(film.data.begin(), film.data.end(), 0xFF0000U), 5) << "marked as a film";
    EXPECT_TRUE(stage.offers(0, L" *Minibilder speichern"));
    EXPECT_TRUE(stage.offers(0, L"Minibilder löschen"));
}

TEST(StoreCommands, StoringAgainOverwritesAll) {
    EditStage stage;
    stage.picturesOf({kBlue, kBlue});
    stage.keep(L"a.bmp", 0x111111);
    stage.keep(L"b.bmp", 0x111111);
    ASSERT_TRUE(stage.open());
    ASSERT_TRUE(alike(stage.colour(0), 0x111111));
    EXPECT_TRUE(stage.editing->store().save().all);
    EXPECT_TRUE(alike(middle(*stage.kept(L"a.bmp")), kBlue));
    EXPECT_TRUE(alike(middle(*stage.kept(L"b.bmp")), kBlue));
    EXPECT_TRUE(alike(stage.colour(0), kBlue)) << "from the file, not from what was kept";
    EXPECT_FALSE(stage.exists(L"Mini\\a.bmp~"));
}

/// Moves files as Windows does, which replaces none that is write-protected; Wine would.
class StrictMoves {
  public:
    StrictMoves() : hook_("MoveFileExW", move) { one = this; }
    ~StrictMoves() { one = nullptr; }
    StrictMoves(const StrictMoves&) = delete;
    StrictMoves& operator=(const StrictMoves&) = delete;

  private:
    static BOOL WINAPI move(LPCWSTR from, LPCWSTR to, DWORD flags) {
        const DWORD attributes = GetFileAttributesW(to);
        if (attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_READONLY) != 0) {
            SetLastError(ERROR_ACCESS_DENIED);
            return FALSE;
        }
        return one->hook_.original<decltype(move)>()(from, to, flags);
    }

    static inline StrictMoves* one = nullptr;
    support::ImportHook hook_;
};

TEST(StoreCommands, AWriteProtectedThumbnailIsOverwrittenToo) {
    const StrictMoves strict;
    EditStage stage;
    stage.picturesOf({kBlue});
    stage.keep(L"a.bmp", 0x111111);
    SetFileAttributesW((stage.pictures / L"Mini\\a.bmp").c_str(), FILE_ATTRIBUTE_READONLY);
    ASSERT_TRUE(stage.open());
    EXPECT_TRUE(stage.editing->store().save().all);
    EXPECT_TRUE(alike(middle(*stage.kept(L"a.bmp")), kBlue));
}

TEST(StoreCommands, AStoreThatCannotBeMadeIsToldOf) {
    EditStage stage;
    stage.picturesOf({kBlue, kRed});
    stage.pictures.file(L"Mini", "of the user");
    ASSERT_TRUE(stage.open());
    stage.editing->settings().setShown(true);
    const MessageBoxes boxes;
    stage.choose(0, L"Minibilder speichern");
    ASSERT_EQ(boxes.seen().size(), 1U);
    EXPECT_EQ(boxes.seen()[0].title, L" Fehler");
    EXPECT_THAT(boxes.seen()[0].text, StartsWith(L"Der Ordner «Mini» kann nicht angelegt werden: "));
    EXPECT_TRUE(stage.offers(0, L"Minibilder speichern"));
    EXPECT_TRUE(stage.offers(0, L" Minibilder löschen"));
    EXPECT_TRUE(stage.editing->settings().shown());
    EXPECT_TRUE(stage.overview->form().Grid.enabled());
    EXPECT_FALSE(stage.attributes(L"Mini") & FILE_ATTRIBUTE_DIRECTORY);
}

TEST(StoreCommands, AThumbnailThatCannotBeKeptEndsItAndIsToldOf) {
    EditStage stage;
    stage.picturesOf({kBlue, kRed, kBlue});
    stage.pictures.folder(L"Mini");
    stage.pictures.folder(L"Mini\\b.bmp");
    ASSERT_TRUE(stage.open());
    const MessageBoxes boxes;
    stage.choose(0, L"Minibilder speichern");
    ASSERT_EQ(boxes.seen().size(), 1U);
    EXPECT_EQ(boxes.seen()[0].title, L" Fehler");
    EXPECT_THAT(boxes.seen()[0].text,
                StartsWith(L"Das Minibild von «b.jpg» kann nicht gespeichert werden: "));
    EXPECT_TRUE(stage.exists(L"Mini\\a.bmp"));
    EXPECT_FALSE(stage.exists(L"Mini\\b.bmp~"));
    EXPECT_FALSE(stage.exists(L"Mini\\c.bmp"));
    EXPECT_FALSE(stage.overview->form().Progress.visible());
    EXPECT_TRUE(stage.offers(0, L" *Minibilder speichern")) << "what is kept is kept";
}

TEST(StoreCommands, ALockedItemIsStoredWithoutItsMark) {
    EditStage stage;
    stage.picturesOf({kBlue, kBlue});
    stage.pictures.hide(L"b.jpg");
    ASSERT_TRUE(stage.open());
    EXPECT_TRUE(stage.editing->store().save().all);
    const auto kept = *stage.kept(L"b.bmp");
    EXPECT_TRUE(std::all_of(kept.data.begin(), kept.data.end(),
                            [](std::uint32_t pixel) { return alike(pixel & 0xFFFFFFU, kBlue); }));
    EXPECT_TRUE(stage.diagonalIs(1, kLockColour));
    EXPECT_TRUE(stage.attributes(L"b.jpg") & FILE_ATTRIBUTE_HIDDEN);
}

TEST(StoreCommands, ItTellsHowFarItIs) {
    EditStage stage;
    stage.picturesOf({kBlue, kRed, kBlue});
    ASSERT_TRUE(stage.open());
    std::vector<std::pair<int, int>> told;
    stage.editing->store().onProgress = [&](int done, int all) { told.emplace_back(done, all); };
    EXPECT_TRUE(stage.editing->store().save().all);
    EXPECT_THAT(told, ElementsAre(Pair(0, 3), Pair(1, 3), Pair(2, 3), Pair(3, 3)));
}

TEST(StoreCommands, WhatCannotBeShownIsNotStored) {
    EditStage stage;
    stage.picture(L"a.jpg", kBlue);
    stage.pictures.file(L"b.jpg", "no picture");
    stage.picture(L"c.x.jpg", kBlue);
    stage.picture(L"c.y.jpg", kRed);
    ASSERT_TRUE(stage.open());
    EXPECT_TRUE(stage.editing->store().save().all);
    EXPECT_TRUE(stage.exists(L"Mini\\a.bmp"));
    EXPECT_FALSE(stage.exists(L"Mini\\b.bmp"));
    EXPECT_FALSE(stage.exists(L"Mini\\c.bmp")) << "nobody could tell whose it is";
}

/// Sends a message to a window of the overview when so many thumbnails were stored.
class WhileStoring {
  public:
    WhileStoring(EditStage& stage, int done, std::function<void()> action) {
        stage.editing->store().onProgress = [=, &stage, action = std::move(action)](int now, int all) {
            stage.overview->form().showProgress(now, all);
            if (now == done && now < all) {
                action();
            }
        };
    }
};

TEST(StoreCommands, EscapeStopsItAndLeavesWhatIsStored) {
    EditStage stage;
    stage.picturesOf({kBlue, kRed, kBlue, kRed});
    ASSERT_TRUE(stage.open());
    stage.editing->settings().setShown(true);
    bool shownMeanwhile = false;
    const WhileStoring escape(stage, 2, [&] {
        shownMeanwhile = stage.overview->form().Progress.visible();
        EXPECT_EQ(GetFocus(), stage.overview->form().hwnd());
        PostMessageW(GetFocus(), WM_KEYDOWN, VK_ESCAPE, 1);
    });
    stage.choose(0, L"Minibilder speichern");
    EXPECT_TRUE(shownMeanwhile);
    EXPECT_FALSE(stage.overview->form().Progress.visible());
    EXPECT_TRUE(stage.kept(L"a.bmp"));
    EXPECT_TRUE(stage.kept(L"b.bmp"));
    EXPECT_FALSE(stage.exists(L"Mini\\c.bmp"));
    EXPECT_FALSE(stage.exists(L"Mini\\d.bmp"));
    EXPECT_EQ(stage.left.times, 0);
    EXPECT_TRUE(stage.editing->settings().shown()) << "not all were made anew";
    EXPECT_TRUE(stage.overview->form().Grid.enabled());
    EXPECT_EQ(GetFocus(), stage.panel());
    EXPECT_TRUE(stage.offers(0, L" *Minibilder speichern"));
}

TEST(StoreCommands, MeanwhileNothingElseCanBeDone) {
    EditStage stage;
    stage.picturesOf({kBlue, kRed, kBlue, kRed});
    ASSERT_TRUE(stage.open());
    bool tried = false;
    const WhileStoring others(stage, 1, [&] {
        tried = true;
        const support::MenuChoice menu;
        stage.editing->openMenu(0, stage.middleOf(0));
        EXPECT_FALSE(menu.opened());
        EXPECT_FALSE(IsWindowEnabled(stage.panel()));
        PostMessageW(GetFocus(), WM_KEYDOWN, VK_RETURN, 1);
    });
    stage.choose(0, L"Minibilder speichern");
    EXPECT_TRUE(tried);
    EXPECT_EQ(stage.overview->enlarged().index(), -1);
    EXPECT_TRUE(stage.exists(L"Mini\\d.bmp"));
}

TEST(StoreCommands, ClosingMeanwhileStopsItAndLeaves) {
    EditStage stage;
    stage.picturesOf({kBlue, kRed, kBlue, kRed});
    ASSERT_TRUE(stage.open());
    const WhileStoring close(stage, 2, [&] { PostMessageW(stage.overview->form().hwnd(), WM_CLOSE, 0, 0); });
    stage.choose(0, L"Minibilder speichern");
    EXPECT_FALSE(stage.exists(L"Mini\\c.bmp"));
    EXPECT_EQ(stage.left.times, 1);
}

TEST(StoreCommands, RemovingTakesOnlyTheBitmapsAndTheirFolder) {
    EditStage stage;
    stage.picturesOf({kBlue, kRed});
    stage.keep(L"a.bmp", 0x111111);
    stage.keep(L"orphan.bmp", 0x111111);
    stage.pictures.file(L"Mini\\a.bmp~", "half");
    SetFileAttributesW((stage.pictures / L"Mini\\a.bmp").c_str(), FILE_ATTRIBUTE_READONLY);
    stage.pictures.file(L"b.bmp", "of the user");
    ASSERT_TRUE(stage.open());
    stage.choose(0, L"Minibilder löschen");
    EXPECT_FALSE(stage.exists(L"Mini"));
    EXPECT_TRUE(stage.exists(L"b.bmp"));
    EXPECT_TRUE(stage.exists(L"a.jpg"));
    EXPECT_TRUE(stage.offers(0, L"Minibilder speichern"));
    EXPECT_TRUE(stage.offers(0, L" Minibilder löschen"));
    ASSERT_TRUE(stage.open());
    EXPECT_TRUE(alike(stage.colour(0), kBlue)) << "drawn from the file again";
}

TEST(StoreCommands, WhatElseLiesInTheStoreStays) {
    EditStage stage;
    stage.picturesOf({kBlue, kRed});
    stage.keep(L"a.bmp", 0x111111);
    stage.pictures.file(L"Mini\\notes.txt", "mine");
    stage.pictures.folder(L"Mini\\sub.bmp");
    ASSERT_TRUE(stage.open());
    stage.editing->store().remove();
    EXPECT_FALSE(stage.exists(L"Mini\\a.bmp"));
    EXPECT_TRUE(stage.exists(L"Mini\\notes.txt"));
    EXPECT_TRUE(stage.exists(L"Mini\\sub.bmp"));
    EXPECT_FALSE(stage.overview->store().present());
}

}  // namespace
}  // namespace edit
