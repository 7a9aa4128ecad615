#pragma once

#include <gmock/gmock.h>
#include <windows.h>

#include <deque>
#include <functional>
#include <map>
#include <optional>
#include <string>
#include <vector>

#include "edit/save.h"
#include "files/windows_file_system.h"
#include "overview/thumb_folder.h"
#include "platform/directory.h"
#include "support/recording_media_control.h"
#include "support/scratch_folder.h"
#include "support/virtual_loop.h"

namespace edit {

/// The real files, of which single operations fail.
struct FaultyFileSystem : files::WindowsFileSystem {
    /// What a rename to a path answers instead of being done; None: it is done.
    std::function<files::Failure(const std::wstring& to)> onRename;
    /// How often a folder is read before that fails once; -1: never.
    mutable int listings = -1;

    files::Failure rename(const std::wstring& from, const std::wstring& to) override {
        const files::Failure failure = onRename ? onRename(to) : files::Failure::None;
        return failure != files::Failure::None ? failure : WindowsFileSystem::rename(from, to);
    }
    files::Answer<std::vector<files::FolderEntry>> list(const std::wstring& folder) const override {
        const bool fails = listings == 0;
        listings -= listings >= 0 ? 1 : 0;
        if (fails) {
            return {files::Failure::Other, {}};
        }
        return WindowsFileSystem::list(folder);
    }
};

/// Keeps what was deleted in memory.
struct FakeBin : Bin {
    bool there = true;
    std::wstring refused;  ///< the name of the only file that it does not take
    files::Failure failure = files::Failure::None;
    /// What it answers for a path instead of `failure`.
    std::function<files::Failure(const std::wstring& path)> onPut;
    std::vector<std::wstring> paths;
    bool takes(const std::wstring& path) override {
        return there && (refused.empty() || !path.ends_with(L"\\" + refused));
    }
    files::Failure put(const std::wstring& path) override {
        const files::Failure answer = onPut ? onPut(path) : failure;
        if (answer == files::Failure::None) {
            paths.push_back(path);
            DeleteFileW(path.c_str());
        }
        return answer;
    }
};

/// Saving a temporary folder on a virtual clock. What is asked and told is kept, and answered from `answers`.
class SaveScene : public testing::Test {
  protected:
    void load() {
        overview::ThumbFolder read = overview::readThumbFolder(folder.path(), L"*.jpg;*.mpg");
        records = std::move(read.records);
        records.changed = true;
    }
    /// Loads a folder of "a.jpg" and "b.jpg", which hold "A" and "B".
    void loadTwo() {
        folder.file(L"a.jpg", "A");
        folder.file(L"b.jpg", "B");
        load();
    }
    /// Saves and answers the question for the prefix.
    bool saveAs(const std::wstring& prefix) {
        answers = {prefix};
        return saving.save();
    }
    void mark(int index) {
        records.thumbRecords[static_cast<std::size_t>(index)].deleted = true;
        records.thumbRecords[static_cast<std::size_t>(index)].entry.clear();
    }
    /// The files of the folder and what they hold.
    std::map<std::wstring, std::string> files() const { return filesOf(folder.path()); }
    std::map<std::wstring, std::string> filesOf(const std::wstring& path) const {
        std::map<std::wstring, std::string> found;
        for (const auto& entry : platform::listDirectory(path)) {
            if (!entry.folder && entry.name != L"Panorell.journal") {
                found[entry.name] = fileSystem.read(platform::joinPath(path, entry.name)).value;
            }
        }
        return found;
    }
    std::string scriptText() const { return fileSystem.read(folder / L"Panorell.txt").value; }
    bool hidden(const std::wstring& name) const {
        return (GetFileAttributesW((folder / name).c_str()) & FILE_ATTRIBUTE_HIDDEN) != 0;
    }
    SaveDialog dialog() {
        return {[this](const ui::InputQuestion& question) -> std::optional<std::wstring> {
                    questions.push_back(question);
                    if (answers.empty()) {
                        return std::nullopt;
                    }
                    auto answer = answers.front();
                    answers.pop_front();
                    return answer;
                },
                [this](const std::wstring& question) {
                    agreed.push_back(question);
                    return agrees;
                },
                [this](const std::wstring& sentence) { told.push_back(sentence); },
                [this](bool on) { blocked.push_back(on); },
                [this](int done, int all, const std::wstring& text) {
                    shown = text;
                    if (all > 0) {
                        progress.push_back(done);
                        at.push_back(text);
                    }
                }};
    }
    SaveGrid grid() {
        return {[this] { finished = true; },
                [this](const std::vector<int>& indices) {
                    for (auto index = indices.rbegin(); index != indices.rend(); ++index) {
                        records.thumbRecords.erase(records.thumbRecords.begin() + *index);
                    }
                    removed = indices;
                },
                [this] { ++renamed; }, [this] { ++reloaded; }};
    }

    /// Lets files come to temporary names and no further.
    static files::Failure onlyTemporaryNames(const std::wstring& to) {
        return to.compare(to.rfind(L'\\') + 1, 3, L"TMP") == 0 ? files::Failure::None : files::Failure::Other;
    }
    files::Waiting soon() {
        return {[this] { return loop.now(); }, [this](int ms) { loop.advance(ms); }};
    }

    support::VirtualLoop loop;
    support::ScratchFolder folder;
    FaultyFileSystem fileSystem;
    FakeBin bin;
    support::RecordingMediaControl control;
    overview::ThumbRecords records;
    std::deque<std::optional<std::wstring>> answers;
    std::vector<ui::InputQuestion> questions;
    std::vector<std::wstring> told, agreed, at;
    std::wstring shown;
    std::vector<bool> blocked;
    std::vector<int> progress, removed;
    bool agrees = false, finished = false;
    int renamed = 0, reloaded = 0;
    Save saving{{loop, fileSystem, bin, control, records, dialog(), grid()}};
};

}  // namespace edit
