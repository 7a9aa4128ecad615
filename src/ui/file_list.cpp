#include "ui/file_list.h"

#include <algorithm>
#include <utility>

#include "platform/directory.h"
#include "platform/error.h"

namespace ui {

FileList::FileList(const CreateArgs& args, Matcher matches, std::wstring pattern)
    : ListBox(args), matches_(std::move(matches)), pattern_(std::move(pattern)) {}

std::vector<std::wstring> FileList::readNames() const {
    std::vector<std::wstring> names;
    if (path_.empty()) {
        return names;
    }
    try {
        for (platform::DirectoryEntry& entry : platform::listDirectory(path_)) {
            if (!entry.folder && matches_(entry.name, entry.hidden, pattern_, withHidden_)) {
                names.push_back(std::move(entry.name));
            }
        }
    } catch (const platform::Error&) {
        names.clear();
    }
    platform::sortNames(names);
    return names;
}

void FileList::setPath(const std::wstring& path) {
    path_ = path;
    entries_ = readNames();
    replaceItems(entries_);
}

void FileList::setPattern(const std::wstring& pattern) {
    pattern_ = pattern;
    refresh();
}

void FileList::setWithHidden(bool withHidden) {
    withHidden_ = withHidden;
    refresh();
}

void FileList::refresh() {
    std::vector<std::wstring> names = readNames();
    if (names == entries_) {
        return;
    }
    const std::wstring selected = selectedName();
    const auto top = static_cast<std::size_t>(topIndex());
    const std::wstring first = top < entries_.size() ? entries_[top] : std::wstring();
    entries_ = std::move(names);
    replaceItems(entries_);
    const int index = selected.empty() ? -1 : indexOf(selected);
    if (index >= 0) {
        select(index);
    }
    setTopIndex(std::max(0, indexOf(first)));
}

std::wstring FileList::selectedName() const {
    const int index = selectedIndex();
    return index >= 0 && index < count() ? entries_[static_cast<std::size_t>(index)] : std::wstring();
}

int FileList::indexOf(std::wstring_view name) const {
    const auto at = std::find(entries_.begin(), entries_.end(), name);
    return at != entries_.end() ? static_cast<int>(at - entries_.begin()) : -1;
}

}  // namespace ui
