#include "script/picture_key.h"

namespace script {

std::optional<std::wstring> PictureKey(std::wstring_view path) {
    constexpr auto npos = std::wstring_view::npos;
    const std::size_t backslash = path.rfind(L'\\');
    const std::size_t begin = backslash == npos ? 0 : backslash + 1;
    const std::size_t dot = path.find(L'.');
    if (dot == npos) {
        return std::wstring(path.substr(begin));
    }
    if (dot < begin) {
        return std::nullopt;
    }
    return std::wstring(path.substr(begin, dot - begin));
}

}  // namespace script
