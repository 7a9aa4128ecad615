#include "platform/profile_file.h"

#include <windows.h>

namespace platform {

std::wstring ProfileFile::read(const std::wstring& section, const std::wstring& key,
                               const std::wstring& fallback, std::size_t longest) const {
    std::wstring value(longest + 1, L'\0');
    const DWORD length =
        GetPrivateProfileStringW(section.c_str(), key.c_str(), fallback.c_str(), value.data(),
                                 static_cast<DWORD>(value.size()), path_.c_str());
    value.resize(length);
    return value;
}

bool ProfileFile::write(const std::wstring& section, const std::wstring& key,
                        const std::wstring& value) const {
    return WritePrivateProfileStringW(section.c_str(), key.c_str(), value.c_str(), path_.c_str()) != FALSE;
}

}  // namespace platform
