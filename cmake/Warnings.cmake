# One set of warnings for all of our own code; third-party sources do not link this target.
add_library(panorell_warnings INTERFACE)
target_compile_options(panorell_warnings INTERFACE
  -Wall -Wextra -Wpedantic -Wshadow -Wconversion -Werror
  # What GCC 12 concludes from its optimizer's view of std::optional and std::vector is often wrong; the
  # sanitizers judge instead.
  -Wno-maybe-uninitialized -Wno-stringop-overflow -Wno-stringop-overread -Wno-array-bounds)
