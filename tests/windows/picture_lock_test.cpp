// Items are locked out of the show and freed again: the file's attributes, the mark, the store.
#include "edit/picture_lock.h"

#include <gmock/gmock.h>

#include <cwchar>

#include "edit/item_file.h"
#include "platform/directory.h"
#include "support/app_stage.h"
#include "support/edit_stage.h"
#include "support/import_hook.h"

namespace edit {
namespace {

using overview::kLockColour;
using support::alike;
using support::EditStage;

constexpr std::uint32_t kBlue = 0x404080;
constexpr std::uint32_t kRed = 0x804040;

/// Writes another picture under the name of an item, as a second window that saved would.
void replaceFile(EditStage& stage, const std::wstring& name) {
    stage.picture(name, kRed, 333, 222);
}

TEST(PictureLock, LockingHidesTheFileAndMarksTheThumbnail) {
    EditStage stage;
    stage.picturesOf({kBlue, kBlue});
    ASSERT_TRUE(stage.open());
    EXPECT_FALSE(stage.mentions(1, kLockColour));
    stage.choose(1, L"Bild sperren");
    EXPECT_TRUE(stage.attributes(L"b.jpg") & FILE_ATTRIBUTE_HIDDEN);
    EXPECT_FALSE(stage.attributes(L"a.jpg") & FILE_ATTRIBUTE_HIDDEN);
    EXPECT_TRUE(stage.record(1).locked);
    EXPECT_TRUE(stage.diagonalIs(1, kLockColour));
    EXPECT_FALSE(stage.mentions(0, kLockColour));
    EXPECT_FALSE(stage.overview->records().changed) << "it is on the disk already";
}

TEST(PictureLock, TheOtherAttributesStay) {
    EditStage stage;
    stage.picturesOf({kBlue, kBlue});
    SetFileAttributesW((stage.pictures / L"b.jpg").c_str(), FILE_ATTRIBUTE_READONLY | FILE_ATTRIBUTE_ARCHIVE);
    ASSERT_TRUE(stage.open());
    const DWORD before = stage.attributes(L"b.jpg");
    EXPECT_EQ(stage.editing->lock().lock(1), L"");
    EXPECT_EQ(stage.attributes(L"b.jpg"), before | FILE_ATTRIBUTE_HIDDEN);
}

TEST(PictureLock, UnlockingWithoutAStoreWritesNone) {
    EditStage stage;
    stage.picturesOf({kBlue, kBlue});
    SetFileAttributesW((stage.pictures / L"b.jpg").c_str(), FILE_ATTRIBUTE_HIDDEN | FILE_ATTRIBUTE_READONLY);
    ASSERT_TRUE(stage.open());
    ASSERT_TRUE(stage.diagonalIs(1, kLockColour));
    stage.choose(1, L"Bild freigeben");
    EXPECT_FALSE(stage.attributes(L"b.jpg") & (FILE_ATTRIBUTE_HIDDEN | FILE_ATTRIBUTE_READONLY));
    EXPECT_FALSE(stage.record(1).locked);
    EXPECT_FALSE(stage.mentions(1, kLockColour));
    EXPECT_FALSE(stage.exists(L"Mini"));
}

TEST(PictureLock, UnlockingDrawsAnewAndKeepsThatInTheStore) {
    EditStage stage;
    stage.picturesOf({kBlue, kBlue});
    stage.pictures.hide(L"b.jpg");
    stage.keep(L"b.bmp", 0x111111);
    ASSERT_TRUE(stage.open());
    ASSERT_TRUE(alike(stage.colour(1), 0x111111)) << "what is kept comes first";
    EXPECT_EQ(stage.editing->lock().unlock(1), L"");
    EXPECT_TRUE(alike(stage.colour(1), kBlue));
    const auto kept = stage.kept(L"b.bmp");
    ASSERT_TRUE(kept);
    EXPECT_EQ(kept->width, stage.overview->view().layout().imageWidth());
    EXPECT_TRUE(alike(kept->row(kept->height / 2)[kept->width / 2] & 0xFFFFFFU, kBlue)) << "without its mark";
    EXPECT_FALSE(stage.exists(L"Mini\\a.bmp"));
}

TEST(PictureLock, AnEmptyStoreFolderIsEnough) {
    EditStage stage;
    stage.picturesOf({kBlue, kBlue});
    stage.pictures.hide(L"b.jpg");
    stage.pictures.folder(L"Mini");
    ASSERT_TRUE(stage.open());
    EXPECT_FALSE(stage.overview->store().present());
    EXPECT_EQ(stage.editing->lock().unlock(1), L"");
    EXPECT_TRUE(stage.kept(L"b.bmp"));
    EXPECT_TRUE(stage.overview->store().present());
}

TEST(PictureLock, AFilmIsFreedWithItsMark) {
    EditStage stage;
    stage.picture(L"a.jpg");
    stage.film(L"f.mpg");
    stage.pictures.hide(L"f.mpg");
    stage.pictures.folder(L"Mini");
    ASSERT_TRUE(stage.open());
    EXPECT_EQ(stage.editing->lock().unlock(1), L"");
    EXPECT_FALSE(stage.attributes(L"f.mpg") & FILE_ATTRIBUTE_HIDDEN);
    const auto kept = stage.kept(L"f.bmp");
    ASSERT_TRUE(kept);
    EXPECT_TRUE(alike(kept->row(kept->height / 2)[kept->width / 2] & 0xFFFFFFU, EditStage::kFilmColour));
    EXPECT_EQ(std::count(kept->data.begin(), kept->data.end(), kLockColour), 0);
}

TEST(PictureLock, TheLastItemOfTheShowStaysFree) {
    EditStage stage;
    stage.picturesOf({kBlue, kBlue, kBlue});
    ASSERT_TRUE(stage.open());
    EXPECT_EQ(stage.editing->lock().lock(0), L"");
    stage.editing->deletion().mark(1);
    EXPECT_TRUE(stage.offers(2, L" Bild sperren"));
    EXPECT_EQ(stage.editing->lock().lock(2), L"");
    EXPECT_FALSE(stage.record(2).locked);
    EXPECT_FALSE(stage.attributes(L"c.jpg") & FILE_ATTRIBUTE_HIDDEN);
}

TEST(PictureLock, AFileThatAnotherProgramChangedIsLeftAlone) {
    const struct {
        const char* why;
        void (*change)(EditStage&);
    } cases[] = {
        {"another picture has its name", [](EditStage& stage) { replaceFile(stage, L"b.jpg"); }},
        {"it is gone", [](EditStage& stage) { stage.pictures.remove(L"b.jpg"); }},
        {"a folder has its name",
         [](EditStage& stage) {
             stage.pictures.remove(L"b.jpg");
             stage.pictures.folder(L"b.jpg");
         }},
    };
    for (const auto& c : cases) {
        EditStage stage;
        stage.picturesOf({kBlue, kBlue});
        ASSERT_TRUE(stage.open());
        c.change(stage);
        const DWORD before = stage.attributes(L"b.jpg");
        const support::MessageBoxes boxes;
        stage.choose(1, L"Bild sperren");
        ASSERT_EQ(boxes.seen().size(), 1U) << c.why;
        EXPECT_THAT(boxes.seen()[0].text, testing::AnyOf(missingText(L"b.jpg"), changedText(L"b.jpg")));
        EXPECT_EQ(stage.attributes(L"b.jpg"), before) << c.why;
        EXPECT_FALSE(stage.record(1).locked) << c.why;
        EXPECT_FALSE(stage.mentions(1, kLockColour)) << c.why;
    }
}

TEST(PictureLock, AChangedFileIsNotFreedEither) {
    EditStage stage;
    stage.picturesOf({kBlue, kBlue});
    stage.pictures.hide(L"b.jpg");
    stage.keep(L"b.bmp", 0x111111);
    ASSERT_TRUE(stage.open());
    SetFileAttributesW((stage.pictures / L"b.jpg").c_str(), FILE_ATTRIBUTE_NORMAL);
    replaceFile(stage, L"b.jpg");
    stage.pictures.hide(L"b.jpg");
    EXPECT_EQ(stage.editing->lock().unlock(1), changedText(L"b.jpg"));
    EXPECT_TRUE(stage.attributes(L"b.jpg") & FILE_ATTRIBUTE_HIDDEN);
    EXPECT_TRUE(stage.record(1).locked);
    EXPECT_TRUE(alike(stage.kept(L"b.bmp")->row(1)[1] & 0xFFFFFFU, 0x111111));
}

TEST(PictureLock, ItsOwnChangesAreNoneOfAnotherProgram) {
    EditStage stage;
    stage.picturesOf({kBlue, kBlue});
    ASSERT_TRUE(stage.open());
    for (int i = 0; i < 3; ++i) {
        EXPECT_EQ(stage.editing->lock().lock(1), L"");
        EXPECT_TRUE(stage.record(1).locked);
        EXPECT_EQ(stage.editing->lock().unlock(1), L"");
        EXPECT_FALSE(stage.record(1).locked);
    }
    EXPECT_NE(stage.record(1).stamp.number, 0U) << "the file is known by its number from now on";
}

/// Paths of the old kind are limited, as they are on Windows; Wine takes longer ones.
class OldPathLimit {
  public:
    OldPathLimit()
        : get_("GetFileAttributesW", get), set_("SetFileAttributesW", set), create_("CreateFileW", create) {
        one = this;
    }

  private:
    static bool tooLong(const wchar_t* path) {
        const bool longer = std::wcslen(path) >= MAX_PATH && !std::wstring(path).starts_with(L"\\\\?\\");
        if (longer) {
            SetLastError(ERROR_PATH_NOT_FOUND);
        }
        return longer;
    }
    static DWORD WINAPI get(const wchar_t* path) {
        return tooLong(path) ? INVALID_FILE_ATTRIBUTES
                             : one->get_.original<decltype(GetFileAttributesW)>()(path);
    }
    static BOOL WINAPI set(const wchar_t* path, DWORD attributes) {
        return tooLong(path) ? FALSE : one->set_.original<decltype(SetFileAttributesW)>()(path, attributes);
    }
    static HANDLE WINAPI create(const wchar_t* path, DWORD access, DWORD share, SECURITY_ATTRIBUTES* security,
                                DWORD disposition, DWORD flags, HANDLE like) {
        return tooLong(path) ? INVALID_HANDLE_VALUE
                             : one->create_.original<decltype(CreateFileW)>()(path, access, share, security,
                                                                              disposition, flags, like);
    }
    inline static OldPathLimit* one = nullptr;
    support::ImportHook get_;
    support::ImportHook set_;
    support::ImportHook create_;
};

// A folder may lie deeper than a path of the old kind reaches.
TEST(PictureLock, APathMayBeLong) {
    EditStage stage;
    stage.picturesOf({kBlue, kBlue});
    ASSERT_TRUE(stage.open());
    const std::wstring deep = stage.pictures / std::wstring(120, L'x');
    const std::wstring deeper = platform::unlimitedPath(deep + L"\\" + std::wstring(160, L'y'));
    CreateDirectoryW(deep.c_str(), nullptr);
    ASSERT_TRUE(CreateDirectoryW(deeper.c_str(), nullptr));
    const std::wstring path = deeper + L"\\b.jpg";
    ASSERT_TRUE(MoveFileW((stage.pictures / L"b.jpg").c_str(), path.c_str()));
    stage.overview->records().folder = deep + L"\\" + std::wstring(160, L'y');
    const OldPathLimit limit;
    EXPECT_EQ(stage.editing->lock().lock(1), L"");
    EXPECT_TRUE(stage.record(1).locked);
    EXPECT_NE(GetFileAttributesW(path.c_str()) & FILE_ATTRIBUTE_HIDDEN, 0U);
    EXPECT_EQ(stage.editing->lock().unlock(1), L"");
    EXPECT_EQ(GetFileAttributesW(path.c_str()) & FILE_ATTRIBUTE_HIDDEN, 0U);
    DeleteFileW(path.c_str());
    RemoveDirectoryW(deeper.c_str());
}

// Opened anew, the overview still shows what the show leaves out.
TEST(PictureLock, ALockedItemIsThereWhenTheOverviewOpensAgain) {
    EditStage stage;
    stage.picturesOf({kBlue, kBlue});
    ASSERT_TRUE(stage.open());
    EXPECT_EQ(stage.editing->lock().lock(0), L"");
    ASSERT_TRUE(stage.open());
    EXPECT_TRUE(stage.record(0).locked);
    EXPECT_TRUE(stage.offers(0, L"Bild freigeben"));
}

}  // namespace
}  // namespace edit
