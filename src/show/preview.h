#pragma once

#include <functional>
#include <memory>
#include <string>
#include <thread>

#include "picture/picture_decoder.h"
#include "ui/event_loop.h"
#include "ui/timer.h"

namespace show {

/// Decodes one picture at a time for a preview box, on a thread of its own, so that the window stays alive
/// while a large one loads. A newer wish replaces the one that is being carried out.
class Preview {
  public:
    explicit Preview(ui::EventLoop& loop);
    ~Preview();
    Preview(const Preview&) = delete;
    Preview& operator=(const Preview&) = delete;

    /// Asks for a picture on a surface of that size in pixels, placed by the fit rule, in the monitor's
    /// colours.
    void load(const std::wstring& path, int width, int height, const picture::ColourTarget& colours);
    /// Forgets the wish; nothing is reported for it.
    void cancel();
    bool loading() const { return !wanted_.empty(); }

    /// The picture that was asked for last is there; none when it cannot be loaded. On the window thread.
    std::function<void(std::optional<picture::DecodedPicture>)> onLoaded;

  private:
    struct Job;

    void begin();
    void poll();

    ui::Timer poll_;
    std::wstring wanted_;
    int width_ = 0;
    int height_ = 0;
    picture::ColourTarget colours_;
    std::shared_ptr<Job> job_;
    std::thread worker_;
};

}  // namespace show
