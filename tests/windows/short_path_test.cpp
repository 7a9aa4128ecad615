#include "platform/short_path.h"

#include <gtest/gtest.h>
#include <windows.h>

#include "platform/code_page.h"

namespace platform {
namespace {

/// A folder with one file in it, for as long as a test lasts.
class ShortPath : public testing::Test {
  protected:
    ShortPath() {
        wchar_t folder[MAX_PATH];
        GetTempPathW(MAX_PATH, folder);
        folder_ = std::wstring(folder) + L"Panorell short paths";
        CreateDirectoryW(folder_.c_str(), nullptr);
    }
    ~ShortPath() override {
        DeleteFileW(file_.c_str());
        RemoveDirectoryW(folder_.c_str());
    }

    const std::wstring& make(const std::wstring& name) {
        file_ = folder_ + L"\\" + name;
        CloseHandle(CreateFileW(file_.c_str(), GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS, 0, nullptr));
        return file_;
    }

    static bool opens(const std::string& path) {
        return GetFileAttributesW(fromCodePage(path).c_str()) != INVALID_FILE_ATTRIBUTES;
    }

    std::wstring folder_;
    std::wstring file_;
};

TEST_F(ShortPath, NamesTheSameFileInOneWord) {
    for (const wchar_t* name :
         {L"film.mpg", L"Mein Film vom Sommer.mpg", L"\u00C4rger \u00FCber \u00D6l.mpg", L"a.b c.mpg"}) {
        const std::string path = shortPath(make(name));
        EXPECT_TRUE(opens(path)) << path;
        EXPECT_EQ(path.find_first_of(" \""), std::string::npos) << path;
        DeleteFileW(file_.c_str());
        EXPECT_FALSE(opens(path)) << path;
    }
}

TEST_F(ShortPath, NamesAFileOutsideTheCodePage) {
    const std::string path = shortPath(make(L"\u0424\u0438\u043B\u044C\u043C \u65E5\u672C.mpg"));
    // Its short name may be outside the code page as well: then there is none.
    EXPECT_TRUE(path.empty() || opens(path)) << path;
}

TEST_F(ShortPath, FailureIsAnEmptyPath) {
    EXPECT_EQ(shortPath(folder_ + L"\\not there.mpg"), "");
    EXPECT_EQ(shortPath(L""), "");
    EXPECT_EQ(shortPath(std::wstring(300, L'a')), "");
}

}  // namespace
}  // namespace platform
