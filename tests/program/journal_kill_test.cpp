// A process that changes a folder is killed for real; the next one brings the folder to one of its two ends.
#include <gtest/gtest.h>

#include <random>

#include "program/support/environment.h"
#include "program/support/files.h"
#include "program/support/temporary_folder.h"
#include "program/support/wait.h"
#include "support/child_process.h"

namespace program {
namespace {

constexpr DWORD kKilled = 9;

std::wstring probeExe() {
    const std::wstring sample = sampleExe();
    return sample.substr(0, sample.rfind(L'\\') + 1) + L"journal_probe.exe";
}

/// A folder of pictures, each of which can be told from the others.
class PictureRing {
  public:
    explicit PictureRing(int count) : count_(count) {
        for (int i = 0; i < count; ++i) {
            writeBytes(folder_.file(name(i)), content(i));
        }
        writeBytes(folder_.file(L"Panorell.txt"), "old");
    }

    /// Runs the probe, which ends before its operation `last`; its exit code.
    DWORD run(const std::wstring& what, int last) const {
        const support::ChildProcess probe(probeExe(),
                                          what + L" " + folder_.path() + L" " + std::to_wstring(last));
        EXPECT_TRUE(waitFor([&] { return probe.exitCode().has_value(); }, kPatience, "the end of the probe"));
        return probe.exitCode().value_or(1);
    }

    /// Whether all pictures have their old names (by = 0) or their new ones (1), with the script that belongs
    /// to them, and nothing else is left.
    testing::AssertionResult isShifted(int by) const {
        for (int i = 0; i < count_; ++i) {
            const std::wstring path = folder_.file(name((i + by) % count_));
            if (!exists(path) || readBytes(path) != content(i)) {
                return testing::AssertionFailure() << "picture " << i << " is not where it belongs";
            }
        }
        if (readBytes(folder_.file(L"Panorell.txt")) != (by == 0 ? "old" : "new")) {
            return testing::AssertionFailure() << "the script does not match the names";
        }
        if (fileCount() != count_ + 1) {
            return testing::AssertionFailure() << fileCount() << " files in the folder";
        }
        return testing::AssertionSuccess();
    }

    std::wstring path(const std::wstring& fileName) const { return folder_.file(fileName); }
    int fileCount() const {
        int files = 0;
        WIN32_FIND_DATAW data{};
        const platform::FindHandle find(FindFirstFileW(folder_.file(L"*").c_str(), &data));
        for (BOOL more = find ? TRUE : FALSE; more != FALSE; more = FindNextFileW(find.get(), &data)) {
            files += (data.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) != 0 ? 0 : 1;
        }
        return files;
    }

    testing::AssertionResult isWhole() const {
        const testing::AssertionResult before = isShifted(0);
        const testing::AssertionResult after = isShifted(1);
        return before || after ? testing::AssertionSuccess()
                               : testing::AssertionFailure() << before.message() << "; " << after.message();
    }

  private:
    static std::wstring name(int i) { return L"P" + std::to_wstring(1001 + i).substr(1) + L".jpg"; }
    static std::string content(int i) { return "picture " + std::to_string(i); }

    TemporaryFolder folder_;
    int count_;
};

TEST(JournalKill, BeforeEveryOperation) {
    for (const int count : {1, 2, 7}) {
        DWORD code = kKilled;
        int last = 0;
        for (; code == kKilled; ++last) {
            const PictureRing ring(count);
            code = ring.run(L"change", last);
            EXPECT_EQ(ring.run(L"recover", -1), 0U) << count << " pictures, killed before " << last;
            EXPECT_TRUE(ring.isWhole()) << count << " pictures, killed before " << last;
        }
        EXPECT_EQ(code, 0U);
        EXPECT_GT(last, 4) << "it was hardly ever killed";
    }
}

TEST(JournalKill, TheRecoveryToo) {
    for (const int last : {5, 9, 12, 18}) {
        DWORD code = kKilled;
        for (int again = 0; code == kKilled; ++again) {
            const PictureRing ring(7);
            EXPECT_EQ(ring.run(L"change", last), kKilled);
            code = ring.run(L"recover", again);
            EXPECT_EQ(ring.run(L"recover", -1), 0U);
            EXPECT_TRUE(ring.isWhole()) << "killed before " << last << ", then before " << again;
        }
        EXPECT_EQ(code, 0U);
    }
}

// What was saved can be taken back whatever happened to the music since.
TEST(JournalKill, AMusicRenameLeavesTheKeptJournal) {
    DWORD code = kKilled;
    int last = 0;
    for (; code == kKilled; ++last) {
        const PictureRing ring(2);
        const std::wstring journal = ring.path(L"Panorell.journal");
        ASSERT_EQ(ring.run(L"save", -1), 0U);
        const std::string kept = readBytes(journal);
        ASSERT_FALSE(kept.empty());
        writeBytes(ring.path(L"01 Meer.mp3"), "meer");
        writeBytes(ring.path(L"02 Wind.mp3"), "wind");
        code = ring.run(L"music", last);
        EXPECT_EQ(ring.run(L"recover", -1), 0U) << "killed before " << last;
        ASSERT_TRUE(exists(journal)) << "killed before " << last;
        EXPECT_EQ(readBytes(journal), kept) << "killed before " << last;
        EXPECT_EQ(ring.fileCount(), 6) << "killed before " << last;
    }
    EXPECT_EQ(code, 0U);
    EXPECT_GT(last, 8) << "it was hardly ever killed";
}

TEST(JournalKill, AtRandomPointsOfALongChange) {
    std::mt19937 random(20261121);  // NOLINT: the same points in every run
    for (int i = 0; i < 40; ++i) {
        const PictureRing ring(120);
        const int last = static_cast<int>(random() % 245);
        EXPECT_EQ(ring.run(L"change", last), kKilled) << last;
        EXPECT_EQ(ring.run(L"recover", -1), 0U);
        EXPECT_TRUE(ring.isWhole()) << "killed before " << last;
    }
}

}  // namespace
}  // namespace program
