#include "edit/save_plan.h"

#include <gmock/gmock.h>

namespace edit {
namespace {

using overview::ThumbRecord;
using overview::ThumbRecords;
using testing::ElementsAre;
using testing::IsEmpty;

std::string ascii(std::wstring_view text) {
    return {text.begin(), text.end()};
}

class SavePlanTest : public testing::Test {
  protected:
    void record(const std::wstring& name, const std::wstring& entry = L"") {
        ThumbRecord one;
        one.fileName = name;
        one.entry = entry;
        one.stamp.size = records.thumbRecords.size() + 1;
        records.thumbRecords.push_back(one);
        outsider(name);
    }
    /// A file that is in the folder and not in the overview.
    void outsider(const std::wstring& name) {
        folder.names.push_back(name);
        folder.formerNames.push_back(name);
    }
    void script(const std::string& text) {
        folder.scriptText.assign(text.begin(), text.end());
        folder.scriptBytes = text;
    }
    SavePlan plan(const std::wstring& prefix) {
        records.folder = L"C:\\Bilder";
        return planSave(records, prefix, folder, deleted, ascii);
    }
    static std::vector<std::wstring> moves(const SavePlan& plan) {
        std::vector<std::wstring> result;
        for (const files::PlannedMove& move : plan.change.moves) {
            result.push_back(move.from + L">" + move.to);
        }
        return result;
    }

    ThumbRecords records;
    SaveFolder folder;
    std::vector<std::wstring> deleted;
};

TEST(DefaultPrefixTest, EndsBeforeTheFirstZeroOfTheKey) {
    EXPECT_EQ(defaultPrefix(L"Urlaub007.jpg"), L"Urlaub");
    EXPECT_EQ(defaultPrefix(L"Urlaub.jpg"), L"Urlaub");
    EXPECT_EQ(defaultPrefix(L"Haus.2020.jpg"), L"Haus") << "the key ends at the first dot";
    EXPECT_EQ(defaultPrefix(L"DSC10023.JPG"), L"DSC1");
    EXPECT_EQ(defaultPrefix(L"0815.jpg"), L"");
    EXPECT_EQ(defaultPrefix(L"ohne"), L"ohne");
}

TEST(OrderedNameTest, NumbersHaveThreeDigitsAndFourFromThousandFilesOn) {
    EXPECT_EQ(orderNumber(0, 1), L"001");
    EXPECT_EQ(orderNumber(998, 999), L"999");
    EXPECT_EQ(orderNumber(0, 1000), L"0001");
    EXPECT_EQ(orderNumber(999, 1000), L"1000");
    EXPECT_EQ(orderNumber(99, 2500), L"0100");
    EXPECT_EQ(orderNumber(9999, 10000), L"10000");
}

TEST(OrderedNameTest, OnlyCapitalExtensionsBecomeSmall) {
    EXPECT_EQ(orderedName(L"P", 0, 3, L"a.JPG"), L"P001.jpg");
    EXPECT_EQ(orderedName(L"P", 1, 3, L"a.MPG"), L"P002.mpg");
    EXPECT_EQ(orderedName(L"P", 1, 3, L"a.Jpg"), L"P002.Jpg");
    EXPECT_EQ(orderedName(L"P", 2, 3, L"a.b.mpg"), L"P003.mpg") << "the text behind the last dot";
}

TEST_F(SavePlanTest, FilesGetTheirNumbersInTheOrderOfTheRecords) {
    record(L"b.jpg", L"Haus *P=3");
    record(L"a.MPG");
    record(L"c.jpg", L" *D");
    script("b Haus *P=3\r\nc  *D\r\n");
    const SavePlan made = plan(L"P");
    EXPECT_EQ(made.refusal, PrefixRefusal{});
    EXPECT_THAT(moves(made), ElementsAre(L"b.jpg>P001.jpg", L"a.MPG>P002.mpg", L"c.jpg>P003.jpg"));
    EXPECT_EQ(made.change.moves[1].stamp.size, 2U);
    EXPECT_THAT(made.newNames, ElementsAre(L"P001.jpg", L"P002.mpg", L"P003.jpg"));
    EXPECT_EQ(made.change.folder, L"C:\\Bilder");
    EXPECT_TRUE(made.change.keep);
    EXPECT_EQ(made.change.script->name, L"Panorell.txt");
    EXPECT_EQ(made.change.script->before, "b Haus *P=3\r\nc  *D\r\n");
    EXPECT_EQ(made.change.script->after, "P001 Haus *P=3\r\nP003  *D\r\n");
}

TEST_F(SavePlanTest, WithoutAnyEntryNoScriptRemains) {
    record(L"a.jpg");
    script("a Alt\r\n");
    const SavePlan made = plan(L"P");
    EXPECT_EQ(made.change.script->before, "a Alt\r\n");
    EXPECT_EQ(made.change.script->after, std::nullopt);
}

TEST_F(SavePlanTest, LinesOfFilesOutsideTheOverviewStayBehindTheOthers) {
    record(L"Urlaub.jpg", L"Text");
    outsider(L"Urlaub - Kopie.mpg");
    script("Urlaub - Kopie Meer *P=2\r\nUrlaub Text\r\n");
    const SavePlan made = plan(L"P");
    EXPECT_EQ(made.change.script->after, "P001 Text\r\nUrlaub - Kopie Meer *P=2\r\n");
    records.thumbRecords[0].entry.clear();
    EXPECT_EQ(plan(L"P").change.script->after, "Urlaub - Kopie Meer *P=2\r\n");
}

TEST_F(SavePlanTest, OtherLinesStayWhoseFilesAreThere) {
    record(L"a.jpg", L"A");
    const struct {
        const char* what;
        std::function<void()> others;
        const char* before;
        const char* after;
    } cases[] = {
        {"deleted files and none", [&] { folder.formerNames.push_back(L"weg.jpg"); },
         "weg Titel\r\na A\r\nniemand x\r\n", "P001 A\r\n"},
        {"a filtered file of the same key", [&] { outsider(L"a.mpg"); }, "a A\r\n", "P001 A\r\na A\r\n"},
        {"a file that came meanwhile", [&] { folder.names.push_back(L"kam.jpg"); }, "kam Titel\r\na A\r\n",
         "P001 A\r\nkam Titel\r\n"},
    };
    const SaveFolder before = folder;
    for (const auto& c : cases) {
        folder = before;
        c.others();
        script(c.before);
        EXPECT_EQ(plan(L"P").change.script->after, c.after) << c.what;
    }
}

TEST_F(SavePlanTest, ThumbnailsGoWithTheirFiles) {
    record(L"b.x.jpg");
    record(L"a.jpg");
    record(L"c.jpg");
    folder.thumbnails = {L"B.bmp", L"a.bmp", L"fremd.bmp"};
    const SavePlan made = plan(L"P");
    EXPECT_THAT(moves(made), ElementsAre(L"b.x.jpg>P001.jpg", L"a.jpg>P002.jpg", L"c.jpg>P003.jpg",
                                         L"Mini\\b.bmp>Mini\\P001.bmp", L"Mini\\a.bmp>Mini\\P002.bmp"));
    EXPECT_THAT(made.change.drops, IsEmpty());
}

TEST_F(SavePlanTest, AThumbnailThatSeveralFilesShareIsDropped) {
    record(L"a.jpg");
    record(L"A.mpg");
    record(L"b.jpg");
    outsider(L"b.c.jpg");
    folder.thumbnails = {L"a.bmp", L"b.bmp"};
    const SavePlan made = plan(L"P");
    EXPECT_EQ(made.change.moves.size(), 3U);
    EXPECT_THAT(made.change.drops, ElementsAre(L"Mini\\a.bmp", L"Mini\\b.bmp"));
}

TEST_F(SavePlanTest, ABitmapThatNobodyOwnsIsNotShownForAnotherPicture) {
    record(L"a.jpg");
    record(L"P001.jpg");
    record(L"c.jpg");
    record(L"d.jpg");
    outsider(L"d.mpg");
    // Of a.jpg there is none, P001 has its own, and the one of d.jpg is not its alone.
    folder.thumbnails = {L"p001.BMP", L"P003.bmp", L"d.bmp", L"P004.bmp", L"P009.bmp"};
    const SavePlan made = plan(L"P");
    EXPECT_THAT(moves(made), ElementsAre(L"a.jpg>P001.jpg", L"P001.jpg>P002.jpg", L"c.jpg>P003.jpg",
                                         L"d.jpg>P004.jpg", L"Mini\\P001.bmp>Mini\\P002.bmp"));
    EXPECT_THAT(made.change.drops, ElementsAre(L"Mini\\d.bmp", L"Mini\\P003.bmp", L"Mini\\P004.bmp"));
}

TEST_F(SavePlanTest, AThumbnailLosesItsWriteProtection) {
    record(L"a.jpg");
    folder.thumbnails = {L"a.bmp"};
    const SavePlan made = plan(L"P");
    ASSERT_EQ(made.change.moves.size(), 2U);
    EXPECT_EQ(made.change.moves[0].attributes, std::nullopt) << "a picture keeps its lock";
    EXPECT_EQ(made.change.moves[1].attributes, 0U);
}

TEST_F(SavePlanTest, TellsWhatIsThereAfterwards) {
    record(L"a.jpg", L"A");
    outsider(L"b.mpg");
    folder.names.push_back(L"kam.jpg");
    folder.formerNames.push_back(L"ging.jpg");
    const SavePlan made = plan(L"P");
    EXPECT_THAT(made.names, ElementsAre(L"P001.jpg", L"b.mpg", L"kam.jpg"));
    EXPECT_EQ(made.scriptText, L"P001 A\r\n");
}

TEST_F(SavePlanTest, DeletedFilesAreTold) {
    record(L"a.jpg");
    deleted = {L"weg.jpg"};
    EXPECT_THAT(plan(L"P").change.deleted, ElementsAre(L"weg.jpg"));
}

struct PrefixCase {
    const wchar_t* prefix;
    PrefixFault fault;
};

class SavePrefixTest : public testing::TestWithParam<PrefixCase> {};

TEST_P(SavePrefixTest, IsJudgedByTheNamesThatItGives) {
    ThumbRecords records;
    records.folder = L"C:\\Bilder";
    records.thumbRecords.resize(1);
    records.thumbRecords[0].fileName = L"a.jpg";
    SaveFolder folder;
    folder.names = folder.formerNames = {L"a.jpg"};
    EXPECT_EQ(planSave(records, GetParam().prefix, folder, {}, ascii).refusal.fault, GetParam().fault);
}

INSTANTIATE_TEST_SUITE_P(
    Prefixes, SavePrefixTest,
    testing::Values(PrefixCase{L"P", PrefixFault::None}, PrefixCase{L"TMP", PrefixFault::None},
                    PrefixCase{L"Bild ", PrefixFault::None}, PrefixCase{L"CON", PrefixFault::None},
                    PrefixCase{L"\u00dcbung ", PrefixFault::None},
                    PrefixCase{L" P", PrefixFault::LeadingBlank}, PrefixCase{L"a.b", PrefixFault::Dot},
                    PrefixCase{L"..\\b", PrefixFault::Dot}, PrefixCase{L"a\\b", PrefixFault::Character},
                    PrefixCase{L"a:b", PrefixFault::Character}, PrefixCase{L"wer?", PrefixFault::Character},
                    PrefixCase{L"a\tb", PrefixFault::Character}));

TEST_F(SavePlanTest, APathThatGetsTooLongRefuses) {
    record(L"a.jpg");
    EXPECT_EQ(plan(std::wstring(242, L'x')).refusal.fault, PrefixFault::None);
    EXPECT_EQ(plan(std::wstring(243, L'x')).refusal.fault, PrefixFault::TooLong);
}

TEST_F(SavePlanTest, AKeyOfAnotherFileRefusesAlsoInAnotherCase) {
    record(L"a.jpg");
    outsider(L"p001.MPG");
    const SavePlan made = plan(L"P");
    EXPECT_EQ(made.refusal, (PrefixRefusal{PrefixFault::KeyTaken, L"p001.MPG"}));
    EXPECT_THAT(made.change.moves, IsEmpty());
    EXPECT_EQ(plan(L"Q").refusal.fault, PrefixFault::None);
}

TEST_F(SavePlanTest, ALineThatTheShowWouldTakeForANewNameRefuses) {
    record(L"a.jpg");
    outsider(L"P0012.jpg");
    script("P0012 Meer\r\n");
    EXPECT_EQ(plan(L"P").refusal, (PrefixRefusal{PrefixFault::LineTaken, L"P0012 Meer"}));
}

TEST_F(SavePlanTest, EachRefusalHasASentence) {
    for (int fault = 1; fault <= static_cast<int>(PrefixFault::LineTaken); ++fault) {
        const std::wstring sentence = sentenceOf({static_cast<PrefixFault>(fault), L"x.jpg"});
        EXPECT_FALSE(sentence.empty()) << fault;
        EXPECT_TRUE(sentence.empty() || sentence.back() == L'.') << fault;
    }
    EXPECT_EQ(sentenceOf({}), L"");
}

}  // namespace
}  // namespace edit
