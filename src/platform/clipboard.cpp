#include "platform/clipboard.h"

#include <cstring>

#include "platform/handles.h"

namespace platform {

namespace {

constexpr int kTries = 20;
constexpr DWORD kPauseMs = 10;

// Another program may have the clipboard open for the moment.
class OpenClipboardScope {
  public:
    explicit OpenClipboardScope(HWND owner) {
        for (int i = 0; i < kTries && !open_; ++i) {
            open_ = OpenClipboard(owner) != FALSE;
            if (!open_) {
                Sleep(kPauseMs);
            }
        }
    }
    ~OpenClipboardScope() {
        if (open_) {
            CloseClipboard();
        }
    }
    OpenClipboardScope(const OpenClipboardScope&) = delete;
    OpenClipboardScope& operator=(const OpenClipboardScope&) = delete;
    bool open() const { return open_; }

  private:
    bool open_ = false;
};

}  // namespace

bool setClipboardText(HWND owner, const std::wstring& text) {
    const std::size_t bytes = (text.size() + 1) * sizeof(wchar_t);
    GlobalMemory memory(GlobalAlloc(GMEM_MOVEABLE, bytes));
    void* target = memory ? GlobalLock(memory.get()) : nullptr;
    if (target == nullptr) {
        return false;
    }
    std::memcpy(target, text.c_str(), bytes);
    GlobalUnlock(memory.get());
    const OpenClipboardScope clipboard(owner);
    if (!clipboard.open() || EmptyClipboard() == FALSE ||
        SetClipboardData(CF_UNICODETEXT, memory.get()) == nullptr) {
        return false;
    }
    memory.detach();  // the clipboard's from now on
    return true;
}

std::wstring clipboardText() {
    const OpenClipboardScope clipboard(nullptr);
    const HANDLE data = clipboard.open() ? GetClipboardData(CF_UNICODETEXT) : nullptr;
    const void* text = data != nullptr ? GlobalLock(data) : nullptr;
    if (text == nullptr) {
        return {};
    }
    std::wstring copy(static_cast<const wchar_t*>(text));
    GlobalUnlock(data);
    return copy;
}

}  // namespace platform
