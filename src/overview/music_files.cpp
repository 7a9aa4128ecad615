#include "overview/music_files.h"

#include <algorithm>

#include "files/change_folder.h"
#include "files/file_filter.h"
#include "files/obstacle_text.h"
#include "media/music_renames.h"
#include "ui/leaving_hold.h"

namespace overview {

namespace {

constexpr const wchar_t* kTooMany =
    L"Ein Titel, der gespielt werden soll, darf nicht auf Platz 99 oder dahinter stehen.";
constexpr const wchar_t* kRenaming = L"Die Musik des Ordners wird gerade umbenannt.";
constexpr const wchar_t* kUnfinished =
    L" Beim nächsten Öffnen des Ordners wird die Umbenennung abgeschlossen oder zurückgenommen.";

bool changesNothing(const files::ChangePlan& plan) {
    const auto& moves = plan.moves;
    return std::all_of(moves.begin(), moves.end(), [](const auto& move) { return move.from == move.to; });
}

std::wstring withoutBackslash(const std::wstring& folder) {
    constexpr std::size_t kRootLength = 3;
    const bool ends = folder.size() > kRootLength && folder.back() == L'\\';
    return ends ? folder.substr(0, folder.size() - 1) : folder;
}

}  // namespace

void MusicFiles::load(const std::wstring& folder) {
    stamps_.clear();
    for (const files::FolderEntry& entry : fileSystem_.list(withoutBackslash(folder)).value) {
        if (!entry.folder && files::matchesPattern(entry.name, files::kMusicPattern)) {
            stamps_[entry.name] = entry.stamp;
        }
    }
}

MusicRenamed MusicFiles::rename(const std::wstring& musicFolder, const std::vector<MusicEntry>& order) {
    std::vector<media::OrderedTitle> titles;
    titles.reserve(order.size());
    for (const MusicEntry& entry : order) {
        titles.push_back({entry.fileName, stamps_[entry.fileName], entry.plays});
    }
    const auto renames = media::musicRenames(withoutBackslash(musicFolder), titles);
    if (!renames) {
        return {kTooMany, {}};
    }
    if (changesNothing(renames->plan)) {
        return {{}, renames->musicList};
    }
    const ui::LeavingHold hold(loop_, kRenaming);
    const files::Waiting waiting{[this] { return loop_.now(); }, [this](int ms) { loop_.sleepPainting(ms); },
                                 [this] { loop_.sleepPainting(0); }};
    const files::Outcome outcome = files::changeFolder(fileSystem_, renames->plan, waiting);
    if (outcome.end != files::Outcome::End::Done) {
        const bool left = outcome.end == files::Outcome::End::Left;
        return {files::obstacleText(outcome.obstacle, outcome.name) + (left ? kUnfinished : L""), {}};
    }
    load(musicFolder);
    return {{}, renames->musicList};
}

}  // namespace overview
