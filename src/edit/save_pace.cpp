#include "edit/save_pace.h"

#include <algorithm>

namespace edit {

namespace {

constexpr int kItemMs = 200;
constexpr int kAllMs = 4500;

std::wstring nOfM(const std::wstring& what, int n, int m) {
    return what + L" " + std::to_wstring(n) + L" von " + std::to_wstring(m);
}

}  // namespace

int itemWait(int items, double waited) {
    const int wait = std::min(kItemMs, kAllMs / std::max(1, items));
    return waited + wait > kAllMs ? 0 : wait;
}

std::wstring progressText(int index, int pictures, int files) {
    return index < pictures ? nOfM(L"Bild", index + 1, pictures)
                            : nOfM(L"Minibild", index - pictures + 1, files - pictures);
}

}  // namespace edit
