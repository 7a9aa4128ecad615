// What is told of a change of a folder that was interrupted, and what is seen while it is put right.
#include "app/folder_recovery.h"

#include <gmock/gmock.h>

#include "app/recovery_notice.h"
#include "files/windows_file_system.h"
#include "support/message_boxes.h"
#include "support/scratch_folder.h"
#include "support/test_form.h"

namespace app {
namespace {

using End = files::Recovery::End;
using files::Obstacle;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;

TEST(RecoveryText, NothingWhereAllIsWellOrNothingCanBeDone) {
    for (const End end : {End::Nothing, End::Finished, End::Undone, End::Waiting}) {
        EXPECT_THAT(recoveryText({end, {}, Obstacle::None, {}}), IsEmpty());
    }
}

TEST(RecoveryText, EachStateHasItsSentence) {
    const std::vector<files::Recovery::Skipped> skipped{{L"b.jpg", Obstacle::Missing}};
    const std::pair<files::Recovery, const wchar_t*> cases[] = {
        {{End::Running, {}, Obstacle::None, {}}, L"Ein anderes Programm ändert gerade"},
        {{End::Foreign, {}, Obstacle::None, {}}, L"anderen Fassung des Programms"},
        {{End::Waiting, {}, Obstacle::InUse, L"a.jpg"}, L"beim nächsten Öffnen"},
        {{End::Waiting, {}, Obstacle::InUse, L"a.jpg"}, L"\"a.jpg\" ist in einem anderen Programm geöffnet."},
        {{End::Waiting, skipped, Obstacle::Full, L""}, L"Auf dem Datenträger ist kein Platz mehr."},
        {{End::Undone, skipped, Obstacle::None, {}}, L"wurde zurückgenommen, bis auf:"},
        {{End::Finished, skipped, Obstacle::None, {}}, L"wurde abgeschlossen, bis auf:"},
        {{End::Finished, skipped, Obstacle::None, {}}, L"\"b.jpg\" ist nicht mehr da."},
    };
    for (const auto& [recovery, sentence] : cases) {
        EXPECT_THAT(recoveryText(recovery), HasSubstr(sentence));
    }
    EXPECT_THAT(recoveryText(cases[4].first), Not(HasSubstr(L"abgeschlossen")));
}

HWND noticeNow() {
    return FindWindowW(L"PanorellRecovery", nullptr);
}

TEST(RecoveryNotice, IsSeenOnceItTakesLong) {
    support::TestForm test;
    {
        RecoveryNotice notice(test.loop);
        notice.step();
        notice.pause(200);
        EXPECT_EQ(noticeNow(), nullptr) << "what is over at once needs no window";
        notice.pause(200);
        notice.step();
        ASSERT_NE(noticeNow(), nullptr);
        EXPECT_TRUE(IsWindowVisible(noticeNow()));
    }
    EXPECT_EQ(noticeNow(), nullptr);
}

TEST(RecoverFolder, TellsOfOneThatAnotherProgramIsChanging) {
    support::TestForm test;
    const support::ScratchFolder folder;
    files::WindowsFileSystem fileSystem;
    const auto held = fileSystem.createHeld(folder / L"Panorell.journal", "");
    ASSERT_EQ(held.failure, files::Failure::None);
    const support::MessageBoxes boxes;
    recoverFolder(test.loop, fileSystem, folder.path(), &test.form);
    ASSERT_EQ(boxes.seen().size(), 1U);
    EXPECT_THAT(boxes.seen()[0].text, HasSubstr(L"Ein anderes Programm"));
}

}  // namespace
}  // namespace app
