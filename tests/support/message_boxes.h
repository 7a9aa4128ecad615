#pragma once

#include <windows.h>

#include <functional>
#include <string>
#include <vector>

namespace support {

/// Looks at the message boxes that open while it lives, from inside their own modal loop, and ends them. One
/// lives at a time.
class MessageBoxes {
  public:
    struct Box {
        std::wstring title;
        std::wstring text;
    };

    /// `whileOpen` runs once for each box when it is open; empty closes the box with its button.
    explicit MessageBoxes(std::function<void()> whileOpen = {});
    ~MessageBoxes();
    MessageBoxes(const MessageBoxes&) = delete;
    MessageBoxes& operator=(const MessageBoxes&) = delete;

    const std::vector<Box>& seen() const { return seen_; }

  private:
    static void CALLBACK tick(HWND, UINT, UINT_PTR, DWORD) noexcept;
    void look();

    std::function<void()> whileOpen_;
    std::vector<Box> seen_;
    HWND last_ = nullptr;
    UINT_PTR timer_ = 0;
};

}  // namespace support
