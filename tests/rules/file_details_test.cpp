#include "edit/file_details.h"

#include <gtest/gtest.h>

namespace edit {
namespace {

TEST(FileDetails, AFileWithEverything) {
    FileDetails details;
    details.name = L"DSC0001.jpg";
    details.folder = L"C:\\Bilder";
    details.size = 3'456'789;
    details.created = text::DateTime{2025, 12, 25, 9, 0, 0};
    details.written = text::DateTime{2025, 12, 24, 18, 30, 0};
    details.accessed = text::DateTime{2026, 1, 2, 3, 4, 5};
    details.pixels = picture::PictureSize{6000, 4000};
    details.taken = text::DateTime{2025, 12, 24, 18, 29, 58};
    details.camera = {"NIKON CORPORATION", "NIKON D750", 1.0 / 250, 2.8, 100, 50.0};
    EXPECT_EQ(fileDetailsText(details),
              L"Name: DSC0001.jpg\n"
              L"Ordner: C:\\Bilder\n"
              L"Größe: 3.456.789 Bytes\n"
              L"Geändert: 24.12.2025 18:30:00\n"
              L"Erstellt: 25.12.2025 09:00:00\n"
              L"Letzter Zugriff: 02.01.2026 03:04:05\n"
              L"Aufgenommen: 24.12.2025 18:29:58\n"
              L"Bildgröße: 6000 x 4000 Pixel\n"
              L"Kamera: NIKON CORPORATION NIKON D750\n"
              L"Belichtung: 1/250 s, f/2,8, ISO 100, 50 mm");
}

TEST(FileDetails, WhatIsNotKnownHasNoLine) {
    FileDetails details;
    details.name = L"a.mpg";
    EXPECT_EQ(fileDetailsText(details), L"Name: a.mpg\nGröße: 0 Bytes");
    details.camera.sensitivity = 400;
    EXPECT_EQ(fileDetailsText(details), L"Name: a.mpg\nGröße: 0 Bytes\nBelichtung: ISO 400");
}

TEST(FileDetails, CameraIsNamedOnce) {
    const struct {
        const char* make;
        const char* model;
        const wchar_t* expected;
    } cases[] = {
        {"Canon", "Canon EOS 5D", L"Kamera: Canon EOS 5D"},
        {"Apple", "iPhone 15", L"Kamera: Apple iPhone 15"},
        {"Apple", "", L"Kamera: Apple"},
        {"", "iPhone 15", L"Kamera: iPhone 15"},
        {"", "Fr\xC3\xBCh", L"Kamera: Fr\u00FCh"},
        {"", "Fr\xFCh", L"Kamera: Fr\u00FCh"},
    };
    for (const auto& c : cases) {
        FileDetails details;
        details.camera.make = c.make;
        details.camera.model = c.model;
        EXPECT_EQ(fileDetailsText(details), std::wstring(L"Größe: 0 Bytes\n") + c.expected) << c.model;
    }
}

TEST(FileDetails, ExposureTimesAreToldAsCamerasDo) {
    const struct {
        double seconds;
        const wchar_t* expected;
    } cases[] = {{1.0 / 250, L"1/250 s"},
                 {0.004, L"1/250 s"},
                 {1.0 / 8000, L"1/8000 s"},
                 {0.25, L"1/4 s"},
                 {0.3, L"0,3 s"},
                 {0.5, L"0,5 s"},
                 {1, L"1 s"},
                 {1.6, L"1,6 s"},
                 {30, L"30 s"},
                 {29.96, L"30 s"},
                 {1e-30, L"1/1000000000 s"},
                 {1e30, L"1000000000 s"},
                 {1.0 / 60.4, L"1/60 s"}};
    for (const auto& c : cases) {
        EXPECT_EQ(exposureTimeText(c.seconds), c.expected) << c.seconds;
    }
}

TEST(FileDetails, BytesAreGrouped) {
    EXPECT_EQ(bytesText(0), L"0 Bytes");
    EXPECT_EQ(bytesText(1), L"1 Byte");
    EXPECT_EQ(bytesText(999), L"999 Bytes");
    EXPECT_EQ(bytesText(1000), L"1.000 Bytes");
    EXPECT_EQ(bytesText(123'456), L"123.456 Bytes");
    EXPECT_EQ(bytesText(18'446'744'073'709'551'615U), L"18.446.744.073.709.551.615 Bytes");
}

}  // namespace
}  // namespace edit
