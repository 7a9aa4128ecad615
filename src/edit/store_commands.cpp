#include "edit/store_commands.h"

#include "overview/store_rule.h"
#include "platform/system_message.h"
#include "show/raised_flag.h"

namespace edit {

void StoreCommands::progress(int done) const {
    if (onProgress) {
        onProgress(done, parts_.records.thumbCount());
    }
}

// Makes one thumbnail and keeps it; the sentence for the user where that failed. What cannot be shown is
// none.
std::wstring StoreCommands::keep(int index) {
    const auto thumbnail = parts_.grid.redraw(index);
    const std::wstring& name = parts_.records.thumbRecords[static_cast<std::size_t>(index)].fileName;
    const unsigned long code = thumbnail ? parts_.store.save(name, *thumbnail) : 0;
    return code == 0 ? std::wstring()
                     : L"Das Minibild von «" + name + L"» kann nicht gespeichert werden: " +
                           platform::systemMessage(code);
}

StoreCommands::End StoreCommands::save() {
    if (const unsigned long code = parts_.store.create(); code != 0) {
        return {false, std::wstring(L"Der Ordner «") + overview::kStoreFolder +
                           L"» kann nicht angelegt werden: " + platform::systemMessage(code)};
    }
    const int count = parts_.records.thumbCount();
    stopped_ = false;
    const show::RaisedFlag saving(saving_);
    std::wstring fault;
    for (int i = 0; i < count && fault.empty(); ++i) {
        progress(i);
        parts_.loop.doEvents();
        if (stopped_) {
            break;
        }
        fault = keep(i);
    }
    progress(count);
    return {!stopped_ && fault.empty(), std::move(fault)};
}

}  // namespace edit
