#pragma once

#include <windows.h>

#include <cstddef>
#include <optional>
#include <string>

#include "platform/handles.h"

namespace support {

/// A process seen from outside. It is ended with this object, and with the program that started it even when
/// that is killed itself.
class ChildProcess {
  public:
    /// Stands for no process.
    ChildProcess() = default;
    /// Starts the executable with these arguments as they stand, in `folder` (empty: in the caller's). Throws
    /// platform::Error.
    ChildProcess(const std::wstring& exe, const std::wstring& arguments, const std::wstring& folder = {});
    /// Takes over a process that runs already.
    explicit ChildProcess(DWORD id);
    ~ChildProcess();
    ChildProcess(ChildProcess&&) noexcept = default;
    ChildProcess& operator=(ChildProcess&& other) noexcept;

    DWORD id() const { return id_; }
    bool running() const;
    /// Nothing while the process runs or was never started.
    std::optional<DWORD> exitCode() const;
    /// A visible top-level window of that class that belongs to the process, or null.
    HWND window(const wchar_t* className) const;

    /// The main memory in use, in bytes: now and the most so far. Zero when the process cannot be asked.
    struct Memory {
        std::size_t now = 0;
        std::size_t peak = 0;
    };
    Memory memory() const;

  private:
    void end();

    platform::Object process_;
    DWORD id_ = 0;
};

}  // namespace support
