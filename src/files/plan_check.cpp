#include "files/plan_check.h"

#include <set>

#include "files/file_name.h"
#include "platform/directory.h"

namespace files {

namespace {

/// Names that count as equal where the file system takes them for the same.
class Names {
  public:
    explicit Names(const FileSystem& fileSystem) : fileSystem_(fileSystem) {}
    /// False when the name was there already.
    bool add(std::wstring_view name) { return names_.insert(fileSystem_.folded(name)).second; }
    bool has(std::wstring_view name) const { return names_.contains(fileSystem_.folded(name)); }

  private:
    const FileSystem& fileSystem_;
    std::set<std::wstring> names_;
};

Names sourcesOf(const FileSystem& fileSystem, const ChangePlan& plan) {
    Names sources(fileSystem);
    for (const PlannedMove& move : plan.moves) {
        sources.add(move.from);
    }
    return sources;
}

// The name of a file without the cache's folder.
std::wstring_view bareName(std::wstring_view name) {
    return isCacheName(name) ? name.substr(kCacheFolder.size() + 1) : name;
}

Obstacle sourceObstacle(const FolderView& view, const PlannedMove& move) {
    if (!isPlainName(bareName(move.from))) {
        return Obstacle::IllegalName;
    }
    if (isCacheName(move.from)) {
        return Obstacle::None;
    }
    const FolderEntry* entry = view.find(move.from);
    if (entry == nullptr) {
        return Obstacle::Missing;
    }
    return view.findFile(move.from, move.stamp) == nullptr ? Obstacle::Changed : Obstacle::None;
}

bool is(const FileSystem& fileSystem, std::wstring_view one, std::wstring_view other) {
    return fileSystem.folded(one) == fileSystem.folded(other);
}

// Files of the cache can be made again, so only what no journal could hold is refused.
bool isLegalTarget(const PlannedMove& move) {
    if (isCacheName(move.from)) {
        return isCacheName(move.to) && isPlainName(bareName(move.to));
    }
    return move.to == move.from || nameFault(move.to) == NameFault::None;
}

Obstacle targetObstacle(const FileSystem& fileSystem, const FolderView& view, const Names& sources,
                        const ChangePlan& plan, const PlannedMove& move) {
    if (!isLegalTarget(move)) {
        return Obstacle::IllegalName;
    }
    if (move.to != move.from && platform::joinPath(plan.folder, move.to).size() > kLongestPath) {
        return Obstacle::PathTooLong;
    }
    const bool own =
        is(fileSystem, move.to, kJournalFile) || (plan.script && is(fileSystem, move.to, plan.script->name));
    const bool foreign = view.find(move.to) != nullptr && !sources.has(move.to) && !isCacheName(move.to);
    return own || foreign ? Obstacle::Taken : Obstacle::None;
}

Obstacle scriptObstacle(const FileSystem& fileSystem, const ChangePlan& plan) {
    const Answer<std::string> text = fileSystem.read(platform::joinPath(plan.folder, plan.script->name));
    if (text.failure == Failure::Missing) {
        return plan.script->before ? Obstacle::ScriptChanged : Obstacle::None;
    }
    const bool same = text.failure == Failure::None && plan.script->before == text.value;
    return same ? Obstacle::None : Obstacle::ScriptChanged;
}

std::wstring extensionOf(const std::wstring& name) {
    const std::size_t dot = name.rfind(L'.');
    return dot == std::wstring::npos ? std::wstring() : name.substr(dot);
}

// TMP, or else TMP-2, TMP-3 ...: the first that begins no name of the folder.
std::wstring freeStem(const FolderView& view) {
    std::wstring stem = L"TMP";
    for (int i = 2; view.anyBeginsWith(stem); ++i) {
        // Every further stem begins like the first, so only the whole of it can be free.
        stem = L"TMP-" + std::to_wstring(i) + L"-";
    }
    return stem;
}

std::wstring threeDigits(std::size_t value) {
    const std::wstring digits = std::to_wstring(value);
    return std::wstring(digits.size() < 3 ? 3 - digits.size() : 0, L'0') + digits;
}

}  // namespace

Obstacle obstacleOf(Failure failure) {
    switch (failure) {
        case Failure::None:
            return Obstacle::None;
        case Failure::Missing:
            return Obstacle::Missing;
        case Failure::Exists:
            return Obstacle::Taken;
        case Failure::Denied:
            return Obstacle::Denied;
        case Failure::InUse:
            return Obstacle::InUse;
        case Failure::WriteProtected:
            return Obstacle::WriteProtected;
        case Failure::Full:
            return Obstacle::Full;
        default:
            return Obstacle::Other;
    }
}

std::optional<Refusal> checkPlan(const FileSystem& fileSystem, const FolderView& view,
                                 const ChangePlan& plan) {
    Names sources(fileSystem);
    for (const PlannedMove& move : plan.moves) {
        const Obstacle found = sources.add(move.from) ? sourceObstacle(view, move) : Obstacle::TwiceTheSame;
        if (found != Obstacle::None) {
            return Refusal{found, move.from};
        }
    }
    Names targets(fileSystem);
    for (const PlannedMove& move : plan.moves) {
        const Obstacle found = targets.add(move.to) ? targetObstacle(fileSystem, view, sources, plan, move)
                                                    : Obstacle::TwiceTheSame;
        if (found != Obstacle::None) {
            return Refusal{found, move.to};
        }
    }
    if (plan.script) {
        if (const Obstacle found = scriptObstacle(fileSystem, plan); found != Obstacle::None) {
            return Refusal{found, plan.script->name};
        }
    }
    return std::nullopt;
}

Journal journalOf(const FileSystem& fileSystem, const FolderView& view, const ChangePlan& plan) {
    const Names sources = sourcesOf(fileSystem, plan);
    const std::wstring stem = freeStem(view);
    Journal journal;
    journal.deleted = plan.deleted;
    journal.script = plan.script;
    journal.temporaryScript = stem + L".txt";
    journal.keep = plan.keep;
    Names drops(fileSystem);
    const auto drop = [&](const std::wstring& name) {
        if (view.find(name) != nullptr && drops.add(name)) {
            journal.drops.push_back(name);
        }
    };
    for (const std::wstring& name : plan.drops) {
        drop(name);
    }
    for (const PlannedMove& move : plan.moves) {
        const FolderEntry* entry = view.find(move.from);
        const bool cache = isCacheName(move.from);
        if (cache && !sources.has(move.to)) {
            drop(move.to);
        }
        if (entry == nullptr) {
            continue;
        }
        const std::wstring name = stem + threeDigits(journal.moves.size() + 1) + extensionOf(entry->name);
        journal.moves.push_back({entry->name, cache ? std::wstring(kCacheFolder) + L"\\" + name : name,
                                 move.to, entry->stamp, entry->attributes,
                                 move.attributes.value_or(entry->attributes)});
    }
    return journal;
}

}  // namespace files
