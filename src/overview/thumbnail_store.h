#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <unordered_set>
#include <vector>

#include "picture/pixels.h"
#include "platform/directory.h"

namespace overview {

/// The thumbnails that a picture folder keeps of its items, in a folder of its own. What lies there was read
/// once and is not looked up again for each item.
class ThumbnailStore {
  public:
    ThumbnailStore() = default;
    /// `fileNames`: of all pictures and films of the folder, hidden ones too. `writable`: whether the folder
    /// can be written. A store that is missing or cannot be read counts as empty.
    ThumbnailStore(const std::wstring& folder, const std::vector<std::wstring>& fileNames, bool writable);

    /// Whether there is a store: its folder holds a bitmap.
    bool present() const { return !names_.empty(); }
    /// Where an item's thumbnail lies; empty where there is none, or one that belongs to several items.
    std::wstring pathOf(std::wstring_view fileName) const;
    /// Keeps an item's thumbnail where there is a store that can be written, by a new file that takes the
    /// former one's place, be that write-protected. Thumbnails that several items would share are not kept.
    /// Returns 0, or the system's error code where writing failed.
    unsigned long save(std::wstring_view fileName, const picture::Pixels& pixels);
    /// Removes an item's thumbnail from the store; one that several items share stays, since nobody shows it.
    void remove(std::wstring_view fileName);
    /// Whether the store's folder is there, be it empty.
    bool folderThere() const;
    /// Makes the store's folder where there is none; thumbnails are kept from now on. Returns 0, or the
    /// system's error code where that failed.
    unsigned long create();
    /// Removes the thumbnails and then the folder; one that holds anything else stays.
    void removeAll();

  private:
    std::wstring folder_;
    std::unordered_set<std::wstring> names_;   ///< what lies there, by folded name
    std::unordered_set<std::wstring> shared_;  ///< the same, of several items
    bool keeps_ = false;                       ///< there is a store, or its folder was made for one
    bool writable_ = false;
};

/// A thumbnail out of a store. None where it is missing or damaged. May be called on any thread.
std::optional<picture::Pixels> readThumbnail(const std::wstring& path);

}  // namespace overview
