#pragma once

#include <functional>
#include <initializer_list>
#include <string>
#include <string_view>
#include <vector>

#include "platform/directory.h"
#include "ui/list_box.h"

namespace ui {

/// The files of a folder whose names match a pattern, in Explorer's order.
class FileList : public ListBox {
  public:
    /// Whether a file belongs in the list.
    using Matcher =
        std::function<bool(std::wstring_view name, bool hidden, std::wstring_view pattern, bool withHidden)>;

    /// Empty until a path is set.
    FileList(const CreateArgs& args, Matcher matches, std::wstring pattern);

    const std::wstring& path() const { return path_; }
    /// Reads a folder; nothing is selected then. A folder that cannot be read gives an empty list.
    void setPath(const std::wstring& path);
    /// The same for several lists, by one reading of the folder.
    static void setPath(const std::wstring& path, std::initializer_list<FileList*> lists);
    const std::wstring& pattern() const { return pattern_; }
    void setPattern(const std::wstring& pattern);
    bool withHidden() const { return withHidden_; }
    void setWithHidden(bool withHidden);

    /// Reads the folder anew. The selected file stays selected and the first one in view stays there, by
    /// name; a selected file that is gone leaves none selected. Raises nothing.
    void refresh();

    const std::vector<std::wstring>& entries() const { return entries_; }
    int count() const { return static_cast<int>(entries_.size()); }
    /// The selected file's name, or empty.
    std::wstring selectedName() const;
    /// The place of a name (its case counts), or -1.
    int indexOf(std::wstring_view name) const;

  private:
    /// The names that belong in the list, in order.
    std::vector<std::wstring> namesIn(const std::vector<platform::DirectoryEntry>& content) const;

    Matcher matches_;
    std::wstring pattern_;
    std::wstring path_;
    bool withHidden_ = false;
    std::vector<std::wstring> entries_;
};

}  // namespace ui
