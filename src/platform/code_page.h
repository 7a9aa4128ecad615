#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace platform {

/// Text from bytes in the system's code page.
std::wstring fromCodePage(std::string_view bytes);

/// Bytes in the system's code page; what it cannot hold becomes "?".
std::string toCodePage(std::wstring_view text);

/// The same, or std::nullopt when the code page cannot hold the whole text.
std::optional<std::string> toCodePageExactly(std::wstring_view text);

}  // namespace platform
