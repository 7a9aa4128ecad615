#pragma once

#include <chrono>
#include <functional>
#include <vector>

#include "picture/pixels.h"
#include "program/support/test_pictures.h"
#include "program/support/wait.h"

namespace program {

/// Recognises on the screen which picture of a show stands there. The lowest fifth of the screen, where
/// captions appear, is left out.
class ShowWatch {
  public:
    explicit ShowWatch(const std::vector<TestPicture>& pictures);

    /// What the screen shows if it is none of the pictures.
    static constexpr int kBlack = -1;
    static constexpr int kOther = -2;

    /// The number of the picture the screen shows now, kBlack or kOther.
    int now() const;

    /// Which of the pictures (or kBlack, kOther) a capture of the screen shows.
    int recognise(const picture::Pixels& screen) const;

    /// Waits until the screen shows the picture with this number.
    testing::AssertionResult comes(int number, std::chrono::milliseconds timeout = kPatience) const;

    /// Waits until the screen shows something else than `number`.
    testing::AssertionResult goes(int number, std::chrono::milliseconds timeout = kPatience) const;

    /// One item of a recorded show: what stood there, since when, and for how long it was seen.
    struct Shown {
        int number = 0;
        std::chrono::steady_clock::time_point since{};
        std::chrono::milliseconds seen{0};
    };

    /// Records what the screen shows, one entry a change, until `done`, asked with what was just seen, says
    /// so or the time is over.
    std::vector<Shown> record(const std::function<bool(int number)>& done,
                              std::chrono::milliseconds timeout) const;

    /// Compares the whole upper part of the screen with the picture, pixel for pixel.
    testing::AssertionResult showsExactly(int number) const;

  private:
    struct Known {
        TestPicture picture;
        picture::Pixels expected;
    };
    std::vector<Known> known_;
};

/// The numbers of a record, in order.
std::vector<int> numbers(const std::vector<ShowWatch::Shown>& record);

}  // namespace program
