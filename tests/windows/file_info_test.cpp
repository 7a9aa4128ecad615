#include "edit/file_info.h"

#include <gmock/gmock.h>

#include "platform/wine.h"
#include "support/edit_scene.h"
#include "support/exif_bytes.h"
#include "support/message_boxes.h"
#include "support/picture_writer.h"
#include "support/test_form.h"
#include "ui/text_box.h"

namespace edit {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

constexpr double kAppearingMs = 4000;

class FakeDialog : public platform::PropertiesDialog {
  public:
    bool there = true;
    std::wstring inFront;  ///< the file whose dialog is in front
    std::vector<std::wstring> opened;
    std::vector<WORD> typed;

    bool open(HWND, const std::wstring& path) override {
        opened.push_back(path);
        return there;
    }
    bool isInFront(const std::wstring& path) const override { return path == inFront; }
    void type(const std::vector<WORD>& keys) override { typed.insert(typed.end(), keys.begin(), keys.end()); }
};

class FileInfoTest : public testing::Test {
  protected:
    FileInfoTest() {
        support::writePicture(scene_.folder / L"a.jpg", support::PictureKind::Jpeg, 64, 48,
                              [](int, int) { return 0x808080U; });
        scene_.folder.file(L"b.mpg", "no film");
        scene_.setTimes(L"a.jpg");
        scene_.load();
    }
    std::wstring path(const wchar_t* name) const { return scene_.folder / name; }

    support::EditScene scene_;
    support::VirtualLoop loop_;
    FakeDialog dialog_;
    FileInfo info_{{loop_, scene_.records, dialog_, [] { return HWND{}; }, scene_.dialogue()}};
};

TEST_F(FileInfoTest, OpensTheDialogAndLeadsItToTheDetails) {
    dialog_.inFront = path(L"a.jpg");
    info_.show(0);
    EXPECT_THAT(dialog_.opened, ElementsAre(path(L"a.jpg")));
    loop_.advance(kAppearingMs - 1);
    EXPECT_THAT(dialog_.typed, IsEmpty());
    loop_.advance(1);
    EXPECT_THAT(dialog_.typed, ElementsAre(VK_TAB, VK_TAB, VK_TAB, VK_TAB, VK_TAB, VK_RIGHT, VK_RIGHT,
                                           VK_RIGHT, VK_TAB, VK_TAB, VK_TAB, VK_TAB, VK_TAB, VK_TAB, 'R'));
    loop_.advance(10 * kAppearingMs);
    EXPECT_EQ(dialog_.typed.size(), 15u) << "once only";
    EXPECT_THAT(scene_.told, IsEmpty());
}

TEST_F(FileInfoTest, KeysReachNoOtherWindow) {
    info_.show(0);
    loop_.advance(kAppearingMs);
    dialog_.inFront = path(L"a.jpg");
    loop_.advance(kAppearingMs);
    EXPECT_THAT(dialog_.typed, IsEmpty());
}

TEST_F(FileInfoTest, ASecondDialogIsWaitedForAnew) {
    dialog_.inFront = path(L"b.mpg");
    info_.show(0);
    loop_.advance(kAppearingMs - 1000);
    info_.show(1);
    loop_.advance(1000);
    EXPECT_THAT(dialog_.typed, IsEmpty());
    loop_.advance(kAppearingMs - 1000);
    EXPECT_EQ(dialog_.typed.size(), 15u);
}

TEST_F(FileInfoTest, WithoutADialogABoxTellsTheDetails) {
    support::ExifBytes exif(support::ExifBytes::Order::Intel);
    exif.add(2, 2).entry(0x0110, 2, 10, 38).entry(0x0132, 2, 20, 48).add(0, 4);
    exif.append(std::string("Canon EOS\0", 10)).append(std::string("2025:12:24 18:29:58") + '\0');
    support::insertSegment(path(L"a.jpg"), support::exifSegment(exif));
    scene_.setTimes(L"a.jpg");
    dialog_.there = false;
    info_.show(0);
    ASSERT_EQ(scene_.told.size(), 1u);
    const std::wstring& text = scene_.told[0].text;
    EXPECT_TRUE(text.starts_with(L"Name: a.jpg\nOrdner: " + scene_.folder.path() + L"\nGröße: ")) << text;
    for (const wchar_t* line :
         {L"\nGeändert: 15.06.2024 12:34:56\n", L"\nErstellt: ", L"\nLetzter Zugriff: ",
          L"\nAufgenommen: 24.12.2025 18:29:58\n", L"\nBildgröße: 64 x 48 Pixel\n", L"\nKamera: Canon EOS"}) {
        EXPECT_NE(text.find(line), std::wstring::npos) << line;
    }
    loop_.advance(2 * kAppearingMs);
    EXPECT_THAT(dialog_.typed, IsEmpty());
}

TEST_F(FileInfoTest, AFilmHasNoPictureToTellOf) {
    dialog_.there = false;
    info_.show(1);
    ASSERT_EQ(scene_.told.size(), 1u);
    EXPECT_NE(scene_.told[0].text.find(L"Größe: 7 Bytes\n"), std::wstring::npos);
    EXPECT_EQ(scene_.told[0].text.find(L"Bildgröße"), std::wstring::npos);
}

TEST_F(FileInfoTest, AFileThatIsGoneIsToldOf) {
    dialog_.there = false;
    scene_.folder.remove(L"a.jpg");
    info_.show(0);
    ASSERT_EQ(scene_.told.size(), 1u);
    EXPECT_EQ(scene_.told[0].text, L"Die Datei «a.jpg» ist nicht mehr da.");
}

TEST(SystemPropertiesDialog, WhereThereIsNoneNoBoxOfTheSystemAppears) {
    if (!platform::runsUnderWine()) {
        GTEST_SKIP() << "Windows has the dialog";
    }
    const support::ScratchFolder folder;
    const std::wstring path = folder.file(L"a.jpg");
    const support::MessageBoxes boxes;
    platform::SystemPropertiesDialog dialog;
    EXPECT_FALSE(dialog.open(nullptr, path));
    EXPECT_THAT(boxes.seen(), IsEmpty());
}

TEST(SystemPropertiesDialog, KnowsItsDialogByClassAndTitle) {
    support::TestForm test;
    const platform::SystemPropertiesDialog dialog;
    const HWND window = CreateWindowExW(0, WC_DIALOG, L"Eigenschaften von Mein Bild", WS_POPUP | WS_CAPTION,
                                        0, 0, 200, 100, nullptr, nullptr, GetModuleHandleW(nullptr), nullptr);
    ASSERT_NE(window, nullptr);
    EXPECT_FALSE(dialog.isInFront(L"C:\\x\\Mein Bild.jpg")) << "another window is in front";
    ShowWindow(window, SW_SHOW);
    SetForegroundWindow(window);
    EXPECT_TRUE(test.waitFor([&] { return GetForegroundWindow() == window; }));
    EXPECT_TRUE(dialog.isInFront(L"C:\\x\\Mein Bild.jpg"));
    EXPECT_FALSE(dialog.isInFront(L"C:\\x\\Dein Bild.jpg"));
    DestroyWindow(window);
}

TEST(SystemPropertiesDialog, PressesAndReleasesEachKey) {
    const std::vector<INPUT> strokes = platform::keyStrokes({VK_TAB, VK_RIGHT, 'R'});
    ASSERT_EQ(strokes.size(), 6u);
    const WORD keys[] = {VK_TAB, VK_TAB, VK_RIGHT, VK_RIGHT, 'R', 'R'};
    for (std::size_t i = 0; i < strokes.size(); ++i) {
        EXPECT_EQ(strokes[i].type, DWORD{INPUT_KEYBOARD});
        EXPECT_EQ(strokes[i].ki.wVk, keys[i]);
        EXPECT_EQ((strokes[i].ki.dwFlags & KEYEVENTF_KEYUP) != 0, i % 2 == 1);
        EXPECT_EQ((strokes[i].ki.dwFlags & KEYEVENTF_EXTENDEDKEY) != 0, keys[i] == VK_RIGHT);
    }
}

TEST(SystemPropertiesDialog, TypesIntoTheWindowWithTheFocus) {
    support::TestForm test;
    ui::TextBox box(test.args(1));
    box.setFocus();
    SetForegroundWindow(test.form.hwnd());
    ASSERT_TRUE(test.waitFor([&] { return GetForegroundWindow() == test.form.hwnd() && box.hasFocus(); }));
    platform::SystemPropertiesDialog dialog;
    dialog.type({'R', 'A'});
    EXPECT_TRUE(test.waitFor([&] { return box.text() == L"ra"; })) << box.text();
}

}  // namespace
}  // namespace edit
