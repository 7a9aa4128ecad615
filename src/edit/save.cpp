#include "edit/save.h"

#include <algorithm>
#include <utility>

#include "files/file_filter.h"
#include "files/obstacle_text.h"
#include "files/take_back.h"
#include "overview/store_rule.h"
#include "platform/directory.h"
#include "script/script_file.h"
#include "ui/leaving_hold.h"
#include "ui/timer.h"

namespace edit {

namespace {

constexpr const wchar_t* kPrompt = L"Datei-Prefix:";
constexpr const wchar_t* kTitle = L"  Name";
constexpr const wchar_t* kSaving = L"Die Bilder des Ordners werden gerade gespeichert.";
/// How long each file is seen to be worked on, and all of them together at most.
constexpr int kWaitMs = 200;
constexpr int kAllWaitsMs = 5000;
constexpr const wchar_t* kNoBin =
    L"Für dieses Laufwerk gibt es keinen Papierkorb. Markierte Bilder endgültig löschen ?";

/// Whether another prefix could help.
bool isAboutNames(files::Obstacle obstacle) {
    return obstacle == files::Obstacle::Taken || obstacle == files::Obstacle::TwiceTheSame ||
           obstacle == files::Obstacle::IllegalName || obstacle == files::Obstacle::PathTooLong;
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
    if (running_ || !mayBegin()) {
        return false;
    }
    const Running running(*this);
    // Off while it runs; on again where nothing was written.
    parts_.records.changed = false;
    const bool written = saveNow();
    parts_.dialog.progress(0, 0);
    parts_.records.changed = !written;
    return written;
}

bool Save::mayBegin() {
    if (!parts_.records.folderWritable) {
        parts_.dialog.tell(L"In diesen Ordner kann nicht geschrieben werden.");
        return false;
    }
    const auto state = parts_.records.script.state;
    if (state == script::ScriptReading::State::WriteProtected ||
        state == script::ScriptReading::State::Unreadable) {
        parts_.dialog.tell(
            L"Panorell.txt ist versteckt, schreibgeschützt oder nicht lesbar. Es wurde nichts "
            L"gespeichert, damit keine Titel verloren gehen.");
        return false;
    }
    return true;
}

bool Save::saveNow() {
    parts_.grid.finish();
    for (const char* command : {"stop VIDEO", "close VIDEO", "stop AUDIO", "close AUDIO"}) {
        parts_.control.send(command);
    }
    return deleteMarked() && rename();
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

// Deleted records leave the overview even when the save ends here: their files are gone.
bool Save::deleteMarked() {
    deleted_.clear();
    const std::vector<int> indices = marked();
    if (indices.empty()) {
        return true;
    }
    const auto& records = parts_.records.thumbRecords;
    if (!parts_.bin.takes(pathOf(records[static_cast<std::size_t>(indices.front())].fileName)) &&
        !parts_.dialog.agrees(kNoBin)) {
        return false;
    }
    std::vector<int> gone;
    for (const int index : indices) {
        const overview::ThumbRecord& record = records[static_cast<std::size_t>(index)];
        if (!deleteRecord(record)) {
            break;
        }
        deleted_.push_back(record.fileName);
        gone.push_back(index);
    }
    if (!gone.empty()) {
        parts_.grid.remove(gone);
    }
    parts_.loop.doEvents();
    return gone.size() == indices.size();
}

bool Save::deleteRecord(const overview::ThumbRecord& record) {
    const std::wstring path = pathOf(record.fileName);
    const auto now = parts_.fileSystem.stat(path);
    if (now.failure == files::Failure::Missing) {
        // Someone else was quicker; what was wanted is so.
        deleteThumbnail(record.fileName);
        return true;
    }
    files::Obstacle obstacle = files::obstacleOf(now.failure);
    if (now.failure == files::Failure::None && !files::sameFile(now.value.stamp, record.stamp)) {
        obstacle = files::Obstacle::Changed;
    }
    if (obstacle == files::Obstacle::None) {
        const files::Waiting waiting{[this] { return parts_.loop.now(); }, [this](int ms) { pause(ms); }};
        files::Patience patience(waiting);
        parts_.fileSystem.setAttributes(path, 0);
        const bool recoverable = parts_.bin.takes(path);
        const files::Failure failure = patience.until(
            [&] { return recoverable ? parts_.bin.put(path) : parts_.fileSystem.remove(path); });
        if (failure == files::Failure::None) {
            deleteThumbnail(record.fileName);
            return true;
        }
        parts_.fileSystem.setAttributes(path, now.value.attributes);
        obstacle = files::obstacleOf(failure);
    }
    parts_.dialog.tell(files::obstacleText(obstacle, record.fileName) + L" Es wurde nicht gespeichert.");
    return false;
}

// A thumbnail that other files share is not theirs either way, and made again when it is missing.
void Save::deleteThumbnail(const std::wstring& fileName) {
    const std::wstring name =
        std::wstring(overview::kStoreFolder) + L"\\" + overview::thumbnailName(fileName);
    parts_.fileSystem.remove(pathOf(name));
}

std::optional<std::wstring> Save::askPrefix(const std::wstring& offered, const std::wstring& reason) const {
    ui::InputQuestion question;
    question.title = kTitle;
    question.prompt = reason.empty() ? kPrompt : reason + L"\r\n" + kPrompt;
    question.text = offered;
    auto answer = parts_.dialog.ask(question);
    return answer && answer->empty() ? std::nullopt : answer;
}

SaveFolder Save::readFolder() const {
    SaveFolder folder;
    folder.formerNames = parts_.records.folderNames;
    folder.scriptText = parts_.records.script.text;
    if (parts_.records.script.state == script::ScriptReading::State::Whole) {
        folder.scriptBytes = parts_.records.script.bytes;
    }
    for (const auto& entry : parts_.fileSystem.list(parts_.records.folder).value) {
        if (!entry.folder && files::matchesPattern(entry.name, files::kTypPatterns[0])) {
            folder.names.push_back(entry.name);
        }
    }
    for (const auto& entry : parts_.fileSystem.list(pathOf(overview::kStoreFolder)).value) {
        folder.thumbnails.push_back(entry.name);
    }
    return folder;
}

bool Save::rename() {
    if (parts_.records.thumbRecords.empty()) {
        return false;
    }
    std::wstring prefix = defaultPrefix(parts_.records.thumbRecords.front().fileName);
    std::wstring reason;
    while (auto answer = askPrefix(prefix, reason)) {
        prefix = *answer;
        SavePlan plan = planSave(parts_.records, prefix, readFolder(), deleted_, script::scriptFileBytes);
        reason = sentenceOf(plan.refusal);
        if (!reason.empty()) {
            continue;
        }
        const files::Outcome outcome = carryOut(plan.change);
        if (outcome.end == files::Outcome::End::Done) {
            take(plan);
            return true;
        }
        reason = files::obstacleText(outcome.obstacle, outcome.name);
        if (outcome.end != files::Outcome::End::Refused || !isAboutNames(outcome.obstacle)) {
            const bool left = outcome.end == files::Outcome::End::Left;
            parts_.dialog.tell(reason + (left ? L" Beim nächsten Öffnen des Ordners wird die Änderung "
                                                L"abgeschlossen oder zurückgenommen."
                                              : L" Es wurde nichts umbenannt."));
            return false;
        }
    }
    return false;
}

files::Outcome Save::carryOut(const files::ChangePlan& plan) {
    const files::Waiting waiting{[this] { return parts_.loop.now(); }, [this](int ms) { pause(ms); }};
    return files::changeFolder(parts_.fileSystem, plan, waiting, [this](const files::ChangeProgress& at) {
        const int all = 2 * at.count;
        parts_.dialog.progress((at.pass - 1) * at.count + at.index + 1, all);
        if (at.pass == 1) {
            pause(std::min(kWaitMs, kAllWaitsMs / std::max(1, at.count)));
        } else {
            parts_.loop.doEvents();
        }
    });
}

void Save::take(const SavePlan& plan) {
    overview::ThumbRecords& records = parts_.records;
    for (std::size_t i = 0; i < plan.newNames.size(); ++i) {
        records.thumbRecords[i].fileName = plan.newNames[i];
    }
    records.folderNames = readFolder().names;
    records.script = script::readScript(records.folder);
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
        parts_.grid.finish();
        outcome = carryOut(*plan);
        parts_.dialog.progress(0, 0);
    }
    if (outcome.end != files::Outcome::End::Done) {
        parts_.dialog.tell(files::obstacleText(outcome.obstacle, outcome.name) +
                           L" Das letzte Speichern wurde nicht zurückgenommen.");
        return;
    }
    if (!plan->deleted.empty()) {
        parts_.dialog.tell(L"Gelöschte Dateien bleiben im Papierkorb: " +
                           std::to_wstring(plan->deleted.size()) + L".");
    }
    parts_.records.changed = false;
    parts_.grid.reload();
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
