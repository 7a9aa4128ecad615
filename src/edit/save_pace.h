#pragma once

#include <string>

namespace edit {

/// How long a save waits after an item (ms), so that each is seen to be worked on: less the more items there
/// are, and 0 once the waits of all together would come near to five seconds. `waited`: what they have taken
/// so far; a timer of the system may take several times what was asked of it.
int itemWait(int items, double waited);

/// Which of its files a save is at, for its user. The `pictures` come first, then the stored thumbnails;
/// `index` is from 0, `files` are all of them.
std::wstring progressText(int index, int pictures, int files);

}  // namespace edit
