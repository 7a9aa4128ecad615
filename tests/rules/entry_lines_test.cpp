#include "overview/entry_lines.h"

#include <gmock/gmock.h>

namespace overview {
namespace {

using testing::IsEmpty;
using testing::Pair;
using testing::UnorderedElementsAre;

TEST(EntryLines, ALineBelongsToTheLongestKeyBeforeABlankOrItsEnd) {
    const std::vector<std::wstring> keys{L"Bild1", L"Bild10", L"Urlaub", L"Urlaub - Kopie"};
    EXPECT_THAT(entriesOf(L"Bild10 Zehn\r\nBild1 Eins\r\n", keys),
                UnorderedElementsAre(Pair(L"Bild10", L"Zehn"), Pair(L"Bild1", L"Eins")));
    EXPECT_THAT(entriesOf(L"Bild10 Zehn\r\n", keys), UnorderedElementsAre(Pair(L"Bild10", L"Zehn")));
    EXPECT_THAT(entriesOf(L"Urlaub - Kopie Text\r\n", keys),
                UnorderedElementsAre(Pair(L"Urlaub - Kopie", L"Text")));
    EXPECT_THAT(entriesOf(L"Urlaub - Kopf Text\r\n", keys),
                UnorderedElementsAre(Pair(L"Urlaub", L"- Kopf Text")));
    EXPECT_THAT(entriesOf(L"Urlaub", keys), UnorderedElementsAre(Pair(L"Urlaub", L"")));
}

TEST(EntryLines, OtherLinesBelongToNobody) {
    const std::vector<std::wstring> keys{L"Bild1", L""};
    EXPECT_THAT(entriesOf(L"Bild2 x\r\nbild1 x\r\nBild1x y\r\n\r\n y\r\nBild\r\n", keys), IsEmpty());
    EXPECT_THAT(entriesOf(L"", keys), IsEmpty());
}

TEST(EntryLines, TheOnlyLineStaysToTheLetter) {
    const struct {
        const wchar_t* line;
        const wchar_t* entry;
    } cases[] = {
        {L"a Am Strand *P=8 *E=C *D *M=Meer.mp3", L"Am Strand *P=8 *E=C *D *M=Meer.mp3"},
        {L"a  *P=5", L" *P=5"},
        {L"a *M=x *P=3  und mehr ", L"*M=x *P=3  und mehr "},
        {L"a Titel ", L"Titel "},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(entriesOf(c.line, {L"a"}).at(L"a"), c.entry);
    }
}

TEST(EntryLines, SeveralLinesBecomeWhatTheShowMakesOfThem) {
    EXPECT_EQ(entriesOf(L"a Alt *P=9 *D\r\na Titel\r\n", {L"a"}).at(L"a"), L"Titel *P=9 *D");
    EXPECT_EQ(entriesOf(L"a Alt *P=9 *E=B\r\nb x\r\na Neu *P=3 *M=Am Meer\r\n", {L"a", L"b"}).at(L"a"),
              L"Neu *P=3 *E=B *M=Am Meer");
    EXPECT_EQ(entriesOf(L"a Alt\na  *P=2\n", {L"a"}).at(L"a"), L" *P=2");
}

TEST(EntryLines, TextAndMeaningAgree) {
    for (const wchar_t* entry :
         {L"", L"Titel", L"Titel *P=2.5", L" *E=#", L" *D", L"x *P=1 *E=Z *D *M=Am Meer.mp3", L" *M=<"}) {
        EXPECT_EQ(entryText(entryMeaning(entry)), entry);
    }
    EXPECT_EQ(entryMeaning(L"Titel *P=7 *D").title, L"Titel ");
}

}  // namespace
}  // namespace overview
