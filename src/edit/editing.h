#pragma once

#include <windows.h>

#include <functional>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "edit/edit_menu.h"
#include "edit/editing_end.h"
#include "edit/menu_rule.h"
#include "edit/picture_deletion.h"
#include "edit/picture_lock.h"
#include "edit/settings_display.h"
#include "edit/store_commands.h"
#include "overview/overview.h"
#include "ui/event_loop.h"

namespace edit {

/// Editing in the overview: its menu, the engines behind that, and the ways in and out. The overview outlives
/// it.
class Editing {
  public:
    Editing(ui::EventLoop& loop, overview::Overview& overview);
    ~Editing();
    Editing(const Editing&) = delete;
    Editing& operator=(const Editing&) = delete;

    /// Puts an operation into the menu that is none of this class's own.
    void provide(MenuCommand command, EditMenu::Operation operation) {
        menu_.provide(command, std::move(operation));
    }
    /// Opens the menu of an item and carries out what is chosen; nothing while an operation blocks.
    void openMenu(int index, POINT screen);
    /// Leaves the overview, as far as its user does not keep it open. While an operation blocks this does
    /// nothing, but the storing of thumbnails is stopped for it.
    void end();
    /// Tells the user why something was not done; nothing for the empty text.
    void refuse(const std::wstring& sentence);

    /// While one lives nothing in the overview answers to mouse or keyboard, and it is not left.
    class Block {
      public:
        explicit Block(Editing& editing);
        ~Block();
        Block(const Block&) = delete;
        Block& operator=(const Block&) = delete;

      private:
        Editing& editing_;
        std::vector<ui::Control*> disabled_;
    };

    /// While one lives no thumbnail shows its tip, which would lie over what is open.
    class WithoutTips {
      public:
        explicit WithoutTips(Editing& editing) : editing_(editing) { editing_.holdTips(1); }
        ~WithoutTips() { editing_.holdTips(-1); }
        WithoutTips(const WithoutTips&) = delete;
        WithoutTips& operator=(const WithoutTips&) = delete;

      private:
        Editing& editing_;
    };

    PictureLock& lock() { return lock_; }
    PictureDeletion& deletion() { return deletion_; }
    SettingsDisplay& settings() { return settings_; }
    StoreCommands& store() { return store_; }

    /// Saves, and tells whether that was done; the menu has no saving without it.
    void setSave(std::function<bool()> save);
    /// Adds to the state of a menu what this class does not know: music, editor, a save to take back.
    std::function<void(MenuState& state)> onStateAsked;
    /// As in EditingEnd; both are needed.
    std::function<std::vector<std::wstring>()> listed;
    std::function<void(std::optional<int> startIndex)> onLeave;

  private:
    void provideOwn();
    MenuState stateOf(int index) const;
    void holdTips(int more);
    void storeThumbnails();
    bool keyWhileStoring(int key);

    overview::Overview& overview_;
    EditMenu menu_;
    PictureLock lock_;
    PictureDeletion deletion_;
    SettingsDisplay settings_;
    StoreCommands store_;
    EditingEnd end_;
    int blocks_ = 0;
    int tipsHeld_ = 0;
    bool endAsked_ = false;
};

}  // namespace edit
