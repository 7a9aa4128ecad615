// A picture step of the whole program, in this process: from Timer1's tick to the changed screen.

#include <windows.h>

#include <algorithm>
#include <stdexcept>
#include <vector>

#include "app/application.h"
#include "bench_main.h"
#include "idle_loop.h"
#include "photographs.h"
#include "run_program.h"
#include "ui/windows_loop.h"

namespace bench {

namespace {

/// No sound and no film.
class NoMedia : public media::MediaControl {
  public:
    media::MediaReply send(const std::string&, int) override { return {}; }
};

/// The median of a show's steps with effect "A", each picture long decoded when its turn comes.
double step() {
    constexpr int kSteps = 9;
    IdleLoop<ui::WindowsLoop> loop;
    NoMedia media;
    app::Application application(loop, media, temporaryFolder());
    application.load(markedFolder(kMarkCount) + L" P=3 E=1 M=0 R=1");
    app::Form1& form = application.form();
    form.Check1.setValue(0);
    std::vector<double> times;
    bool ticked = false;
    LARGE_INTEGER began{};
    LARGE_INTEGER frequency{};
    QueryPerformanceFrequency(&frequency);
    const auto tick = form.Timer1.onTimer;
    form.Timer1.onTimer = [&] {
        QueryPerformanceCounter(&began);
        ticked = true;
        tick();
    };
    loop.onIdle = [&] {
        if (!ticked) {
            return;
        }
        LARGE_INTEGER ended{};
        QueryPerformanceCounter(&ended);
        ticked = false;
        times.push_back(1000.0 * static_cast<double>(ended.QuadPart - began.QuadPart) /
                        static_cast<double>(frequency.QuadPart));
        if (times.size() == kSteps) {
            loop.leave();
        }
    };
    loop.run();
    std::sort(times.begin(), times.end());
    return times[times.size() / 2];
}

const Figure kStep("step_effect_a_24_megapixels", "ms", 1, step);

}  // namespace

}  // namespace bench
