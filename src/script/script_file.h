#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace script {

/// A folder's show script as it lies on the disk.
struct ScriptReading {
    enum class State {
        Missing,         ///< there is none
        Whole,           ///< it was read
        WriteProtected,  ///< it was read
        Unreadable       ///< it is there, but hidden, no file, or could not be read
    };
    State state = State::Missing;
    std::string bytes;  ///< of one that was read
    std::wstring text;  ///< the same, decoded
};

/// Reads a folder's show script for what is going to write it anew.
ScriptReading readScript(const std::wstring& folder);

/// The text of a folder's show script: in the system's code page, or UTF-8 where it begins with the
/// byte-order mark. None when there is no such file or it cannot be read; a file that another program
/// holds open for writing is read all the same.
std::optional<std::wstring> readScriptFile(const std::wstring& folder);

/// The bytes to write for a show script's text, so that reading gives it back: in the system's code page
/// where that holds the whole text, else UTF-8 with the byte-order mark.
std::string scriptFileBytes(std::wstring_view text);

}  // namespace script
