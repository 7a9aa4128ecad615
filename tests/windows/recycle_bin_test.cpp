// The system's recycle bin, with real files.
#include <windows.h>

#include <gtest/gtest.h>

#include <shellapi.h>

#include "edit/system_bin.h"
#include "platform/directory.h"
#include "platform/wine.h"
#include "support/import_hook.h"
#include "support/message_boxes.h"
#include "support/scratch_folder.h"

namespace edit {
namespace {

class RecycleBinTest : public testing::Test {
  protected:
    support::ScratchFolder folder;
    HWND owner = nullptr;
    SystemBin bin{[this] { return owner; }};
};

TEST_F(RecycleBinTest, TakesFilesWhateverTheirAttributes) {
    for (const DWORD attributes :
         {FILE_ATTRIBUTE_NORMAL, FILE_ATTRIBUTE_HIDDEN, FILE_ATTRIBUTE_HIDDEN | FILE_ATTRIBUTE_SYSTEM}) {
        const std::wstring path = folder.file(L"a.jpg");
        SetFileAttributesW(path.c_str(), attributes);
        const support::MessageBoxes boxes;
        ASSERT_TRUE(bin.takes(path));
        EXPECT_EQ(bin.put(path), files::Failure::None) << attributes;
        EXPECT_FALSE(platform::fileExists(path)) << attributes;
        EXPECT_TRUE(boxes.seen().empty()) << attributes;
    }
}

TEST_F(RecycleBinTest, TellsAFileThatIsInUseWithoutAQuestion) {
    const std::wstring path = folder.file(L"a.jpg");
    const HANDLE open = CreateFileW(path.c_str(), GENERIC_READ, 0, nullptr, OPEN_EXISTING, 0, nullptr);
    ASSERT_NE(open, INVALID_HANDLE_VALUE);
    const support::MessageBoxes boxes;
    EXPECT_EQ(bin.put(path), files::Failure::InUse);
    EXPECT_TRUE(boxes.seen().empty());
    CloseHandle(open);
    EXPECT_TRUE(platform::fileExists(path));
    EXPECT_EQ(bin.put(path), files::Failure::None);
    EXPECT_EQ(bin.put(path), files::Failure::Missing);
}

TEST_F(RecycleBinTest, NetworkAndLongPathsHaveNone) {
    EXPECT_FALSE(bin.takes(L"\\\\server\\share\\a.jpg"));
    EXPECT_FALSE(bin.takes(L"C:\\" + std::wstring(260, L'x')));
}

SHFILEOPSTRUCTW asked{};

int WINAPI callOff(SHFILEOPSTRUCTW* operation) {
    asked = *operation;
    operation->fAnyOperationsAborted = TRUE;
    return 0;
}

// A bin may be full or switched off, and only the shell knows.
TEST_F(RecycleBinTest, TheShellIsToWarnBeforeItDestroys) {
    const std::wstring path = folder.file(L"a.jpg");
    owner = GetDesktopWindow();
    const support::ImportHook hook("SHFileOperationW", callOff);
    EXPECT_EQ(bin.put(path), files::Failure::Other) << "the answer was no";
    EXPECT_EQ(asked.wFunc, static_cast<UINT>(FO_DELETE));
    EXPECT_NE(asked.fFlags & FOF_ALLOWUNDO, 0);
    EXPECT_NE(asked.fFlags & FOF_WANTNUKEWARNING, 0);
    EXPECT_EQ(asked.hwnd, owner);
}

/// An environment variable with another value for a while.
class Environment {
  public:
    Environment(const wchar_t* name, const std::wstring& value) : name_(name) {
        former_.resize(GetEnvironmentVariableW(name, nullptr, 0));
        former_.resize(GetEnvironmentVariableW(name, former_.data(), static_cast<DWORD>(former_.size())));
        SetEnvironmentVariableW(name, value.c_str());
    }
    ~Environment() { SetEnvironmentVariableW(name_, former_.empty() ? nullptr : former_.c_str()); }
    Environment(const Environment&) = delete;
    Environment& operator=(const Environment&) = delete;

  private:
    const wchar_t* name_;
    std::wstring former_;
};

// Wine destroys what it cannot put into the trash of its host.
TEST_F(RecycleBinTest, UnderWineThereMustBeATrashOfTheHost) {
    if (!platform::runsUnderWine()) {
        GTEST_SKIP() << "Windows has a bin of its own";
    }
    const std::wstring path = folder.file(L"a.jpg");
    {
        const Environment nowhere(L"XDG_DATA_HOME", L"/dev/null/data");
        EXPECT_FALSE(bin.takes(path));
    }
    EXPECT_TRUE(bin.takes(path));
    const Environment none(L"XDG_DATA_HOME", L"");
    const Environment home(L"WINEHOMEDIR", L"\\??\\" + folder.path());
    EXPECT_TRUE(bin.takes(path));
    EXPECT_TRUE(platform::folderExists(folder / L".local\\share")) << "made, as a desktop would make it";
}

}  // namespace
}  // namespace edit
