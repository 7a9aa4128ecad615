#include "app/folder_recovery.h"

#include "files/obstacle_text.h"
#include "ui/message_box.h"

namespace app {

namespace {

constexpr const wchar_t* kTitle = L"  Ordner";
constexpr std::size_t kMostTold = 8;

}  // namespace

std::wstring recoveryText(const files::Recovery& recovery) {
    if (recovery.skipped.empty()) {
        return {};
    }
    std::wstring text = recovery.end == files::Recovery::End::Undone
                            ? L"Eine unterbrochene Änderung des Ordners wurde zurückgenommen, bis auf:\r\n"
                            : L"Eine unterbrochene Änderung des Ordners wurde abgeschlossen, bis auf:\r\n";
    for (std::size_t i = 0; i < recovery.skipped.size() && i < kMostTold; ++i) {
        text += L"\r\n" + files::obstacleText(recovery.skipped[i].why, recovery.skipped[i].name);
    }
    if (recovery.skipped.size() > kMostTold) {
        text += L"\r\n...";
    }
    return text;
}

void recoverFolder(ui::EventLoop& loop, files::FileSystem& fileSystem, const std::wstring& folder,
                   const ui::Window* owner) {
    const files::Waiting waiting{[&loop] { return loop.now(); }, [&loop](int ms) { loop.sleep(ms); }};
    const std::wstring text = recoveryText(files::recoverFolder(fileSystem, folder, waiting));
    if (!text.empty()) {
        ui::messageBox(owner, text, kTitle, ui::MessageIcon::Exclamation);
    }
}

}  // namespace app
