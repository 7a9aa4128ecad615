#include "platform/display_awake.h"

#include <windows.h>

namespace platform {

DisplayAwake::DisplayAwake()
    : active_(SetThreadExecutionState(ES_CONTINUOUS | ES_DISPLAY_REQUIRED | ES_SYSTEM_REQUIRED) != 0) {}

DisplayAwake::~DisplayAwake() {
    SetThreadExecutionState(ES_CONTINUOUS);
}

}  // namespace platform
