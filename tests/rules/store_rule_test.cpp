#include "overview/store_rule.h"

#include <gmock/gmock.h>

namespace overview {
namespace {

using testing::IsEmpty;
using testing::UnorderedElementsAre;

TEST(StoreRule, AThumbnailIsCalledAsItsItemUpToTheFirstDot) {
    const struct {
        const wchar_t* item;
        const wchar_t* thumbnail;
    } cases[] = {
        {L"abc.jpg", L"abc.bmp"},   {L"ABC.JPG", L"ABC.bmp"}, {L"a.b.jpg", L"a.bmp"},
        {L"film.mpg", L"film.bmp"}, {L"ohne", L"ohne.bmp"},   {L".jpg", L".bmp"},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(thumbnailName(c.item), c.thumbnail);
    }
}

TEST(StoreRule, ItemsThatShareAThumbnail) {
    EXPECT_THAT(sharedThumbnails({L"a.jpg", L"b.jpg", L"c.mpg"}), IsEmpty());
    EXPECT_THAT(sharedThumbnails({L"abc.jpg", L"abc.mpg", L"d.jpg"}), UnorderedElementsAre(L"abc.bmp"));
    EXPECT_THAT(sharedThumbnails({L"a.b.jpg", L"a.c.jpg", L"a.d.jpg"}), UnorderedElementsAre(L"a.bmp"));
    EXPECT_THAT(sharedThumbnails({L"Ärger.jpg", L"ärger.MPG"}), UnorderedElementsAre(L"ärger.bmp"));
    EXPECT_THAT(sharedThumbnails({}), IsEmpty());
}

TEST(StoreRule, FoldingLeavesWhatIsNoLetter) {
    EXPECT_EQ(foldedName(L"AZ_[Ä\u00D7ÞßÿŁ]"), L"az_[ä\u00D7þßÿŁ]");
}

}  // namespace
}  // namespace overview
