#include "app/parameter_controls.h"

#include <gmock/gmock.h>

#include "platform/clipboard.h"
#include "support/app_stage.h"

namespace app {
namespace {

using support::AppStage;

struct State {
    std::wstring text = L"5";
    int bar = 56;
    int date = 0;
    int loop = 0;
    int sound = 1;
    int music = 1;
    int set = -1;
    int start = 0;
    friend bool operator==(const State&, const State&) = default;
};

void PrintTo(const State& s, std::ostream* out) {
    *out << std::string(s.text.begin(), s.text.end()) << " bar " << s.bar << " D" << s.date << " E" << s.loop
         << " V" << s.sound << " M" << s.music << " S" << s.set << " L" << s.start;
}

State stateOf(AppStage& stage) {
    Form1& form = stage.form();
    State state;
    state.text = form.IntT.text();
    state.bar = form.IntS.value();
    state.date = form.ShowFN.value();
    state.loop = form.LoopC.value();
    state.sound = form.MUTE.value();
    state.music = form.Musik.value();
    for (int i = 0; i < 4; ++i) {
        if (form.Option1[static_cast<std::size_t>(i)].selected()) {
            state.set = i;
        }
    }
    state.start = stage.state().StartIndex;
    return state;
}

struct Case {
    const wchar_t* parameters;
    State expected;
};

class Apply : public testing::TestWithParam<Case> {};

TEST_P(Apply, SetsTheControls) {
    AppStage stage;
    for (int i = 0; i < 12; ++i) {
        stage.pictures.file(std::to_wstring(i) + L".jpg", "no picture");
    }
    stage.program.file(L"Panorell.ini", "[Set3]\r\nDelay=30\r\nLoop=1\r\nDate=1\r\nSound=0\r\n");
    stage.loadFolder(GetParam().parameters);
    EXPECT_EQ(stateOf(stage), GetParam().expected);
    EXPECT_EQ(stage.form().Dir1.path(), stage.pictures.path());
}

INSTANTIATE_TEST_SUITE_P(
    Texts, Apply,
    testing::Values(Case{L"", {}}, Case{L" P=7", {.text = L"7", .bar = 54}},
                    Case{L" P=12", {.text = L"12", .bar = 49}}, Case{L" P=123", {.text = L"12", .bar = 49}},
                    Case{L" P=7 D=1", {.text = L"7", .bar = 54, .date = 1}},
                    Case{L" P=75", {.text = L"60", .bar = 1}}, Case{L" P=ab", {.text = L"ab"}},
                    Case{L" P=0", {.text = L"0"}}, Case{L" P=", {.text = L""}},
                    Case{L" D=1 E=1 V=0 M=0", {.date = 1, .loop = 1, .sound = 0, .music = 0}},
                    Case{L" D=2 E=2 V=2 M=2", {.date = 2, .loop = 2, .sound = 2, .music = 2}},
                    Case{L" D=3 E=x V=- M=", {}},
                    Case{L" M=0 V=0 E=1 D=1 P=9",
                         {.text = L"9", .bar = 52, .date = 1, .loop = 1, .sound = 0, .music = 0}},
                    Case{L" p=7 d=1 e=1", {}},
                    Case{L" S=3", {.text = L"30", .bar = 31, .date = 1, .loop = 1, .sound = 0, .set = 2}},
                    Case{L" P=8 E=0 S=3", {.text = L"8", .bar = 53, .date = 1, .sound = 0, .set = 2}},
                    Case{L" S=1", {.set = 0}}, Case{L" S=4", {.set = 3}}, Case{L" S=0", {}},
                    Case{L" S=5", {}}, Case{L" S=x", {}}, Case{L" L=3", {.start = 3}},
                    Case{L" L=12", {.start = 1}}, Case{L" L=x", {}}, Case{L" L=0", {}}));

TEST(Parameters, PreselectLoadsThePreview) {
    AppStage stage;
    stage.picture(L"a.jpg", 0xC02020);
    stage.picture(L"b.jpg", 0x20C020);
    stage.loadFolder(L" L=1");
    EXPECT_EQ(stage.form().File1.selectedIndex(), 1);
    EXPECT_TRUE(support::alike(stage.shown(), 0x20C020));
}

TEST(Parameters, AnIndexBeyondTheListSelectsNothing) {
    AppStage stage;
    stage.picture(L"a.jpg");
    stage.loadFolder(L" L=7");
    EXPECT_EQ(stage.form().File1.selectedIndex(), -1);
}

TEST(Parameters, AnEmptyListTakesNoIndex) {
    AppStage stage;
    stage.loadFolder(L" L=3");
    EXPECT_EQ(stage.state().StartIndex, 0);
}

// The root is where the lists begin, so it tells of no change.
TEST(Parameters, TheRootFolderIsListedBeforeTheIndexIsTaken) {
    AppStage stage;
    const std::wstring picture = L"C:\\panorell_root_test.jpg";
    support::writeBytes(picture, {'x'});
    stage.load(L"C:\\ P=9 L=0");
    EXPECT_EQ(stage.form().Drive1.drive(), L"C:");
    EXPECT_EQ(stage.form().Dir1.path(), L"C:\\");
    EXPECT_EQ(stage.form().IntT.text(), L"9");
    EXPECT_EQ(stage.form().File1.selectedName(), L"panorell_root_test.jpg");
    stage.previewed();
    DeleteFileW(picture.c_str());
}

struct FolderCase {
    const wchar_t* text;      ///< "@" stands for the folder of pictures
    const wchar_t* expected;  ///< the same; below it where it begins with "@"
};

class FolderOf : public testing::TestWithParam<FolderCase> {
  protected:
    static std::wstring with(const std::wstring& folder, std::wstring text) {
        const std::size_t at = text.find(L'@');
        return at == std::wstring::npos ? text : text.replace(at, 1, folder);
    }
};

TEST_P(FolderOf, IsTakenFromTheText) {
    AppStage stage;
    stage.pictures.folder(L"mit Blanks");
    stage.pictures.folder(L"a=b");
    stage.pictures.folder(L"Grüße (2)");
    stage.load(with(stage.pictures.path(), GetParam().text));
    stage.previewed();
    EXPECT_EQ(stage.form().Dir1.path(), with(stage.pictures.path(), GetParam().expected));
    EXPECT_EQ(stage.form().Drive1.drive(), L"C:");
    EXPECT_EQ(stage.form().File1.path(), stage.form().Dir1.path());
    EXPECT_EQ(stage.system.count("tray add"), 1);
}

INSTANTIATE_TEST_SUITE_P(
    Texts, FolderOf,
    testing::Values(FolderCase{L"@", L"@"}, FolderCase{L"@ P=5", L"@"}, FolderCase{L"\"@\"", L"@"},
                    FolderCase{L"\"@\" P=5", L"@"}, FolderCase{L"@\\mit Blanks P=5", L"@\\mit Blanks"},
                    FolderCase{L"\"@\\mit Blanks\" P=5", L"@\\mit Blanks"},
                    FolderCase{L"\"@\\a=b\" P=5", L"@\\a=b"}, FolderCase{L"@\\", L"@"},
                    FolderCase{L"@\\Grüße (2)", L"@\\Grüße (2)"}, FolderCase{L"C:\\", L"C:\\"},
                    FolderCase{L"C:\\ P=5", L"C:\\"}, FolderCase{L"P=5", L"C:\\"},
                    FolderCase{L"D=1 @ P=5", L"@"}, FolderCase{L"@\\fehlt P=5", L"C:\\"},
                    FolderCase{L"Q:\\fehlt P=5", L"C:\\"}, FolderCase{L": P=5", L"C:\\"}));

TEST(Parameters, AMissingFolderLeavesTheOtherKeysToAct) {
    AppStage stage;
    stage.load(L"Q:\\fehlt P=9 E=1");
    EXPECT_EQ(stage.form().IntT.text(), L"9");
    EXPECT_EQ(stage.form().LoopC.value(), 1);
}

// What the end leaves on the clipboard starts the program in the state that it had.
struct Ended {
    std::wstring command;
    State state;
};

Ended endWith(const std::wstring& parameters, const std::function<void(Form1&)>& change) {
    AppStage stage;
    stage.load(parameters);
    stage.previewed();
    change(stage.form());
    Ended ended;
    ended.state = stateOf(stage);
    stage.form().ENDE.click();
    ended.command = platform::clipboardText();
    EXPECT_EQ(ended.command.rfind(stage.program.path() + L"\\Panorell.exe ", 0), 0U);
    return ended;
}

TEST(RoundTrip, TheClipboardTextBringsTheStateBack) {
    const support::ScratchFolder shared;
    const std::wstring folder = shared.folder(L"Süd (1)");
    const Ended ended = endWith(L"S=2 " + folder, [](Form1& form) {
        form.IntT.setText(L"17");
        form.ShowFN.setValue(1);
        form.LoopC.setValue(1);
        form.MUTE.setValue(0);
        form.Musik.setValue(2);
    });
    EXPECT_THAT(std::string(ended.command.begin(), ended.command.end()),
                testing::EndsWith(" P=17 D=1 E=1 V=0 M=2 S=2"));
    AppStage again;
    again.load(std::wstring(parametersOfCommandLine(ended.command)));
    EXPECT_EQ(stateOf(again), ended.state);
    EXPECT_EQ(again.form().Dir1.path(), folder);
}

TEST(RoundTrip, TheRootFolder) {
    const Ended ended = endWith(L"C:\\ P=9", [](Form1&) {});
    EXPECT_THAT(std::string(ended.command.begin(), ended.command.end()),
                testing::EndsWith("Panorell.exe C:\\ P=9 D=0 E=0 V=1 M=1"));
    AppStage again;
    again.load(std::wstring(parametersOfCommandLine(ended.command)));
    EXPECT_EQ(stateOf(again), ended.state);
    EXPECT_EQ(again.form().Dir1.path(), L"C:\\");
}

TEST(RoundTrip, WithoutParametersTheFirstSetIsNamed) {
    const Ended ended = endWith(L"", [](Form1&) {});
    EXPECT_THAT(std::string(ended.command.begin(), ended.command.end()),
                testing::EndsWith("C:\\ P=5 D=0 E=0 V=1 M=1 S=1"));
}

}  // namespace
}  // namespace app
