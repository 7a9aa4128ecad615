#include "edit/file_dates.h"

#include <gmock/gmock.h>
#include <windows.h>

#include "files/file_stamp.h"
#include "platform/file_time.h"
#include "support/edit_scene.h"
#include "support/import_hook.h"

namespace edit {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

/// Clocks as they go in Germany.
const TIME_ZONE_INFORMATION& germanZone() {
    static const TIME_ZONE_INFORMATION zone = [] {
        TIME_ZONE_INFORMATION made{};
        made.Bias = -60;
        made.StandardDate.wMonth = 10;
        made.StandardDate.wDay = 5;
        made.StandardDate.wHour = 3;
        made.DaylightDate.wMonth = 3;
        made.DaylightDate.wDay = 5;
        made.DaylightDate.wHour = 2;
        made.DaylightBias = -60;
        return made;
    }();
    return zone;
}

/// The user's own zone is the German one.
class GermanClocks {
  public:
    GermanClocks()
        : toLocal_("SystemTimeToTzSpecificLocalTime", &local),
          toUtc_("TzSpecificLocalTimeToSystemTime", &utc) {
        one = this;
    }

  private:
    static BOOL WINAPI local(const TIME_ZONE_INFORMATION*, const SYSTEMTIME* from, SYSTEMTIME* to) {
        return one->toLocal_.original<decltype(SystemTimeToTzSpecificLocalTime)>()(&germanZone(), from, to);
    }
    static BOOL WINAPI utc(const TIME_ZONE_INFORMATION*, const SYSTEMTIME* from, SYSTEMTIME* to) {
        return one->toUtc_.original<decltype(TzSpecificLocalTimeToSystemTime)>()(&germanZone(), from, to);
    }
    inline static GermanClocks* one = nullptr;
    support::ImportHook toLocal_;
    support::ImportHook toUtc_;
};

class FileDatesTest : public testing::Test {
  protected:
    FileDatesTest() {
        scene_.folder.file(L"a.jpg", "first");
        scene_.folder.file(L"b.jpg", "second");
        scene_.folder.file(L"Panorell.txt", "b Am Meer\r\n");
        before_ = scene_.setTimes(L"b.jpg");
        scene_.load();
    }

    void change() {
        FileDates dates({scene_.records, scene_.dialogue(), [this](int index) { tips_.push_back(index); }});
        dates.change(1);
    }
    std::uint64_t written() const { return scene_.facts(L"b.jpg").times.written; }
    std::wstring present() const { return L"15.06.2024 12:34:56"; }

    support::EditScene scene_;
    platform::FileTimes before_;
    std::vector<int> tips_;
};

TEST_F(FileDatesTest, SetsAllThreeTimes) {
    scene_.answers = {L"24.12.2025 18:30"};
    change();
    const std::uint64_t wanted = fileTimeOf({2025, 12, 24, 18, 30, 0}).value_or(0);
    EXPECT_EQ(scene_.facts(L"b.jpg").times, (platform::FileTimes{wanted, wanted, wanted}));
    EXPECT_THAT(scene_.told, IsEmpty());
    ASSERT_EQ(scene_.asked.size(), 1u);
    EXPECT_EQ(scene_.asked[0].prompt, L"Datei-Datum ändern :\r\n" + present());
    EXPECT_EQ(scene_.asked[0].text, present() + L"  ");
}

TEST_F(FileDatesTest, OnlyTheTipsDateChanges) {
    const overview::ThumbRecord former = scene_.record(1);
    ASSERT_EQ(former.entry, L"Am Meer");
    scene_.answers = {L"2025-12-24 18:30:00"};
    change();
    EXPECT_THAT(tips_, ElementsAre(1));
    const overview::ThumbRecord& record = scene_.record(1);
    EXPECT_EQ(record.entry, former.entry);
    EXPECT_EQ(record.fileName, former.fileName);
    EXPECT_FALSE(scene_.records.changed) << "nothing is left to save";
    const std::wstring date = overview::tipDate(fileTimeOf({2025, 12, 24, 18, 30, 0}).value_or(0));
    EXPECT_EQ(record.toolTip, L"Am Meer\r" + date + L"\r");
    EXPECT_NE(record.toolTip, former.toolTip);
}

TEST_F(FileDatesTest, TheDateCanBeChangedAgain) {
    scene_.answers = {L"24.12.2025 18:30", L"25.12.2025"};
    change();
    change();
    EXPECT_EQ(written(), fileTimeOf({2025, 12, 25, 0, 0, 0}));
    EXPECT_THAT(scene_.told, IsEmpty());
    ASSERT_EQ(scene_.asked.size(), 2u);
    EXPECT_EQ(scene_.asked[1].text, L"24.12.2025 18:30:00  ");
}

TEST_F(FileDatesTest, AnAnswerLeftAsItWasChangesNothing) {
    for (const std::wstring& answer : {present() + L"  ", present(), std::wstring(L"2024-06-15 12:34:56"),
                                       std::wstring(L" 15.6.2024   12:34:56")}) {
        scene_.answers = {answer};
        change();
        EXPECT_EQ(scene_.facts(L"b.jpg").times, before_) << answer;
    }
    EXPECT_THAT(tips_, IsEmpty());
    EXPECT_THAT(scene_.told, IsEmpty());
}

TEST_F(FileDatesTest, AnEmptyAnswerOrNoneChangesNothing) {
    scene_.answers = {L"", L"   ", std::nullopt};
    change();
    change();
    change();
    EXPECT_EQ(scene_.facts(L"b.jpg").times, before_);
    EXPECT_THAT(tips_, IsEmpty());
    EXPECT_EQ(scene_.asked.size(), 3u);
}

TEST_F(FileDatesTest, WhatCannotBeUnderstoodIsAskedAgain) {
    scene_.answers = {L"Heiligabend", L"24.12.25", L"24.12.2025"};
    change();
    ASSERT_EQ(scene_.asked.size(), 3u);
    EXPECT_EQ(scene_.asked[1].text, L"Heiligabend");
    EXPECT_EQ(scene_.asked[2].text, L"24.12.25");
    for (const std::size_t again : {1u, 2u}) {
        EXPECT_TRUE(scene_.asked[again].prompt.starts_with(scene_.asked[0].prompt + L"\r\n"));
        EXPECT_NE(scene_.asked[again].prompt.find(L"24.12.2025 18:30"), std::wstring::npos);
    }
    EXPECT_EQ(written(), fileTimeOf({2025, 12, 24, 0, 0, 0}));
}

TEST_F(FileDatesTest, GivingUpAfterAHintChangesNothing) {
    scene_.answers = {L"Heiligabend", std::nullopt};
    change();
    EXPECT_EQ(scene_.facts(L"b.jpg").times, before_);
}

TEST_F(FileDatesTest, AFileThatChangedMeanwhileIsRefused) {
    scene_.folder.file(L"b.jpg", "of another program");
    const platform::FileTimes times = scene_.setTimes(L"b.jpg");
    change();
    EXPECT_THAT(scene_.asked, IsEmpty());
    ASSERT_EQ(scene_.told.size(), 1u);
    EXPECT_NE(scene_.told[0].text.find(L"b.jpg"), std::wstring::npos);
    EXPECT_EQ(scene_.facts(L"b.jpg").times, times);
    EXPECT_THAT(tips_, IsEmpty());
}

TEST_F(FileDatesTest, AFileThatChangesWhileTheQuestionIsOpenIsRefused) {
    scene_.answers = {L"24.12.2025"};
    platform::FileTimes times;
    scene_.whileAsked = [&] {
        scene_.folder.file(L"b.jpg", "of another program");
        times = scene_.setTimes(L"b.jpg");
    };
    change();
    EXPECT_EQ(scene_.told.size(), 1u);
    EXPECT_EQ(scene_.facts(L"b.jpg").times, times);
}

TEST_F(FileDatesTest, AFileThatIsGoneIsToldOf) {
    scene_.folder.remove(L"b.jpg");
    change();
    EXPECT_THAT(scene_.asked, IsEmpty());
    ASSERT_EQ(scene_.told.size(), 1u);
    EXPECT_EQ(scene_.told[0].text, L"Die Datei «b.jpg» ist nicht mehr da.");
}

TEST_F(FileDatesTest, AReadOnlyAndHiddenFileTakesItsDateAndStaysSo) {
    const std::wstring path = scene_.folder / L"b.jpg";
    SetFileAttributesW(path.c_str(), FILE_ATTRIBUTE_READONLY | FILE_ATTRIBUTE_HIDDEN);
    scene_.answers = {L"24.12.2025"};
    change();
    EXPECT_EQ(written(), fileTimeOf({2025, 12, 24, 0, 0, 0}));
    EXPECT_EQ(GetFileAttributesW(path.c_str()) & (FILE_ATTRIBUTE_READONLY | FILE_ATTRIBUTE_HIDDEN),
              DWORD{FILE_ATTRIBUTE_READONLY | FILE_ATTRIBUTE_HIDDEN});
    EXPECT_THAT(scene_.told, IsEmpty());
}

BOOL WINAPI refuse(HANDLE, const FILETIME*, const FILETIME*, const FILETIME*) {
    SetLastError(ERROR_ACCESS_DENIED);
    return FALSE;
}

TEST_F(FileDatesTest, ARefusalOfTheSystemIsTold) {
    const support::ImportHook hook("SetFileTime", refuse);
    const std::wstring tip = scene_.record(1).toolTip;
    scene_.answers = {L"24.12.2025"};
    change();
    ASSERT_EQ(scene_.told.size(), 1u);
    EXPECT_TRUE(scene_.told[0].text.starts_with(L"Das Datum von «b.jpg» kann nicht geändert werden: "));
    EXPECT_EQ(scene_.facts(L"b.jpg").times, before_);
    EXPECT_EQ(scene_.record(1).toolTip, tip);
    EXPECT_THAT(tips_, IsEmpty());
}

TEST_F(FileDatesTest, TheFirstAndTheLastYearComeBack) {
    for (const wchar_t* date : {L"01.01.1980 00:00:00", L"31.12.2037 23:59:58", L"31.12.2107 23:59:58"}) {
        scene_.answers = {date, std::nullopt};
        change();
        change();
        EXPECT_EQ(scene_.asked.back().text, std::wstring(date) + L"  ");
    }
}

TEST_F(FileDatesTest, LeavingEndsTheQuestion) {
    scene_.whileAsked = [] { throw ui::Leaving{}; };
    EXPECT_THROW(change(), ui::Leaving);
    EXPECT_EQ(scene_.facts(L"b.jpg").times, before_);
}

TEST_F(FileDatesTest, AnHourThatTheClocksLeftOutIsAskedAgain) {
    const GermanClocks german;
    scene_.load();
    scene_.answers = {L"29.03.2026 02:30", L"29.03.2026 03:30"};
    change();
    ASSERT_EQ(scene_.asked.size(), 2u);
    EXPECT_NE(scene_.asked[1].prompt.find(L"Sommerzeit"), std::wstring::npos);
    const FILETIME time = platform::toFileTime(written());
    SYSTEMTIME universal{};
    ASSERT_TRUE(FileTimeToSystemTime(&time, &universal));
    EXPECT_EQ(universal.wHour, 1);
    EXPECT_EQ(universal.wMinute, 30);
}

/// Half an hour past an hour of 2026.
SYSTEMTIME halfPast(int month, int day, int hour) {
    SYSTEMTIME time{};
    time.wYear = 2026;
    time.wMonth = static_cast<WORD>(month);
    time.wDay = static_cast<WORD>(day);
    time.wHour = static_cast<WORD>(hour);
    time.wMinute = 30;
    return time;
}

// Each date by the time that counted on that day, whatever day it is today.
TEST(FileTimeOf, DaylightSavingIsThatOfTheDate) {
    const auto utc = [](int month, int day, int hour) {
        const SYSTEMTIME time = halfPast(month, day, hour);
        FILETIME result{};
        SystemTimeToFileTime(&time, &result);
        return platform::fileTimeNumber(result);
    };
    const auto local = [](int month, int day, int hour) {
        const SYSTEMTIME time = halfPast(month, day, hour);
        return platform::fileTimeOf(time, &germanZone());
    };
    EXPECT_EQ(local(1, 15, 12), utc(1, 15, 11));
    EXPECT_EQ(local(7, 15, 12), utc(7, 15, 10));
    EXPECT_EQ(local(3, 29, 1), utc(3, 29, 0));
    EXPECT_EQ(local(3, 29, 2), std::nullopt) << "the clocks went from 2:00 to 3:00";
    EXPECT_EQ(local(3, 29, 3), utc(3, 29, 1));
    EXPECT_EQ(local(10, 25, 1), utc(10, 24, 23));
    const auto twice = local(10, 25, 2);
    EXPECT_TRUE(twice == utc(10, 25, 0) || twice == utc(10, 25, 1)) << "the clocks showed 2:30 twice";
    EXPECT_EQ(local(10, 25, 3), utc(10, 25, 2));
    const auto shown = platform::localTime(utc(7, 15, 10), &germanZone());
    ASSERT_TRUE(shown);
    EXPECT_EQ(shown->wHour, 12);
}

TEST(FileTimeOf, RefusesWhatIsNotInTheCalendar) {
    SYSTEMTIME time{};
    time.wYear = 2026;
    time.wMonth = 2;
    time.wDay = 30;
    EXPECT_EQ(platform::fileTimeOf(time), std::nullopt);
}

}  // namespace
}  // namespace edit
