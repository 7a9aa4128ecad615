#pragma once

#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace script {

/// One line of a show script to be written.
struct ScriptLine {
    std::wstring key;    ///< the picture's name without folder and extension
    std::wstring entry;  ///< title and markers, as the reader takes them
};

/// The text of a show script: key, a blank and entry for each line whose entry is not empty, in their order,
/// then the lines to be kept as they are; each ends in CR LF. A line break within a line becomes a blank.
/// Empty when there is nothing to write: then there is to be no file.
std::wstring scriptText(const std::vector<ScriptLine>& lines, const std::vector<std::wstring>& kept = {});

/// Bytes of a text in the code page; none when it cannot hold the whole text.
using ToCodePage = std::function<std::optional<std::string>(std::wstring_view)>;

/// The bytes of the file: in the code page, or UTF-8 with its byte-order mark where the code page cannot hold
/// the text, or would give bytes that begin as the mark does.
std::string scriptBytes(std::wstring_view text, const ToCodePage& toCodePage);

}  // namespace script
