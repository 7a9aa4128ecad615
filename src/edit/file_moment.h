#pragma once

#include <cstdint>
#include <optional>

#include "text/date_time.h"

namespace edit {

/// A file's time (units of 100 ns since 1601, UTC) as the user's clock showed it; none for one beyond the
/// calendar.
std::optional<text::DateTime> momentOf(std::uint64_t fileTime);

/// The way back; none for a moment that the clock left out in spring (see platform::fileTimeOf).
std::optional<std::uint64_t> fileTimeOf(const text::DateTime& moment);

}  // namespace edit
