#include "ui/message_box.h"

#include "ui/event_loop.h"

namespace ui {

namespace {

// The box that this thread is about to show; boxes may open one above another.
thread_local HWND* openingBox = nullptr;

LRESULT CALLBACK noteBox(int code, WPARAM w, LPARAM l) {
    if (code == HCBT_ACTIVATE && openingBox != nullptr) {
        *openingBox = reinterpret_cast<HWND>(w);
        openingBox = nullptr;
    }
    return CallNextHookEx(nullptr, code, w, l);
}

UINT flagsOf(MessageIcon icon, MessageButtons buttons) {
    const UINT kind = buttons == MessageButtons::YesNo ? MB_YESNO : MB_OK;
    switch (icon) {
        case MessageIcon::Information:
            return kind | MB_ICONINFORMATION;
        case MessageIcon::Exclamation:
            return kind | MB_ICONEXCLAMATION;
        case MessageIcon::Question:
            return kind | MB_ICONQUESTION;
        default:
            return kind;
    }
}

// Lets leaving end the box, for as long as it is open.
class OpenBox {
  public:
    explicit OpenBox(EventLoop& loop) : loop_(loop) {
        openingBox = &box_;
        hook_ = SetWindowsHookExW(WH_CBT, noteBox, nullptr, GetCurrentThreadId());
        loop_.pushModal([this] {
            if (box_ != nullptr) {
                EndDialog(box_, IDCANCEL);
            }
        });
    }
    ~OpenBox() {
        loop_.popModal();
        UnhookWindowsHookEx(hook_);
        openingBox = nullptr;
    }
    OpenBox(const OpenBox&) = delete;
    OpenBox& operator=(const OpenBox&) = delete;

  private:
    EventLoop& loop_;
    HWND box_ = nullptr;
    HHOOK hook_ = nullptr;
};

}  // namespace

bool messageBox(const Window* owner, const std::wstring& text, const std::wstring& title, MessageIcon icon,
                MessageButtons buttons) {
    EventLoop& loop = EventLoop::current();
    int answer = 0;
    {
        const OpenBox open(loop);
        answer = MessageBoxW(owner != nullptr ? owner->hwnd() : nullptr, text.c_str(), title.c_str(),
                             flagsOf(icon, buttons));
    }
    if (loop.leaving()) {
        throw Leaving{};
    }
    return answer == IDOK || answer == IDYES;
}

}  // namespace ui
