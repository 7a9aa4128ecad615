#include "platform/recycle_bin.h"

#include <shellapi.h>

#include <algorithm>

#include "platform/directory.h"
#include "platform/handles.h"
#include "platform/wine.h"

namespace platform {

namespace {

// Numbers of the shell's own, from before those of the system.
constexpr int kAccessDeniedSource = 0x78;

// What keeps a file from being moved now. The shell is not asked to try: Wine's takes each file that it
// cannot move for one that no bin takes, be it only in use for a moment, and would ask whether to destroy it.
unsigned moveObstacle(const std::wstring& path) {
    const File file(CreateFileW(path.c_str(), DELETE, FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE,
                                nullptr, OPEN_EXISTING, 0, nullptr));
    return file ? 0 : GetLastError();
}

std::wstring environment(const wchar_t* name) {
    std::wstring value(GetEnvironmentVariableW(name, nullptr, 0), L'\0');
    value.resize(GetEnvironmentVariableW(name, value.data(), static_cast<DWORD>(value.size())));
    return value;
}

// A path of the host or of the kernel, as the system's functions take it.
std::wstring pathOfKernel(std::wstring path) {
    std::replace(path.begin(), path.end(), L'/', L'\\');
    if (path.starts_with(L"\\??\\")) {
        path[1] = L'\\';
    }
    return path;
}

// Wine's bin is the trash of the host, which it makes in a folder that is there only. A host that no desktop
// ever ran on lacks that folder, and Wine would destroy what it is to keep.
bool wineHasTrash() {
    const std::wstring given = environment(L"XDG_DATA_HOME");
    std::wstring data = pathOfKernel(L"\\??\\unix" + given);
    if (given.empty()) {
        const std::wstring local = pathOfKernel(environment(L"WINEHOMEDIR")) + L"\\.local";
        CreateDirectoryW(local.c_str(), nullptr);
        data = local + L"\\share";
    }
    CreateDirectoryW(data.c_str(), nullptr);
    return folderExists(data);
}

}  // namespace

bool recycleBinTakes(const std::wstring& path) {
    constexpr std::size_t kRoot = 3;
    const std::wstring root = path.substr(0, kRoot);
    return root.size() == kRoot && root[1] == L':' && GetDriveTypeW(root.c_str()) == DRIVE_FIXED &&
           path.size() < MAX_PATH && (!runsUnderWine() || wineHasTrash());
}

unsigned recycle(const std::wstring& path, HWND owner) {
    if (const unsigned obstacle = moveObstacle(path); obstacle != 0) {
        return obstacle;
    }
    // The shell takes a list of paths, each ended by a NUL, and one more at the end.
    const std::wstring list = path + L'\0' + L'\0';
    SHFILEOPSTRUCTW operation{};
    operation.hwnd = owner;
    operation.wFunc = FO_DELETE;
    operation.pFrom = list.c_str();
    // The warning comes in spite of FOF_NOCONFIRMATION, and only where the file would be destroyed.
    operation.fFlags = FOF_ALLOWUNDO | FOF_NOCONFIRMATION | FOF_WANTNUKEWARNING | FOF_NOERRORUI | FOF_SILENT;
    const int result = SHFileOperationW(&operation);
    if (result == 0) {
        // It may have been called off without an error.
        return fileExists(path) ? ERROR_CANCELLED : 0;
    }
    return result == kAccessDeniedSource ? ERROR_ACCESS_DENIED : static_cast<unsigned>(result);
}

}  // namespace platform
