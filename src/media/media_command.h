#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <variant>

namespace media {

/// Why a media command was not carried out. The numbers are those of the media control interface, so that
/// both back-ends answer alike.
enum class MediaError : unsigned {
    None = 0,
    UnrecognizedKeyword = 259,
    UnrecognizedCommand = 261,
    InvalidDeviceName = 263,
    MissingCommand = 267,
    MissingArgument = 269,
    BadInteger = 270,
    MissingParameter = 273,
    FileNotFound = 275,
    DeviceNotReady = 276,
    OutOfRange = 282,
    DuplicateAlias = 289,
    MissingDeviceName = 292,
    BadTimeFormat = 293,
    NoClosingQuote = 294,
    DuplicateFlag = 295,
    InvalidFile = 296,
    NoWindow = 346,
};

/// "open PATH alias NAME [parent HANDLE] [style child]"; the options come in any order.
struct OpenCommand {
    std::string path;
    std::string alias;
    /// The parent window's handle as a number; 0 where none is given.
    std::uint64_t parent = 0;
    bool child = false;
    friend bool operator==(const OpenCommand&, const OpenCommand&) = default;
};

/// "close NAME"
struct CloseCommand {
    std::string alias;
    friend bool operator==(const CloseCommand&, const CloseCommand&) = default;
};

/// "stop NAME"
struct StopCommand {
    std::string alias;
    friend bool operator==(const StopCommand&, const StopCommand&) = default;
};

/// "pause NAME"
struct PauseCommand {
    std::string alias;
    friend bool operator==(const PauseCommand&, const PauseCommand&) = default;
};

/// "play NAME [from POSITION]", in milliseconds; without a position from where it stands.
struct PlayCommand {
    std::string alias;
    std::optional<int> from;
    friend bool operator==(const PlayCommand&, const PlayCommand&) = default;
};

/// "put NAME window at LEFT TOP WIDTH HEIGHT", in pixels of the parent. Numbers may carry decimals, since
/// a box need not measure whole pixels; the edges then lie on the next pixel outside.
struct PutWindowCommand {
    std::string alias;
    int left = 0;
    int top = 0;
    int width = 0;
    int height = 0;
    friend bool operator==(const PutWindowCommand&, const PutWindowCommand&) = default;
};

/// "set NAME time format milliseconds" (or "ms"), the only format there is.
struct SetTimeFormatCommand {
    std::string alias;
    friend bool operator==(const SetTimeFormatCommand&, const SetTimeFormatCommand&) = default;
};

/// "set NAME audio all on" and "... off"
struct SetAudioCommand {
    std::string alias;
    bool on = false;
    friend bool operator==(const SetAudioCommand&, const SetAudioCommand&) = default;
};

/// "setaudio NAME volume to NUMBER", 0 (silent) to 1000 (full); more is as good as 1000.
struct SetVolumeCommand {
    std::string alias;
    int volume = 0;
    friend bool operator==(const SetVolumeCommand&, const SetVolumeCommand&) = default;
};

/// "status NAME length", "... position" and "... mode"
struct StatusCommand {
    enum class Item { Length, Position, Mode };
    std::string alias;
    Item item = Item::Length;
    friend bool operator==(const StatusCommand&, const StatusCommand&) = default;
};

/// "where NAME source": the film's own size
struct WhereSourceCommand {
    std::string alias;
    friend bool operator==(const WhereSourceCommand&, const WhereSourceCommand&) = default;
};

/// "update NAME hdc HANDLE": paints the frame on view into a device context
struct UpdateCommand {
    std::string alias;
    std::uint64_t dc = 0;
    friend bool operator==(const UpdateCommand&, const UpdateCommand&) = default;
};

using MediaCommand = std::variant<OpenCommand, CloseCommand, StopCommand, PauseCommand, PlayCommand,
                                  PutWindowCommand, SetTimeFormatCommand, SetAudioCommand, SetVolumeCommand,
                                  StatusCommand, WhereSourceCommand, UpdateCommand>;

/// A command that was understood, or why it was not.
using ParsedCommand = std::variant<MediaError, MediaCommand>;

/// Reads one command string.
///
/// Words are parted by blanks or tabs, also before the first and after the last. Keywords are read without
/// regard to case; an alias keeps its letters. A path with blanks stands in double quotes. A command is
/// understood whole or not at all: an unknown word, a word too many or a number that is none gives an error.
ParsedCommand parseMediaCommand(std::string_view text);

}  // namespace media
