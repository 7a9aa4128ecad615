#include "edit/save_check.h"

#include "files/folder_view.h"
#include "files/journal.h"
#include "platform/directory.h"
#include "script/show_script.h"

namespace edit {

namespace {

using files::Obstacle;
using files::Refusal;

// The journal of a change that was done, or never begun, is in nobody's way.
Obstacle journalObstacle(const files::FileSystem& fileSystem, const std::wstring& folder) {
    const auto bytes = fileSystem.read(platform::joinPath(folder, files::kJournalFile));
    if (bytes.failure == files::Failure::Missing) {
        return Obstacle::None;
    }
    if (bytes.failure != files::Failure::None) {
        return bytes.failure == files::Failure::InUse ? Obstacle::OtherProgram
                                                      : files::obstacleOf(bytes.failure);
    }
    const files::JournalReading reading = files::readJournal(bytes.value);
    const bool begun =
        reading.kind == files::JournalReading::Kind::Foreign ||
        (reading.kind == files::JournalReading::Kind::Whole && reading.phase != files::Phase::Done);
    return begun ? Obstacle::Unfinished : Obstacle::None;
}

/// Nothing gets another name or text: what stands against this stands against every save.
files::ChangePlan planWithoutChanges(const files::FolderView& view, const overview::ThumbRecords& records) {
    files::ChangePlan plan;
    plan.folder = records.folder;
    for (const overview::ThumbRecord& record : records.thumbRecords) {
        if (!record.deleted || view.find(record.fileName) != nullptr) {
            plan.moves.push_back({record.fileName, record.fileName, record.stamp, {}});
        }
    }
    files::ScriptChange script{script::kScriptFile, {}, {}};
    if (records.script.state == script::ScriptReading::State::Whole) {
        script.before = records.script.bytes;
    }
    plan.script = std::move(script);
    return plan;
}

}  // namespace

std::optional<Refusal> checkBeforeSave(const files::FileSystem& fileSystem,
                                       const overview::ThumbRecords& records) {
    if (const Obstacle found = journalObstacle(fileSystem, records.folder); found != Obstacle::None) {
        return Refusal{found, {}};
    }
    const auto view = files::FolderView::read(fileSystem, records.folder);
    if (view.failure != files::Failure::None) {
        return Refusal{files::obstacleOf(view.failure), {}};
    }
    const files::FolderEntry* script = view.value.find(script::kScriptFile);
    if (script != nullptr && (script->attributes & files::kKeptAttributes) != 0) {
        return Refusal{Obstacle::ScriptChanged, script::kScriptFile};
    }
    return files::checkPlan(fileSystem, view.value, planWithoutChanges(view.value, records));
}

}  // namespace edit
