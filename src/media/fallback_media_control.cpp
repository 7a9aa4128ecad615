#include "media/fallback_media_control.h"

#include <utility>
#include <variant>

#include "media/media_command.h"

namespace media {

namespace {

struct Addressed {
    std::string alias;
    bool opens = false;
    bool closes = false;
};

/// Whom a command is for; nobody where it makes no sense.
Addressed addressee(const std::string& command) {
    const ParsedCommand parsed = parseMediaCommand(command);
    const MediaCommand* known = std::get_if<MediaCommand>(&parsed);
    if (known == nullptr) {
        return {};
    }
    Addressed result;
    result.alias = std::visit([](const auto& one) { return one.alias; }, *known);
    result.opens = std::holds_alternative<OpenCommand>(*known);
    result.closes = std::holds_alternative<CloseCommand>(*known);
    return result;
}

}  // namespace

FallbackMediaControl::FallbackMediaControl(std::unique_ptr<MediaControl> first, Maker makeOther)
    : first_(std::move(first)), makeOther_(std::move(makeOther)) {}

MediaControl& FallbackMediaControl::other() {
    if (other_ == nullptr) {
        other_ = makeOther_();
    }
    return *other_;
}

MediaReply FallbackMediaControl::open(const std::string& alias, const std::string& command, int replySize) {
    MediaReply reply = first_->send(command, replySize);
    if (reply.error == 0) {
        return reply;
    }
    MediaReply second = other().send(command, replySize);
    if (second.error != 0) {
        return reply;
    }
    others_.insert(alias);
    return second;
}

MediaReply FallbackMediaControl::send(const std::string& command, int replySize) {
    const Addressed to = addressee(command);
    if (others_.count(to.alias) != 0) {
        if (to.closes) {
            others_.erase(to.alias);
        }
        return other().send(command, replySize);
    }
    return to.opens ? open(to.alias, command, replySize) : first_->send(command, replySize);
}

}  // namespace media
