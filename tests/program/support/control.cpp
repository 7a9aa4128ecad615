#include "program/support/control.h"

namespace program {
namespace {

constexpr UINT kAnswerTime = 5000;

struct IdSearch {
    int id;
    HWND found;
};

BOOL CALLBACK findId(HWND window, LPARAM parameter) {
    auto& search = *reinterpret_cast<IdSearch*>(parameter);
    if (GetDlgCtrlID(window) != search.id) {
        return TRUE;
    }
    search.found = window;
    return FALSE;
}

}  // namespace

RECT Control::rectangle() const {
    RECT rectangle = {};
    GetWindowRect(handle_, &rectangle);
    return rectangle;
}

POINT Control::centre() const {
    const RECT r = rectangle();
    return {(r.left + r.right) / 2, (r.top + r.bottom) / 2};
}

LRESULT Control::ask(UINT message, WPARAM w, LPARAM l) const {
    DWORD_PTR answer = 0;
    if (!SendMessageTimeoutW(handle_, message, w, l, SMTO_NORMAL, kAnswerTime, &answer)) {
        return -1;
    }
    return static_cast<LRESULT>(answer);
}

std::wstring Control::text() const {
    const LRESULT length = ask(WM_GETTEXTLENGTH);
    if (length <= 0) {
        return {};
    }
    std::wstring text(static_cast<std::size_t>(length) + 1, L'\0');
    const LRESULT copied = ask(WM_GETTEXT, text.size(), reinterpret_cast<LPARAM>(text.data()));
    text.resize(copied > 0 ? static_cast<std::size_t>(copied) : 0);
    return text;
}

int Control::checkState() const {
    return static_cast<int>(ask(BM_GETCHECK));
}

int Control::position() const {
    return static_cast<int>(ask(SBM_GETPOS));
}

std::vector<std::wstring> Control::texts(UINT countMessage, UINT lengthMessage, UINT textMessage) const {
    std::vector<std::wstring> found;
    const LRESULT count = ask(countMessage);
    for (LRESULT i = 0; i < count; ++i) {
        const WPARAM index = static_cast<WPARAM>(i);
        const LRESULT length = ask(lengthMessage, index);
        if (length < 0) {
            break;
        }
        std::wstring text(static_cast<std::size_t>(length) + 1, L'\0');
        const LRESULT copied = ask(textMessage, index, reinterpret_cast<LPARAM>(text.data()));
        text.resize(copied > 0 ? static_cast<std::size_t>(copied) : 0);
        found.push_back(std::move(text));
    }
    return found;
}

std::vector<std::wstring> Control::items() const {
    return texts(LB_GETCOUNT, LB_GETTEXTLEN, LB_GETTEXT);
}

int Control::selectedItem() const {
    return static_cast<int>(ask(LB_GETCURSEL));
}

int Control::topItem() const {
    return static_cast<int>(ask(LB_GETTOPINDEX));
}

std::vector<std::wstring> Control::choices() const {
    return texts(CB_GETCOUNT, CB_GETLBTEXTLEN, CB_GETLBTEXT);
}

int Control::selectedChoice() const {
    return static_cast<int>(ask(CB_GETCURSEL));
}

void Control::press() const {
    PostMessageW(handle_, BM_CLICK, 0, 0);
}

Control control(HWND form, int id) {
    IdSearch search{id, nullptr};
    EnumChildWindows(form, findId, reinterpret_cast<LPARAM>(&search));
    return Control(search.found);
}

}  // namespace program
