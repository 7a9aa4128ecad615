// picture_editor PICTURE: stands for an image program. It leaves its command line in "editor-started.txt"
// beside the picture and does what the words in "editor-job.txt" there say, one after the other:
//   wait     until "editor-go.txt" is there
//   append   adds bytes to the picture
//   replace  writes a new file in the place of the picture
//   delete   removes the picture
#include <windows.h>

#include <shellapi.h>

#include <string>

namespace {

constexpr DWORD kPollMs = 5;
constexpr int kMostPolls = 4000;

void write(const std::wstring& path, const void* bytes, std::size_t size, DWORD how) {
    const HANDLE file = CreateFileW(path.c_str(), GENERIC_WRITE, FILE_SHARE_READ, nullptr, how, 0, nullptr);
    SetFilePointer(file, 0, nullptr, FILE_END);
    DWORD written = 0;
    WriteFile(file, bytes, static_cast<DWORD>(size), &written, nullptr);
    CloseHandle(file);
}

std::string read(const std::wstring& path) {
    const HANDLE file =
        CreateFileW(path.c_str(), GENERIC_READ, FILE_SHARE_READ, nullptr, OPEN_EXISTING, 0, nullptr);
    char bytes[100]{};
    DWORD size = 0;
    if (file != INVALID_HANDLE_VALUE) {
        ReadFile(file, bytes, sizeof(bytes), &size, nullptr);
        CloseHandle(file);
    }
    return {bytes, size};
}

void carryOut(const std::string& word, const std::wstring& picture, const std::wstring& folder) {
    if (word == "append") {
        write(picture, "edited", 6, OPEN_EXISTING);
    } else if (word == "replace") {
        DeleteFileW(picture.c_str());
        write(picture, "written anew", 12, CREATE_NEW);
    } else if (word == "delete") {
        DeleteFileW(picture.c_str());
    } else if (word == "wait") {
        const std::wstring go = folder + L"editor-go.txt";
        for (int i = 0; i < kMostPolls && GetFileAttributesW(go.c_str()) == INVALID_FILE_ATTRIBUTES; ++i) {
            Sleep(kPollMs);
        }
    }
}

}  // namespace

int WINAPI wWinMain(HINSTANCE, HINSTANCE, PWSTR, int) {
    const std::wstring line = GetCommandLineW();
    int count = 0;
    wchar_t** arguments = CommandLineToArgvW(line.c_str(), &count);
    if (arguments == nullptr || count != 2) {
        return 1;
    }
    const std::wstring picture = arguments[1];
    const std::wstring folder = picture.substr(0, picture.rfind(L'\\') + 1);
    const std::wstring half = folder + L"editor-started.txt~";
    write(half, line.data(), line.size() * sizeof(wchar_t), CREATE_ALWAYS);
    MoveFileW(half.c_str(), (folder + L"editor-started.txt").c_str());
    const std::string job = read(folder + L"editor-job.txt");
    for (std::size_t at = 0; at < job.size();) {
        const std::size_t end = job.find(' ', at);
        carryOut(job.substr(at, end - at), picture, folder);
        at = end == std::string::npos ? job.size() : end + 1;
    }
    return 0;
}
