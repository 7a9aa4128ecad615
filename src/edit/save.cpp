#include "edit/save.h"

#include <algorithm>
#include <unordered_map>
#include <utility>

#include "edit/file_deletion.h"
#include "edit/save_check.h"
#include "edit/save_pace.h"
#include "files/file_filter.h"
#include "files/obstacle_text.h"
#include "files/recovery.h"
#include "files/take_back.h"
#include "overview/store_rule.h"
#include "overview/thumb_folder.h"
#include "platform/directory.h"
#include "script/script_file.h"
#include "ui/leaving_hold.h"
#include "ui/timer.h"

namespace edit {

namespace {

constexpr const wchar_t* kPrompt = L"Datei-Prefix:";
constexpr const wchar_t* kTitle = L"  Name";
constexpr const wchar_t* kSaving = L"Die Bilder des Ordners werden gerade gespeichert.";
constexpr const wchar_t* kNoBin =
    L"Für dieses Laufwerk gibt es keinen Papierkorb. Markierte Bilder endgültig löschen ?";
constexpr const wchar_t* kNotInBin =
    L"Der Papierkorb nimmt nicht alle markierten Bilder auf. Die übrigen endgültig löschen ?";
constexpr const wchar_t* kNothingSaved = L" Es wurde nichts gespeichert.";
constexpr const wchar_t* kNothingRenamed = L" Es wurde nichts umbenannt.";
constexpr const wchar_t* kNotWritable = L"In diesen Ordner kann nicht geschrieben werden.";
constexpr const wchar_t* kSaveLeft =
    L" Das Speichern ist halb fertig: Beim nächsten Speichern oder Öffnen des Ordners wird es "
    L"abgeschlossen oder zurückgenommen.";
constexpr const wchar_t* kTakingBackLeft =
    L" Beim nächsten Öffnen des Ordners wird die Änderung abgeschlossen oder zurückgenommen.";
constexpr const wchar_t* kOpenAnew = L" Bitte die Übersicht neu öffnen.";

/// Whether another prefix could help.
bool isAboutNames(files::Obstacle obstacle) {
    return obstacle == files::Obstacle::Taken || obstacle == files::Obstacle::TwiceTheSame ||
           obstacle == files::Obstacle::IllegalName || obstacle == files::Obstacle::PathTooLong;
}

/// Whether a change may have left a journal that is in the way of the next one, as on a disk that fails.
bool mayLeaveJournal(const files::Outcome& outcome) {
    const bool others =
        outcome.end == files::Outcome::End::Refused && (outcome.obstacle == files::Obstacle::OtherProgram ||
                                                        outcome.obstacle == files::Obstacle::Unfinished);
    return !outcome.kept && !others;
}

/// The plan's files that are not thumbnails; a change has them before those.
int picturesOf(const files::ChangePlan& plan) {
    return static_cast<int>(
        std::count_if(plan.moves.begin(), plan.moves.end(),
                      [](const files::PlannedMove& move) { return !files::isCacheName(move.from); }));
}

}  // namespace

/// Blocks the window and the marks that a save depends on, and holds leaving back, for as long as it runs.
class Save::Running {
  public:
    explicit Running(Save& save) : save_(save), hold_(save.parts_.loop, kSaving) {
        save_.running_ = true;
        save_.parts_.dialog.block(true);
    }
    ~Running() {
        save_.running_ = false;
        save_.parts_.dialog.progress(0, 0, {});
        save_.parts_.dialog.block(false);
    }
    Running(const Running&) = delete;
    Running& operator=(const Running&) = delete;

  private:
    Save& save_;
    ui::LeavingHold hold_;
};

Save::Save(Parts parts) : parts_(std::move(parts)) {}

std::wstring Save::pathOf(const std::wstring& fileName) const {
    return platform::joinPath(parts_.records.folder, fileName);
}

bool Save::save() {
    if (running_ || !settle() || !mayBegin()) {
        return false;
    }
    const Running running(*this);
    // Off while it runs; on again where nothing was written.
    parts_.records.changed = false;
    finishOthers();
    const bool written = deleteMarked() && rename();
    parts_.records.changed = !written;
    return written;
}

// What was in the way of an earlier change may be gone by now.
bool Save::settle() {
    using End = files::Recovery::End;
    if (!unsettled_) {
        return true;
    }
    files::Recovery recovery;
    {
        const Running running(*this);
        finishOthers();
        files::Waiting time = waiting();
        time.step = [this] { parts_.loop.doEvents(); };
        recovery = files::recoverFolder(parts_.fileSystem, parts_.records.folder, time);
        if (recovery.end == End::Finished && recovery.skipped.empty() && left_) {
            take(*left_);
        }
    }
    if (recovery.end == End::Waiting) {
        const bool known = recovery.obstacle != files::Obstacle::None;
        parts_.dialog.tell(known ? files::obstacleText(recovery.obstacle, recovery.name) + kNothingSaved
                                 : kNotWritable);
        return false;
    }
    if (recovery.end == End::Finished && !recovery.skipped.empty()) {
        const files::Recovery::Skipped& first = recovery.skipped.front();
        parts_.dialog.tell(files::obstacleText(first.why, first.name) + kNothingSaved + kOpenAnew);
        return false;
    }
    // Where another program is at it what comes next refuses the save.
    if (recovery.end != End::Running) {
        unsettled_ = false;
        left_.reset();
    }
    return true;
}

// Deletions cannot be undone, so whatever would refuse the save afterwards is asked for before them.
bool Save::mayBegin() {
    const overview::ThumbRecords& records = parts_.records;
    if (!records.folderWritable || !overview::canWriteTo(records.folder)) {
        parts_.dialog.tell(kNotWritable);
        return false;
    }
    const auto state = records.script.state;
    if (state == script::ScriptReading::State::WriteProtected ||
        state == script::ScriptReading::State::Unreadable) {
        parts_.dialog.tell(
            L"Panorell.txt ist versteckt, schreibgeschützt oder nicht lesbar. Es wurde nichts "
            L"gespeichert, damit keine Titel verloren gehen.");
        return false;
    }
    if (const auto refusal = checkBeforeSave(parts_.fileSystem, records)) {
        parts_.dialog.tell(files::obstacleText(refusal->obstacle, refusal->name) + kNothingSaved);
        return false;
    }
    return true;
}

// Nothing else of the program has a file of the folder open from now on.
void Save::finishOthers() {
    parts_.grid.finish();
    for (const char* command : {"stop VIDEO", "close VIDEO", "stop AUDIO", "close AUDIO"}) {
        parts_.control.send(command);
    }
}

std::vector<int> Save::marked() const {
    std::vector<int> indices;
    for (int i = 0; i < parts_.records.thumbCount(); ++i) {
        if (parts_.records.thumbRecords[static_cast<std::size_t>(i)].deleted) {
            indices.push_back(i);
        }
    }
    return indices;
}

bool Save::deleteMarked() {
    const std::vector<int> indices = marked();
    std::vector<bool> forever;
    for (const int index : indices) {
        const auto& record = parts_.records.thumbRecords[static_cast<std::size_t>(index)];
        forever.push_back(!parts_.bin.takes(pathOf(record.fileName)));
    }
    const bool any = std::find(forever.begin(), forever.end(), true) != forever.end();
    const bool all = std::find(forever.begin(), forever.end(), false) == forever.end();
    if (any && !parts_.dialog.agrees(all ? kNoBin : kNotInBin)) {
        return false;
    }
    return indices.empty() || deleteItems(indices, forever);
}

// Deleted records leave the overview even when the save ends here: their files are gone.
bool Save::deleteItems(const std::vector<int>& indices, const std::vector<bool>& forever) {
    const files::Waiting time = waiting();
    FileDeletion deletion(parts_.fileSystem, parts_.bin, time);
    const int all = static_cast<int>(indices.size());
    std::vector<int> gone;
    std::wstring fault;
    for (int i = 0; i < all && fault.empty(); ++i) {
        const auto at = static_cast<std::size_t>(i);
        const auto& record = parts_.records.thumbRecords[static_cast<std::size_t>(indices[at])];
        parts_.dialog.progress(i, all, progressText(i, all, all));
        parts_.loop.doEvents();
        const FileDeletion::Result result = deletion.remove(parts_.records.folder, record, forever[at]);
        if (result.obstacle != files::Obstacle::None) {
            fault = files::obstacleText(result.obstacle, record.fileName);
            continue;
        }
        gone.push_back(indices[at]);
        if (result.inBin) {
            deleted_.push_back(record.fileName);
        }
    }
    parts_.dialog.progress(0, 0, {});
    if (!gone.empty()) {
        parts_.grid.remove(gone);
    }
    parts_.loop.doEvents();
    if (!fault.empty()) {
        parts_.dialog.tell(fault + L" Es wurde nicht gespeichert.");
    }
    return fault.empty();
}

std::optional<std::wstring> Save::askPrefix(const std::wstring& offered, const std::wstring& reason) const {
    ui::InputQuestion question;
    question.title = kTitle;
    question.prompt = reason.empty() ? kPrompt : reason + L"\r\n" + kPrompt;
    question.text = offered;
    auto answer = parts_.dialog.ask(question);
    return answer && answer->empty() ? std::nullopt : answer;
}

files::Answer<SaveFolder> Save::readFolder() const {
    files::Answer<SaveFolder> answer;
    SaveFolder& folder = answer.value;
    folder.formerNames = parts_.records.folderNames;
    folder.scriptText = parts_.records.script.text;
    if (parts_.records.script.state == script::ScriptReading::State::Whole) {
        folder.scriptBytes = parts_.records.script.bytes;
    }
    const auto entries = parts_.fileSystem.list(parts_.records.folder);
    answer.failure = entries.failure;
    for (const auto& entry : entries.value) {
        if (!entry.folder && files::matchesPattern(entry.name, files::kTypPatterns[0])) {
            folder.names.push_back(entry.name);
        }
    }
    // Without a store there are none; one that cannot be read refuses the change itself.
    const auto thumbnails = parts_.fileSystem.list(pathOf(overview::kStoreFolder));
    for (const auto& entry : thumbnails.value) {
        folder.thumbnails.push_back(entry.name);
    }
    return answer;
}

bool Save::rename() {
    if (parts_.records.thumbRecords.empty()) {
        return false;
    }
    std::wstring prefix = defaultPrefix(parts_.records.thumbRecords.front().fileName);
    std::wstring reason;
    while (auto answer = askPrefix(prefix, reason)) {
        prefix = *answer;
        const files::Answer<SaveFolder> folder = readFolder();
        if (folder.failure != files::Failure::None) {
            parts_.dialog.tell(files::obstacleText(files::obstacleOf(folder.failure), {}) + kNothingRenamed);
            return false;
        }
        SavePlan plan = planSave(parts_.records, prefix, folder.value, deleted_, script::scriptFileBytes);
        reason = sentenceOf(plan.refusal);
        if (!reason.empty()) {
            continue;
        }
        const files::Outcome outcome = carryOut(plan.change);
        unsettled_ = mayLeaveJournal(outcome);
        if (outcome.end == files::Outcome::End::Done) {
            take(plan);
            left_.reset();
            return true;
        }
        left_ = std::move(plan);
        reason = files::obstacleText(outcome.obstacle, outcome.name);
        if (outcome.end != files::Outcome::End::Refused || !isAboutNames(outcome.obstacle)) {
            const bool left = outcome.end == files::Outcome::End::Left;
            parts_.dialog.tell(reason + (left ? kSaveLeft : kNothingRenamed));
            return false;
        }
    }
    return false;
}

files::Outcome Save::carryOut(const files::ChangePlan& plan) {
    const int pictures = picturesOf(plan);
    double waited = 0;
    return files::changeFolder(parts_.fileSystem, plan, waiting(), [&](const files::ChangeProgress& at) {
        const int done = (at.pass - 1) * at.count + at.index + 1;
        parts_.dialog.progress(done, 2 * at.count, progressText(at.index, pictures, at.count));
        const int wait = at.pass == 1 && at.index < pictures ? itemWait(pictures, waited) : 0;
        const double before = parts_.loop.now();
        if (wait > 0) {
            pause(wait);
            waited += parts_.loop.now() - before;
        } else {
            parts_.loop.doEvents();
        }
    });
}

// All of it is known, so that nothing that fails now leaves the records with what was before. The order may
// be another one since it was planned.
void Save::take(const SavePlan& plan) {
    overview::ThumbRecords& records = parts_.records;
    std::unordered_map<std::wstring, std::wstring> newNames;
    for (const files::PlannedMove& move : plan.change.moves) {
        newNames[move.from] = move.to;
    }
    for (overview::ThumbRecord& record : records.thumbRecords) {
        if (const auto found = newNames.find(record.fileName); found != newNames.end()) {
            record.fileName = found->second;
        }
    }
    records.folderNames = plan.names;
    records.script = {};
    if (plan.change.script->after) {
        records.script.state = script::ScriptReading::State::Whole;
        records.script.bytes = *plan.change.script->after;
        records.script.text = plan.scriptText;
    }
    deleted_.clear();
    parts_.grid.renamed();
}

bool Save::canTakeBack() const {
    return !running_ && files::takeBackPlan(parts_.fileSystem, parts_.records.folder).has_value();
}

void Save::takeBack() {
    if (running_) {
        return;
    }
    const auto plan = files::takeBackPlan(parts_.fileSystem, parts_.records.folder);
    if (!plan) {
        parts_.dialog.tell(L"Das letzte Speichern kann nicht mehr zurückgenommen werden.");
        return;
    }
    files::Outcome outcome;
    {
        const Running running(*this);
        finishOthers();
        outcome = carryOut(*plan);
        unsettled_ = mayLeaveJournal(outcome);
        left_.reset();
    }
    const bool left = outcome.end == files::Outcome::End::Left;
    if (outcome.end != files::Outcome::End::Done) {
        parts_.dialog.tell(files::obstacleText(outcome.obstacle, outcome.name) +
                           (left ? kTakingBackLeft : L" Das letzte Speichern wurde nicht zurückgenommen."));
        if (left) {
            // Some files have other names than the records say.
            parts_.grid.reload();
        }
        return;
    }
    if (!plan->deleted.empty()) {
        parts_.dialog.tell(L"Gelöschte Dateien bleiben im Papierkorb: " +
                           std::to_wstring(plan->deleted.size()) + L".");
    }
    parts_.records.changed = false;
    parts_.grid.reload();
}

files::Waiting Save::waiting() {
    return {[this] { return parts_.loop.now(); }, [this](int ms) { pause(ms); }};
}

// Events run meanwhile, so that the window paints.
void Save::pause(int ms) {
    bool over = false;
    ui::Timer timer(parts_.loop, std::max(1, ms));
    timer.onTimer = [&] { over = true; };
    timer.setEnabled(true);
    while (!over) {
        parts_.loop.waitEvents();
    }
}

}  // namespace edit
