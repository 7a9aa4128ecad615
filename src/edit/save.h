#pragma once

#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "edit/bin.h"
#include "edit/save_plan.h"
#include "files/change_folder.h"
#include "files/file_system.h"
#include "media/media_control.h"
#include "overview/thumb_record.h"
#include "ui/event_loop.h"
#include "ui/input_box.h"

namespace edit {

/// What a save asks and tells; each an answer of the user or something for the eye.
struct SaveDialog {
    std::function<std::optional<std::wstring>(const ui::InputQuestion&)> ask;
    std::function<bool(const std::wstring& question)> agrees;
    std::function<void(const std::wstring& sentence)> tell;
    /// Menu, thumbnails and closing are off, or on again; leaving the program waits meanwhile.
    std::function<void(bool)> block;
    /// So many steps of all have been done, and what it is at; 0 of 0 and the empty text end the display.
    std::function<void(int done, int all, const std::wstring& at)> progress;
};

/// What a save does to the overview besides its records.
struct SaveGrid {
    /// Ends all work on thumbnails and waits for what has begun.
    std::function<void()> finish;
    /// Takes items out of the grid, records and boxes; indices in rising order.
    std::function<void(const std::vector<int>&)> remove;
    /// The files have other names now, or came back: store and boxes may look anew.
    std::function<void()> renamed;
    /// The folder is another one than the records say: the overview is to be loaded anew.
    std::function<void()> reload;
};

/// Makes the order, the entries and the deletions of the overview permanent: deletes the marked files, names
/// all files in their order and writes the show script anew. Either all of it is done or all is as it was,
/// also after a crash in the middle; see files/change_folder.h.
class Save {
  public:
    struct Parts {
        ui::EventLoop& loop;
        files::FileSystem& fileSystem;
        Bin& bin;
        media::MediaControl& control;
        overview::ThumbRecords& records;
        SaveDialog dialog;
        SaveGrid grid;
    };
    explicit Save(Parts parts);

    /// Asks for the prefix and saves; whether names and script were written. What is refused or fails is told
    /// in one sentence and leaves everything as it was, but for files that were deleted already. One that
    /// could not even be undone is brought to an end by the next call, before anything else. Throws Leaving.
    bool save();
    /// Whether the last save of the folder can be taken back.
    bool canTakeBack() const;
    /// Takes it back and loads the overview anew; deleted files stay in the recycle bin.
    void takeBack();
    bool running() const { return running_; }

  private:
    class Running;

    bool settle();
    bool mayBegin();
    void finishOthers();
    bool deleteMarked();
    bool deleteItems(const std::vector<int>& indices, const std::vector<bool>& forever);
    std::vector<int> marked() const;
    bool rename();
    std::optional<std::wstring> askPrefix(const std::wstring& offered, const std::wstring& reason) const;
    files::Answer<SaveFolder> readFolder() const;
    files::Outcome carryOut(const files::ChangePlan& plan);
    files::Waiting waiting();
    void take(const SavePlan& plan);
    void pause(int ms);
    std::wstring pathOf(const std::wstring& fileName) const;

    Parts parts_;
    /// What lies in the recycle bin and belongs to the next save that is made.
    std::vector<std::wstring> deleted_;
    /// A journal of a change that has ended may still lie in the folder.
    bool unsettled_ = false;
    /// The save that it is of, where the records do not tell of that yet.
    std::optional<SavePlan> left_;
    bool running_ = false;
};

}  // namespace edit
