#include "fuzz/check.h"
#include "media/media_command.h"

#include <cstdint>
#include <cstdlib>
#include <string>
#include <string_view>
#include <variant>

namespace {

using fuzz::check;
using namespace media;

constexpr std::string_view kBlanks = " \t";

/// An understood command as the program itself would write it.
struct Written {
    std::string operator()(const OpenCommand& open) const {
        checkName(open.alias);
        check(!open.path.empty() && open.path.find('\0') == std::string::npos);
        const bool quoted = open.path.find_first_of(kBlanks) != std::string::npos;
        check(!quoted || open.path.find('"') == std::string::npos);
        return "open " + (quoted ? '"' + open.path + '"' : open.path) + " alias " + open.alias + " parent " +
               std::to_string(open.parent) + (open.child ? " style child" : "");
    }
    std::string operator()(const CloseCommand& close) const { return "close " + checkName(close.alias); }
    std::string operator()(const StopCommand& stop) const { return "stop " + checkName(stop.alias); }
    std::string operator()(const PauseCommand& pause) const { return "pause " + checkName(pause.alias); }
    std::string operator()(const PlayCommand& play) const {
        check(!play.from || *play.from >= 0);
        return "play " + checkName(play.alias) + (play.from ? " from " + std::to_string(*play.from) : "");
    }
    std::string operator()(const PutWindowCommand& put) const {
        constexpr int kFarthest = 1'000'001;
        check(put.width >= 0 && put.height >= 0);
        for (const int value : {put.left, put.top, put.width, put.height}) {
            check(std::abs(value) <= kFarthest);
        }
        return " put " + checkName(put.alias) + " window at " + std::to_string(put.left) + ' ' +
               std::to_string(put.top) + ' ' + std::to_string(put.width) + ' ' + std::to_string(put.height);
    }
    std::string operator()(const SetTimeFormatCommand& set) const {
        return "set " + checkName(set.alias) + " time format milliseconds";
    }
    std::string operator()(const SetAudioCommand& set) const {
        return "set " + checkName(set.alias) + " audio all " + (set.on ? "on" : "off");
    }
    std::string operator()(const SetVolumeCommand& volume) const {
        check(volume.volume >= 0);
        return "setaudio " + checkName(volume.alias) + " volume to " + std::to_string(volume.volume);
    }
    std::string operator()(const StatusCommand& status) const {
        constexpr const char* kItems[] = {"length", "position", "mode"};
        return "status " + checkName(status.alias) + ' ' + kItems[static_cast<int>(status.item)];
    }
    std::string operator()(const WhereSourceCommand& where) const {
        return "where " + checkName(where.alias) + " source";
    }
    std::string operator()(const UpdateCommand& update) const {
        return "update " + checkName(update.alias) + " hdc " + std::to_string(update.dc);
    }

  private:
    static const std::string& checkName(const std::string& alias) {
        check(!alias.empty() && alias.find_first_of(kBlanks) == std::string::npos);
        check(alias.find('\0') == std::string::npos);
        return alias;
    }
};

/// What can be placed only at the rim of the range is written back a pixel farther out than it may be read.
bool placedAtTheRim(const MediaCommand& command) {
    constexpr int kRim = 1'000'000;
    const auto* put = std::get_if<PutWindowCommand>(&command);
    return put != nullptr &&
           (put->left < -kRim || put->top < -kRim || put->width > kRim || put->height > kRim);
}

std::string upperCase(std::string_view text) {
    std::string upper(text);
    for (char& c : upper) {
        c = c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c;
    }
    return upper;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string text(data, data + size);
    const ParsedCommand parsed = parseMediaCommand(text);
    check(parseMediaCommand(" \t" + text) == parsed);
    check(parseMediaCommand(text + '\0' + "tail") == parsed);
    check(parseMediaCommand(upperCase(text)).index() == parsed.index());
    if (const MediaError* error = std::get_if<MediaError>(&parsed)) {
        check(*error != MediaError::None);
        return 0;
    }
    const MediaCommand& command = std::get<MediaCommand>(parsed);
    const std::string written = std::visit(Written{}, command);
    check(placedAtTheRim(command) || parseMediaCommand(written) == parsed);
    return 0;
}
