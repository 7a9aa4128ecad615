#include "media/direct_show_media_control.h"

#include <windows.h>

#include <algorithm>
#include <utility>

#include "media/media_graph.h"
#include "platform/code_page.h"

namespace media {

namespace {

using platform::ComApartment;

std::string key(std::string alias) {
    std::transform(alias.begin(), alias.end(), alias.begin(),
                   [](char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c; });
    return alias;
}

template <typename Handle>
Handle handleOf(std::uint64_t number) {
    // Only 32 bits of a handle count; in 64 bits the system holds them with their sign.
    return reinterpret_cast<Handle>(static_cast<std::intptr_t>(static_cast<std::int32_t>(number)));
}

const char* nameOf(MediaGraph::Mode mode) {
    switch (mode) {
        case MediaGraph::Mode::Playing:
            return "playing";
        case MediaGraph::Mode::Paused:
            return "paused";
        case MediaGraph::Mode::Stopped:
            break;
    }
    return "stopped";
}

MediaReply failed(MediaError error) {
    return {{}, static_cast<unsigned>(error)};
}

MediaReply done(bool succeeded, MediaError otherwise) {
    return succeeded ? MediaReply{} : failed(otherwise);
}

}  // namespace

/// One command on the graphs that are open.
struct DirectShowMediaControl::Execute {
    std::map<std::string, std::unique_ptr<MediaGraph>>& open;

    MediaReply operator()(const OpenCommand& command) {
        if (open.count(key(command.alias)) != 0) {
            return failed(MediaError::DuplicateAlias);
        }
        const HWND parent = handleOf<HWND>(command.parent);
        if (command.parent != 0 && IsWindow(parent) == FALSE) {
            return failed(MediaError::NoWindow);
        }
        const std::wstring path = platform::fromCodePage(command.path);
        const DWORD attributes = GetFileAttributesW(path.c_str());
        if (attributes == INVALID_FILE_ATTRIBUTES || (attributes & FILE_ATTRIBUTE_DIRECTORY) != 0) {
            return failed(MediaError::FileNotFound);
        }
        open[key(command.alias)] = std::make_unique<MediaGraph>(path, command.child ? parent : nullptr);
        return {};
    }

    MediaReply operator()(const CloseCommand& command) {
        return done(open.erase(key(command.alias)) != 0, MediaError::InvalidDeviceName);
    }

    MediaReply operator()(const StopCommand& command) {
        return with(command, [](MediaGraph& graph) {
            graph.stop();
            return MediaReply{};
        });
    }

    MediaReply operator()(const PauseCommand& command) {
        return with(command, [](MediaGraph& graph) {
            graph.pause();
            return MediaReply{};
        });
    }

    MediaReply operator()(const PlayCommand& command) {
        return with(command, [&](MediaGraph& graph) {
            if (command.from && *command.from > graph.length()) {
                return failed(MediaError::OutOfRange);
            }
            graph.play(command.from);
            return MediaReply{};
        });
    }

    MediaReply operator()(const PutWindowCommand& command) {
        return with(command, [&](MediaGraph& graph) {
            return done(graph.put(command.left, command.top, command.width, command.height),
                        MediaError::NoWindow);
        });
    }

    MediaReply operator()(const SetTimeFormatCommand& command) {
        return with(command, [](MediaGraph&) { return MediaReply{}; });
    }

    MediaReply operator()(const SetAudioCommand& command) {
        return with(command, [&](MediaGraph& graph) {
            graph.setAudio(command.on);
            return MediaReply{};
        });
    }

    MediaReply operator()(const SetVolumeCommand& command) {
        return with(command, [&](MediaGraph& graph) {
            graph.setVolume(std::min(command.volume, kFullVolume));
            return MediaReply{};
        });
    }

    MediaReply operator()(const StatusCommand& command) {
        return with(command, [&](MediaGraph& graph) {
            switch (command.item) {
                case StatusCommand::Item::Length:
                    return MediaReply{std::to_string(graph.length()), 0};
                case StatusCommand::Item::Position:
                    return MediaReply{std::to_string(graph.position()), 0};
                case StatusCommand::Item::Mode:
                    break;
            }
            return MediaReply{nameOf(graph.mode()), 0};
        });
    }

    MediaReply operator()(const WhereSourceCommand& command) {
        return with(command, [](MediaGraph& graph) {
            const auto size = graph.size();
            if (!size) {
                return failed(MediaError::NoWindow);
            }
            return MediaReply{"0 0 " + std::to_string(size->cx) + " " + std::to_string(size->cy), 0};
        });
    }

    MediaReply operator()(const UpdateCommand& command) {
        return with(command, [&](MediaGraph& graph) {
            return done(graph.paint(handleOf<HDC>(command.dc)), MediaError::DeviceNotReady);
        });
    }

  private:
    template <typename Command, typename Action>
    MediaReply with(const Command& command, Action action) {
        const auto found = open.find(key(command.alias));
        return found == open.end() ? failed(MediaError::InvalidDeviceName) : action(*found->second);
    }
};

DirectShowMediaControl::DirectShowMediaControl() : apartment_(ComApartment::Kind::SingleThreaded) {}

DirectShowMediaControl::~DirectShowMediaControl() = default;

MediaReply DirectShowMediaControl::send(const std::string& command, int replySize) {
    const ParsedCommand parsed = parseMediaCommand(command);
    if (const MediaError* error = std::get_if<MediaError>(&parsed)) {
        return failed(*error);
    }
    try {
        MediaReply reply = std::visit(Execute{open_}, std::get<MediaCommand>(parsed));
        reply.text.resize(std::min(reply.text.size(), static_cast<std::size_t>(std::max(replySize - 1, 0))));
        return reply;
    } catch (const platform::Error&) {
        return failed(MediaError::InvalidFile);
    }
}

}  // namespace media
