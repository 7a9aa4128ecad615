#include "edit/store_commands.h"

#include "show/raised_flag.h"

namespace edit {

void StoreCommands::progress(int done) const {
    if (onProgress) {
        onProgress(done, parts_.records.thumbCount());
    }
}

bool StoreCommands::save() {
    if (!parts_.store.create()) {
        return false;
    }
    const int count = parts_.records.thumbCount();
    stopped_ = false;
    const show::RaisedFlag saving(saving_);
    for (int i = 0; i < count; ++i) {
        progress(i);
        parts_.loop.doEvents();
        if (stopped_) {
            break;
        }
        if (const auto thumbnail = parts_.grid.redraw(i)) {
            parts_.store.save(parts_.records.thumbRecords[static_cast<std::size_t>(i)].fileName, *thumbnail);
        }
    }
    progress(count);
    return !stopped_;
}

}  // namespace edit
