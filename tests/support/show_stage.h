#pragma once

#include <functional>
#include <map>
#include <memory>
#include <set>
#include <string>
#include <vector>

#include "media/background_music.h"
#include "media/video_playback.h"
#include "show/captions.h"
#include "show/script_player.h"
#include "show/show_controls.h"
#include "show/slideshow.h"
#include "show/transition_runner.h"
#include "support/picture_writer.h"
#include "support/recording_media_control.h"
#include "support/stage_controls.h"
#include "support/virtual_loop.h"
#include "ui/form.h"

namespace support {

/// Pictures of one colour each, told by the file's name, without a file being decoded.
class FakePictures : public show::PictureSource {
  public:
    void setSurface(const show::ShowSurface& surface) override {
        width_ = surface.width;
        height_ = surface.height;
    }
    std::optional<show::ShowPicture> take(const std::wstring& path) override {
        taken.push_back(path);
        if (onTake) {
            onTake();
        }
        if (damaged.count(path.substr(path.rfind(L'\\') + 1)) != 0) {
            return std::nullopt;
        }
        lastLoaded = path;
        show::ShowPicture picture{400, 300, picture::Surface(width_, height_)};
        const std::uint32_t colour = colourOf(path);
        picture.surface.fill(RGB(colour >> 16 & 0xFF, colour >> 8 & 0xFF, colour & 0xFF));
        return picture;
    }
    bool ready(const std::wstring& path) override { return decoded.count(path) != 0; }
    void prepare(const std::vector<std::wstring>& paths) override { prepared = paths; }
    void giveBack(picture::Surface surface) override { givenBack = std::move(surface); }

    /// A colour that no other name of the tests has.
    static std::uint32_t colourOf(const std::wstring& path) {
        std::uint32_t hash = 2166136261U;
        for (const wchar_t c : path.substr(path.rfind(L'\\') + 1)) {
            hash = (hash ^ static_cast<std::uint32_t>(c)) * 16777619U;
        }
        return (hash & 0x00FFFFFFU) | 0x00010101U;
    }

    std::set<std::wstring> damaged;
    /// Paths of what needs not be waited for.
    std::set<std::wstring> decoded;
    std::vector<std::wstring> taken;
    /// The last one that was no damaged one.
    std::wstring lastLoaded;
    std::function<void()> onTake;
    std::vector<std::wstring> prepared;
    /// The last one.
    picture::Surface givenBack;

  private:
    int width_ = 0;
    int height_ = 0;
};

/// A small surface in the place of a monitor.
class FakeScreen : public show::ShowScreen {
  public:
    bool inSetup() const override { return !tookOver; }
    void moveToSecondScreen() override { movedToSecond = true; }
    bool leaveSetup() override { return onScreen; }
    void takeOver() override {
        tookOver = true;
        if (onTakeOver) {
            onTakeOver();
        }
    }
    void uncover() override {}
    SIZE size() const override { return {160, 120}; }
    void arrange() override { arranged = true; }
    show::ShowSurface surface() const override { return {160, 120}; }
    ui::Pointer& pointer() override { return pointer_; }
    RECT rectangle() const override { return {0, 0, 160, 120}; }

    bool onScreen = true;
    bool tookOver = false;
    std::function<void()> onTakeOver;
    bool movedToSecond = false;
    bool arranged = false;

  private:
    ui::Pointer pointer_;
};

/// What the controls of a stage stand on; it lives longer than they do.
struct StageGround {
    VirtualLoop loop;
    ui::Form form{{.className = L"PanorellTestStage", .title = L"", .width = 9000, .height = 6000}};
};

/// Everything a show needs, with real controls, a recording media control and the virtual clock.
class ShowStage : public StageGround, public StageControls {
  public:
    /// `names` are made as files of a temporary folder in which the show runs.
    explicit ShowStage(const std::vector<std::wstring>& names) : StageControls(loop, form) {
        for (const std::wstring& name : names) {
            writeBytes(folder.file(name), {'x'});
        }
        music.musicList.clear();
        Dir1.setPath(folderPath());
        File1.setPath(folderPath());
        IntS.setValue(56);
        controls.onRestart = [this] { ++restarts; };
        show.onEnd = [this] { ++ends; };
    }

    void key(int code) { controls.keyDown(code); }
    void type(wchar_t character) {
        controls.keyDown(VkKeyScanW(character) & 0xFF);
        controls.keyPress(character);
    }
    /// The colour in the middle of what the show surface holds.
    std::uint32_t shown() const {
        GdiFlush();
        return Pic2.image().bits()[60 * 160 + 80];
    }
    std::wstring folderPath() const {
        const std::wstring inside = folder.file(L"x");
        return inside.substr(0, inside.rfind(L'\\'));
    }
    std::wstring pathOf(const std::wstring& name) const { return folder.file(name); }
    void writeScript(const std::string& text) const {
        writeBytes(pathOf(L"Panorell.txt"), {text.begin(), text.end()});
    }

    TemporaryFolder folder;
    RecordingMediaControl control;
    FakePictures pictures;
    FakeScreen screen;
    show::ShowState state;
    media::MusicState music;
    int restarts = 0;
    int ends = 0;

    show::TransitionRunner runner{{loop, Pic2, Pic3, Timer2, Check1}};
    show::Captions captions{{loop, state, Pic2, Pic3, UT, Text1, Timer3}};
    media::VideoPlayback video{{loop, control, music, stage(), choices(), timers(),
                                [this] { return player.playing(); }, [this] { return runner.running(); }}};
    media::BackgroundMusic player{
        {loop, control, music, Timer5, Musik, [this] { return runner.running() || video.sounds(); }}};
    show::ScriptPlayer script{{state, captions, runner, music, player, choices(), timers()}};
    show::Slideshow show{{loop, state, screen, pictures, engines(), stage(), choices(), timers()}};
    show::ShowControls controls{{loop, state, screen, show, engines(), stage(), choices(), timers()}};

  private:
    show::Engines engines() { return {runner, captions, script, video, player, music}; }
};

}  // namespace support
