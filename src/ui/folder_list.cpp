#include "ui/folder_list.h"

#include <algorithm>
#include <utility>

#include "platform/directory.h"
#include "platform/error.h"
#include "ui/painting.h"
#include "ui/theme.h"

namespace ui {

namespace {

constexpr Twips kIndent = 150;
constexpr Twips kIconLeft = 75;
constexpr Twips kIconSide = 210;
constexpr Twips kTextGap = 90;
constexpr float kIconGrid = 14;
constexpr Rgb kFolder = 0xF2B63C;
constexpr Rgb kFolderBack = 0xD6952A;
constexpr std::size_t kRootLength = 3;

std::vector<std::wstring> subFoldersOf(const std::wstring& folder) {
    std::vector<std::wstring> names;
    for (platform::DirectoryEntry& entry : platform::listDirectory(folder)) {
        if (entry.folder && !entry.hidden) {
            names.push_back(std::move(entry.name));
        }
    }
    platform::sortNames(names);
    return names;
}

// Where the root of a path ends: "C:\", or "\\server\share".
std::size_t rootLength(const std::wstring& path) {
    if (!path.starts_with(L"\\\\")) {
        return std::min(kRootLength, path.size());
    }
    const std::size_t share = path.find(L'\\', 2);
    const std::size_t end = share == std::wstring::npos ? share : path.find(L'\\', share + 1);
    return std::min(end, path.size());
}

std::wstring nameOf(const std::wstring& path) {
    return path.size() <= rootLength(path) ? path : path.substr(path.rfind(L'\\') + 1);
}

void drawFolder(Painting& painting, float left, float top, float scale, bool open) {
    painting.shape(
        Path().add(Path().roundRect(0, 1.5F, 6, 4, 1).roundRect(0, 3, 14, 9.5F, 1.2F), scale, left, top),
        kFolderBack);
    const Path front = open ? Path().polygon({{3, 6}, {15, 6}, {13, 12.5F}, {0.6F, 12.5F}})
                            : Path().roundRect(0, 4.6F, 14, 7.9F, 1.2F);
    painting.shape(Path().add(front, scale, left, top), kFolder);
}

}  // namespace

FolderList::FolderList(const CreateArgs& args) : ListBox(args) {
    wchar_t windows[MAX_PATH]{};
    const UINT length = GetWindowsDirectoryW(windows, MAX_PATH);
    const std::wstring root = length >= kRootLength ? std::wstring(windows, kRootLength) : L"C:\\";
    try {
        show(root, subFoldersOf(root));
    } catch (const platform::Error&) {
        show(root, {});
    }
}

void FolderList::setPath(const std::wstring& path) {
    const std::wstring full = platform::fullPath(path, path_);
    show(full, subFoldersOf(full));
}

void FolderList::show(const std::wstring& path, const std::vector<std::wstring>& subFolders) {
    std::vector<Row> rows;
    std::vector<std::wstring> names;
    int depth = 0;
    for (std::size_t end = rootLength(path);;) {
        rows.push_back({path.substr(0, end), depth++});
        if (end >= path.size()) {
            break;
        }
        const std::size_t from = path[end] == L'\\' ? end + 1 : end;
        end = std::min(path.find(L'\\', from), path.size());
    }
    const std::size_t openRow = rows.size() - 1;
    for (const std::wstring& name : subFolders) {
        rows.push_back({platform::joinPath(path, name), depth});
    }
    names.reserve(rows.size());
    for (const Row& row : rows) {
        names.push_back(nameOf(row.path));
    }
    const bool changed = path != path_;
    rows_ = std::move(rows);
    openRow_ = openRow;
    replaceItems(names);
    select(static_cast<int>(openRow_));
    setTopIndex(0);
    // The open folder and a few of its sub-folders stay in view below many ancestors.
    const auto rowHeight = static_cast<int>(SendMessageW(hwnd(), LB_GETITEMHEIGHT, 0, 0));
    const int visible = std::max(1, static_cast<int>(clientSize().cy) / std::max(1, rowHeight));
    setTopIndex(std::max(0, static_cast<int>(openRow_) - visible / 2));
    if (changed) {
        path_ = path;
        if (onChange) {
            onChange();
        }
    }
}

std::wstring FolderList::selectedPath() const {
    const int index = selectedIndex();
    return index >= 0 && static_cast<std::size_t>(index) < rows_.size()
               ? rows_[static_cast<std::size_t>(index)].path
               : path_;
}

// A folder opens when the mouse button comes up: refilling the list in the middle of the system's own
// tracking would select a folder of the new list.
bool FolderList::onMessage(UINT message, WPARAM w, LPARAM l, LRESULT& result) {
    if (message == WM_LBUTTONDOWN || message == WM_LBUTTONDBLCLK) {
        pressed_ = true;
        // A double click is two clicks; the second one must not reach into the new list.
        if (message == WM_LBUTTONDBLCLK) {
            pressed_ = false;
            result = 0;
            return true;
        }
    }
    const bool used = ListBox::onMessage(message, w, l, result);
    if (message == WM_LBUTTONUP && std::exchange(pressed_, false)) {
        RECT row{};
        SendMessageW(hwnd(), LB_GETITEMRECT, static_cast<WPARAM>(selectedIndex()),
                     reinterpret_cast<LPARAM>(&row));
        const POINT at{static_cast<short>(LOWORD(l)), static_cast<short>(HIWORD(l))};
        if (PtInRect(&row, at) != FALSE && onClick) {
            onClick();
        }
    }
    return used;
}

bool FolderList::onKeyDown(int key, bool repeated) {
    const bool opens = key == VK_RETURN || key == VK_RIGHT;
    const bool leaves = key == VK_LEFT || key == VK_BACK;
    if (!opens && !leaves) {
        return ListBox::onKeyDown(key, repeated);
    }
    if (leaves && openRow_ == 0) {
        return true;
    }
    if (leaves) {
        select(static_cast<int>(openRow_) - 1);
    }
    if (!repeated && onClick) {
        onClick();
    }
    return true;
}

void FolderList::drawRow(const DRAWITEMSTRUCT& item) const {
    if (item.itemID >= rows_.size()) {
        return;
    }
    const Row& row = rows_[item.itemID];
    const int d = dpi();
    Painting painting(item.rcItem, rowGround(item));
    const float side = kIconSide / twipsPerPixel(d);
    const auto height = static_cast<float>(item.rcItem.bottom - item.rcItem.top);
    const int left = item.rcItem.left + toPixels(kIconLeft + kIndent * static_cast<float>(row.depth), d);
    drawFolder(painting, static_cast<float>(left), static_cast<float>(item.rcItem.top) + (height - side) / 2,
               side / kIconGrid, item.itemID <= openRow_);
    const RECT text{left + toPixels(kIconSide + kTextGap, d), item.rcItem.top, item.rcItem.right,
                    item.rcItem.bottom};
    painting.text(nameOf(row.path), text, fontHandle(), theme::kText,
                  DT_LEFT | DT_VCENTER | DT_SINGLELINE | DT_NOPREFIX | DT_END_ELLIPSIS);
    painting.copyTo(item.hDC);
}

}  // namespace ui
