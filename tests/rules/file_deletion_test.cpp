#include "edit/file_deletion.h"

#include <gtest/gtest.h>

#include "rules/journal_scene.h"
#include "support/modelled_disk.h"
#include "support/modelled_file_system.h"

namespace edit {
namespace {

using files::Failure;
using files::Obstacle;

const std::wstring kPath = files::at(L"a.jpg");
const std::wstring kThumbnail = files::at(files::thumbnailOf(L"a.jpg"));
constexpr std::uint32_t kAll = files::kReadOnly | files::kHidden | files::kSystem;

/// Takes files off a modelled disk, and tells what attributes they came with.
class ModelledBin : public Bin {
  public:
    explicit ModelledBin(files::FileSystem& fileSystem) : fileSystem_(fileSystem) {}
    bool takes(const std::wstring&) override { return true; }
    Failure put(const std::wstring& path) override {
        attributes = fileSystem_.stat(path).value.attributes;
        ++tries;
        return failure == Failure::None ? fileSystem_.remove(path) : failure;
    }

    Failure failure = Failure::None;
    std::uint32_t attributes = 0;
    int tries = 0;

  private:
    files::FileSystem& fileSystem_;
};

class FileDeletionTest : public testing::Test {
  protected:
    void begin(std::uint32_t attributes) {
        disk = support::ModelledDisk();
        disk.put(kPath, "A", attributes);
        disk.put(kThumbnail, "bild");
        record.fileName = L"a.jpg";
        record.stamp = fileSystem.stat(kPath).value.stamp;
    }
    FileDeletion::Result remove(bool forever = false) {
        return FileDeletion(fileSystem, bin, time.waiting).remove(files::kSceneFolder, record, forever);
    }
    std::uint32_t attributes() const { return fileSystem.stat(kPath).value.attributes; }
    bool there(const std::wstring& path) const { return fileSystem.stat(path).failure == Failure::None; }

    support::ModelledDisk disk;
    support::ModelledFileSystem fileSystem{disk};
    ModelledBin bin{fileSystem};
    files::VirtualTime time;
    overview::ThumbRecord record;
};

TEST_F(FileDeletionTest, PictureAndThumbnailGo) {
    for (const bool forever : {false, true}) {
        for (const std::uint32_t attributes : {0U, files::kHidden, files::kReadOnly, kAll}) {
            begin(attributes);
            bin.tries = 0;
            const FileDeletion::Result result = remove(forever);
            EXPECT_EQ(result.obstacle, Obstacle::None) << attributes;
            EXPECT_EQ(result.inBin, !forever);
            EXPECT_EQ(bin.tries, forever ? 0 : 1);
            EXPECT_FALSE(there(kPath)) << attributes;
            EXPECT_FALSE(there(kThumbnail));
        }
    }
}

TEST_F(FileDeletionTest, ALockIsNeverLifted) {
    begin(kAll);
    remove();
    EXPECT_EQ(bin.attributes, files::kHidden | files::kSystem);
}

TEST_F(FileDeletionTest, AfterAFailureAllIsAsItWas) {
    const std::pair<Failure, Obstacle> cases[] = {{Failure::InUse, Obstacle::InUse},
                                                  {Failure::Denied, Obstacle::Denied},
                                                  {Failure::Other, Obstacle::Other}};
    for (const auto& [failure, obstacle] : cases) {
        begin(kAll);
        bin.failure = failure;
        time.ms = 0;
        const FileDeletion::Result result = remove();
        EXPECT_EQ(result.obstacle, obstacle);
        EXPECT_FALSE(result.inBin);
        EXPECT_EQ(attributes(), kAll);
        EXPECT_TRUE(there(kThumbnail));
        EXPECT_EQ(time.ms >= 3000, files::mayPass(failure));
    }
}

TEST_F(FileDeletionTest, AThrowWhileWaitingGivesTheAttributesBack) {
    struct Leaving {};
    begin(kAll);
    bin.failure = Failure::InUse;
    time.waiting.pause = [this](int) {
        EXPECT_EQ(attributes(), files::kHidden | files::kSystem);
        throw Leaving();
    };
    EXPECT_THROW(remove(), Leaving);
    EXPECT_EQ(attributes(), kAll);
}

TEST_F(FileDeletionTest, AnotherFileOfThatNameStays) {
    begin(0);
    record.stamp.size = 7;
    EXPECT_EQ(remove().obstacle, Obstacle::Changed);
    EXPECT_EQ(bin.tries, 0);
    EXPECT_TRUE(there(kPath));
    EXPECT_TRUE(there(kThumbnail));
}

TEST_F(FileDeletionTest, OneThatIsGoneCountsAsDeletedButLiesInNoBin) {
    begin(0);
    fileSystem.remove(kPath);
    const FileDeletion::Result result = remove();
    EXPECT_EQ(result.obstacle, Obstacle::None);
    EXPECT_FALSE(result.inBin);
    EXPECT_FALSE(there(kThumbnail));
}

TEST_F(FileDeletionTest, AThumbnailThatIsWriteProtectedGoesToo) {
    begin(0);
    fileSystem.setAttributes(kThumbnail, files::kReadOnly);
    EXPECT_EQ(remove().obstacle, Obstacle::None);
    EXPECT_FALSE(there(kThumbnail));
}

}  // namespace
}  // namespace edit
