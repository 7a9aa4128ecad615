#include "program/support/files.h"

#include <windows.h>

#include "platform/error.h"
#include "program/support/handle.h"
#include "program/support/picture_file.h"

namespace program {
namespace {

void require(BOOL done, const char* call) {
    if (!done) {
        throw platform::Error(call, GetLastError());
    }
}

}  // namespace

void writeBytes(const std::wstring& path, std::string_view bytes) {
    const Handle file(
        CreateFileW(path.c_str(), GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS, FILE_ATTRIBUTE_NORMAL, nullptr));
    require(static_cast<bool>(file), "CreateFileW");
    DWORD written = 0;
    require(WriteFile(file.get(), bytes.data(), static_cast<DWORD>(bytes.size()), &written, nullptr),
            "WriteFile");
}

std::string readBytes(const std::wstring& path) {
    const Handle file(CreateFileW(path.c_str(), GENERIC_READ, FILE_SHARE_READ | FILE_SHARE_WRITE, nullptr,
                                  OPEN_EXISTING, 0, nullptr));
    require(static_cast<bool>(file), "CreateFileW");
    std::string bytes(GetFileSize(file.get(), nullptr), '\0');
    DWORD count = 0;
    require(ReadFile(file.get(), bytes.data(), static_cast<DWORD>(bytes.size()), &count, nullptr),
            "ReadFile");
    bytes.resize(count);
    return bytes;
}

void writePicture(const std::wstring& path, const TestPicture& picture) {
    writeJpeg(path, draw(picture));
}

void writeDamagedPicture(const std::wstring& path) {
    writeBytes(path, std::string("\xFF\xD8\xFF\xE0 no picture follows here"));
}

void hide(const std::wstring& path) {
    require(SetFileAttributesW(path.c_str(), FILE_ATTRIBUTE_HIDDEN), "SetFileAttributesW");
}

void copyFile(const std::wstring& from, const std::wstring& to) {
    require(CopyFileW(from.c_str(), to.c_str(), TRUE), "CopyFileW");
}

bool exists(const std::wstring& path) {
    return GetFileAttributesW(path.c_str()) != INVALID_FILE_ATTRIBUTES;
}

std::wstring iniValue(const std::wstring& file, const wchar_t* section, const wchar_t* key,
                      const wchar_t* missing) {
    wchar_t value[512] = {};
    const DWORD length = GetPrivateProfileStringW(section, key, missing, value, 512, file.c_str());
    return {value, length};
}

}  // namespace program
