#include "app/file_count.h"

namespace app {

std::wstring fileCountText(int count) {
    if (count <= 0) {
        return L"keine Bilder";
    }
    const wchar_t* files = count == 1 ? L" Datei (Vorschau: klicken)" : L" Dateien (Vorschau: klicken)";
    return L" " + std::to_wstring(count) + files;
}

}  // namespace app
