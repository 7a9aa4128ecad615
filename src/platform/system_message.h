#pragma once

#include <string>

namespace platform {

/// The system's text for an error code, in German where the system has it, else in the user's language;
/// never empty. Without line end. `subject` is what the text speaks of, a file mostly: some name it.
std::wstring systemMessage(unsigned long code, const std::wstring& subject = {});

}  // namespace platform
