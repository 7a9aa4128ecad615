#include "platform/properties_dialog.h"

#include <shellapi.h>

#include <iterator>
#include <string_view>

namespace platform {

namespace {

constexpr wchar_t kDialogClass[] = L"#32770";

std::wstring titleOf(HWND window) {
    std::wstring title(static_cast<std::size_t>(GetWindowTextLengthW(window)) + 1, L'\0');
    title.resize(
        static_cast<std::size_t>(GetWindowTextW(window, title.data(), static_cast<int>(title.size()))));
    return title;
}

bool isDialog(HWND window) {
    wchar_t name[16]{};
    GetClassNameW(window, name, static_cast<int>(std::size(name)));
    return std::wstring_view(name) == kDialogClass;
}

// The extension is left out of the title where the user does not want to see extensions.
std::wstring stemOf(const std::wstring& path) {
    const std::wstring name = path.substr(path.rfind(L'\\') + 1);
    return name.substr(0, name.rfind(L'.'));
}

}  // namespace

bool SystemPropertiesDialog::open(HWND owner, const std::wstring& path) {
    SHELLEXECUTEINFOW wanted{};
    wanted.cbSize = sizeof(wanted);
    wanted.fMask = SEE_MASK_INVOKEIDLIST | SEE_MASK_FLAG_NO_UI;
    wanted.hwnd = owner;
    wanted.lpVerb = L"properties";
    wanted.lpFile = path.c_str();
    wanted.nShow = SW_SHOWNORMAL;
    return ShellExecuteExW(&wanted) != FALSE;
}

bool SystemPropertiesDialog::isInFront(const std::wstring& path) const {
    const HWND front = GetForegroundWindow();
    DWORD process = 0;
    GetWindowThreadProcessId(front, &process);
    // The shell opens it within the program that asked for it.
    return process == GetCurrentProcessId() && isDialog(front) &&
           titleOf(front).find(stemOf(path)) != std::wstring::npos;
}

void SystemPropertiesDialog::type(const std::vector<WORD>& keys) {
    std::vector<INPUT> strokes = keyStrokes(keys);
    SendInput(static_cast<UINT>(strokes.size()), strokes.data(), sizeof(INPUT));
}

std::vector<INPUT> keyStrokes(const std::vector<WORD>& keys) {
    std::vector<INPUT> strokes;
    for (const WORD key : keys) {
        INPUT stroke{};
        stroke.type = INPUT_KEYBOARD;
        stroke.ki.wVk = key;
        // Without it an arrow key is one of the number block, which Num Lock turns into a digit.
        stroke.ki.dwFlags = key == VK_RIGHT ? KEYEVENTF_EXTENDEDKEY : 0;
        strokes.push_back(stroke);
        stroke.ki.dwFlags |= KEYEVENTF_KEYUP;
        strokes.push_back(stroke);
    }
    return strokes;
}

}  // namespace platform
