#include "script/picture_key.h"

#include <gtest/gtest.h>

namespace script {
namespace {

TEST(PictureKeyRule, LastBackslashToFirstDot) {
    const std::pair<const wchar_t*, const wchar_t*> cases[] = {
        {L"C:\\Bilder\\Urlaub007.jpg", L"Urlaub007"},
        {L"C:\\Bilder\\a.b.jpg", L"a"},
        {L"C:\\Bilder\\ohne", L"ohne"},
        {L"C:\\Bilder\\.jpg", L""},
        {L"C:\\Bilder\\", L""},
        {L"a.jpg", L"a"},
        {L"a", L"a"},
        {L".jpg", L""},
        {L"", L""},
        {L"\\", L""},
        {L"C:\\\\Bild 1 \u00FC\u6F22.JPG", L"Bild 1 \u00FC\u6F22"},
        {L"C:\\Fotos.2003\\Urlaub.jpg", L"Urlaub"},
        {L"C:\\Users\\max.muster\\Bilder\\a.b.jpg", L"a"},
        {L"C:\\Fotos.2003\\Urlaub", L"Urlaub"},
        {L"..\\a.jpg", L"a"},
        {L"C:\\a.\\", L""},
    };
    for (const auto& [path, expected] : cases) {
        EXPECT_EQ(PictureKey(path), expected) << path;
    }
}

}  // namespace
}  // namespace script
