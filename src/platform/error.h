#pragma once

#include <stdexcept>
#include <string>

namespace platform {

/// A failed call to the operating system that its caller cannot go on without.
class Error : public std::runtime_error {
  public:
    /// `call` names the function that failed, `code` is GetLastError() or the HRESULT it left.
    Error(const std::string& call, unsigned long code)
        : std::runtime_error(call + " failed with code " + std::to_string(code)), call_(call), code_(code) {}

    const std::string& call() const { return call_; }
    unsigned long code() const { return code_; }

  private:
    std::string call_;
    unsigned long code_;
};

}  // namespace platform
