#include "support/name_on_disk.h"

#include <gtest/gtest.h>

namespace support {
namespace {

/// A temporary folder with one file, "picture.jpg".
class NameOnDisk : public testing::Test {
  protected:
    void SetUp() override {
        wchar_t temp[MAX_PATH] = {};
        ASSERT_NE(GetTempPathW(MAX_PATH, temp), 0u);
        folder_ = std::wstring(temp) + L"name_on_disk_" + std::to_wstring(GetCurrentProcessId());
        ASSERT_TRUE(CreateDirectoryW(folder_.c_str(), nullptr));
        const HANDLE file =
            CreateFileW(path(L"picture.jpg").c_str(), GENERIC_WRITE, 0, nullptr, CREATE_NEW, 0, nullptr);
        ASSERT_NE(file, INVALID_HANDLE_VALUE);
        CloseHandle(file);
    }
    void TearDown() override {
        DeleteFileW(path(L"picture.jpg").c_str());
        DeleteFileW(path(L"other.jpg").c_str());
        EXPECT_TRUE(RemoveDirectoryW(folder_.c_str()));
    }

    std::wstring path(const wchar_t* name) const { return folder_ + L"\\" + name; }

    std::wstring folder_;
};

TEST_F(NameOnDisk, TellsUpperAndLowerCaseApart) {
    EXPECT_TRUE(hasExactName(path(L"picture.jpg")));
    EXPECT_FALSE(hasExactName(path(L"Picture.jpg")));
    EXPECT_FALSE(hasExactName(path(L"other.jpg")));
    EXPECT_FALSE(hasExactName(folder_ + L"\\missing\\picture.jpg"));
}

TEST_F(NameOnDisk, FollowsARename) {
    ASSERT_TRUE(MoveFileW(path(L"picture.jpg").c_str(), path(L"other.jpg").c_str()));
    EXPECT_TRUE(hasExactName(path(L"other.jpg")));
    EXPECT_FALSE(hasExactName(path(L"picture.jpg")));
}

TEST_F(NameOnDisk, NoticesARenameThatDidNothing) {
    if (!GetProcAddress(GetModuleHandleW(L"ntdll.dll"), "wine_get_version")) {
        GTEST_SKIP() << "Windows does rename where only case changes";
    }
    ASSERT_TRUE(MoveFileW(path(L"picture.jpg").c_str(), path(L"PICTURE.JPG").c_str()));
    EXPECT_NE(GetFileAttributesW(path(L"PICTURE.JPG").c_str()), INVALID_FILE_ATTRIBUTES);
    EXPECT_FALSE(hasExactName(path(L"PICTURE.JPG")));
    EXPECT_TRUE(hasExactName(path(L"picture.jpg")));
}

}  // namespace
}  // namespace support
