#pragma once

#include <functional>
#include <optional>
#include <string>

#include "show/engines.h"
#include "show/picture_source.h"
#include "show/show_end.h"
#include "show/show_screen.h"
#include "show/show_state.h"
#include "ui/event_loop.h"
#include "ui/stage.h"

namespace show {

/// The show: its start, the step from item to item that Timer1 drives, and its end. Keys and mouse steer it
/// through ShowControls.
class Slideshow {
  public:
    struct Parts {
        ui::EventLoop& loop;
        ShowState& state;
        ShowScreen& screen;
        PictureSource& pictures;
        Engines engines;
        ui::Stage stage;
        ui::Choices choices;
        ui::Timers timers;
    };
    explicit Slideshow(const Parts& parts);

    /// Turns the window into the show surface and brings the selected item onto it, stepping by hand. Does
    /// nothing when there are no files.
    void start();
    /// Steps on by itself from now on, beginning with the item shown.
    void continueAutomatically();
    /// Stops stepping and keeps the item shown; a video halts.
    void pauseByHand();
    /// Stops stepping by itself: the item asked for next is still shown, then the show waits.
    void hold();
    /// The next item comes now: 100 ms from now, or as soon as a running transition is through. One that is
    /// pending already stays as it is.
    void quickStep();
    /// Goes back so that the next step shows the item before this one; false on the first one.
    bool stepBack();
    /// Whether the end of the list was reached and the last item stands under the end button.
    bool atEnd() const;
    /// The click that started the show has been carried out only now: a double click counts from here.
    void noteStart();
    /// Whether the show has started within the time of a double click, or is starting.
    bool justStarted() const;
    /// The screens have other sizes, places or scalings: the surface follows to what is there and the item
    /// shown is fitted anew, after a transition that runs.
    void screensChanged();
    /// Whether the display has to stay awake: from the start to the end of the list.
    bool keepsAwake() const { return end_.keepsAwake(); }
    /// Runs `refresh`, which reads File1 anew; the item shown keeps its place by name.
    void keepItemAcross(const std::function<void()>& refresh);
    /// Stops a video that a key ends: black surface, effect "A" next.
    void endVideo();
    /// The show is wound down: no more steps.
    void stop();

    /// The first item is on the screen, or what stands for it; the window is still to be shown and told.
    std::function<void()> onStarted;
    /// The show is over and the window is to be unloaded.
    std::function<void()> onEnd;

  private:
    void tick();
    void takeSurface();
    void fitSurface();
    void fitItem();
    void cancelQuickStep();
    std::optional<SIZE> putFirst();
    bool loadFirst(const std::optional<SIZE>& standing);
    void showFirst(const std::optional<SIZE>& standing);
    void showVideo();
    void showPicture();
    void passOver();
    void prepareNeighbours();
    std::wstring pathOf(int index) const;

    Parts parts_;
    ShowEnd end_;
    /// The item that stood when steps back were asked for that have not come yet; a damaged picture is then
    /// passed over in that direction.
    std::optional<int> backFrom_;
    bool starting_ = false;
    double startedAt_ = 0;
    /// The surface has another size, and a transition runs on the former one.
    bool surfaceChanged_ = false;
};

}  // namespace show
