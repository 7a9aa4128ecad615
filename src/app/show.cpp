#include "app/show.h"

namespace app {

Show::Show(ui::EventLoop& loop, media::MediaControl& control, Form1& form, SurfaceSettings& surfaces,
           show::PictureSource& pictures)
    : form_(form),
      surfaces_(surfaces),
      screen_(form, surfaces),
      pictures_(pictures),
      runner_({loop, form.Pic2, form.Pic3, form.Timer2, form.Check1}),
      captions_({loop, state_, form.Pic2, form.Pic3, form.UT, form.Text1, form.Timer3}),
      video_({loop, control, music_, form.stage(), form.choices(), form.timers(),
              [this] { return player_.playing(); }, [this] { return runner_.running(); }}),
      player_({loop, control, music_, form.Timer5, form.Musik,
               [this] { return runner_.running() || video_.sounds(); }}),
      script_({state_, captions_, runner_, music_, player_, form.choices(), form.timers()}),
      slideshow_({loop, state_, screen_, pictures_, engines(), form.stage(), form.choices(), form.timers()}),
      controls_({loop, state_, screen_, slideshow_, engines(), form.stage(), form.choices(), form.timers()}),
      watch_(loop, screen_, [this] { screensChanged(); }) {
    wire();
}

void Show::wire() {
    slideshow_.onStarted = [this] {
        watch_.start();
        onStarted();
    };
    slideshow_.onEnd = [this] { onEnd(); };
    controls_.onRestart = [this] { onRestart(); };
    form_.EOT.onClick = [this] { slideshow_.stop(); };
    form_.Pic2.onPressed = [this](const ui::MouseEvent& event) { controls_.mousePressed(event.button); };
}

void Show::run() {
    start();
    controls_.keyPress(L' ');
    // A film fades in for seconds, with the second press of a double click in the queue.
    slideshow_.noteStart();
}

void Show::prepare(const std::wstring& path) {
    pictures_.setSurface(screen_.surfaceToCome());
    pictures_.prepare({path});
}

void Show::activated() {
    screen_.pointer().show();
    if (state_.showMode == show::kAutomatically && !slideshow_.atEnd()) {
        screen_.pointer().hide();
    }
}

}  // namespace app
