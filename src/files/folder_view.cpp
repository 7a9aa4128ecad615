#include "files/folder_view.h"

#include "files/change_plan.h"
#include "platform/directory.h"

namespace files {

Answer<FolderView> FolderView::read(const FileSystem& fileSystem, const std::wstring& folder) {
    Answer<FolderView> view;
    view.value.fileSystem_ = &fileSystem;
    const Answer<std::vector<FolderEntry>> entries = fileSystem.list(folder);
    view.failure = entries.failure;
    if (view.failure != Failure::None) {
        return view;
    }
    view.value.add(L"", entries.value);
    const FolderEntry* cache = view.value.find(kCacheFolder);
    if (cache != nullptr && cache->folder) {
        const auto cached = fileSystem.list(platform::joinPath(folder, kCacheFolder));
        view.failure = cached.failure;
        view.value.add(std::wstring(kCacheFolder) + L"\\", cached.value);
    }
    return view;
}

void FolderView::add(const std::wstring& before, const std::vector<FolderEntry>& entries) {
    for (const FolderEntry& entry : entries) {
        FolderEntry& added = entries_[fileSystem_->folded(before + entry.name)];
        added = entry;
        added.name = before + entry.name;
    }
}

const FolderEntry* FolderView::find(std::wstring_view name) const {
    const auto found = entries_.find(fileSystem_->folded(name));
    return found == entries_.end() ? nullptr : &found->second;
}

const FolderEntry* FolderView::findFile(std::wstring_view name, const FileStamp& stamp) const {
    const FolderEntry* entry = find(name);
    return entry != nullptr && !entry->folder && sameFile(entry->stamp, stamp) ? entry : nullptr;
}

bool FolderView::anyBeginsWith(std::wstring_view stem) const {
    const auto any = [&](const std::wstring& beginning) {
        const auto next = entries_.lower_bound(beginning);
        return next != entries_.end() && next->first.starts_with(beginning);
    };
    return any(fileSystem_->folded(stem)) ||
           any(fileSystem_->folded(std::wstring(kCacheFolder) + L"\\" + std::wstring(stem)));
}

}  // namespace files
