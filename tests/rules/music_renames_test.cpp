#include "media/music_renames.h"

#include <gtest/gtest.h>

#include "files/change_folder.h"
#include "rules/journal_scene.h"

namespace media {
namespace {

using Names = std::vector<std::wstring>;

OrderedTitle playing(const wchar_t* name) {
    return {name, {}, true};
}

OrderedTitle locked(const wchar_t* name) {
    return {name, {}, false};
}

TEST(MusicRenames, BareNames) {
    const std::pair<const wchar_t*, const wchar_t*> cases[] = {
        {L"01 Meer.mp3", L"Meer.mp3"},
        {L"99 Sturm.mp3", L"Sturm.mp3"},
        {L"Abend.mp3", L"Abend.mp3"},
        {L"1999.mp3", L"1999.mp3"},
        {L"7 Tage.mp3", L"7 Tage.mp3"},
        {L"100 Jahre.mp3", L"100 Jahre.mp3"},
        {L"01 02 Rest.mp3", L"02 Rest.mp3"},
        {L"01 .mp3", L".mp3"},
        {L"01 ", L"01 "},
        {L"", L""},
    };
    for (const auto& [name, bare] : cases) {
        EXPECT_EQ(bareMusicName(name), bare) << name;
    }
}

TEST(MusicRenames, PlacesAndLocks) {
    const auto order = musicRenames(L"C:\\Musik", {playing(L"02 Meer.mp3"), locked(L"Am Meer.mp3"),
                                                   playing(L"1999.mp3"), playing(L"99 Meer.mp3")});
    ASSERT_TRUE(order.has_value());
    const Names expected{L"01 Meer.mp3", L"99 Am Meer.mp3", L"03 1999.mp3", L"04 Meer.mp3"};
    EXPECT_EQ(order->musicList, expected);
    EXPECT_EQ(order->plan.folder, L"C:\\Musik");
    ASSERT_EQ(order->plan.moves.size(), 4U);
    EXPECT_EQ(order->plan.moves[3].from, L"99 Meer.mp3");
    EXPECT_EQ(order->plan.moves[3].to, L"04 Meer.mp3");
    EXPECT_FALSE(order->plan.keep);
}

TEST(MusicRenames, Place99ReadsAsLocked) {
    std::vector<OrderedTitle> titles(98, playing(L"a.mp3"));
    EXPECT_TRUE(musicRenames(L"C:", titles).has_value());
    titles.push_back(locked(L"b.mp3"));
    ASSERT_TRUE(musicRenames(L"C:", titles).has_value());
    EXPECT_EQ(musicRenames(L"C:", titles)->musicList.back(), L"99 b.mp3");
    titles.push_back(playing(L"c.mp3"));
    EXPECT_FALSE(musicRenames(L"C:", titles).has_value());
    titles[98] = playing(L"b.mp3");
    titles.pop_back();
    EXPECT_FALSE(musicRenames(L"C:", titles).has_value());
}

// Two titles of one name change places: each entry renames the file that it came from.
TEST(MusicRenames, EqualTitlesChangePlaces) {
    support::ModelledDisk disk;
    disk.put(files::at(L"01 Meer.mp3"), "first");
    disk.put(files::at(L"02 Meer.mp3"), "second");
    disk.put(files::at(L"Am Meer.mp3"), "third");
    support::ModelledFileSystem fileSystem(disk);
    std::vector<OrderedTitle> titles{playing(L"02 Meer.mp3"), playing(L"01 Meer.mp3"),
                                     locked(L"Am Meer.mp3")};
    for (OrderedTitle& title : titles) {
        title.stamp = fileSystem.stat(files::at(title.fileName)).value.stamp;
    }
    const auto order = musicRenames(files::kSceneFolder, titles);
    ASSERT_TRUE(order.has_value());
    const files::VirtualTime time;
    EXPECT_EQ(files::changeFolder(fileSystem, order->plan, time.waiting).end, files::Outcome::End::Done);
    EXPECT_EQ(files::contentOf(disk, L"01 Meer.mp3"), "second");
    EXPECT_EQ(files::contentOf(disk, L"02 Meer.mp3"), "first");
    EXPECT_EQ(files::contentOf(disk, L"99 Am Meer.mp3"), "third");
}

}  // namespace
}  // namespace media
