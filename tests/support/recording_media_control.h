#pragma once

#include <algorithm>
#include <cstddef>
#include <deque>
#include <functional>
#include <map>
#include <string>
#include <utility>
#include <vector>

#include "media/media_control.h"

namespace support {

/// Plays nothing: keeps every command in the order sent and answers what the test has laid down.
class RecordingMediaControl : public media::MediaControl {
  public:
    struct Sent {
        std::string command;
        int replySize = 0;
        friend bool operator==(const Sent&, const Sent&) = default;
    };

    media::MediaReply send(const std::string& command, int replySize = 0) override {
        sent_.push_back({command, replySize});
        media::MediaReply reply = answer(command);
        if (replySize <= 0) {
            reply.text.clear();
        } else {
            reply.text.resize(std::min(reply.text.size(), static_cast<std::size_t>(replySize - 1)));
        }
        if (onSend) {
            onSend(command);
        }
        return reply;
    }

    /// Every time `command` is sent from now on, `text` is the reply.
    void replyTo(const std::string& command, const std::string& text, unsigned error = 0) {
        standing_[command] = {text, error};
    }

    /// The next time `command` is sent, `text` is the reply; may be laid down several times, answered in
    /// that order, before the standing reply.
    void replyOnce(const std::string& command, const std::string& text, unsigned error = 0) {
        once_[command].push_back({text, error});
    }

    /// The commands so far, in order.
    std::vector<std::string> commands() const {
        std::vector<std::string> result;
        for (const Sent& one : sent_) {
            result.push_back(one.command);
        }
        return result;
    }

    /// The commands so far, and forgets them.
    std::vector<std::string> take() {
        std::vector<std::string> result = commands();
        sent_.clear();
        return result;
    }

    /// The commands with their reply sizes.
    const std::vector<Sent>& sent() const { return sent_; }

    void clear() { sent_.clear(); }

    /// Called after a command was recorded, for tests that look at the state of things at that moment.
    std::function<void(const std::string& command)> onSend;

  private:
    media::MediaReply answer(const std::string& command) {
        if (auto queue = once_.find(command); queue != once_.end() && !queue->second.empty()) {
            media::MediaReply reply = std::move(queue->second.front());
            queue->second.pop_front();
            return reply;
        }
        if (auto found = standing_.find(command); found != standing_.end()) {
            return found->second;
        }
        return {};
    }

    std::vector<Sent> sent_;
    std::map<std::string, media::MediaReply> standing_;
    std::map<std::string, std::deque<media::MediaReply>> once_;
};

}  // namespace support
