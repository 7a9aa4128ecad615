#include <gmock/gmock.h>
#include <shlwapi.h>

#include <algorithm>

#include "platform/clipboard.h"
#include "platform/code_page.h"
#include "platform/directory.h"
#include "platform/display_awake.h"
#include "platform/error.h"
#include "platform/file_time.h"
#include "platform/monitors.h"
#include "platform/process.h"
#include "platform/profile_file.h"
#include "platform/program_dir.h"
#include "platform/system_message.h"
#include "platform/tray_icon.h"
#include "support/scratch_folder.h"
#include "support/test_form.h"

namespace platform {
namespace {

using support::ScratchFolder;

TEST(ProfileFile, MissingFileSectionAndKeyGiveTheFallback) {
    const ScratchFolder folder;
    const ProfileFile file(folder / L"Panorell.ini");
    EXPECT_EQ(file.read(L"Set1", L"Drive", L"C:", 2), L"C:");
    EXPECT_EQ(file.read(L"Set1", L"Drive", L"lang", 2), L"la");
    EXPECT_TRUE(file.write(L"Set1", L"Dir", L"C:\\Bilder"));
    EXPECT_EQ(file.read(L"Set1", L"Delay", L"5", 2), L"5");
    EXPECT_EQ(file.read(L"Set2", L"Dir", L"\\", 79), L"\\");
}

TEST(ProfileFile, ValuesComeBackCutToTheLengthRead) {
    const ScratchFolder folder;
    const ProfileFile file(folder / L"Panorell.ini");
    file.write(L"Set1", L"Delay", L"100");
    file.write(L"Set1", L"Dir", L"C:\\Bilder\\Müller & Söhne");
    EXPECT_EQ(file.read(L"Set1", L"Delay", L"5", 2), L"10");
    EXPECT_EQ(file.read(L"Set1", L"Dir", L"\\", 79), L"C:\\Bilder\\Müller & Söhne");
    file.write(L"Set1", L"Dir", L"D:\\");
    EXPECT_EQ(file.read(L"Set1", L"Dir", L"\\", 79), L"D:\\") << "nothing is kept between reads";
}

TEST(ProfileFile, TheFileSpeaksTheSystemsCodePage) {
    const ScratchFolder folder;
    const ProfileFile file(folder / L"Panorell.ini");
    file.write(L"Set1", L"Dir", L"Ä");
    HANDLE handle = CreateFileW(file.path().c_str(), GENERIC_READ, FILE_SHARE_READ | FILE_SHARE_WRITE,
                                nullptr, OPEN_EXISTING, 0, nullptr);
    char bytes[200]{};
    DWORD length = 0;
    ReadFile(handle, bytes, sizeof(bytes), &length, nullptr);
    CloseHandle(handle);
    EXPECT_EQ(std::string(bytes, length), "[Set1]\r\nDir=\xC4\r\n");
    folder.file(L"Panorell.ini", "[Set2]\r\nDir=C:\\\xD6l\r\nLoop = 1 \r\n");
    EXPECT_EQ(file.read(L"Set2", L"Dir", L"\\", 79), L"C:\\Öl");
    EXPECT_EQ(file.read(L"Set2", L"Loop", L"0", 1), L"1");
}

TEST(ProfileFile, AFileThatCannotBeWrittenStaysAsItWas) {
    const ScratchFolder folder;
    const std::wstring path = folder.file(L"Panorell.ini", "[Set1]\r\nDelay=7\r\n");
    const ProfileFile file(path);
    const HANDLE held =
        CreateFileW(path.c_str(), GENERIC_READ, FILE_SHARE_READ, nullptr, OPEN_EXISTING, 0, nullptr);
    EXPECT_FALSE(file.write(L"Set1", L"Delay", L"9"));
    CloseHandle(held);
    EXPECT_EQ(file.read(L"Set1", L"Delay", L"5", 2), L"7");
}

TEST(Clipboard, KeepsAnyText) {
    for (const wchar_t* text : {L"C:\\Panorell.exe C:\\Bilder P=5", L"Ä 日本 ✓", L""}) {
        EXPECT_TRUE(setClipboardText(nullptr, text));
        EXPECT_EQ(clipboardText(), text);
    }
}

TEST(CodePage, LosslessOrNothing) {
    EXPECT_EQ(toCodePageExactly(L"Größe"),
              "Gr\xF6\xDF"
              "e");
    EXPECT_EQ(fromCodePage("Gr\xF6\xDF"
                           "e"),
              L"Größe");
    EXPECT_EQ(toCodePageExactly(L"日本"), std::nullopt);
    EXPECT_EQ(toCodePageExactly(L"Āa"), std::nullopt) << "a letter that would be replaced by a similar one";
    EXPECT_EQ(toCodePage(L"a日"), "a?");
    EXPECT_EQ(toCodePageExactly(L""), "");
    const std::wstring withNul(L"a\0b", 3);
    EXPECT_EQ(fromCodePage(toCodePage(withNul)), withNul);
}

TEST(Directory, PathsAreJoinedAndMadeFull) {
    EXPECT_EQ(joinPath(L"C:\\", L"a.jpg"), L"C:\\a.jpg");
    EXPECT_EQ(joinPath(L"C:\\b", L"a.jpg"), L"C:\\b\\a.jpg");
    EXPECT_EQ(fullPath(L"\\x\\", L"D:\\y"), L"D:\\x");
    EXPECT_EQ(fullPath(L"x", L"D:\\y"), L"D:\\y\\x");
    EXPECT_EQ(fullPath(L"d:", L"C:\\y"), L"d:\\");
    EXPECT_EQ(fullPath(L"d:x", L"C:\\y"), L"d:\\x");
    EXPECT_EQ(fullPath(L"C:\\a\\..\\b\\.", L"C:\\"), L"C:\\b");
}

TEST(Directory, VeryLongPathsAreRead) {
    const ScratchFolder folder;
    std::wstring path = L"\\\\?\\" + folder.path();
    for (int i = 0; i < 8; ++i) {
        path += L"\\" + std::wstring(40, static_cast<wchar_t>(L'a' + i));
        ASSERT_TRUE(CreateDirectoryW(path.c_str(), nullptr));
    }
    CloseHandle(CreateFileW((path + L"\\b.jpg").c_str(), GENERIC_WRITE, 0, nullptr, CREATE_NEW, 0, nullptr));
    const std::wstring plain = path.substr(4);
    ASSERT_GT(plain.size(), 300U);
    EXPECT_TRUE(folderExists(plain));
    const std::vector<DirectoryEntry> entries = listDirectory(plain);
    EXPECT_EQ(entries.size(), 1U);
    DeleteFileW((path + L"\\b.jpg").c_str());
    while (path.size() > folder.path().size() + 4) {
        RemoveDirectoryW(path.c_str());
        path.resize(path.rfind(L'\\'));
    }
}

TEST(Directory, NamesStandInTheSystemsOrder) {
    std::vector<std::wstring> names;
    for (const wchar_t* prefix :
         {L"IMG_", L"img_", L"", L"2024-05-01_", L"Bild ", L"ä", L"a b (", L"IMG_0", L"-"}) {
        for (const wchar_t* suffix :
             {L".jpg", L".JPG", L"", L"a.jpg", L"ß.jpg", L" (2).jpg", L".2.mp3", L"-1.jpg"}) {
            for (const wchar_t* number :
                 {L"", L"0", L"1", L"2", L"10", L"9", L"007", L"010", L"0100", L"999999999"}) {
                names.push_back(std::wstring(prefix) + number + suffix);
            }
        }
    }
    std::vector<std::wstring> expected = names;
    std::sort(expected.begin(), expected.end(), [](const std::wstring& a, const std::wstring& b) {
        const int order = StrCmpLogicalW(a.c_str(), b.c_str());
        return order != 0 ? order < 0 : a < b;
    });
    sortNames(names);
    EXPECT_EQ(names, expected);
}

TEST(Directory, ErrorsCarryTheSystemsCode) {
    const ScratchFolder folder;
    try {
        listDirectory(folder / L"nicht da");
        FAIL() << "no error";
    } catch (const Error& error) {
        EXPECT_EQ(error.code(), static_cast<unsigned long>(ERROR_PATH_NOT_FOUND));
        EXPECT_FALSE(systemMessage(error.code()).empty());
    }
    EXPECT_TRUE(listDirectory(folder.path()).empty());
}

TEST(SystemMessage, IsOneLineOfText) {
    const std::wstring message = systemMessage(ERROR_NOT_READY);
    EXPECT_GT(message.size(), 3U);
    EXPECT_EQ(message.find(L'\n'), std::wstring::npos);
    EXPECT_EQ(systemMessage(0xE0001234), L"Fehler 3758101044");
}

TEST(SystemMessage, NamesWhatItSpeaksOf) {
    const std::wstring message = systemMessage(ERROR_BAD_EXE_FORMAT, L"C:\\a b.txt");
    EXPECT_NE(message.find(L"C:\\a b.txt"), std::wstring::npos) << message;
    EXPECT_EQ(message.find(L'%'), std::wstring::npos) << message;
    EXPECT_EQ(systemMessage(ERROR_NOT_READY, L"a.txt").find(L"a.txt"), std::wstring::npos);
}

TEST(FileTime, IsLocalAndInTheUsersFormats) {
    const ScratchFolder folder;
    const std::wstring path = folder.file(L"a.jpg");
    SYSTEMTIME local{2026, 11, 0, 21, 14, 5, 9, 0};
    SYSTEMTIME universal{};
    FILETIME time{};
    ASSERT_TRUE(TzSpecificLocalTimeToSystemTime(nullptr, &local, &universal));
    ASSERT_TRUE(SystemTimeToFileTime(&universal, &time));
    HANDLE file = CreateFileW(path.c_str(), GENERIC_WRITE, 0, nullptr, OPEN_EXISTING, 0, nullptr);
    ASSERT_TRUE(SetFileTime(file, nullptr, nullptr, &time));
    CloseHandle(file);
    const std::optional<SYSTEMTIME> read = fileWriteTime(path);
    ASSERT_TRUE(read.has_value());
    EXPECT_EQ(read->wHour, 14);
    EXPECT_EQ(read->wDay, 21);
    EXPECT_THAT(longDate(*read), testing::HasSubstr(L"2026"));
    EXPECT_THAT(shortTime(*read), testing::Not(testing::HasSubstr(L"09")));
    EXPECT_THAT(longTime(*read), testing::HasSubstr(L"05"));
    EXPECT_EQ(dateAndTime(*read), shortDate(*read) + L" " + longTime(*read));
    EXPECT_EQ(fileWriteTime(folder / L"nicht da"), std::nullopt);
}

TEST(Process, StartsACommandLine) {
    const ScratchFolder folder;
    EXPECT_FALSE(startProcess((folder / L"nichts.exe") + L" P=5"));
    ASSERT_TRUE(startProcess(L"cmd.exe /c echo ja> \"" + (folder / L"ja.txt") + L"\""));
    for (int i = 0; i < 500 && GetFileAttributesW((folder / L"ja.txt").c_str()) == INVALID_FILE_ATTRIBUTES;
         ++i) {
        Sleep(10);
    }
    EXPECT_NE(GetFileAttributesW((folder / L"ja.txt").c_str()), INVALID_FILE_ATTRIBUTES);
}

TEST(ProgramDir, IsTheFolderOfThisProgram) {
    wchar_t file[MAX_PATH]{};
    GetModuleFileNameW(nullptr, file, MAX_PATH);
    const std::wstring folder = programDir();
    EXPECT_EQ(std::wstring(file).substr(0, folder.size()), folder);
    EXPECT_EQ(std::wstring(file).substr(folder.size()).rfind(L'\\'), 0U);
}

TEST(TrayIcon, IsWantedUntilRemoved) {
    const support::TestForm test;
    TrayIcon icon(test.form.hwnd(), LoadIconW(nullptr, IDI_APPLICATION), "Panorell");
    EXPECT_FALSE(icon.wanted());
    icon.add();
    EXPECT_TRUE(icon.wanted());
    icon.onOwnerMessage(TrayIcon::taskBarCreated());
    EXPECT_TRUE(icon.wanted());
    icon.remove();
    icon.onOwnerMessage(TrayIcon::taskBarCreated());
    EXPECT_FALSE(icon.wanted());
}

TEST(DisplayAwake, IsTaken) {
    const DisplayAwake awake;
    EXPECT_TRUE(awake.active());
}

TEST(Monitors, ThePrimaryOneLiesAtTheOrigin) {
    const RECT area = Monitors::current().areaAt({0, 0});
    EXPECT_EQ(area.left, 0);
    EXPECT_EQ(area.right, Monitors::current().primaryWidth());
}

}  // namespace
}  // namespace platform
