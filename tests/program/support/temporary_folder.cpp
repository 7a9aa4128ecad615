#include "program/support/temporary_folder.h"

#include <windows.h>

#include <filesystem>
#include <system_error>

#include "platform/error.h"
#include "program/support/wait.h"

namespace program {
namespace {

std::wstring newFolderPath() {
    static int counter = 0;
    wchar_t base[MAX_PATH + 1] = {};
    if (GetTempPathW(MAX_PATH + 1, base) == 0) {
        throw platform::Error("GetTempPathW", GetLastError());
    }
    // Longer than eight characters on purpose would give it a short alias; letters and digits are enough
    // here.
    return std::wstring(base) + L"pt" + std::to_wstring(GetCurrentProcessId()) + L"_" +
           std::to_wstring(++counter) + L"_" + std::to_wstring(GetTickCount() % 100000);
}

bool removeAll(const std::wstring& path) {
    namespace fs = std::filesystem;
    std::error_code ignored;
    for (fs::recursive_directory_iterator entry(path, ignored), end; entry != end; entry.increment(ignored)) {
        SetFileAttributesW(entry->path().c_str(), FILE_ATTRIBUTE_NORMAL);
    }
    fs::remove_all(path, ignored);
    return !fs::exists(path, ignored);
}

}  // namespace

TemporaryFolder::TemporaryFolder() : path_(newFolderPath()) {
    if (path_.find(L' ') != std::wstring::npos) {
        throw platform::Error("temporary folder with a blank in its path", 0);
    }
    if (!CreateDirectoryW(path_.c_str(), nullptr)) {
        throw platform::Error("CreateDirectoryW", GetLastError());
    }
}

TemporaryFolder::~TemporaryFolder() {
    // A process that has just ended may hold its executable for a moment.
    const auto removed =
        waitFor([this] { return removeAll(path_); }, std::chrono::seconds(5), "temporary folder removed");
    EXPECT_TRUE(removed);
}

std::wstring TemporaryFolder::addFolder(const std::wstring& name) const {
    std::wstring folder = file(name);
    if (!CreateDirectoryW(folder.c_str(), nullptr)) {
        throw platform::Error("CreateDirectoryW", GetLastError());
    }
    return folder;
}

}  // namespace program
