// The harness proved on the sample program: does it notice how a process ends, or that it never lived?
#include <gtest/gtest.h>

#include "platform/error.h"
#include "program/support/control.h"
#include "program/support/environment.h"
#include "program/support/files.h"
#include "program/support/processes.h"
#include "program/support/program.h"
#include "support/import_hook.h"

namespace program {
namespace {

using std::chrono::milliseconds;
using std::chrono::steady_clock;

TEST(HarnessProcess, ReadsTheExitCode) {
    Program sample(sampleExe());
    sample.start(L"exit=7");
    ASSERT_TRUE(sample.ends());
    EXPECT_EQ(sample.exitCode(), 7U);
    EXPECT_FALSE(isCrash(*sample.exitCode()));
}

TEST(HarnessProcess, TellsACrashFromAnEnd) {
    Program sample(sampleExe());
    sample.start(L"crash");
    ASSERT_TRUE(sample.ends());
    EXPECT_TRUE(isCrash(*sample.exitCode())) << std::hex << *sample.exitCode();
}

TEST(HarnessProcess, NoticesAMissingExecutable) {
    EXPECT_THROW(Program(sampleExe() + L".missing"), platform::Error);
}

TEST(HarnessProcess, NoticesAFileThatIsNoProgram) {
    TemporaryFolder folder;
    const std::wstring text = folder.file(L"text.exe");
    writeBytes(text, "no program at all");
    Program sample(text);
    EXPECT_THROW(sample.start(), platform::Error);
    EXPECT_FALSE(sample.running());
    EXPECT_FALSE(sample.exitCode().has_value());
}

// Starts go wrong by chance with this error under Wine; any other stands, and so does one that stays.
class LostStarts : public testing::Test {
  protected:
    LostStarts() { current = this; }
    ~LostStarts() override { current = nullptr; }

    void lose(int count, DWORD error) {
        lost_ = count;
        error_ = error;
    }

    int starts_ = 0;

  private:
    static BOOL WINAPI start(LPCWSTR exe, LPWSTR arguments, LPSECURITY_ATTRIBUTES process,
                             LPSECURITY_ATTRIBUTES thread, BOOL inherit, DWORD flags, LPVOID environment,
                             LPCWSTR folder, LPSTARTUPINFOW startup, LPPROCESS_INFORMATION started) {
        if (++current->starts_ <= current->lost_) {
            SetLastError(current->error_);
            return FALSE;
        }
        return current->hook_.original<decltype(CreateProcessW)>()(
            exe, arguments, process, thread, inherit, flags, environment, folder, startup, started);
    }

    static inline LostStarts* current = nullptr;
    int lost_ = 0;
    DWORD error_ = 0;
    support::ImportHook hook_{"CreateProcessW", &start};
};

TEST_F(LostStarts, AreRepeated) {
    Program sample(sampleExe());
    lose(2, ERROR_INTERNAL_ERROR);
    sample.start(L"exit=7");
    ASSERT_TRUE(sample.ends());
    EXPECT_EQ(sample.exitCode(), 7U);
    EXPECT_EQ(starts_, 3);
}

TEST_F(LostStarts, AreNotRepeatedForEver) {
    Program sample(sampleExe());
    lose(1000, ERROR_INTERNAL_ERROR);
    EXPECT_THROW(sample.start(), platform::Error);
    EXPECT_EQ(starts_, 3);
}

TEST_F(LostStarts, AreNotRepeatedForAnyOtherReason) {
    Program sample(sampleExe());
    lose(1, ERROR_ACCESS_DENIED);
    EXPECT_THROW(sample.start(), platform::Error);
    EXPECT_EQ(starts_, 1);
}

TEST(HarnessProcess, NoticesAProgramThatMissesALibrary) {
    std::string bytes = readBytes(sampleExe());
    const std::size_t name = bytes.find("USER32.dll");
    ASSERT_NE(name, std::string::npos);
    bytes.replace(name, 6, "ABSENT");
    TemporaryFolder folder;
    const std::wstring broken = folder.file(L"broken.exe");
    writeBytes(broken, bytes);
    Program sample(broken);
    sample.start();
    EXPECT_EQ(sample.window(), nullptr);
    ASSERT_TRUE(sample.ends());
    EXPECT_TRUE(isCrash(*sample.exitCode())) << std::hex << *sample.exitCode();
}

TEST(HarnessProcess, GivesUpOnAProgramThatDoesNotEnd) {
    Program sample(sampleExe());
    sample.start();
    ASSERT_NE(sample.window(), nullptr);
    const auto start = steady_clock::now();
    EXPECT_FALSE(sample.ends(milliseconds(200)));
    EXPECT_GE(steady_clock::now() - start, milliseconds(200));
    EXPECT_TRUE(sample.running());
}

TEST(HarnessProcess, NoticesAHang) {
    Program sample(sampleExe());
    sample.start(L"hang");
    const HWND form = sample.window();
    ASSERT_NE(form, nullptr);
    EXPECT_FALSE(responds(form));
    EXPECT_TRUE(sample.running());
}

TEST(HarnessProcess, KnowsAWindowThatAnswers) {
    Program sample(sampleExe());
    sample.start();
    const HWND form = sample.window();
    ASSERT_NE(form, nullptr);
    EXPECT_TRUE(responds(form));
}

TEST(HarnessProcess, DoesNotWaitForTheWindowOfAnEndedProgram) {
    Program sample(sampleExe());
    sample.start(L"exit=0");
    const auto start = steady_clock::now();
    EXPECT_EQ(sample.window(), nullptr);
    EXPECT_LT(steady_clock::now() - start, kPatience / 2);
}

TEST(HarnessProcess, FollowsASuccessor) {
    Program sample(sampleExe());
    sample.start(L"restart");
    const DWORD first = sample.processId();
    ASSERT_TRUE(sample.followSuccessor());
    EXPECT_NE(sample.processId(), first);
    EXPECT_NE(sample.window(), nullptr);
    EXPECT_TRUE(sample.successors().empty());
}

TEST(HarnessProcess, EndsOnlyItsOwnProcesses) {
    Program other(sampleExe());
    other.start();
    ASSERT_NE(other.window(), nullptr);
    std::wstring exe;
    {
        Program sample(sampleExe());
        exe = sample.exe();
        sample.start(L"restart");
        ASSERT_TRUE(sample.followSuccessor());
        EXPECT_FALSE(sample.leavesNoProcess(milliseconds(50)));
    }
    EXPECT_TRUE(processesOf(exe).empty());
    EXPECT_FALSE(exists(exe));
    EXPECT_TRUE(other.running());
}

TEST(HarnessProcess, ReadsTheMemoryInUse) {
    Program sample(sampleExe());
    sample.start();
    ASSERT_NE(sample.window(), nullptr);
    EXPECT_GT(sample.memory().now, 500U * 1024);
    EXPECT_GE(sample.memory().peak, sample.memory().now);
}

}  // namespace
}  // namespace program
