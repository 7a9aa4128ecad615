#pragma once

#include <windows.h>

#include <chrono>
#include <optional>
#include <string>
#include <vector>

#include "program/support/temporary_folder.h"
#include "program/support/wait.h"
#include "support/child_process.h"

namespace program {

/// An executable started from a folder of its own, seen from outside. When this object dies the process it
/// started is ended, and so is every process that came from the same executable.
class Program {
  public:
    /// Copies the file `source` into a new temporary folder as "Panorell.exe". Throws platform::Error.
    explicit Program(const std::wstring& source);
    ~Program();
    Program(const Program&) = delete;
    Program& operator=(const Program&) = delete;

    /// Starts the copy with these arguments, just as they stand. Throws platform::Error when it does not
    /// start.
    void start(const std::wstring& arguments = {});

    const std::wstring& exe() const { return exe_; }
    const TemporaryFolder& folder() const { return folder_; }
    std::wstring settingsFile() const { return folder_.file(L"Panorell.ini"); }

    DWORD processId() const { return process_.id(); }
    bool running() const { return process_.running(); }

    /// The exit code, nothing while the process runs or was never started.
    std::optional<DWORD> exitCode() const { return process_.exitCode(); }

    /// Waits for the process to end by itself.
    testing::AssertionResult ends(std::chrono::milliseconds timeout = kPatience) const;

    /// Waits for a visible top-level window of this class that belongs to the process; nullptr when none
    /// comes in time or the process ends.
    HWND window(const wchar_t* className = L"Form1", std::chrono::milliseconds timeout = kPatience) const;

    /// A visible top-level window of this class if there is one now, else nullptr.
    HWND windowNow(const wchar_t* className) const { return process_.window(className); }

    support::ChildProcess::Memory memory() const { return process_.memory(); }

    /// The other running processes of the same executable: what the program started to replace itself.
    std::vector<DWORD> successors() const;

    /// Waits for exactly one successor while the process itself ends, and goes on with that one as the
    /// process that this object stands for.
    testing::AssertionResult followSuccessor(std::chrono::milliseconds timeout = kPatience);

    /// Waits until no process of the executable runs any more.
    testing::AssertionResult leavesNoProcess(std::chrono::milliseconds timeout = kPatience) const;

  private:
    void endAll();

    TemporaryFolder folder_;
    std::wstring exe_;
    support::ChildProcess process_;
};

/// Whether the window answers messages within a second.
bool responds(HWND window);

}  // namespace program
