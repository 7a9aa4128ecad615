#pragma once

#include <map>
#include <memory>
#include <string>

#include "media/media_command.h"
#include "media/media_control.h"
#include "platform/com.h"

namespace media {

class MediaGraph;

/// Carries the command vocabulary out on filter graphs, one for each alias, for systems whose media control
/// interface is incomplete.
class DirectShowMediaControl : public MediaControl {
  public:
    DirectShowMediaControl();
    ~DirectShowMediaControl() override;

    MediaReply send(const std::string& command, int replySize = 0) override;

  private:
    struct Execute;

    platform::ComApartment apartment_;
    /// By the alias in lower case.
    std::map<std::string, std::unique_ptr<MediaGraph>> open_;
};

}  // namespace media
