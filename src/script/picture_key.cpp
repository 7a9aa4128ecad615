#include "script/picture_key.h"

namespace script {

std::wstring PictureKey(std::wstring_view path) {
    constexpr auto npos = std::wstring_view::npos;
    const std::size_t backslash = path.rfind(L'\\');
    const std::size_t begin = backslash == npos ? 0 : backslash + 1;
    std::size_t dot = path.find(L'.');
    if (dot != npos && dot < begin) {
        dot = path.find(L'.', begin);
    }
    return std::wstring(path.substr(begin, dot == npos ? npos : dot - begin));
}

}  // namespace script
