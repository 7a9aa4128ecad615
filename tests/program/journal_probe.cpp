// Changes a folder of pictures through the journal, or recovers it, and is killed on the way:
//   journal_probe change FOLDER N     every "P*.jpg" gets the name of the next one, the last one the first's
//   journal_probe save FOLDER N       the same, so that it can be taken back
//   journal_probe music FOLDER N      the music gets its reverse order, every second title locked
//   journal_probe recover FOLDER N
// Before the N-th operation (from 0) that changes the disk the process ends at once, as if it was killed,
// with exit code 9. Without one it ends with 0 when the change was done or the recovery left nothing to do,
// else 1.
#include <windows.h>

#include <algorithm>
#include <string>
#include <vector>

#include "files/change_folder.h"
#include "files/recovery.h"
#include "files/windows_file_system.h"
#include "media/music_renames.h"

namespace {

constexpr UINT kKilled = 9;

class KilledFileSystem : public files::WindowsFileSystem {
  public:
    explicit KilledFileSystem(int last) : left_(last) {}

    files::Failure rename(const std::wstring& from, const std::wstring& to) override {
        step();
        return WindowsFileSystem::rename(from, to);
    }
    files::Failure remove(const std::wstring& path) override {
        step();
        return WindowsFileSystem::remove(path);
    }
    files::Failure writeNew(const std::wstring& path, std::string_view bytes) override {
        step();
        return WindowsFileSystem::writeNew(path, bytes);
    }
    files::Failure replace(const std::wstring& from, const std::wstring& to) override {
        step();
        return WindowsFileSystem::replace(from, to);
    }
    files::Failure flushFolder(const std::wstring& folder) override {
        step();
        return WindowsFileSystem::flushFolder(folder);
    }
    Held createHeld(const std::wstring& path, std::string_view bytes) override {
        step();
        return WindowsFileSystem::createHeld(path, bytes);
    }

  private:
    void step() {
        if (left_-- == 0) {
            TerminateProcess(GetCurrentProcess(), kKilled);
        }
    }

    int left_;
};

files::ChangePlan ringOf(const files::FileSystem& fileSystem, const std::wstring& folder) {
    files::ChangePlan plan;
    plan.folder = folder;
    for (const files::FolderEntry& entry : fileSystem.list(folder).value) {
        if (entry.name.starts_with(L"P") && entry.name.ends_with(L".jpg")) {
            plan.moves.push_back({entry.name, {}, entry.stamp, {}});
        }
    }
    std::sort(plan.moves.begin(), plan.moves.end(),
              [](const auto& one, const auto& other) { return one.from < other.from; });
    for (std::size_t i = 0; i < plan.moves.size(); ++i) {
        plan.moves[i].to = plan.moves[(i + 1) % plan.moves.size()].from;
    }
    plan.script = files::ScriptChange{L"Panorell.txt", "old", "new"};
    return plan;
}

files::ChangePlan reversedMusic(const files::FileSystem& fileSystem, const std::wstring& folder) {
    std::vector<media::OrderedTitle> titles;
    for (const files::FolderEntry& entry : fileSystem.list(folder).value) {
        if (entry.name.ends_with(L".mp3")) {
            titles.push_back({entry.name, entry.stamp, true});
        }
    }
    std::sort(titles.begin(), titles.end(),
              [](const auto& one, const auto& other) { return one.fileName > other.fileName; });
    for (std::size_t i = 1; i < titles.size(); i += 2) {
        titles[i].plays = false;
    }
    const auto renames = media::musicRenames(folder, titles);
    return renames ? renames->plan : files::ChangePlan();
}

}  // namespace

int WINAPI wWinMain(HINSTANCE, HINSTANCE, PWSTR commandLine, int) {
    const std::wstring arguments = commandLine;
    const std::size_t first = arguments.find(L' ');
    const std::size_t last = arguments.rfind(L' ');
    const std::wstring folder = arguments.substr(first + 1, last - first - 1);
    KilledFileSystem fileSystem(std::stoi(arguments.substr(last + 1)));
    const files::Waiting waiting{[] { return static_cast<double>(GetTickCount64()); },
                                 [](int ms) { Sleep(static_cast<DWORD>(ms)); }};
    const bool music = arguments.starts_with(L"music ");
    const bool save = arguments.starts_with(L"save ");
    if (music || save || arguments.starts_with(L"change ")) {
        files::ChangePlan plan = music ? reversedMusic(fileSystem, folder) : ringOf(fileSystem, folder);
        plan.keep = save;
        const files::Outcome outcome = files::changeFolder(fileSystem, plan, waiting);
        return outcome.end == files::Outcome::End::Done ? 0 : 1;
    }
    const files::Recovery recovery = files::recoverFolder(fileSystem, folder, waiting);
    const bool settled = recovery.end == files::Recovery::End::Nothing ||
                         recovery.end == files::Recovery::End::Finished ||
                         recovery.end == files::Recovery::End::Undone;
    return settled && recovery.skipped.empty() ? 0 : 1;
}
