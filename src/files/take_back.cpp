#include "files/take_back.h"

#include <utility>

#include "files/folder_view.h"
#include "files/journal.h"
#include "files/plan_check.h"
#include "platform/directory.h"

namespace files {

std::optional<ChangePlan> takeBackPlan(const FileSystem& fileSystem, const std::wstring& folder) {
    const Answer<std::string> bytes = fileSystem.read(platform::joinPath(folder, kJournalFile));
    if (bytes.failure != Failure::None) {
        return std::nullopt;
    }
    JournalReading reading = readJournal(bytes.value);
    if (reading.kind != JournalReading::Kind::Whole || reading.phase != Phase::Done) {
        return std::nullopt;
    }
    const Answer<FolderView> view = FolderView::read(fileSystem, folder);
    if (view.failure != Failure::None) {
        return std::nullopt;
    }
    ChangePlan plan;
    plan.folder = folder;
    plan.takesBack = true;
    plan.deleted = std::move(reading.journal.deleted);
    for (const JournalMove& move : reading.journal.moves) {
        plan.moves.push_back({move.newName, move.oldName, move.stamp, move.oldAttributes});
        const FolderEntry* entry = view.value.findFile(move.newName, move.stamp);
        if (!isCacheName(move.newName) && (entry == nullptr || entry->name != move.newName)) {
            return std::nullopt;
        }
    }
    if (reading.journal.script) {
        ScriptChange& script = *reading.journal.script;
        plan.script = ScriptChange{script.name, std::move(script.after), std::move(script.before)};
    }
    if (checkPlan(fileSystem, view.value, plan)) {
        return std::nullopt;
    }
    return plan;
}

}  // namespace files
