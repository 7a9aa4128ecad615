#include "program/support/picture_folder.h"

#include "program/support/files.h"

namespace program {

PictureFolder::PictureFolder(int count, int width, int height) {
    for (int number = 1; number <= count; ++number) {
        add(pictureName(number), {number, width, height});
    }
}

void PictureFolder::add(const std::wstring& name, const TestPicture& picture) {
    writePicture(file(name), picture);
    pictures_.push_back(picture);
}

void PictureFolder::addDamaged(const std::wstring& name) {
    writeDamagedPicture(file(name));
}

void PictureFolder::writeScript(std::string_view lines) {
    writeBytes(file(L"Panorell.txt"), lines);
}

std::wstring pictureName(int number) {
    const std::wstring digits = std::to_wstring(number);
    return L"bild" + std::wstring(digits.size() < 2 ? 1 : 0, L'0') + digits + L".jpg";
}

}  // namespace program
