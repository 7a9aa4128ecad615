#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "support/show_stage.h"

namespace support {

/// A stage on which every video has a length and a last frame of 32 x 24 pixels in one colour.
struct VideoStage : ShowStage {
    VideoStage(const std::vector<std::wstring>& names, const std::string& length) : ShowStage(names) {
        control.replyTo("status VIDEO length", length);
        control.replyTo("where VIDEO source", "0 0 32 24");
        control.onSend = [this](const std::string& command) {
            if (command.rfind("update VIDEO hdc ", 0) == 0) {
                const auto dc = reinterpret_cast<HDC>(std::stoull(command.substr(17)));
                const RECT frame{0, 0, 32, 24};
                SetDCBrushColor(dc, RGB(10, 200, 30));
                FillRect(dc, &frame, static_cast<HBRUSH>(GetStockObject(DC_BRUSH)));
            }
        };
    }

    static constexpr std::uint32_t kFrame = 0x000AC81E;

    std::string openCommand() const {
        return " alias VIDEO parent " + std::to_string(reinterpret_cast<std::uintptr_t>(Pic2.hwnd())) +
               " style child";
    }
    void startAutomatically() {
        show.start();
        type(L' ');
        control.clear();
    }
    /// The commands so far without the steps of a fade.
    std::vector<std::string> takeWithoutFades() {
        std::vector<std::string> kept;
        for (const std::string& command : control.take()) {
            if (command.rfind("setaudio", 0) != 0) {
                kept.push_back(command);
            }
        }
        return kept;
    }
};

}  // namespace support
