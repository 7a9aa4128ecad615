#pragma once

#include <functional>
#include <optional>
#include <string>

namespace edit {

/// What a box asks.
struct Question {
    std::wstring title;
    std::wstring prompt;  ///< lines end in CR LF
    std::wstring text;    ///< the answer that is there to begin with
};

/// How an operation talks with the user. Both wait for him, and throw Leaving when the program is being left
/// meanwhile.
struct Dialogue {
    /// His answer; none when he does not want to give one.
    std::function<std::optional<std::wstring>(const Question& question)> ask;
    std::function<void(const std::wstring& text, const std::wstring& title)> tell;
};

}  // namespace edit
