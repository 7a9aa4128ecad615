#pragma once

#include <string>
#include <vector>

#include "support/video_stage.h"

namespace support::road {

/// The commands of a road.
using Log = std::vector<std::string>;

inline Log operator+(Log a, const Log& b) {
    a.insert(a.end(), b.begin(), b.end());
    return a;
}

inline Log opened(const std::string& name) {
    return {"stop VIDEO",
            "close VIDEO",
            "open " + name + " in Pic2",
            "set VIDEO audio all off",
            " put VIDEO window at 0 0 160 120",
            "play VIDEO"};
}

inline const Log kStopped = {"stop VIDEO"};
inline const Log kClosed = {"stop VIDEO", "close VIDEO"};
inline const Log kPlay = {"play VIDEO"};
inline const Log kArmed = {"set VIDEO time format milliseconds", "status VIDEO length"};
inline const Log kArmedWithSound = kArmed + Log{"set VIDEO audio all on"};
inline const Log kCaptured = {"where VIDEO source", "update VIDEO hdc", "stop VIDEO", "close VIDEO"};
inline const Log kSilent = {"volume VIDEO 0..0"};
inline const Log kToVideo = {"volume VIDEO 0..500 AUDIO 200..0"};
inline const Log kVideoIn = {"volume VIDEO 0..500"};
inline const Log kToMusic = {"volume VIDEO 500..0 AUDIO 0..199"};
inline const Log kMusicOut = {"volume AUDIO 200..0"};

/// Adds up the volume commands of a fade.
class Volumes {
  public:
    bool take(const std::string& command) {
        for (Range* range : {&video_, &audio_}) {
            const std::string start = "setaudio " + range->alias + " volume to ";
            if (command.rfind(start, 0) == 0) {
                range->last = command.substr(start.size());
                range->first = range->first.empty() ? range->last : range->first;
                return true;
            }
        }
        return false;
    }
    void endFade(Log& log) {
        std::string text;
        for (Range* range : {&video_, &audio_}) {
            text += range->first.empty() ? "" : " " + range->alias + " " + range->first + ".." + range->last;
            *range = {range->alias, {}, {}};
        }
        if (!text.empty()) {
            log.push_back("volume" + text);
        }
    }

  private:
    struct Range {
        std::string alias;
        std::string first;
        std::string last;
    };
    Range video_{"VIDEO", {}, {}};
    Range audio_{"AUDIO", {}, {}};
};

/// A stage that tells the commands so that whole roads can be compared.
struct RoadStage : VideoStage {
    using VideoStage::VideoStage;

    void withMusic() {
        music.musicList = {L"01 Lied.mp3"};
        Musik.setValue(1);
        control.replyTo("status AUDIO length", "180000");
    }
    /// Music in the background, sound in the films, and the show running by itself.
    void startWithSound() {
        withMusic();
        MUTE.setValue(1);
        startAutomatically();
    }
    /// The commands since the last call: fades added up, handles and paths by name, the music's own left out.
    Log log() {
        Log result;
        Volumes volumes;
        bool titleBegins = false;
        for (const std::string& command : control.take()) {
            const bool ofMusic = command.find(" AUDIO") != std::string::npos;
            if (ofMusic && (titleBegins || command.find("volume") == std::string::npos)) {
                titleBegins = command == "status AUDIO length";
                continue;
            }
            if (volumes.take(command)) {
                continue;
            }
            volumes.endFade(result);
            result.push_back(named(command));
        }
        volumes.endFade(result);
        return result;
    }

  private:
    std::string named(const std::string& command) const {
        if (command.rfind("update VIDEO hdc ", 0) == 0) {
            return "update VIDEO hdc";
        }
        const std::size_t end = command.rfind(openCommand());
        if (command.rfind("open ", 0) != 0 || end == std::string::npos) {
            return command;
        }
        const std::string path = command.substr(5, end - 5);
        wchar_t longPath[MAX_PATH]{};
        GetLongPathNameW(std::wstring(path.begin(), path.end()).c_str(), longPath, MAX_PATH);
        std::string name;
        for (const wchar_t* c = longPath; *c != L'\0'; ++c) {
            name = *c == L'\\' ? std::string() : name + static_cast<char>(*c);
        }
        return "open " + name + " in Pic2";
    }
};

}  // namespace support::road
