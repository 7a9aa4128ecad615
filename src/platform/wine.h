#pragma once

namespace platform {

/// Whether the program runs under Wine instead of Windows.
bool runsUnderWine();

/// Brings to the screen what was painted so far, by any thread. Wine collects it and does so when a program
/// waits for messages, which one that sleeps does not; Windows needs nothing. No message is taken or handled.
void showPainted();

}  // namespace platform
