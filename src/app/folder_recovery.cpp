#include "app/folder_recovery.h"

#include "app/recovery_notice.h"
#include "files/obstacle_text.h"
#include "ui/message_box.h"

namespace app {

namespace {

constexpr const wchar_t* kTitle = L"  Ordner";
constexpr std::size_t kMostTold = 8;
constexpr const wchar_t* kUndone =
    L"Eine unterbrochene Änderung des Ordners wurde zurückgenommen, bis auf:\r\n";
constexpr const wchar_t* kFinished =
    L"Eine unterbrochene Änderung des Ordners wurde abgeschlossen, bis auf:\r\n";
constexpr const wchar_t* kWaiting =
    L"Eine unterbrochene Änderung des Ordners kann noch nicht in Ordnung gebracht werden; beim nächsten "
    L"Öffnen des Ordners wird es wieder versucht.";
constexpr const wchar_t* kRunning =
    L"Ein anderes Programm ändert gerade die Dateien dieses Ordners; bitte öffnen Sie ihn danach noch "
    L"einmal.";
constexpr const wchar_t* kForeign =
    L"Panorell.journal in diesem Ordner stammt von einer anderen Fassung des Programms; sie muss die "
    L"unterbrochene Änderung in Ordnung bringen.";

std::wstring skippedText(const wchar_t* beginning, const std::vector<files::Recovery::Skipped>& skipped) {
    if (skipped.empty()) {
        return {};
    }
    std::wstring text = beginning;
    for (std::size_t i = 0; i < skipped.size() && i < kMostTold; ++i) {
        text += L"\r\n" + files::obstacleText(skipped[i].why, skipped[i].name);
    }
    if (skipped.size() > kMostTold) {
        text += L"\r\n...";
    }
    return text;
}

// Where the folder takes no change there is nothing that its user could do.
std::wstring waitingText(const files::Recovery& recovery) {
    if (recovery.obstacle == files::Obstacle::None) {
        return {};
    }
    const std::wstring why = files::obstacleText(recovery.obstacle, recovery.name);
    return kWaiting + (L"\r\n\r\n" + why);
}

}  // namespace

std::wstring recoveryText(const files::Recovery& recovery) {
    using End = files::Recovery::End;
    switch (recovery.end) {
        case End::Running:
            return kRunning;
        case End::Foreign:
            return kForeign;
        case End::Waiting:
            return waitingText(recovery);
        case End::Undone:
            return skippedText(kUndone, recovery.skipped);
        default:
            return skippedText(kFinished, recovery.skipped);
    }
}

void recoverFolder(ui::EventLoop& loop, files::FileSystem& fileSystem, const std::wstring& folder,
                   const ui::Window* owner) {
    std::wstring text;
    {
        RecoveryNotice notice(loop);
        const files::Waiting waiting{[&loop] { return loop.now(); }, [&notice](int ms) { notice.pause(ms); },
                                     [&notice] { notice.step(); }};
        text = recoveryText(files::recoverFolder(fileSystem, folder, waiting));
    }
    if (!text.empty()) {
        ui::messageBox(owner, text, kTitle, ui::MessageIcon::Exclamation);
    }
}

}  // namespace app
