#pragma once

#include <functional>
#include <string>

namespace bench {

/// One figure of the program's speed or size. It registers itself: a file of figures holds namespace-scope
/// objects.
///
///     const Figure kLookup("lookup_10000_lines", "us", 9, [] { return 1000 * milliseconds(work); });
///
/// Figures run in the order of their names. What they share and what takes long to make is made on first use.
class Figure {
  public:
    /// Measures one run and returns its value in `unit`; an exception makes the whole run of the program
    /// fail.
    using Measure = std::function<double()>;

    /// The figure is the median of `runs` values (at least 1), after one run that only warms up unless `runs`
    /// is 1.
    Figure(std::string name, std::string unit, int runs, Measure measure);
};

/// How long `work` takes, by the clock on the wall.
double milliseconds(const std::function<void()>& work);

/// A folder for the files of the figures; removed when the program ends. No backslash at its end.
const std::wstring& temporaryFolder();

}  // namespace bench
