#include "ui/file_list.h"

#include <algorithm>
#include <utility>

#include "platform/error.h"

namespace ui {

namespace {

// What a folder holds; nothing where there is none or it cannot be read.
std::vector<platform::DirectoryEntry> contentOf(const std::wstring& folder) {
    if (folder.empty()) {
        return {};
    }
    try {
        return platform::listDirectory(folder);
    } catch (const platform::Error&) {
        return {};
    }
}

}  // namespace

FileList::FileList(const CreateArgs& args, Matcher matches, std::wstring pattern)
    : ListBox(args), matches_(std::move(matches)), pattern_(std::move(pattern)) {}

std::vector<std::wstring> FileList::namesIn(const std::vector<platform::DirectoryEntry>& content) const {
    std::vector<std::wstring> names;
    for (const platform::DirectoryEntry& entry : content) {
        if (!entry.folder && matches_(entry.name, entry.hidden, pattern_, withHidden_)) {
            names.push_back(entry.name);
        }
    }
    platform::sortNames(names);
    return names;
}

void FileList::setPath(const std::wstring& path) {
    setPath(path, {this});
}

void FileList::setPath(const std::wstring& path, std::initializer_list<FileList*> lists) {
    const std::vector<platform::DirectoryEntry> content = contentOf(path);
    for (FileList* list : lists) {
        list->path_ = path;
        list->entries_ = list->namesIn(content);
        list->replaceItems(list->entries_);
    }
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
    std::vector<std::wstring> names = namesIn(contentOf(path_));
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
