#include "overview/music_list.h"

#include <utility>

#include "media/fade_rule.h"
#include "media/music_list.h"
#include "platform/short_path.h"

namespace overview {

namespace {

constexpr int kHighlightMs = 50;

}  // namespace

MusicList::MusicList(Parts parts) : parts_(std::move(parts)) {
    parts_.Timer2.setInterval(kHighlightMs);
    parts_.Timer2.onTimer = [this] { setHighlights(); };
    parts_.List1.onPressed = [this](const ui::MouseEvent& event) { pressed(event); };
    parts_.List1.onReleased = [this](const ui::MouseEvent& event) { released(event); };
    parts_.List1.onDoubleClicked = [this](const ui::MouseEvent& event) { doubleClicked(event); };
    parts_.List1.onSpace = [this] { flipByKey(); };
    parts_.OK.onClick = [this] { confirm(); };
    parts_.CAN.onClick = [this] { cancel(); };
    setVisible(false);
}

void MusicList::load(const std::vector<std::wstring>& fileNames, bool folderWritable) {
    saved_ = musicOrder(fileNames);
    fill();
    setVisible(false);
    parts_.OK.setEnabled(folderWritable);
}

void MusicList::fill() {
    order_ = saved_;
    dragSourceIndex_ = kBelowRows;
    parts_.List1.clear();
    for (const MusicEntry& entry : order_) {
        parts_.List1.add(entry.title, entry.plays ? 1 : 0);
    }
    setHighlights();
}

void MusicList::show() {
    if (hasTitles()) {
        setVisible(true);
        parts_.List1.setFocus();
    }
}

bool MusicList::hasFocus() const {
    return parts_.List1.hasFocus() || parts_.OK.hasFocus() || parts_.CAN.hasFocus();
}

void MusicList::setVisible(bool visible) {
    const bool focusLeaves = !visible && hasFocus();
    parts_.caption.setVisible(visible);
    parts_.List1.setVisible(visible);
    parts_.OK.setVisible(visible);
    parts_.CAN.setVisible(visible);
    if (parts_.toggled) {
        parts_.toggled();
    }
    if (focusLeaves) {
        parts_.focusLeft();
    }
}

void MusicList::stopAudition() {
    parts_.control.send("stop AUDIO");
    parts_.control.send("close AUDIO");
}

int MusicList::rowOf(const ui::MouseEvent& event) const {
    return parts_.List1.itemAt(event.x, event.y);
}

void MusicList::pressed(const ui::MouseEvent& event) {
    if (event.button != ui::MouseButton::Left) {
        return;
    }
    dragSourceIndex_ = rowOf(event);
    if (dragSourceIndex_ != kBelowRows) {
        stopAudition();
    }
}

void MusicList::released(const ui::MouseEvent& event) {
    if (event.button != ui::MouseButton::Left) {
        return;
    }
    parts_.Timer2.restart();
    const int source = std::exchange(dragSourceIndex_, kBelowRows);
    // A title that is dropped beside the list stays where it was.
    const SIZE size = parts_.List1.clientSize();
    if (event.x < 0 || event.y < 0 || event.x >= size.cx || event.y >= size.cy) {
        return;
    }
    const int count = static_cast<int>(order_.size());
    const MusicRelease release = musicRelease(source, rowOf(event), count);
    switch (release.kind) {
        case MusicRelease::Kind::FlipLock:
            flipLock(source);
            break;
        case MusicRelease::Kind::Move:
            move(source, release.to);
            break;
        default:
            break;
    }
}

// The release that ends a double click flips the lock back to what it was before the first one.
void MusicList::doubleClicked(const ui::MouseEvent& event) {
    dragSourceIndex_ = rowOf(event);
    if (dragSourceIndex_ != kBelowRows) {
        audition(dragSourceIndex_);
    }
}

void MusicList::flipByKey() {
    const int row = parts_.List1.selectedIndex();
    if (row >= 0 && row < parts_.List1.count()) {
        stopAudition();
        flipLock(row);
        parts_.Timer2.restart();
    }
}

void MusicList::audition(int row) {
    const std::wstring path = parts_.music.musicFolder + order_[static_cast<std::size_t>(row)].fileName;
    stopAudition();
    parts_.control.send("open " + platform::shortPath(path) + " alias AUDIO");
    parts_.control.send(media::musicVolumeCommand(media::kAuditionVolume));
    parts_.control.send("play AUDIO");
}

void MusicList::flipLock(int row) {
    MusicEntry& entry = order_[static_cast<std::size_t>(row)];
    entry.plays = !entry.plays;
    parts_.List1.setItemData(row, entry.plays ? 1 : 0);
}

void MusicList::move(int from, int to) {
    const MusicEntry moved = order_[static_cast<std::size_t>(from)];
    moveEntry(order_, from, to);
    parts_.List1.remove(from);
    parts_.List1.insert(to, moved.title, moved.plays ? 1 : 0);
    parts_.List1.setSelectedIndex(to);
}

void MusicList::setHighlights() {
    parts_.Timer2.setEnabled(false);
    std::vector<bool> highlights;
    highlights.reserve(order_.size());
    for (int i = 0; i < parts_.List1.count(); ++i) {
        highlights.push_back(parts_.List1.itemData(i) != 0);
    }
    parts_.List1.setHighlights(highlights);
}

void MusicList::confirm() {
    setHighlights();
    // An open file cannot be renamed.
    stopAudition();
    MusicRenamed renamed = parts_.rename(parts_.music.musicFolder, order_);
    if (renamed.refusal) {
        parts_.refused(*renamed.refusal);
        return;
    }
    parts_.music.musicList = std::move(renamed.musicList);
    std::vector<std::wstring> names;
    names.reserve(parts_.music.musicList.size());
    for (const std::wstring& entry : parts_.music.musicList) {
        names.push_back(media::fileNameOfEntry(entry));
    }
    saved_ = musicOrder(names);
    fill();
    setVisible(false);
    stopAudition();
}

void MusicList::cancel() {
    stopAudition();
    setVisible(false);
    fill();
}

}  // namespace overview
