// One item of the overview large, and the buttons below it.
#include "overview/enlarged_view.h"

#include <gmock/gmock.h>

#include <functional>
#include <memory>
#include <optional>

#include "platform/handles.h"
#include "platform/short_path.h"
#include "support/colours.h"
#include "support/picture_writer.h"
#include "support/recording_media_control.h"
#include "support/scratch_folder.h"
#include "support/test_form.h"

namespace overview {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

constexpr std::uint32_t kRed = 0xC02020;
constexpr std::uint32_t kGreen = 0x20C020;

class EnlargedViewTest : public testing::Test {
  protected:
    EnlargedViewTest() {
        records.folder = folder.path();
        control.replyTo("status VIDEO length", "60000");
        control.replyTo("status VIDEO position", "12500");
        view.onShown = [this](int index) { shown.push_back(index); };
    }

    void picture(const std::wstring& name, std::uint32_t colour, const std::wstring& entry = L"") {
        support::writePicture(folder / name, support::PictureKind::Jpeg, 160, 120,
                              [=](int, int) { return colour; });
        add(name, entry);
    }
    void film(const std::wstring& name, const std::wstring& entry = L"") {
        folder.file(name);
        add(name, entry);
    }
    void add(const std::wstring& name, const std::wstring& entry = L"") {
        ThumbRecord record;
        record.fileName = name;
        record.entry = entry;
        records.thumbRecords.push_back(record);
    }
    // Lets a picture on its way arrive.
    bool waitFor(const std::function<bool()>& reached) {
        const ULONGLONG until = GetTickCount64() + 20'000;
        while (!reached()) {
            if (GetTickCount64() > until) {
                return false;
            }
            test.loop.advance(10);
        }
        return true;
    }
    std::uint32_t middle() {
        GdiFlush();
        const picture::Surface& image = Pic3.image();
        return image.width() == 0
                   ? 0
                   : image.bits()[(image.height() / 2) * image.width() + image.width() / 2] & 0xFFFFFFU;
    }
    bool shows(std::uint32_t colour) {
        return waitFor([&] { return support::colourDistance(middle(), colour) < 12; });
    }
    int whitePixels() {
        GdiFlush();
        const picture::Surface& image = Pic3.image();
        int count = 0;
        for (int i = 0; i < image.width() * image.height(); ++i) {
            count += (image.bits()[i] & 0xFFFFFFU) == 0xFFFFFFU ? 1 : 0;
        }
        return count;
    }
    std::unique_ptr<ui::PushButton> button(int id, const std::wstring& text, ui::Twips width = 450) {
        auto args = test.args(id, {0, 0, width, 390});
        args.text = text;
        args.visible = false;
        return std::make_unique<ui::PushButton>(args);
    }
    std::wstring info() { return Command[5]->text(); }
    std::string open(const std::wstring& name) {
        return "open " + platform::shortPath(folder / name) + " alias VIDEO parent " +
               std::to_string(reinterpret_cast<std::uintptr_t>(Pic3.hwnd())) + " style child";
    }

    support::ScratchFolder folder;
    support::TestForm test;
    support::RecordingMediaControl control;
    ThumbRecords records;
    ui::PictureBox Pic3{{.parent = test.form, .visible = false}};
    std::array<std::unique_ptr<ui::PushButton>, kPreviewButtons> Command{
        button(1, L"X"), button(2, L"<<"), button(3, L"| |"),
        button(4, L">"), button(5, L""),   button(6, L"", 1500)};
    ui::CheckBox Ton{[this] {
        auto args = test.args(7, {0, 0, 1000, 390});
        args.text = L"Ton ein";
        args.visible = false;
        return args;
    }()};
    ui::Timer Timer1{test.loop};
    ui::TwipsRect area{0, 0, 8000, 5000};
    std::optional<bool> thumbnails;
    std::vector<int> shown;
    EnlargedView view{{test.loop,
                       control,
                       {Pic3,
                        {Command[0].get(), Command[1].get(), Command[2].get(), Command[3].get(),
                         Command[4].get(), Command[5].get()},
                        Ton,
                        Timer1},
                       records,
                       [this] { return area; },
                       [] { return picture::ColourTarget(); },
                       [this](bool on) { thumbnails = on; }}};
};

TEST_F(EnlargedViewTest, APictureFillsTheBox) {
    picture(L"a.jpg", kRed, L"Haus *P=3");
    view.enlarge(0);
    EXPECT_TRUE(view.isOpen());
    EXPECT_TRUE(Pic3.visible());
    EXPECT_EQ(thumbnails, false);
    EXPECT_TRUE(shows(kRed));
    EXPECT_THAT(control.commands(), ElementsAre("stop VIDEO", "close VIDEO"));
    const SIZE size = Pic3.clientSize();
    EXPECT_NEAR(size.cx * 3, size.cy * 4, 6);
    EXPECT_THAT(shown, ElementsAre(0));
}

TEST_F(EnlargedViewTest, BesideAPictureStandsItsDateAndWhatElseThereIs) {
    picture(L"Urlaub.x.JPG", kRed, L"Haus *P=3");
    view.enlarge(0);
    ASSERT_TRUE(shows(kRed)) << "capitals are a picture too";
    EXPECT_TRUE(Command[0]->visible());
    EXPECT_TRUE(Command[5]->visible());
    for (const int hidden : {1, 2, 3, 4}) {
        EXPECT_FALSE(Command[static_cast<std::size_t>(hidden)]->visible()) << hidden;
    }
    EXPECT_FALSE(Ton.visible());
    EXPECT_THAT(info(), HasSubstr(L", "));
    EXPECT_THAT(info(), HasSubstr(L":")) << "date and time";
    Command[5]->click();
    EXPECT_EQ(info(), L"Urlaub");
    Command[5]->click();
    EXPECT_EQ(info(), L"Haus");
    Command[5]->click();
    EXPECT_THAT(info(), HasSubstr(L":")) << "a picture has no position";
    EXPECT_FALSE(Timer1.enabled());
}

TEST_F(EnlargedViewTest, TheLastButtonPassesOverWhatThereIsNot) {
    add(L"fehlt.jpg");
    view.enlarge(0);
    EXPECT_EQ(info(), L"fehlt") << "a file that is gone has no date";
    EXPECT_TRUE(Command[5]->visible());
    add(L".jpg");
    view.enlarge(1);
    EXPECT_TRUE(Command[0]->visible());
    EXPECT_FALSE(Command[5]->visible()) << "without a caption it is not shown";
    film(L"b.mpg");
    view.enlarge(2);
    EXPECT_TRUE(Command[5]->visible());
}

TEST_F(EnlargedViewTest, AFilmIsOpenedSilentAndPlayed) {
    film(L"b.mpg");
    view.enlarge(0);
    const SIZE size = Pic3.clientSize();
    const std::string put =
        " put VIDEO window at 0 0 " + std::to_string(size.cx) + " " + std::to_string(size.cy);
    EXPECT_THAT(control.take(),
                ElementsAre("stop VIDEO", "close VIDEO", open(L"b.mpg"), "set VIDEO audio all off", put,
                            "set VIDEO time format milliseconds", "status VIDEO length", "play VIDEO"));
    for (const int there : {0, 1, 2, 3, 5}) {
        EXPECT_TRUE(Command[static_cast<std::size_t>(there)]->visible()) << there;
    }
    EXPECT_FALSE(Command[4]->visible()) << "it has no caption";
    EXPECT_TRUE(Ton.visible());
    EXPECT_TRUE(Pic3.enabled());
    EXPECT_EQ(info(), L"0/60 s");
    test.loop.advance(150);
    EXPECT_THAT(control.sent(),
                ElementsAre(support::RecordingMediaControl::Sent{"status VIDEO position", 128}));
    EXPECT_EQ(info(), L"12.5/60 s");
}

TEST_F(EnlargedViewTest, AFilmSoundsAtOnceWhereTheSoundIsOn) {
    film(L"b.mpg");
    Ton.setValue(1);
    control.clear();
    view.enlarge(0);
    const std::vector<std::string> sent = control.take();
    ASSERT_GE(sent.size(), 2U);
    EXPECT_EQ(sent[sent.size() - 2], "play VIDEO");
    EXPECT_EQ(sent.back(), "set VIDEO audio all on");
}

TEST_F(EnlargedViewTest, TheButtonsSteerTheFilm) {
    film(L"b.mpg", L"Titel *D");
    view.enlarge(0);
    control.clear();
    Command[1]->click();
    EXPECT_THAT(control.take(), ElementsAre("play VIDEO from 0", "pause VIDEO"));
    EXPECT_TRUE(Command[1]->hasFocus());
    Command[2]->click();
    EXPECT_THAT(control.take(), ElementsAre("pause VIDEO"));
    Command[3]->click();
    EXPECT_THAT(control.take(), ElementsAre("play VIDEO"));
    Ton.setValue(1);
    EXPECT_THAT(control.take(), ElementsAre("set VIDEO audio all on"));
    EXPECT_EQ(Ton.text(), L"Ton aus");
    EXPECT_TRUE(Command[3]->hasFocus());
    Ton.setValue(0);
    EXPECT_THAT(control.take(), ElementsAre("set VIDEO audio all off"));
    EXPECT_EQ(Ton.text(), L"Ton ein");
}

TEST_F(EnlargedViewTest, TheDisplayOfAFilmGoesRoundAndItsTimerStopsBesideThePosition) {
    film(L"b.mpg", L"Titel *D");
    view.enlarge(0);
    EXPECT_TRUE(Timer1.enabled());
    Command[5]->click();
    EXPECT_EQ(info(), L"Titel");
    EXPECT_FALSE(Timer1.enabled());
    Command[5]->click();
    EXPECT_THAT(info(), HasSubstr(L":"));
    Command[5]->click();
    EXPECT_EQ(info(), L"b");
    EXPECT_FALSE(Timer1.enabled());
    Command[5]->click();
    EXPECT_EQ(info(), L"12.5/60 s");
    EXPECT_TRUE(Timer1.enabled());
}

TEST_F(EnlargedViewTest, AnotherFilmClosesTheFirstBeforeItOpens) {
    film(L"b.mpg");
    film(L"c.mpg");
    view.enlarge(0);
    control.clear();
    view.enlarge(1);
    const std::vector<std::string> sent = control.take();
    ASSERT_GE(sent.size(), 3U);
    EXPECT_EQ(sent[0], "stop VIDEO");
    EXPECT_EQ(sent[1], "close VIDEO");
    EXPECT_EQ(sent[2], open(L"c.mpg"));
    EXPECT_EQ(view.index(), 1);
}

TEST_F(EnlargedViewTest, ClosingTakesEverythingBack) {
    film(L"b.mpg");
    view.enlarge(0);
    control.clear();
    Command[0]->click();
    EXPECT_THAT(control.take(), ElementsAre("stop VIDEO", "close VIDEO"));
    EXPECT_FALSE(view.isOpen());
    EXPECT_FALSE(Pic3.visible());
    EXPECT_FALSE(Ton.visible());
    EXPECT_FALSE(Timer1.enabled());
    for (const auto& one : Command) {
        EXPECT_FALSE(one->visible());
    }
    EXPECT_EQ(thumbnails, true);
    EXPECT_THAT(shown, ElementsAre(0, -1));
    view.close();
    EXPECT_THAT(control.take(), IsEmpty()) << "a second time";
}

TEST_F(EnlargedViewTest, StepsLeadToTheItemsBesideAndNoFurther) {
    picture(L"a.jpg", kRed);
    picture(L"b.jpg", kGreen);
    view.step(1);
    EXPECT_FALSE(view.isOpen()) << "nothing is enlarged yet";
    view.enlarge(0);
    view.step(-1);
    EXPECT_EQ(view.index(), 0);
    view.step(1);
    EXPECT_TRUE(shows(kGreen));
    view.step(1);
    EXPECT_EQ(view.index(), 1);
    view.step(-1);
    EXPECT_TRUE(shows(kRed));
}

TEST_F(EnlargedViewTest, APictureThatIsClosedOnItsWayNeverComes) {
    picture(L"a.jpg", kRed);
    view.enlarge(0);
    view.close();
    test.loop.advance(500);
    EXPECT_FALSE(Pic3.visible());
    EXPECT_EQ(middle(), 0U);
}

TEST_F(EnlargedViewTest, AnItemEnlargedWhileEventsRunTakesThePlace) {
    film(L"b.mpg");
    picture(L"a.jpg", kRed);
    test.form.onKey = [this](int key, bool) {
        view.enlarge(key == VK_RIGHT ? 1 : -1);
        return true;
    };
    view.onShown = [this](int index) {
        if (index == 0) {
            PostMessageW(test.form.hwnd(), WM_KEYDOWN, VK_RIGHT, 1);
        }
    };
    view.enlarge(0);
    EXPECT_EQ(view.index(), 1);
    EXPECT_TRUE(shows(kRed));
    for (const std::string& command : control.commands()) {
        EXPECT_EQ(command.rfind("open", 0), std::string::npos) << "the film was left before it was opened";
    }
}

TEST_F(EnlargedViewTest, WhatCannotBeShownSaysWhy) {
    add(L"fehlt.jpg");
    view.enlarge(0);
    EXPECT_TRUE(waitFor([&] { return whitePixels() > 50; }));
    folder.file(L"kaputt.jpg", "no picture");
    add(L"kaputt.jpg");
    view.enlarge(1);
    EXPECT_TRUE(waitFor([&] { return whitePixels() > 50; }));
    film(L"b.mpg");
    control.replyTo(open(L"b.mpg"), "", 277);
    view.enlarge(2);
    EXPECT_GT(whitePixels(), 50);
    EXPECT_TRUE(Command[0]->visible());
}

// The sentences cannot be read from pixels, but each is another one.
TEST_F(EnlargedViewTest, EachReasonHasASentenceOfItsOwn) {
    const std::wstring path = folder.file(L"a.jpg", "no picture");
    add(L"a.jpg");
    const auto reason = [this] {
        view.enlarge(0);
        EXPECT_TRUE(waitFor([&] { return whitePixels() > 50; }));
        return Pic3.image().pixels().data;
    };
    const auto damaged = reason();
    EXPECT_EQ(reason(), damaged);
    std::optional<platform::File> other(
        CreateFileW(path.c_str(), GENERIC_WRITE, 0, nullptr, OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr));
    ASSERT_TRUE(*other);
    const auto inUse = reason();
    EXPECT_NE(inUse, damaged);
    other.reset();
    ASSERT_NE(DeleteFileW(path.c_str()), FALSE);
    const auto missing = reason();
    EXPECT_NE(missing, damaged);
    EXPECT_NE(missing, inUse);
}

TEST_F(EnlargedViewTest, TheReasonFollowsTheForm) {
    film(L"b.mpg");
    control.replyTo(open(L"b.mpg"), "", 277);
    view.enlarge(0);
    ASSERT_GT(whitePixels(), 50);
    area = {0, 0, 5000, 4140};
    view.layOut();
    EXPECT_EQ(Pic3.image().width(), Pic3.clientSize().cx);
    EXPECT_GT(whitePixels(), 50);
}

TEST_F(EnlargedViewTest, APictureThatIsGoneMeanwhileSaysSoWhenItIsDrawnAnew) {
    picture(L"a.jpg", kRed);
    view.enlarge(0);
    ASSERT_TRUE(shows(kRed));
    ASSERT_NE(DeleteFileW((folder / L"a.jpg").c_str()), FALSE);
    area = {0, 0, 5000, 4140};
    view.layOut();
    EXPECT_TRUE(waitFor([&] { return whitePixels() > 50; }));
}

TEST_F(EnlargedViewTest, AnIndexWithoutAnItemDoesNothing) {
    view.enlarge(0);
    view.enlarge(-1);
    EXPECT_FALSE(view.isOpen());
    EXPECT_THAT(control.commands(), IsEmpty());
}

TEST_F(EnlargedViewTest, BoxAndFilmFollowTheForm) {
    film(L"b.mpg");
    picture(L"a.jpg", kRed);
    view.enlarge(0);
    control.clear();
    view.layOut();
    EXPECT_THAT(control.take(), IsEmpty()) << "nothing has changed";
    area = {0, 0, 4000, 3390};
    view.layOut();
    EXPECT_THAT(control.take(), ElementsAre(" put VIDEO window at 0 0 267 200"));
    view.enlarge(1);
    ASSERT_TRUE(shows(kRed));
    area = {0, 0, 8000, 5000};
    view.layOut();
    EXPECT_TRUE(waitFor([&] { return Pic3.image().width() == Pic3.clientSize().cx; }));
    EXPECT_TRUE(shows(kRed));
}

}  // namespace
}  // namespace overview
