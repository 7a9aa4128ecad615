#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "files/file_system.h"
#include "files/folder_view.h"
#include "files/journal.h"
#include "files/patience.h"
#include "files/plan_check.h"

namespace files {

/// The single steps of a change that has a journal, forth and back. Knows where each file is; which step
/// comes next is its caller's business.
class JournalRun {
  public:
    /// Where the file of a move is.
    enum class Place { Old, Temporary, New, Gone };

    /// Every file is at its old name. All parameters but `folder` outlive the run.
    JournalRun(FileSystem& fileSystem, std::wstring folder, const Journal& journal, Patience& patience);

    /// Takes the places from what the folder holds; `phase` settles what could be either. A file that cannot
    /// be told is Gone.
    void locate(const FolderView& view, Phase phase);

    std::size_t count() const { return places_.size(); }
    Place at(std::size_t i) const { return places_[i]; }
    const JournalMove& moveOf(std::size_t i) const { return journal_.moves[i]; }

    /// Brings a file to one of its names, never onto another file. A file that stays or is Gone is left. One
    /// of the cache that cannot be brought there is removed instead, which is no failure.
    Failure bring(std::size_t i, Place to);

    /// Brings every file that is at `from` to `to`, in reverse order when it goes back. Goes on after a
    /// failure and returns the first one.
    Failure bringAll(Place from, Place to);

    /// Removes what the cache does not need any more; what cannot be removed stays.
    void dropCache();

    /// Makes the script what it was (Old) or is to be (New). ScriptChanged when it is neither.
    Obstacle bringScript(Place side);

    /// Gives the files at their old or new names the attributes that they had or are to have.
    Failure bringAttributes(Place side);

    /// Brings all names to the medium, then marks the journal.
    Failure enter(Phase phase, HeldFile& held);

    /// Brings all names to the medium, then removes the journal.
    Failure close(HeldFile& held);

  private:
    std::wstring path(std::wstring_view name) const;
    const std::wstring& nameAt(std::size_t i, Place place) const;
    Place found(std::size_t i, const FolderView& view, Place expected, Place other) const;
    Failure writeScript(const std::string& text);
    Failure removeIfThere(const std::wstring& path);

    FileSystem& fileSystem_;
    std::wstring folder_;
    const Journal& journal_;
    Patience& patience_;
    std::vector<Place> places_;
};

}  // namespace files
