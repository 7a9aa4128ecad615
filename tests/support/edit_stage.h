#pragma once

#include <windows.h>

#include <algorithm>
#include <optional>
#include <string>
#include <vector>

#include "edit/editing.h"
#include "overview/box_picture.h"
#include "support/menu_choice.h"
#include "support/message_boxes.h"
#include "support/overview_stage.h"

namespace support {

/// Editing in the overview of a temporary folder. Leaving is only noted.
class EditStage : public OverviewStage {
  public:
    struct Left {
        int times = 0;
        std::optional<int> startIndex;
    };

    /// Loads all of the folder.
    bool open() {
        beginEditing();
        return loaded();
    }
    /// Loads as far as one turn gets.
    void beginEditing() {
        editing.reset();
        begin();
        editing.emplace(loop, *overview);
        editing->listed = [this] { return listed; };
        editing->onLeave = [this](std::optional<int> index) {
            ++left.times;
            left.startIndex = index;
        };
        listed = names();
    }

    /// Presses the right button on an item and chooses from its menu; what the menu showed.
    std::vector<std::wstring> choose(int index, const std::wstring& caption = {}) {
        const MenuChoice choice(caption);
        press(index, WM_RBUTTONDOWN);
        const POINT place = middleOf(index);
        SendMessageW(box(index), WM_CONTEXTMENU, reinterpret_cast<WPARAM>(box(index)),
                     MAKELPARAM(place.x, place.y));
        loop.settle();
        return choice.items();
    }
    bool offers(int index, const std::wstring& caption) {
        const auto items = choose(index);
        return std::find(items.begin(), items.end(), caption) != items.end();
    }

    DWORD attributes(const std::wstring& name) { return GetFileAttributesW((pictures / name).c_str()); }
    bool exists(const std::wstring& name) { return attributes(name) != INVALID_FILE_ATTRIBUTES; }
    /// Whether the diagonal of an item's thumbnail, from its lower left corner to its upper right one, has a
    /// colour.
    bool diagonalIs(int index, std::uint32_t colour) {
        const picture::Pixels box = seen(index);
        const overview::ImagePlace place =
            overview::imagePlace(box.width, box.height, overview->view().layout().gap);
        for (int eighth = 1; eighth < 8; ++eighth) {
            const int x = place.left + place.width * eighth / 8;
            const int y = place.top + place.height * (8 - eighth) / 8;
            if (box.row(y)[x] != colour) {
                return false;
            }
        }
        return true;
    }

    std::optional<edit::Editing> editing;
    std::vector<std::wstring> listed;
    Left left;
};

/// Answers the question that opens next with a button (IDYES, IDNO), and keeps what it said.
class Answer {
  public:
    explicit Answer(int button)
        : boxes_([button] {
              if (const HWND box = FindWindowW(L"#32770", L" Bearbeiten beenden")) {
                  PostMessageW(box, WM_COMMAND, static_cast<WPARAM>(button), 0);
              }
          }) {}
    const std::vector<MessageBoxes::Box>& seen() const { return boxes_.seen(); }

  private:
    MessageBoxes boxes_;
};

}  // namespace support
