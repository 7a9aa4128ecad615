#include "ui/held_input.h"

namespace ui {

namespace {

int holders = 0;

}  // namespace

void holdInput() {
    ++holders;
}

void releaseInput() {
    --holders;
}

bool inputHeld() {
    return holders > 0;
}

}  // namespace ui
