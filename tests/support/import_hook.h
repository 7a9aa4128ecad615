#pragma once

#include <vector>

namespace support {

/// Puts a function of a test in the place of one that this program imports from a system library, for as long
/// as the object lives: what the program asks of the system can be watched, and need not happen.
class ImportHook {
  public:
    /// `function` is its exported name. Throws std::runtime_error when this program does not import it.
    template <typename Function>
    ImportHook(const char* function, Function* replacement)
        : ImportHook(function, reinterpret_cast<void*>(replacement), 0) {}
    ~ImportHook();
    ImportHook(const ImportHook&) = delete;
    ImportHook& operator=(const ImportHook&) = delete;

    /// The system's own function.
    template <typename Function>
    Function* original() const {
        return reinterpret_cast<Function*>(original_);
    }

  private:
    ImportHook(const char* function, void* replacement, int);

    void* original_ = nullptr;
    std::vector<void**> places_;
};

}  // namespace support
