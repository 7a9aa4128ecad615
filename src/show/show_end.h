#pragma once

#include <memory>

#include "platform/display_awake.h"
#include "show/engines.h"
#include "show/show_screen.h"
#include "ui/event_loop.h"
#include "ui/stage.h"

namespace show {

/// The end of the list: the last item stands under the end button, the music fades out and the display may
/// sleep.
class ShowEnd {
  public:
    struct Parts {
        ui::EventLoop& loop;
        ShowScreen& screen;
        Engines engines;
        ui::Stage stage;
        ui::Timers timers;
    };
    explicit ShowEnd(const Parts& parts) : parts_(parts) {}

    /// Whether it has come and was not left again.
    bool standing() const { return standing_; }
    /// Keeps the display awake from here to the end.
    void begin();
    bool keepsAwake() const { return awake_ != nullptr; }
    /// Shows the end, waits a second and fades the music out; events run meanwhile. Throws Leaving.
    void come();
    /// Goes back into the show, where the end has come.
    void leave();
    /// The show is over.
    void forget();
    /// The surface has another size or scaling.
    void surfaceChanged();

  private:
    void fadeMusicOut();
    void roundButton();

    Parts parts_;
    std::unique_ptr<platform::DisplayAwake> awake_;
    bool standing_ = false;
    /// Whether the end button showed the pointer, which going back into the show hides.
    bool hidePointerAgain_ = false;
};

}  // namespace show
