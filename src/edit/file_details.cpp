#include "edit/file_details.h"

#include <algorithm>
#include <cmath>
#include <string_view>
#include <utility>

#include "edit/date_input.h"
#include "text/utf8.h"

namespace edit {

namespace {

// From here on cameras tell fractions of a second.
constexpr double kLongExposure = 0.3;
constexpr double kMostTold = 1e9;

/// A text without a known encoding: UTF-8 where it is that, or else a character a byte.
std::wstring textOf(const std::string& bytes) {
    if (auto decoded = text::decodeUtf8(bytes)) {
        return *std::move(decoded);
    }
    std::wstring result;
    for (const char byte : bytes) {
        result += static_cast<wchar_t>(static_cast<unsigned char>(byte));
    }
    return result;
}

/// With one decimal where it is not a whole number.
std::wstring decimalText(double number) {
    const auto tenths = static_cast<std::uint64_t>(std::llround(std::min(number, kMostTold) * 10));
    const std::wstring whole = std::to_wstring(tenths / 10);
    return tenths % 10 == 0 ? whole : whole + L"," + std::to_wstring(tenths % 10);
}

/// Many cameras begin the model with the make.
std::wstring cameraText(const picture::CameraNotes& camera) {
    if (camera.make.empty() || camera.model.starts_with(camera.make)) {
        return textOf(camera.model);
    }
    return textOf(camera.model.empty() ? camera.make : camera.make + " " + camera.model);
}

std::wstring exposureText(const picture::CameraNotes& camera) {
    std::wstring text;
    const auto add = [&text](const std::wstring& part) { text += text.empty() ? part : L", " + part; };
    if (camera.exposureTime) {
        add(exposureTimeText(*camera.exposureTime));
    }
    if (camera.fNumber) {
        add(L"f/" + decimalText(*camera.fNumber));
    }
    if (camera.sensitivity) {
        add(L"ISO " + std::to_wstring(*camera.sensitivity));
    }
    if (camera.focalLength) {
        add(decimalText(*camera.focalLength) + L" mm");
    }
    return text;
}

class Lines {
  public:
    void add(std::wstring_view name, const std::wstring& value) {
        if (!value.empty()) {
            text_.append(text_.empty() ? L"" : L"\n").append(name).append(L": ").append(value);
        }
    }
    void add(std::wstring_view name, const std::optional<text::DateTime>& moment) {
        add(name, moment ? dateTimeText(*moment) : std::wstring());
    }
    std::wstring text() && { return std::move(text_); }

  private:
    std::wstring text_;
};

}  // namespace

std::wstring fileDetailsText(const FileDetails& details) {
    Lines lines;
    lines.add(L"Name", details.name);
    lines.add(L"Ordner", details.folder);
    lines.add(L"Größe", bytesText(details.size));
    lines.add(L"Geändert", details.written);
    lines.add(L"Erstellt", details.created);
    lines.add(L"Letzter Zugriff", details.accessed);
    lines.add(L"Aufgenommen", details.taken);
    if (details.pixels) {
        lines.add(L"Bildgröße", std::to_wstring(details.pixels->width) + L" x " +
                                    std::to_wstring(details.pixels->height) + L" Pixel");
    }
    lines.add(L"Kamera", cameraText(details.camera));
    lines.add(L"Belichtung", exposureText(details.camera));
    return std::move(lines).text();
}

std::wstring exposureTimeText(double seconds) {
    if (seconds < kLongExposure) {
        return L"1/" + std::to_wstring(std::llround(std::min(1 / seconds, kMostTold))) + L" s";
    }
    return decimalText(seconds) + L" s";
}

std::wstring bytesText(std::uint64_t bytes) {
    std::wstring text = std::to_wstring(bytes);
    constexpr std::size_t kGroup = 3;
    for (std::size_t at = text.size(); at > kGroup;) {
        at -= kGroup;
        text.insert(at, 1, L'.');
    }
    return text + (bytes == 1 ? L" Byte" : L" Bytes");
}

}  // namespace edit
