// Transition effects at the size of the screen: what a step's drawing costs, and how long an effect takes.

#include <windows.h>

#include <algorithm>
#include <map>
#include <numeric>
#include <optional>
#include <stdexcept>
#include <vector>

#include "bench_main.h"
#include "idle_loop.h"
#include "show/transition_runner.h"
#include "support/virtual_loop.h"
#include "ui/check_box.h"
#include "ui/form.h"
#include "ui/picture_box.h"
#include "ui/timer.h"
#include "ui/windows_loop.h"

namespace bench {

namespace {

constexpr int kRuns = 5;

double clockMs() {
    LARGE_INTEGER counter{};
    LARGE_INTEGER frequency{};
    QueryPerformanceCounter(&counter);
    QueryPerformanceFrequency(&frequency);
    return 1000.0 * static_cast<double>(counter.QuadPart) / static_cast<double>(frequency.QuadPart);
}

/// Without waiting times.
using StepLoop = IdleLoop<support::VirtualLoop>;

/// The show surface as large as the screen, with real controls. A loop must be there already.
class Stage {
  public:
    explicit Stage(ui::EventLoop& loop) : loop_(loop), Timer2(loop, 10, ui::Timer::Pacing::FromTick) {
        SetWindowPos(form.hwnd(), HWND_TOP, 0, 0, width, height, SWP_SHOWWINDOW);
        form.show();
        Pic2.movePixels(0, 0, width, height);
        Pic2.setImage(slopes(0));
        Pic2.show();
        Pic3.movePixels(0, 0, width, height);
        loop_.doEvents();
        Check1.setValue(1);
        runner.emplace(show::TransitionRunner::Parts{loop_, Pic2, Pic3, Timer2, Check1});
    }

    /// Gets the next picture ready, so that only the transition is left.
    void prepare(int index) {
        runner->effectNumber = index + 1;
        Pic3.movePixels(0, 0, width, height);
        Pic3.setImage(slopes(++picture_));
        loop_.doEvents();
    }
    void run() {
        runner->run([] {});
    }

    const int width = GetSystemMetrics(SM_CXSCREEN);
    const int height = GetSystemMetrics(SM_CYSCREEN);

  private:
    picture::Pixels slopes(int number) const {
        picture::Pixels pixels(width, height);
        for (int y = 0; y < height; ++y) {
            for (int x = 0; x < width; ++x) {
                pixels.row(y)[x] = static_cast<std::uint32_t>((x + number * 40) & 0xFF) << 16 |
                                   static_cast<std::uint32_t>(y & 0xFF) << 8 |
                                   static_cast<std::uint32_t>(number * 90 & 0xFF);
            }
        }
        return pixels;
    }

    ui::EventLoop& loop_;
    ui::Form form{
        {.className = L"PanorellBenchShow", .title = L"", .width = 100, .height = 100, .borderless = true}};
    ui::CheckBox Check1{{.parent = form, .visible = false}};
    ui::PictureBox Pic3{{.parent = form, .visible = false}};
    ui::PictureBox Pic2{{.parent = form}};
    int picture_ = 0;

  public:
    ui::Timer Timer2;
    std::optional<show::TransitionRunner> runner;
};

double medianOf(std::vector<double> values) {
    std::sort(values.begin(), values.end());
    return values[values.size() / 2];
}

/// The cost of each step in one run: from the tick that begins it until nothing is left to draw.
std::vector<double> stepCosts(Stage& stage, StepLoop& loop, int index) {
    stage.prepare(index);
    std::vector<double> costs;
    double ticked = -1;
    const auto pause = stage.Timer2.onTimer;
    stage.Timer2.onTimer = [&] {
        pause();
        ticked = clockMs();
    };
    loop.onIdle = [&] {
        if (ticked >= 0) {
            costs.push_back(clockMs() - ticked);
        }
        ticked = -1;
    };
    stage.run();
    // Without steps the whole transition is one; else the last step also ends the transition.
    loop.doEvents();
    GdiFlush();
    loop.onIdle = nullptr;
    if (ticked >= 0) {
        costs.push_back(clockMs() - ticked);
    }
    stage.Timer2.onTimer = pause;
    return costs;
}

/// The effects "A" and "Z", which do not wait.
double costAtOnce(Stage& stage, StepLoop& loop, int index) {
    stage.prepare(index);
    return milliseconds([&] {
        stage.run();
        loop.doEvents();
        GdiFlush();
    });
}

struct Cost {
    double mean = 0;
    double max = 0;
    double end = 0;  ///< the last step together with the end of the transition
};

/// Of each step the median of several runs counts, so that what else the machine does falls out.
Cost measureCost(int index) {
    StepLoop loop;
    Stage stage(loop);
    std::vector<double> steps;
    if (!show::effectPlan(index, stage.width, stage.height).paced) {
        std::vector<double> runs;
        for (int i = 0; i < kRuns; ++i) {
            runs.push_back(costAtOnce(stage, loop, index));
        }
        steps.push_back(medianOf(runs));
    } else {
        std::vector<std::vector<double>> runs;
        for (int i = 0; i < kRuns; ++i) {
            runs.push_back(stepCosts(stage, loop, index));
        }
        for (std::size_t step = 0; step < runs.front().size(); ++step) {
            std::vector<double> values;
            for (const auto& run : runs) {
                values.push_back(run.at(step));
            }
            steps.push_back(medianOf(values));
        }
    }
    const double end = steps.back();
    if (steps.size() > 1) {
        steps.pop_back();
    }
    return {std::accumulate(steps.begin(), steps.end(), 0.0) / static_cast<double>(steps.size()),
            *std::max_element(steps.begin(), steps.end()), end};
}

const Cost& costOf(int index) {
    static std::map<int, Cost> costs;
    const auto known = costs.find(index);
    return known != costs.end() ? known->second : costs.emplace(index, measureCost(index)).first->second;
}

/// In percent of what the effect's steps add up to.
double duration(int index) {
    ui::WindowsLoop loop;
    Stage stage(loop);
    stage.prepare(index);
    const double time = milliseconds([&] { stage.run(); });
    return 100 * time / show::effectDuration(index, stage.width, stage.height);
}

/// The figures belong to the size of this screen: the others need another one.
std::vector<Figure> effectFigures() {
    const int width = GetSystemMetrics(SM_CXSCREEN);
    const int height = GetSystemMetrics(SM_CYSCREEN);
    const std::string size = std::to_string(width) + "x" + std::to_string(height);
    std::vector<Figure> figures;
    for (int index = 0; index < show::kEffectCount; ++index) {
        const std::string name =
            "effects_" + size + "_" + std::string(1, static_cast<char>('A' + index)) + "_";
        figures.emplace_back(name + "step_mean", "ms", 1, [index] { return costOf(index).mean; });
        figures.emplace_back(name + "step_max", "ms", 1, [index] { return costOf(index).max; });
        if (show::effectPlan(index, width, height).paced) {
            figures.emplace_back(name + "end", "ms", 1, [index] { return costOf(index).end; });
            figures.emplace_back(name + "duration", "%", 1, [index] { return duration(index); });
        }
    }
    return figures;
}

const std::vector<Figure> kEffects = effectFigures();

}  // namespace

}  // namespace bench
