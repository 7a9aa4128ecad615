#include "ui/pointer.h"

#include <windows.h>

namespace ui {

void Pointer::hide() {
    if (pointerHidden_ == 0) {
        ShowCursor(FALSE);
        pointerHidden_ = 1;
    }
}

void Pointer::show() {
    if (pointerHidden_ == 1) {
        ShowCursor(TRUE);
        pointerHidden_ = 0;
    }
}

}  // namespace ui
