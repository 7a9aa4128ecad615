#include "edit/editor_command.h"

#include <cstddef>

#include "text/trimming.h"

namespace edit {

namespace {

std::wstring inOneWord(std::wstring_view path) {
    std::wstring word(path);
    return path.find(L' ') == std::wstring_view::npos ? word : L'"' + word + L'"';
}

}  // namespace

std::wstring programName(std::wstring_view path) {
    const std::size_t separator = path.rfind(L'\\');
    if (separator != std::wstring_view::npos) {
        path.remove_prefix(separator + 1);
    }
    return std::wstring(path.substr(0, path.find(L'.')));
}

std::wstring chosenProgram(std::wstring_view answer) {
    std::wstring_view path = text::trimmed(answer);
    if (path.starts_with(L'"')) {
        path.remove_prefix(1);
        path.remove_suffix(path.empty() ? 0 : 1);
    }
    return std::wstring(path);
}

bool isWholePath(std::wstring_view path) {
    const bool onDrive = path.size() > 2 && path[1] == L':' && path[2] == L'\\';
    return onDrive || path.starts_with(L"\\\\");
}

std::wstring editorCommandLine(std::wstring_view program, std::wstring_view picture) {
    return inOneWord(program) + L" " + inOneWord(picture);
}

}  // namespace edit
