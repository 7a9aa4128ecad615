#pragma once

#include <string>
#include <string_view>

#include "program/support/test_pictures.h"

namespace program {

/// Writes these bytes as a file, replacing one of that name. Throws platform::Error.
void writeBytes(const std::wstring& path, std::string_view bytes);

/// The bytes of a file. Throws platform::Error.
std::string readBytes(const std::wstring& path);

/// Draws the picture and writes it as a JPEG file.
void writePicture(const std::wstring& path, const TestPicture& picture);

/// A file that has a picture's name but not its content.
void writeDamagedPicture(const std::wstring& path);

/// Sets the hidden attribute. Throws platform::Error.
void hide(const std::wstring& path);

void copyFile(const std::wstring& from, const std::wstring& to);
bool exists(const std::wstring& path);

/// A value of an ini file, `missing` when it is not there.
std::wstring iniValue(const std::wstring& file, const wchar_t* section, const wchar_t* key,
                      const wchar_t* missing = L"(missing)");

}  // namespace program
