// The list in which the music of a folder is put in order, with a real list box and the mouse's messages.
#include <gmock/gmock.h>

#include <optional>

#include "media/music_list.h"
#include "overview/music_list.h"
#include "platform/short_path.h"
#include "support/recording_media_control.h"
#include "support/scratch_folder.h"
#include "support/test_form.h"

namespace overview {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using Names = std::vector<std::wstring>;
using Commands = std::vector<std::string>;

const Names kThree{L"01 Meer.mp3", L"99 Sturm.mp3", L"Abend.mp3"};

class MusicListTest : public testing::Test {
  protected:
    MusicListTest() {
        engine.emplace(
            MusicList::Parts{List1, caption, OK, CAN, Timer2, control, music,
                             [this](const std::wstring& musicFolder, const std::vector<MusicEntry>& order) {
                                 renamedIn = musicFolder;
                                 renamed = order;
                                 commandsAtRename = control.commands();
                                 return answer;
                             },
                             [] {}, [this] { ++focusLeft; },
                             [this](const std::wstring& sentence) { refusals.push_back(sentence); }});
    }

    /// Makes the files and shows the list.
    void open(const Names& names, bool writable = true) {
        for (const std::wstring& name : names) {
            folder.file(name);
        }
        music.musicFolder = folder.path() + L"\\";
        music.musicList = media::musicEntries(names);
        engine->load(names, writable);
        engine->show();
        test.loop.settle();
    }
    POINT placeOf(int row) const {
        RECT area{};
        SendMessageW(List1.hwnd(), LB_GETITEMRECT, static_cast<WPARAM>(row), reinterpret_cast<LPARAM>(&area));
        return {area.left + 10, (area.top + area.bottom) / 2};
    }
    POINT belowRows() const { return {10, placeOf(List1.count() - 1).y + 60}; }
    void press(POINT at) { test.press(List1, at.x, at.y); }
    void release(POINT at) { test.release(List1, at.x, at.y); }
    void click(int row) { drag(placeOf(row), placeOf(row)); }
    void drag(POINT from, POINT to) {
        press(from);
        release(to);
    }
    void doubleClick(POINT at) {
        press(at);
        release(at);
        SendMessageW(List1.hwnd(), WM_LBUTTONDBLCLK, MK_LBUTTON, MAKELPARAM(at.x, at.y));
        release(at);
    }
    void tick() { test.loop.advance(1000); }
    /// The rows in order, those that play in brackets, e.g. "[Meer] Sturm".
    std::wstring rows() const {
        return textOf([this](int row) { return List1.itemData(row) != 0; });
    }
    std::wstring highlights() const {
        return textOf([this](int row) { return List1.selected(row); });
    }
    Commands auditionOf(const std::wstring& name) const {
        return {"stop AUDIO", "close AUDIO", "open " + platform::shortPath(folder / name) + " alias AUDIO",
                "setaudio AUDIO volume to 300", "play AUDIO"};
    }
    bool allHidden() const {
        return !List1.visible() && !caption.visible() && !OK.visible() && !CAN.visible();
    }
    bool allShown() const { return List1.visible() && caption.visible() && OK.visible() && CAN.visible(); }

    support::TestForm test;
    support::ScratchFolder folder;
    ui::Label caption{test.args(1, {150, 150, 3000, 600})};
    ui::ListBox List1{test.args(2, {150, 900, 3000, 3000}), ui::ListBox::Selection::Multiple};
    ui::PushButton OK{test.args(3, {150, 4000, 1000, 450})};
    ui::PushButton CAN{test.args(4, {1500, 4000, 1000, 450})};
    ui::Timer Timer2{test.loop};
    support::RecordingMediaControl control;
    media::MusicState music;
    std::optional<MusicList> engine;
    MusicRenamed answer;
    std::vector<MusicEntry> renamed;
    std::wstring renamedIn;
    Commands commandsAtRename;
    Names refusals;
    int focusLeft = 0;

  private:
    template <typename Plays>
    std::wstring textOf(Plays plays) const {
        std::wstring text;
        for (int row = 0; row < List1.count(); ++row) {
            const std::wstring title = List1.item(row);
            text += (row == 0 ? L"" : L" ") + (plays(row) ? L"[" + title + L"]" : title);
        }
        return text;
    }
};

TEST_F(MusicListTest, IsHiddenUntilShown) {
    EXPECT_TRUE(allHidden());
    music.musicFolder = folder.path() + L"\\";
    engine->load(kThree, true);
    EXPECT_TRUE(allHidden());
    EXPECT_TRUE(engine->hasTitles());
    engine->show();
    EXPECT_TRUE(allShown());
    EXPECT_TRUE(List1.hasFocus());
    engine->load({}, true);
    EXPECT_TRUE(allHidden());
    EXPECT_FALSE(engine->hasTitles());
    engine->show();
    EXPECT_TRUE(allHidden()) << "without titles there is nothing to show";
    EXPECT_THAT(control.commands(), IsEmpty());
}

TEST_F(MusicListTest, TitlesWithTheirLocks) {
    open(kThree);
    EXPECT_EQ(rows(), L"[Meer] Sturm [Abend]");
    EXPECT_EQ(highlights(), L"[Meer] Sturm [Abend]");
}

TEST_F(MusicListTest, OkIsOffWhereNothingCanBeWritten) {
    open(kThree, false);
    EXPECT_FALSE(OK.enabled());
    EXPECT_TRUE(CAN.enabled());
    OK.click();
    EXPECT_TRUE(renamedIn.empty());
    engine->load(kThree, true);
    EXPECT_TRUE(OK.enabled());
}

TEST_F(MusicListTest, AClickFlipsTheLockAndTheHighlightFollowsWithTheTick) {
    open(kThree);
    click(0);
    EXPECT_EQ(rows(), L"Meer Sturm [Abend]");
    EXPECT_TRUE(Timer2.enabled());
    // What the list makes of the click by itself is one thing on one system and another on the next.
    List1.setSelected(0, true);
    tick();
    EXPECT_EQ(highlights(), L"Meer Sturm [Abend]");
    EXPECT_FALSE(Timer2.enabled());
    click(0);
    click(1);
    tick();
    EXPECT_EQ(rows(), L"[Meer] [Sturm] [Abend]");
    EXPECT_EQ(highlights(), L"[Meer] [Sturm] [Abend]");
}

TEST_F(MusicListTest, EachReleaseStartsTheTickAnew) {
    open(kThree);
    click(0);
    test.loop.advance(Timer2.interval() - 1);
    click(0);
    test.loop.advance(Timer2.interval() - 1);
    EXPECT_TRUE(Timer2.enabled());
    test.loop.advance(1);
    EXPECT_FALSE(Timer2.enabled());
}

TEST_F(MusicListTest, APressEndsAnAudition) {
    open(kThree);
    press(placeOf(1));
    EXPECT_THAT(control.take(), ElementsAre("stop AUDIO", "close AUDIO"));
    release(placeOf(1));
    EXPECT_THAT(control.commands(), IsEmpty());
}

TEST_F(MusicListTest, ADragMovesATitleWithItsLock) {
    open({L"01 A.mp3", L"99 B.mp3", L"03 C.mp3", L"04 D.mp3"});
    drag(placeOf(1), placeOf(2));
    EXPECT_EQ(rows(), L"[A] [C] B [D]");
    EXPECT_EQ(List1.selectedIndex(), 2) << "the keys go on with it";
    drag(placeOf(2), placeOf(0));
    EXPECT_EQ(rows(), L"B [A] [C] [D]");
    tick();
    EXPECT_EQ(highlights(), L"B [A] [C] [D]");
}

TEST_F(MusicListTest, OnTheLastRowATitleBecomesTheLast) {
    open({L"01 A.mp3", L"99 B.mp3", L"03 C.mp3", L"04 D.mp3"});
    drag(placeOf(1), placeOf(3));
    EXPECT_EQ(rows(), L"[A] [C] [D] B");
    tick();
    EXPECT_EQ(highlights(), L"[A] [C] [D] B");
}

TEST_F(MusicListTest, BelowTheLastRowADropAppendsAndAPressDoesNothing) {
    open({L"01 A.mp3", L"99 B.mp3", L"03 C.mp3"});
    drag(placeOf(0), belowRows());
    EXPECT_EQ(rows(), L"B [C] [A]");
    EXPECT_EQ(List1.selectedIndex(), 2) << "the keys go on with it";
    control.clear();
    drag(placeOf(2), belowRows());
    EXPECT_EQ(rows(), L"B [C] [A]") << "the last one is there already";
    control.clear();
    drag(belowRows(), belowRows());
    drag(belowRows(), placeOf(0));
    doubleClick(belowRows());
    tick();
    EXPECT_EQ(rows(), L"B [C] [A]");
    EXPECT_EQ(highlights(), L"B [C] [A]");
    EXPECT_THAT(control.commands(), IsEmpty());
}

TEST_F(MusicListTest, ADropBesideTheListChangesNothing) {
    open(kThree);
    const SIZE size = List1.clientSize();
    for (const POINT beside :
         {POINT{-5, 10}, POINT{10, -5}, POINT{size.cx + 5, 10}, POINT{10, size.cy + 5}}) {
        drag(placeOf(0), beside);
        EXPECT_EQ(rows(), L"[Meer] Sturm [Abend]") << beside.x << " " << beside.y;
    }
}

TEST_F(MusicListTest, AReleaseWithoutAPressChangesNothing) {
    open(kThree);
    click(0);
    release(placeOf(0));
    release(placeOf(2));
    EXPECT_EQ(rows(), L"Meer Sturm [Abend]");
}

TEST_F(MusicListTest, OnlyTheLeftButtonWorks) {
    open(kThree);
    const POINT at = placeOf(0);
    SendMessageW(List1.hwnd(), WM_RBUTTONDOWN, MK_RBUTTON, MAKELPARAM(at.x, at.y));
    SendMessageW(List1.hwnd(), WM_RBUTTONUP, 0, MAKELPARAM(at.x, at.y));
    EXPECT_EQ(rows(), L"[Meer] Sturm [Abend]");
    EXPECT_THAT(control.commands(), IsEmpty());
}

TEST_F(MusicListTest, RowsAreFoundInAScrolledList) {
    Names names;
    for (int i = 1; i <= 40; ++i) {
        names.push_back((i < 10 ? L"0" : L"") + std::to_wstring(i) + L" T" + std::to_wstring(i) + L".mp3");
    }
    open(names);
    List1.setTopIndex(25);
    ASSERT_EQ(List1.topIndex(), 25);
    click(27);
    EXPECT_EQ(List1.itemData(27), 0);
    tick();
    EXPECT_FALSE(List1.selected(27));
    EXPECT_TRUE(List1.selected(26));
    EXPECT_EQ(List1.topIndex(), 25) << "the tick does not scroll";
    drag(placeOf(26), placeOf(30));
    EXPECT_EQ(List1.item(30), L"T27");
    EXPECT_EQ(List1.topIndex(), 25);
}

TEST_F(MusicListTest, ADoubleClickPlaysTheTitleAndLeavesTheLock) {
    open(kThree);
    press(placeOf(1));
    release(placeOf(1));
    control.clear();
    const POINT at = placeOf(1);
    SendMessageW(List1.hwnd(), WM_LBUTTONDBLCLK, MK_LBUTTON, MAKELPARAM(at.x, at.y));
    EXPECT_EQ(control.take(), auditionOf(L"99 Sturm.mp3"));
    release(at);
    EXPECT_THAT(control.commands(), IsEmpty()) << "the release does not end the audition";
    tick();
    EXPECT_EQ(rows(), L"[Meer] Sturm [Abend]");
    EXPECT_EQ(highlights(), L"[Meer] Sturm [Abend]");
}

TEST_F(MusicListTest, TheAuditionsVolumeIsItsOwn) {
    open(kThree);
    music.musicVolume = 40;
    doubleClick(placeOf(0));
    EXPECT_THAT(control.commands(), testing::Contains("setaudio AUDIO volume to 300"));
}

TEST_F(MusicListTest, AnAuditionPlaysTheFileThatTheEntryCameFrom) {
    open({L"01 Am Meer.mp3", L"02 Meer.mp3", L"03 Meer.mp3"});
    for (int row = 0; row < 3; ++row) {
        control.clear();
        doubleClick(placeOf(row));
        const Commands all = control.commands();
        const Commands audition(all.end() - 5, all.end());
        EXPECT_EQ(audition, auditionOf(Names{L"01 Am Meer.mp3", L"02 Meer.mp3",
                                             L"03 Meer.mp3"}[static_cast<std::size_t>(row)]));
    }
    drag(placeOf(2), placeOf(1));
    control.clear();
    doubleClick(placeOf(1));
    ASSERT_EQ(control.commands().size(), 7U);
    EXPECT_EQ(control.commands()[4], auditionOf(L"03 Meer.mp3")[2]) << "also after a drag";
}

TEST_F(MusicListTest, SpaceFlipsTheLockAsAClickDoes) {
    open(kThree);
    List1.setSelectedIndex(1);
    test.key(VK_SPACE);
    EXPECT_EQ(rows(), L"[Meer] [Sturm] [Abend]");
    EXPECT_THAT(control.take(), ElementsAre("stop AUDIO", "close AUDIO"));
    tick();
    EXPECT_EQ(highlights(), L"[Meer] [Sturm] [Abend]");
    test.key(VK_DOWN);
    test.key(VK_SPACE);
    tick();
    EXPECT_EQ(highlights(), L"[Meer] [Sturm] Abend");
    EXPECT_EQ(List1.selectedIndex(), 2) << "the focus stays where it is";
}

TEST_F(MusicListTest, OkHandsOverOrderLocksAndFiles) {
    open({L"01 A.mp3", L"99 B.mp3", L"C.mp3"});
    answer.musicList = {L"01 C.mp3", L"99 A.mp3", L"03 B.mp3"};
    drag(placeOf(2), placeOf(0));
    click(1);
    click(2);
    control.clear();
    OK.click();
    EXPECT_EQ(renamedIn, folder.path() + L"\\");
    EXPECT_THAT(renamed, ElementsAre(MusicEntry{L"C.mp3", L"C", true}, MusicEntry{L"01 A.mp3", L"A", false},
                                     MusicEntry{L"99 B.mp3", L"B", true}));
    EXPECT_THAT(commandsAtRename, ElementsAre("stop AUDIO", "close AUDIO")) << "the file is closed first";
    EXPECT_THAT(control.commands(), ElementsAre("stop AUDIO", "close AUDIO", "stop AUDIO", "close AUDIO"));
    EXPECT_EQ(music.musicList, answer.musicList);
    EXPECT_TRUE(allHidden());
    EXPECT_THAT(refusals, IsEmpty());
}

TEST_F(MusicListTest, OkRunsTheTickThatIsDue) {
    open(kThree);
    answer.musicList = music.musicList;
    std::wstring shown;
    press(placeOf(0));
    release(placeOf(0));
    List1.setSelected(0, true);
    control.onSend = [&](const std::string&) { shown = shown.empty() ? highlights() : shown; };
    OK.click();
    EXPECT_EQ(shown, L"Meer Sturm [Abend]") << "before anything else happens";
    EXPECT_FALSE(Timer2.enabled());
    EXPECT_FALSE(renamed[0].plays);
}

TEST_F(MusicListTest, AfterOkTheListKnowsTheNewNames) {
    open({L"1999.mp3", L"02 B.mp3"});
    EXPECT_EQ(rows(), L"[9] [B]");
    answer.musicList = {L"01 B.mp3", L"99 1999.mp3"};
    OK.click();
    engine->show();
    EXPECT_EQ(rows(), L"[B] 1999");
    EXPECT_EQ(highlights(), L"[B] 1999");
    OK.click();
    EXPECT_THAT(renamed,
                ElementsAre(MusicEntry{L"01 B.mp3", L"B", true}, MusicEntry{L"99 1999.mp3", L"1999", false}));
}

TEST_F(MusicListTest, ARefusalIsToldAndChangesNothing) {
    open(kThree);
    click(0);
    answer.refusal = L"Eine Datei ist offen.";
    answer.musicList = {L"falsch"};
    const auto before = music.musicList;
    OK.click();
    EXPECT_THAT(refusals, ElementsAre(L"Eine Datei ist offen."));
    EXPECT_EQ(music.musicList, before);
    EXPECT_TRUE(allShown());
    EXPECT_EQ(rows(), L"Meer Sturm [Abend]") << "its user can go on";
}

TEST_F(MusicListTest, AbbruchDropsTheChanges) {
    open(kThree);
    click(0);
    drag(placeOf(0), placeOf(2));
    control.clear();
    CAN.click();
    EXPECT_THAT(control.commands(), ElementsAre("stop AUDIO", "close AUDIO"));
    EXPECT_TRUE(allHidden());
    EXPECT_TRUE(renamedIn.empty());
    EXPECT_EQ(music.musicList, media::musicEntries(kThree));
    engine->show();
    EXPECT_EQ(rows(), L"[Meer] Sturm [Abend]");
    EXPECT_EQ(highlights(), L"[Meer] Sturm [Abend]");
}

TEST_F(MusicListTest, HiddenItLeavesTheKeyboardToOthers) {
    ui::PushButton other{test.args(5, {3000, 4000, 1000, 450})};
    open(kThree);
    EXPECT_EQ(focusLeft, 0);
    for (ui::Control* const focused : {static_cast<ui::Control*>(&List1), static_cast<ui::Control*>(&CAN)}) {
        focusLeft = 0;
        engine->show();
        focused->setFocus();
        ASSERT_TRUE(engine->hasFocus());
        CAN.click();
        EXPECT_EQ(focusLeft, 1);
        EXPECT_FALSE(engine->hasFocus());
    }
    engine->show();
    OK.click();
    EXPECT_EQ(focusLeft, 2);
    engine->show();
    other.setFocus();
    engine->load(kThree, true);
    EXPECT_TRUE(allHidden());
    EXPECT_EQ(focusLeft, 2) << "it had the keyboard no more";
    EXPECT_TRUE(other.hasFocus());
}

}  // namespace
}  // namespace overview
