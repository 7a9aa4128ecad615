#include "files/journal_run.h"

#include <algorithm>
#include <set>

#include "files/cache_file.h"
#include "platform/directory.h"

namespace files {

JournalRun::JournalRun(FileSystem& fileSystem, std::wstring folder, const Journal& journal,
                       Patience& patience)
    : fileSystem_(fileSystem),
      folder_(std::move(folder)),
      journal_(journal),
      patience_(patience),
      places_(journal.moves.size(), Place::Old) {}

std::wstring JournalRun::path(std::wstring_view name) const {
    return platform::joinPath(folder_, name);
}

const std::wstring& JournalRun::nameAt(std::size_t i, Place place) const {
    const JournalMove& move = moveOf(i);
    if (place == Place::Temporary) {
        return move.temporaryName;
    }
    return place == Place::Old ? move.oldName : move.newName;
}

void JournalRun::locate(const FolderView& view, Phase phase) {
    const Place expected = phase == Phase::First ? Place::Old : Place::New;
    const Place other = phase == Phase::First ? Place::New : Place::Old;
    std::fill(places_.begin(), places_.end(), Place::Gone);
    std::set<const FolderEntry*> claimed;
    // The temporary names are nobody else's. After them the names of the phase come first: two copies of
    // one picture may have equal stamps.
    for (const Place place : {Place::Temporary, expected, other}) {
        for (std::size_t i = 0; i < count(); ++i) {
            FileStamp stamp = moveOf(i).stamp;
            // Some file systems number their files anew each time they are mounted.
            stamp.number = place == other ? stamp.number : 0;
            const FolderEntry* entry = view.findFile(nameAt(i, place), stamp);
            if (places_[i] == Place::Gone && entry != nullptr && claimed.insert(entry).second) {
                places_[i] = place;
            }
        }
    }
}

Failure JournalRun::bring(std::size_t i, Place to) {
    if (places_[i] == to || places_[i] == Place::Gone || moveOf(i).stays()) {
        return Failure::None;
    }
    patience_.step();
    const std::wstring from = path(nameAt(i, places_[i]));
    const std::wstring target = path(nameAt(i, to));
    Failure result = patience_.until([&] { return fileSystem_.rename(from, target); });
    if (result == Failure::None) {
        places_[i] = to;
    } else if (isCacheName(moveOf(i).oldName)) {
        // Under a wrong name it would show another picture.
        result = Failure::None;
        patience_.until([&] { return removeCacheFile(fileSystem_, from); });
        places_[i] = Place::Gone;
    }
    return result;
}

Failure JournalRun::bringAll(Place from, Place to) {
    const bool back = to == Place::Old || from == Place::New;
    Failure first = Failure::None;
    for (std::size_t step = 0; step < count(); ++step) {
        const std::size_t i = back ? count() - 1 - step : step;
        if (places_[i] == from) {
            const Failure result = bring(i, to);
            first = first == Failure::None ? result : first;
        }
    }
    return first;
}

void JournalRun::dropCache() {
    for (const std::wstring& name : journal_.drops) {
        patience_.until([&] { return removeCacheFile(fileSystem_, path(name)); });
    }
}

Failure JournalRun::removeIfThere(const std::wstring& path) {
    const Failure result = patience_.until([&] { return fileSystem_.remove(path); });
    return result == Failure::Missing ? Failure::None : result;
}

Failure JournalRun::writeScript(const std::string& text) {
    const std::wstring script = path(journal_.script->name);
    const std::wstring beside = path(journal_.temporaryScript);
    const Answer<FolderEntry> former = fileSystem_.stat(script);
    Failure result = patience_.until([&] { return fileSystem_.writeNew(beside, text); });
    if (result == Failure::None) {
        result = patience_.until([&] { return fileSystem_.replace(beside, script); });
    }
    if (result != Failure::None) {
        removeIfThere(beside);
        return result;
    }
    if (former.failure == Failure::None && former.value.attributes != 0) {
        result = patience_.until([&] { return fileSystem_.setAttributes(script, former.value.attributes); });
    }
    return result;
}

Obstacle JournalRun::bringScript(Place side) {
    if (!journal_.script) {
        return Obstacle::None;
    }
    const auto& wanted = side == Place::Old ? journal_.script->before : journal_.script->after;
    const auto& other = side == Place::Old ? journal_.script->after : journal_.script->before;
    const std::wstring script = path(journal_.script->name);
    // What an interrupted swap left.
    const Failure cleared = removeIfThere(path(journal_.temporaryScript));
    if (cleared != Failure::None) {
        return obstacleOf(cleared);
    }
    Answer<std::string> text;
    patience_.until([&] { return (text = fileSystem_.read(script)).failure; });
    if (text.failure != Failure::None && text.failure != Failure::Missing) {
        return obstacleOf(text.failure);
    }
    const bool there = text.failure == Failure::None;
    if (there == wanted.has_value() && (!there || text.value == *wanted)) {
        return Obstacle::None;
    }
    if (there && text.value != other) {
        return Obstacle::ScriptChanged;
    }
    return obstacleOf(wanted ? writeScript(*wanted) : removeIfThere(script));
}

Failure JournalRun::bringAttributes(Place side) {
    const Answer<FolderView> view = FolderView::read(fileSystem_, folder_);
    Failure first = view.failure;
    for (std::size_t i = 0; i < count() && view.failure == Failure::None; ++i) {
        const JournalMove& move = moveOf(i);
        const FolderEntry* entry = view.value.find(nameAt(i, side));
        const std::uint32_t wanted = side == Place::Old ? move.oldAttributes : move.newAttributes;
        if (places_[i] == Place::Gone || (places_[i] != side && !move.stays()) || entry == nullptr ||
            entry->attributes == wanted) {
            continue;
        }
        patience_.step();
        const std::wstring file = path(nameAt(i, side));
        const Failure result = patience_.until([&] { return fileSystem_.setAttributes(file, wanted); });
        // What lies in the cache stops no change.
        first = first == Failure::None && !isCacheName(move.oldName) ? result : first;
    }
    return first;
}

Failure JournalRun::enter(Phase phase, HeldFile& held) {
    fileSystem_.flushFolder(folder_);
    // Where the system does not offer that, it keeps the order of changes to names: an empty line that is on
    // the medium takes them along. The mark may be there early only after them.
    const Failure flushed = held.append("\n");
    return flushed == Failure::None ? held.append(phaseMark(phase)) : flushed;
}

Failure JournalRun::close(HeldFile& held) {
    fileSystem_.flushFolder(folder_);
    return patience_.until([&] { return held.remove(); });
}

}  // namespace files
