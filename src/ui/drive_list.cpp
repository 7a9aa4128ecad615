#include "ui/drive_list.h"

#include <algorithm>

#include "platform/error.h"

namespace ui {

namespace {

constexpr int kLetters = 26;

const wchar_t* kindOf(const std::wstring& drive) {
    switch (GetDriveTypeW((drive + L"\\").c_str())) {
        case DRIVE_REMOVABLE:
            return L"Wechseldatenträger";
        case DRIVE_REMOTE:
            return L"Netzlaufwerk";
        case DRIVE_CDROM:
            return L"CD / DVD";
        case DRIVE_RAMDISK:
            return L"RAM-Disk";
        default:
            return L"Festplatte";
    }
}

std::vector<std::wstring> presentDrives() {
    const DWORD present = GetLogicalDrives();
    std::vector<std::wstring> drives;
    for (int i = 0; i < kLetters; ++i) {
        if ((present & (1U << i)) != 0) {
            drives.push_back(std::wstring(1, static_cast<wchar_t>(L'A' + i)) + L":");
        }
    }
    return drives;
}

std::wstring systemDrive() {
    wchar_t folder[MAX_PATH]{};
    return GetWindowsDirectoryW(folder, MAX_PATH) >= 2 ? std::wstring(folder, 2) : L"C:";
}

}  // namespace

DriveList::DriveList(const CreateArgs& args) : ComboBox(args), drive_(systemDrive()) {
    refresh();
}

void DriveList::refresh() {
    const std::vector<std::wstring> present = presentDrives();
    if (present != drives_) {
        drives_ = present;
        clear();
        for (const std::wstring& drive : drives_) {
            add(drive + L"  " + kindOf(drive));
        }
    }
    const auto at = std::find(drives_.begin(), drives_.end(), drive_);
    select(at != drives_.end() ? static_cast<int>(at - drives_.begin()) : -1);
}

void DriveList::setDrive(const std::wstring& drive) {
    refresh();
    const wchar_t letter = drive.empty() ? L'\0' : drive[0];
    const wchar_t capital =
        letter >= L'a' && letter <= L'z' ? static_cast<wchar_t>(letter - L'a' + L'A') : letter;
    const std::wstring wanted{capital, L':'};
    const auto at = std::find(drives_.begin(), drives_.end(), wanted);
    if (at == drives_.end()) {
        throw platform::Error("drive", ERROR_INVALID_DRIVE);
    }
    if (wanted != drive_) {
        select(static_cast<int>(at - drives_.begin()));
        changed();
    }
}

void DriveList::changed() {
    const int index = selectedIndex();
    if (index >= 0 && static_cast<std::size_t>(index) < drives_.size()) {
        drive_ = drives_[static_cast<std::size_t>(index)];
        ComboBox::changed();
    }
}

}  // namespace ui
