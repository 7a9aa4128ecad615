#include "platform/short_path.h"

#include <gtest/gtest.h>
#include <windows.h>

#include "platform/code_page.h"
#include "support/import_hook.h"

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

DWORD WINAPI sameName(LPCWSTR path, LPWSTR buffer, DWORD size) {
    const auto length = static_cast<DWORD>(wcslen(path));
    if (length < size) {
        wcscpy(buffer, path);
    }
    return length < size ? length : length + 1;
}

// As on a drive where short names are switched off: the system gives the long one.
TEST_F(ShortPath, ALongOneWithBlanksStandsInQuotes) {
    const support::ImportHook hook("GetShortPathNameW", sameName);
    EXPECT_EQ(shortPath(L"C:\\Meine Filme\\a b.mpg"), "\"C:\\Meine Filme\\a b.mpg\"");
    EXPECT_EQ(shortPath(L"C:\\Filme\\a.mpg"), "C:\\Filme\\a.mpg");
    EXPECT_EQ(shortPath(L"C:\\\u65E5\u672C.mpg"), "") << "no name that the code page holds";
    EXPECT_EQ(storablePath(L"C:\\\u65E5\u672C"), L"C:\\\u65E5\u672C") << "nothing better";
}

TEST_F(ShortPath, TooLongAPathIsStoredByItsShortForm) {
    make(L"Ein Programm mit einem langen Namen.exe");
    EXPECT_EQ(storablePath(file_), file_);
    EXPECT_EQ(storablePath(file_, file_.size()), file_);
    const std::wstring stored = storablePath(file_, file_.size() - 1);
    EXPECT_LT(stored.size(), file_.size());
    EXPECT_EQ(longPath(stored), file_);
    EXPECT_EQ(wideShortPath(file_), stored);
    EXPECT_EQ(storablePath(file_, 5), file_) << "no form is so short";
}

TEST_F(ShortPath, LongAndStorableFormsLeadBackToTheSameFolder) {
    make(L"\u65E5\u672C Film.mpg");
    const std::wstring stored = storablePath(file_);
    EXPECT_TRUE(toCodePageExactly(stored));
    EXPECT_EQ(longPath(stored), file_);
    EXPECT_EQ(storablePath(L"C:\\Bilder\\\u00DCbung"), L"C:\\Bilder\\\u00DCbung");
    EXPECT_EQ(longPath(L"C:\\gibt~1\\es nicht"), L"C:\\gibt~1\\es nicht");
    EXPECT_EQ(longPath(L""), L"");
}

}  // namespace
}  // namespace platform
