#pragma once

#include <string>

namespace media {

/// What became of one media command.
struct MediaReply {
    /// The reply up to its first NUL; empty where the command has no reply or failed. A number is
    /// decimal text.
    std::string text;
    /// 0, or the device's error number. It is never told to the user: a film that cannot be played is passed
    /// over in silence.
    unsigned error = 0;

    friend bool operator==(const MediaReply&, const MediaReply&) = default;
};

/// The size of the buffer that "status" and "where" are answered in.
inline constexpr int kReplySize = 128;

/// The only door to sound and video: commands of the media control interface, as text.
///
/// A command is a byte string in the system's code page ("play VIDEO", "setaudio AUDIO volume to 200"),
/// a path in it is a short one (platform::shortPath), a handle and a number decimal text. Each alias
/// (VIDEO, AUDIO) is a device of its own. Commands come from the window thread only and return at once;
/// the media play on by themselves.
class MediaControl {
  public:
    virtual ~MediaControl() = default;

    /// Carries out `command`. `replySize` is the size of the reply buffer in characters, its closing NUL
    /// included; with 0 nothing is answered. Never throws for a command that fails or makes no sense: that
    /// gives an error number, an empty reply, and changes nothing.
    virtual MediaReply send(const std::string& command, int replySize = 0) = 0;

    /// The control that gives a film's frames ("update") without a window: this one, or one behind it that
    /// can.
    virtual MediaControl& frameSource() { return *this; }
};

}  // namespace media
