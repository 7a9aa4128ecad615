#pragma once

#include <functional>
#include <memory>
#include <set>
#include <string>

#include "media/media_control.h"

namespace media {

/// Hands commands to one back-end, and those of an alias that it could not open to another one, until the
/// alias is closed. The other one is made when it is needed first.
class FallbackMediaControl : public MediaControl {
  public:
    using Maker = std::function<std::unique_ptr<MediaControl>()>;

    /// `first` gives frames only to a window that shows the film; the other one gives them without.
    FallbackMediaControl(std::unique_ptr<MediaControl> first, Maker makeOther);

    MediaReply send(const std::string& command, int replySize = 0) override;
    MediaControl& frameSource() override { return other(); }

  private:
    MediaReply open(const std::string& alias, const std::string& command, int replySize);
    MediaControl& other();

    std::unique_ptr<MediaControl> first_;
    Maker makeOther_;
    std::unique_ptr<MediaControl> other_;
    /// Aliases that the other one has opened.
    std::set<std::string> others_;
};

}  // namespace media
