// What the overview does to the files of its folder: the music's order becomes names, and a folder that
// cannot be written stays as it is.
#include <gmock/gmock.h>

#include <functional>
#include <map>
#include <stdexcept>

#include "files/change_folder.h"
#include "files/journal.h"
#include "media/music_renames.h"
#include "overview/thumb_folder.h"
#include "platform/directory.h"
#include "platform/handles.h"
#include "support/app_stage.h"
#include "support/import_hook.h"
#include "support/message_boxes.h"
#include "support/overview_stage.h"

namespace overview {
namespace {

using support::OverviewStage;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using Disk = std::map<std::wstring, std::string>;

/// The titles of a folder with what is in them.
Disk titlesOn(const support::ScratchFolder& folder) {
    Disk found;
    WIN32_FIND_DATAW data{};
    const platform::FindHandle find(FindFirstFileW((folder / L"*.mp3").c_str(), &data));
    for (BOOL more = find ? TRUE : FALSE; more != FALSE; more = FindNextFileW(find.get(), &data)) {
        const auto bytes = support::readBytes(folder / data.cFileName);
        found[data.cFileName] = {bytes.begin(), bytes.end()};
    }
    return found;
}

class OverviewDiskTest : public testing::Test {
  protected:
    /// Opens the overview of a folder with these titles and shows the music list.
    void open(const std::vector<std::wstring>& names) {
        stage.picture(L"a.jpg");
        for (const std::wstring& name : names) {
            stage.pictures.file(name, std::string(name.begin(), name.end()));
        }
        stage.titles = names;
        stage.music.musicFolder = stage.pictures.path() + L"\\";
        ASSERT_TRUE(stage.open());
        stage.overview->music().show();
        stage.loop.settle();
    }
    Form2& form() { return stage.overview->form(); }
    POINT placeOf(int row) {
        RECT area{};
        SendMessageW(form().List1.hwnd(), LB_GETITEMRECT, static_cast<WPARAM>(row),
                     reinterpret_cast<LPARAM>(&area));
        return {area.left + 10, (area.top + area.bottom) / 2};
    }
    void drag(int from, int to) {
        const POINT begin = placeOf(from);
        const POINT end = placeOf(to);
        SendMessageW(form().List1.hwnd(), WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(begin.x, begin.y));
        SendMessageW(form().List1.hwnd(), WM_LBUTTONUP, 0, MAKELPARAM(end.x, end.y));
        stage.loop.advance(100);
    }
    void click(int row) { drag(row, row); }
    Disk disk() const { return titlesOn(stage.pictures); }
    bool journalIsLeft() const {
        return GetFileAttributesW((stage.pictures / L"Panorell.journal").c_str()) != INVALID_FILE_ATTRIBUTES;
    }
    /// Confirms an order that is refused; what is told. All is as it was.
    std::wstring refusal() {
        const Disk before = disk();
        const support::MessageBoxes boxes;
        form().OK.click();
        stage.loop.settle();
        EXPECT_EQ(disk(), before);
        EXPECT_FALSE(journalIsLeft());
        EXPECT_TRUE(form().List1.visible()) << "the order can be mended";
        return boxes.seen().empty() ? L"" : boxes.seen().front().text;
    }

    OverviewStage stage;
};

TEST_F(OverviewDiskTest, OkGivesTheFilesTheirOrderAndLocks) {
    open({L"01 Meer.mp3", L"99 Sturm.mp3", L"1999.mp3", L"Abend.mp3"});
    drag(3, 0);
    click(1);
    const support::MessageBoxes boxes;
    form().OK.click();
    EXPECT_THAT(boxes.seen(), IsEmpty());
    EXPECT_EQ(disk(), (Disk{{L"01 Abend.mp3", "Abend.mp3"},
                            {L"99 Meer.mp3", "01 Meer.mp3"},
                            {L"99 Sturm.mp3", "99 Sturm.mp3"},
                            {L"04 1999.mp3", "1999.mp3"}}));
    EXPECT_THAT(stage.music.musicList,
                ElementsAre(L"01 Abend.mp3", L"99 Meer.mp3", L"99 Sturm.mp3", L"04 1999.mp3"));
    EXPECT_FALSE(form().List1.visible());
    EXPECT_FALSE(journalIsLeft());

    stage.overview->music().show();
    click(2);
    drag(3, 1);
    form().OK.click();
    EXPECT_EQ(disk(), (Disk{{L"01 Abend.mp3", "Abend.mp3"},
                            {L"02 1999.mp3", "1999.mp3"},
                            {L"99 Meer.mp3", "01 Meer.mp3"},
                            {L"04 Sturm.mp3", "99 Sturm.mp3"}}))
        << "the next order begins with the names that the first one gave";
}

TEST_F(OverviewDiskTest, EqualTitlesChangeTheirPlaces) {
    open({L"01 Meer.mp3", L"02 Meer.mp3", L"03 Am Meer.mp3"});
    drag(1, 0);
    form().OK.click();
    EXPECT_EQ(disk(), (Disk{{L"01 Meer.mp3", "02 Meer.mp3"},
                            {L"02 Meer.mp3", "01 Meer.mp3"},
                            {L"03 Am Meer.mp3", "03 Am Meer.mp3"}}));
}

TEST_F(OverviewDiskTest, EqualTitlesCannotBothBeLocked) {
    open({L"01 Meer.mp3", L"02 Meer.mp3"});
    click(0);
    click(1);
    EXPECT_THAT(refusal(), HasSubstr(L"99 Meer.mp3"));
}

TEST_F(OverviewDiskTest, AFileInTheWayIsNotOverwritten) {
    open({L"01 Meer.mp3", L"02 Sturm.mp3"});
    stage.pictures.file(L"01 Sturm.mp3", "somebody's");
    drag(1, 0);
    EXPECT_THAT(refusal(), HasSubstr(L"01 Sturm.mp3"));
}

TEST_F(OverviewDiskTest, AFileThatWasChangedSinceIsLeftAlone) {
    open({L"01 Meer.mp3", L"02 Sturm.mp3"});
    stage.pictures.file(L"02 Sturm.mp3", "another recording");
    drag(1, 0);
    EXPECT_THAT(refusal(), HasSubstr(L"02 Sturm.mp3"));
}

TEST_F(OverviewDiskTest, AFileThatIsOpenElsewhereKeepsAllTheirNames) {
    open({L"01 Meer.mp3", L"02 Sturm.mp3", L"03 Abend.mp3"});
    drag(2, 0);
    const platform::File other(CreateFileW((stage.pictures / L"02 Sturm.mp3").c_str(), GENERIC_READ,
                                           FILE_SHARE_READ, nullptr, OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL,
                                           nullptr));
    ASSERT_TRUE(other);
    EXPECT_EQ(refusal(), L"\"02 Sturm.mp3\" ist in einem anderen Programm geöffnet.");
}

TEST_F(OverviewDiskTest, OnPlace99NothingCanPlay) {
    std::vector<std::wstring> names;
    for (int i = 100; i < 199; ++i) {
        names.push_back(L"Titel" + std::to_wstring(i) + L".mp3");
    }
    open(names);
    EXPECT_THAT(refusal(), HasSubstr(L"Platz 99"));
    form().List1.setTopIndex(98);
    click(98);
    ASSERT_EQ(form().List1.itemData(98), 0);
    const support::MessageBoxes boxes;
    form().OK.click();
    EXPECT_THAT(boxes.seen(), IsEmpty());
    EXPECT_FALSE(form().List1.visible()) << "locked it may stand there";
    EXPECT_TRUE(disk().contains(L"99 Titel198.mp3"));
    EXPECT_TRUE(disk().contains(L"98 Titel197.mp3"));
}

/// The journal of a save that can be taken back.
std::string keptJournal() {
    files::Journal journal;
    journal.keep = true;
    journal.moves = {{L"alt.jpg", L"TMP001.jpg", L"a.jpg", {}, 0, 0}};
    return files::journalBytes(journal) + files::phaseMark(files::Phase::Second) +
           files::phaseMark(files::Phase::Done);
}

TEST_F(OverviewDiskTest, TheMusicLeavesTheLastSaveToBeTakenBack) {
    const auto journal = [this] { return stage.fileSystem.read(stage.pictures / L"Panorell.journal").value; };
    open({L"01 Meer.mp3", L"02 Sturm.mp3"});
    stage.pictures.file(L"Panorell.journal", keptJournal());
    form().OK.click();
    EXPECT_EQ(disk(), (Disk{{L"01 Meer.mp3", "01 Meer.mp3"}, {L"02 Sturm.mp3", "02 Sturm.mp3"}}));
    EXPECT_EQ(journal(), keptJournal()) << "an order that is there already";
    stage.overview->music().show();
    drag(1, 0);
    form().OK.click();
    EXPECT_EQ(disk(), (Disk{{L"01 Sturm.mp3", "02 Sturm.mp3"}, {L"02 Meer.mp3", "01 Meer.mp3"}}));
    EXPECT_EQ(journal(), keptJournal()) << "another order";
}

/// A window that calls back when it paints.
class PaintedForm : public ui::Form {
  public:
    PaintedForm()
        : Form({.className = L"PanorellTestPainted", .title = L"Test", .width = 3000, .height = 2000}) {}
    std::function<void()> onPainted;

  private:
    void onPaint(HDC dc, const RECT& area) override {
        Form::onPaint(dc, area);
        if (onPainted) {
            onPainted();
        }
    }
};

TEST_F(OverviewDiskTest, WindowsPaintWhileAFileInUseIsWaitedForAndNothingIsLeft) {
    open({L"01 Meer.mp3", L"02 Sturm.mp3"});
    drag(1, 0);
    PaintedForm painted;
    painted.show();
    stage.loop.settle();
    platform::File held(CreateFileW((stage.pictures / L"02 Sturm.mp3").c_str(), GENERIC_READ, 0, nullptr,
                                    OPEN_EXISTING, 0, nullptr));
    ASSERT_TRUE(held);
    bool answered = true;
    painted.onPainted = [&] {
        held.reset();
        answered = SendMessageW(painted.hwnd(), WM_QUERYENDSESSION, 0, 0) != FALSE;
        stage.loop.leave();
    };
    InvalidateRect(painted.hwnd(), nullptr, TRUE);
    const support::MessageBoxes boxes;
    form().OK.click();
    EXPECT_THAT(boxes.seen(), IsEmpty());
    EXPECT_EQ(disk(), (Disk{{L"01 Sturm.mp3", "02 Sturm.mp3"}, {L"02 Meer.mp3", "01 Meer.mp3"}}));
    EXPECT_FALSE(answered) << "the session goes on until the names are right";
    EXPECT_TRUE(stage.loop.leaving()) << "what was asked for meanwhile comes afterwards";
    painted.onPainted = nullptr;
}

/// Nothing can be written into one folder and those below it, or not under one name.
class WriteProtection {
  public:
    explicit WriteProtection(std::wstring folder) {
        protectedFolder() = std::move(folder);
        hook() = &create_;
    }
    ~WriteProtection() { protectedFolder().clear(); }
    WriteProtection(const WriteProtection&) = delete;
    WriteProtection& operator=(const WriteProtection&) = delete;

  private:
    static std::wstring& protectedFolder() {
        static std::wstring folder;
        return folder;
    }
    static const support::ImportHook*& hook() {
        static const support::ImportHook* current = nullptr;
        return current;
    }
    static HANDLE WINAPI denied(LPCWSTR path, DWORD access, DWORD share, LPSECURITY_ATTRIBUTES security,
                                DWORD creation, DWORD flags, HANDLE from) {
        if ((access & (GENERIC_WRITE | DELETE)) != 0 &&
            std::wstring_view(path).find(protectedFolder()) != std::wstring_view::npos) {
            SetLastError(ERROR_ACCESS_DENIED);
            return INVALID_HANDLE_VALUE;
        }
        return hook()->original<decltype(CreateFileW)>()(path, access, share, security, creation, flags,
                                                         from);
    }

    support::ImportHook create_{"CreateFileW", &denied};
};

TEST_F(OverviewDiskTest, AFolderThatCannotBeWrittenIsShownAndLeftAlone) {
    stage.keep(L"b.bmp", 0x10F010);
    stage.film(L"f.mpg");
    stage.picture(L"b.jpg");
    const auto entries = [this] { return platform::listDirectory(stage.pictures / L"Mini").size(); };
    const std::size_t kept = entries();
    {
        stage.picture(L"a.jpg");
        stage.pictures.file(L"01 Meer.mp3");
        stage.titles = {L"01 Meer.mp3"};
        stage.music.musicFolder = stage.pictures.path() + L"\\";
        const WriteProtection protection(stage.pictures.path());
        ASSERT_TRUE(stage.open());
    }
    EXPECT_FALSE(stage.overview->records().folderWritable);
    EXPECT_EQ(stage.colour(1), 0x10F010U) << "what is kept is shown";
    EXPECT_EQ(stage.colour(2), OverviewStage::kFilmColour);
    EXPECT_EQ(entries(), kept) << "the film's thumbnail is not stored";
    stage.overview->music().show();
    EXPECT_TRUE(form().List1.visible());
    EXPECT_FALSE(form().OK.enabled());
    EXPECT_TRUE(form().CAN.enabled());
}

TEST_F(OverviewDiskTest, AnOrderThatIsThereAlreadyWritesNothing) {
    open({L"01 Meer.mp3", L"02 Sturm.mp3"});
    const WriteProtection protection(stage.pictures.path());
    const support::MessageBoxes boxes;
    form().OK.click();
    EXPECT_THAT(boxes.seen(), IsEmpty());
    EXPECT_FALSE(form().List1.visible());
    EXPECT_THAT(stage.music.musicList, ElementsAre(L"01 Meer.mp3", L"02 Sturm.mp3"));
}

TEST_F(OverviewDiskTest, OneNameThatCannotBeHadSaysNothingOfTheFolder) {
    const WriteProtection protection(stage.pictures / L"Test.txt");
    EXPECT_TRUE(canWriteTo(stage.pictures.path()));
}

TEST_F(OverviewDiskTest, AFolderThatIsProtectedMeanwhileKeepsItsNames) {
    open({L"01 Meer.mp3", L"02 Sturm.mp3"});
    drag(1, 0);
    const WriteProtection protection(stage.pictures.path());
    EXPECT_THAT(refusal(), HasSubstr(L"darf nicht geändert werden"));
}

/// Ends in the middle of its second rename and after, as a process that is killed.
class DyingFileSystem : public files::WindowsFileSystem {
  public:
    explicit DyingFileSystem(int renames) : left_(renames) {}
    files::Failure rename(const std::wstring& from, const std::wstring& to) override {
        return left_-- > 0 ? WindowsFileSystem::rename(from, to) : throw std::runtime_error("killed");
    }

  private:
    int left_;
};

// The list of the set-up was read before the names were put right.
TEST(OverviewRecovery, TheMusicListHasTheNamesThatRecoveryLeaves) {
    support::AppStage stage;
    stage.picture(L"a.jpg");
    stage.pictures.file(L"01 Meer.mp3", "meer");
    stage.pictures.file(L"02 Sturm.mp3", "sturm");
    stage.loadFolder();
    DyingFileSystem dying(3);
    std::vector<media::OrderedTitle> titles;
    for (const wchar_t* name : {L"02 Sturm.mp3", L"01 Meer.mp3"}) {
        titles.push_back({name, dying.stat(stage.pictures / name).value.stamp, true});
    }
    const auto renames = media::musicRenames(stage.pictures.path(), titles);
    ASSERT_TRUE(renames);
    EXPECT_THROW(files::changeFolder(dying, renames->plan, {[] { return 0.0; }, [](int) {}}),
                 std::runtime_error);
    const Disk changed{{L"01 Sturm.mp3", "sturm"}, {L"02 Meer.mp3", "meer"}};
    ASSERT_NE(titlesOn(stage.pictures), changed);

    stage.form().CTRL.click();
    ASSERT_NE(stage.application->overview(), nullptr);
    Overview& opened = *stage.application->overview();
    EXPECT_EQ(titlesOn(stage.pictures), changed);
    opened.music().show();
    ASSERT_EQ(opened.form().List1.count(), 2);
    EXPECT_EQ(opened.form().List1.item(0), L"Sturm");
    EXPECT_EQ(opened.form().List1.item(1), L"Meer");
}

// The list of the set-up was read before the music got other names.
TEST(OverviewReload, TheMusicListHasTheNamesThatItGave) {
    support::AppStage stage;
    stage.picture(L"a.jpg");
    stage.pictures.file(L"01 Meer.mp3", "meer");
    stage.pictures.file(L"02 Sturm.mp3", "sturm");
    stage.loadFolder();
    stage.form().CTRL.click();
    ASSERT_NE(stage.application->overview(), nullptr);
    Overview& opened = *stage.application->overview();
    const auto lockFirst = [&] {
        opened.music().show();
        opened.form().List1.setSelectedIndex(0);
        SendMessageW(opened.form().List1.hwnd(), WM_KEYDOWN, VK_SPACE, 1);
        const support::MessageBoxes boxes;
        opened.form().OK.click();
        EXPECT_THAT(boxes.seen(), IsEmpty());
    };
    lockFirst();
    EXPECT_EQ(titlesOn(stage.pictures), (Disk{{L"99 Meer.mp3", "meer"}, {L"02 Sturm.mp3", "sturm"}}));
    opened.reload();
    EXPECT_EQ(opened.form().List1.item(0), L"Sturm") << "in the order of the names";
    lockFirst();
    EXPECT_EQ(titlesOn(stage.pictures), (Disk{{L"99 Sturm.mp3", "sturm"}, {L"99 Meer.mp3", "meer"}}));
}

TEST(OverviewRecovery, AFolderThatAnotherVersionChangedIsToldOfOnTheWayIn) {
    support::AppStage stage;
    stage.picture(L"a.jpg");
    stage.loadFolder();
    stage.pictures.file(L"Panorell.journal", "Panorell-Journal 2\n");
    bool setUpSeen = false;
    const support::MessageBoxes boxes([&] {
        setUpSeen = stage.form().visible();
        PostMessageW(FindWindowW(L"#32770", L"  Ordner"), WM_COMMAND, IDOK, 0);
    });
    stage.form().CTRL.click();
    ASSERT_EQ(boxes.seen().size(), 1U);
    EXPECT_THAT(boxes.seen()[0].text, HasSubstr(L"anderen Fassung"));
    EXPECT_TRUE(setUpSeen) << "there is something to look at";
    EXPECT_FALSE(stage.form().visible());
    EXPECT_TRUE(stage.application->overview()->form().visible());
}

TEST(OverviewMonitor, TheWindowLiesInTheWorkAreaOfTheMonitorOfTheSetUp) {
    support::FakeMonitors monitors;
    monitors.first = {0, 0, 960, 900};
    monitors.second = RECT{960, 0, 1860, 800};
    monitors.taskBar = 60;
    platform::Monitors::replace(&monitors);
    for (const bool onSecond : {false, true}) {
        OverviewStage stage;
        stage.picturesOf({0x404080, 0x804040});
        SetWindowPos(stage.beside.hwnd(), nullptr, onSecond ? 1000 : 20, 20, 0, 0, SWP_NOSIZE | SWP_NOZORDER);
        ASSERT_TRUE(stage.open());
        RECT window{};
        GetWindowRect(stage.overview->form().hwnd(), &window);
        RECT work = onSecond ? *monitors.second : monitors.first;
        work.bottom -= monitors.taskBar;
        EXPECT_GT(window.left, work.left);
        EXPECT_GT(window.top, work.top);
        EXPECT_LT(window.right, work.right);
        EXPECT_LT(window.bottom, work.bottom);
        EXPECT_EQ(window.left - work.left, work.right - window.right) << "in its middle";
        EXPECT_GT(10 * (window.right - window.left), 9 * (work.right - work.left)) << "nearly as large";
        EXPECT_GT(10 * (window.bottom - window.top), 9 * (work.bottom - work.top));
    }
    platform::Monitors::replace(nullptr);
}

}  // namespace
}  // namespace overview
