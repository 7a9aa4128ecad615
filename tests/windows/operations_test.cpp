// What the menu of the overview offers once everything is wired, and a save through it.
#include "edit/operations.h"

#include <gmock/gmock.h>

#include "support/colours.h"
#include "support/edit_stage.h"
#include "ui/control_ids.h"

namespace edit {
namespace {

using support::EditStage;
using testing::Contains;
using testing::ElementsAre;

constexpr std::uint32_t kColours[]{0x802020, 0x208020, 0x202080, 0x808020};

class OperationsTest : public testing::Test {
  protected:
    void open(int count = 4) {
        stage.picturesOf({kColours, kColours + count});
        ASSERT_TRUE(stage.open());
        operations.emplace(
            Operations::Parts{stage.loop, stage.control, stage.fileSystem, *stage.overview, *stage.editing,
                              editorPath, [](const std::wstring&) { return true; },
                              [this] { return stage.titles; }, [this] { stage.overview->reload(); }});
    }
    bool shows(const std::vector<std::size_t>& expected) {
        const auto all = [&] {
            if (stage.overview->records().thumbCount() != static_cast<int>(expected.size())) {
                return false;
            }
            for (std::size_t i = 0; i < expected.size(); ++i) {
                if (support::colourDistance(stage.colour(static_cast<int>(i)), kColours[expected[i]]) > 12) {
                    return false;
                }
            }
            return stage.overview->view().boxCount() == static_cast<int>(expected.size());
        };
        return stage.until(all);
    }
    /// Answers the question that comes next.
    void answer(const std::wstring& text) {
        stage.loop.at(20, [this, text] {
            const HWND box = FindWindowW(L"PanorellInputBox", nullptr);
            asked = box != nullptr;
            for (const wchar_t c : text) {
                SendMessageW(GetFocus(), WM_CHAR, c, 1);
            }
            PostMessageW(GetFocus(), WM_KEYDOWN, VK_RETURN, 1);
        });
    }

    EditStage stage;
    std::wstring editorPath;
    bool asked = false;
    std::optional<Operations> operations;
};

TEST_F(OperationsTest, TheMenuHasAllItsItems) {
    stage.titles = {L"01 Lied.mp3"};
    open();
    EXPECT_THAT(
        stage.choose(0),
        ElementsAre(L"Bild vergrößern", L"Bild sperren", L"Datei-Info", L"Datum ändern", L"Bild bearbeiten",
                    L"Titel / Pause / n.Effekt / Musik", L"Bild-Einstellungen anzeigen", L"Bild löschen",
                    L" Änderungen speichern", L"Musik bearbeiten", L"Minibilder speichern",
                    L" Minibilder löschen", L"Beenden (zurück)"));
    stage.choose(0, L"Musik bearbeiten");
    EXPECT_TRUE(stage.overview->form().List1.visible());
}

TEST_F(OperationsTest, ASaveRenamesAndIsTakenBackThroughTheMenu) {
    open();
    std::vector<std::vector<std::uint8_t>> before;
    for (const std::wstring& name : stage.names()) {
        before.push_back(support::readBytes(stage.pictures / name));
    }
    stage.drag(3, 0);
    answer(L"P");
    stage.choose(0, L"Änderungen speichern");
    EXPECT_TRUE(asked);
    EXPECT_THAT(stage.names(), ElementsAre(L"P001.jpg", L"P002.jpg", L"P003.jpg", L"P004.jpg"));
    for (const std::wstring& name : stage.names()) {
        EXPECT_TRUE(stage.exists(name));
    }
    EXPECT_TRUE(stage.overview->form().Grid.enabled()) << "the save blocks no more";
    EXPECT_THAT(stage.choose(0), Contains(L"Letztes Speichern zurücknehmen"));
    stage.choose(0, L"Letztes Speichern zurücknehmen");
    EXPECT_THAT(stage.names(), ElementsAre(L"a.jpg", L"b.jpg", L"c.jpg", L"d.jpg"));
    EXPECT_TRUE(stage.exists(L"d.jpg"));
    for (std::size_t i = 0; i < 4; ++i) {
        EXPECT_EQ(support::readBytes(stage.pictures / stage.names()[i]), before[i]) << i;
    }
    EXPECT_TRUE(shows({0, 1, 2, 3}));
}

TEST_F(OperationsTest, DeletedItemsLeaveTheGridAndTheSelectedOneStaysSelected) {
    open();
    stage.choose(1, L"Bild löschen");
    stage.overview->selection().select(3);
    answer(L"P");
    EXPECT_TRUE(operations->save().save());
    EXPECT_TRUE(shows({0, 2, 3}));
    EXPECT_EQ(stage.overview->records().pressedIndex, 2);
    EXPECT_FALSE(stage.exists(L"b.jpg"));
}

TEST_F(OperationsTest, ATipStaysWithItsItemWhenOthersAreDeleted) {
    open();
    stage.record(2).toolTip = L"Haus *P=5";
    stage.record(3).toolTip.clear();
    const std::wstring first = stage.record(0).toolTip;
    ASSERT_FALSE(first.empty());
    stage.choose(1, L"Bild löschen");
    answer(L"P");
    EXPECT_TRUE(operations->save().save());
    ASSERT_TRUE(shows({0, 2, 3}));
    const std::wstring expected[]{first, L"Haus *P=5", L""};
    for (int i = 0; i < 3; ++i) {
        EXPECT_EQ(stage.record(i).toolTip, expected[i]) << i;
        EXPECT_EQ(stage.overview->tips().ToolText(stage.box(i)), expected[i]) << i;
    }
}

TEST_F(OperationsTest, TheSettingsThatAreShownFollowDatesAndNames) {
    open();
    stage.choose(0, L"Bild-Einstellungen anzeigen");
    picture::Pixels before = stage.seen(0);
    answer(L"24.12.2025 18:30");
    stage.choose(0, L"Datum ändern");
    EXPECT_TRUE(asked);
    EXPECT_NE(stage.seen(0).data, std::exchange(before, stage.seen(0)).data) << "another date";
    answer(L"Urlaub");
    operations->save().save();
    ASSERT_EQ(stage.names()[0], L"Urlaub001.jpg");
    EXPECT_NE(stage.seen(0).data, before.data) << "another name";
}

TEST_F(OperationsTest, TheEntryEditorFollowsItsItemAndEndsWithIt) {
    open();
    stage.choose(1, L"Titel / Pause / n.Effekt / Musik");
    EXPECT_TRUE(operations->entries().isOpen());
    stage.drag(1, 3);
    EXPECT_TRUE(operations->entries().isOpen());
    stage.choose(3, L"Bild löschen");
    EXPECT_FALSE(operations->entries().isOpen());
}

}  // namespace
}  // namespace edit
