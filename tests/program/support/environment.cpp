#include "program/support/environment.h"

#include <windows.h>

#include <filesystem>
#include <vector>

namespace program {
namespace {

namespace fs = std::filesystem;

std::wstring variable(const wchar_t* name) {
    wchar_t value[1024] = {};
    const DWORD length = GetEnvironmentVariableW(name, value, 1024);
    return length < 1024 ? std::wstring(value, length) : std::wstring();
}

/// The folder of this test program, <build>/<preset>/tests/program.
fs::path ownFolder() {
    wchar_t path[1024] = {};
    GetModuleFileNameW(nullptr, path, 1024);
    return fs::path(path).parent_path();
}

}  // namespace

std::wstring panorellExe() {
    std::wstring given = variable(L"PANORELL_EXE");
    if (!given.empty()) {
        return given;
    }
    const fs::path build = ownFolder().parent_path().parent_path();
    for (const wchar_t* place : {L"Panorell.exe", L"src/Panorell.exe", L"src/app/Panorell.exe"}) {
        std::error_code ignored;
        if (fs::exists(build / place, ignored)) {
            return (build / place).make_preferred().wstring();
        }
    }
    return {};
}

std::wstring sampleExe() {
    return (ownFolder() / L"sample_app.exe").wstring();
}

std::wstring failureFolder() {
    std::wstring folder = variable(L"PANORELL_FAILURES");
    if (folder.empty()) {
        folder = (ownFolder().parent_path().parent_path().parent_path() / L"program-failures").wstring();
    }
    std::error_code ignored;
    fs::create_directories(folder, ignored);
    return folder;
}

}  // namespace program
