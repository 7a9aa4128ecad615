#pragma once

#include <windows.h>

#include <memory>
#include <string>

#include "support/scratch_folder.h"

namespace support {

/// A folder with 10,000 empty pictures (Bild0.jpg ... Bild9999.jpg) and 100 titles (Titel0.mp3 ...
/// Titel99.mp3). Wine needs half a minute to make them, so the test bed makes them beforehand and names the
/// folder in PANORELL_MANY_FILES; without it they are made here.
class ManyFiles {
  public:
    static constexpr int kPictures = 10'000;
    static constexpr int kTitles = 100;

    ManyFiles() {
        wchar_t ready[MAX_PATH]{};
        const DWORD length = GetEnvironmentVariableW(L"PANORELL_MANY_FILES", ready, MAX_PATH);
        if (length > 0 && length < MAX_PATH) {
            path_ = ready;
            return;
        }
        own_ = std::make_unique<ScratchFolder>();
        path_ = own_->path();
        for (int i = 0; i < kPictures; ++i) {
            own_->file(L"Bild" + std::to_wstring(i) + L".jpg", "");
        }
        for (int i = 0; i < kTitles; ++i) {
            own_->file(L"Titel" + std::to_wstring(i) + L".mp3", "");
        }
    }

    /// Full path, without a "\" at the end. Nothing may be changed in it.
    const std::wstring& path() const { return path_; }

  private:
    std::unique_ptr<ScratchFolder> own_;
    std::wstring path_;
};

}  // namespace support
