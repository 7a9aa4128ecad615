#pragma once

#include <windows.h>

#include <atomic>
#include <stdexcept>
#include <string>
#include <string_view>

namespace support {

/// A folder of its own below the system's temporary one, removed with all it holds at the end.
class ScratchFolder {
  public:
    ScratchFolder() {
        static std::atomic<int> number{0};
        wchar_t base[MAX_PATH]{};
        GetTempPathW(MAX_PATH, base);
        // Process numbers come back, and a test program that crashed leaves its folders behind.
        do {
            path_ = std::wstring(base) + L"panorell-" + std::to_wstring(GetCurrentProcessId()) + L"-" +
                    std::to_wstring(number++);
            if (CreateDirectoryW(path_.c_str(), nullptr) != FALSE) {
                return;
            }
        } while (GetLastError() == ERROR_ALREADY_EXISTS);
        throw std::runtime_error("no temporary folder");
    }
    ~ScratchFolder() { removeAll(path_); }
    ScratchFolder(const ScratchFolder&) = delete;
    ScratchFolder& operator=(const ScratchFolder&) = delete;

    /// Full path, without a "\" at the end.
    const std::wstring& path() const { return path_; }
    std::wstring operator/(std::wstring_view name) const { return path_ + L"\\" + std::wstring(name); }

    /// Writes a file and returns its path.
    std::wstring file(std::wstring_view name, std::string_view content = "x") const {
        std::wstring path = *this / name;
        // Wine would look through the whole folder for a name in another case, for each new file.
        const HANDLE file = CreateFileW(path.c_str(), GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS,
                                        FILE_FLAG_POSIX_SEMANTICS, nullptr);
        if (file == INVALID_HANDLE_VALUE) {
            throw std::runtime_error("a test file could not be written");
        }
        DWORD written = 0;
        WriteFile(file, content.data(), static_cast<DWORD>(content.size()), &written, nullptr);
        CloseHandle(file);
        return path;
    }
    std::wstring folder(std::wstring_view name) const {
        std::wstring path = *this / name;
        CreateDirectoryW(path.c_str(), nullptr);
        return path;
    }
    void hide(std::wstring_view name) const {
        SetFileAttributesW((*this / name).c_str(), FILE_ATTRIBUTE_HIDDEN);
    }
    void remove(std::wstring_view name) const { removeAll(*this / name); }

  private:
    static void removeAll(const std::wstring& path) {
        SetFileAttributesW(path.c_str(), FILE_ATTRIBUTE_NORMAL);
        WIN32_FIND_DATAW data{};
        const HANDLE find = FindFirstFileW((path + L"\\*").c_str(), &data);
        if (find != INVALID_HANDLE_VALUE) {
            do {
                const std::wstring name = data.cFileName;
                if (name != L"." && name != L"..") {
                    removeAll(path + L"\\" + name);
                }
            } while (FindNextFileW(find, &data) != FALSE);
            FindClose(find);
        }
        if (RemoveDirectoryW(path.c_str()) == FALSE) {
            DeleteFileW(path.c_str());
        }
    }

    std::wstring path_;
};

}  // namespace support
