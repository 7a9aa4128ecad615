#include "edit/start_index_rule.h"

#include <gtest/gtest.h>

namespace edit {
namespace {

using Names = std::vector<std::wstring>;

TEST(StartIndexRule, TheItemIsFoundAmongWhatAShowLists) {
    const struct {
        const char* why;
        Names items;
        int current;
        Names listed;
        std::optional<int> expected;
    } cases[] = {
        {"the item itself", {L"a", L"b", L"c"}, 1, {L"a", L"b", L"c"}, 1},
        {"the order on the disk counts", {L"c", L"a", L"b"}, 0, {L"a", L"b", L"c"}, 2},
        {"locked: the next one", {L"a", L"b", L"c"}, 1, {L"a", L"c"}, 1},
        {"two in a row", {L"a", L"b", L"c", L"d"}, 1, {L"a", L"d"}, 1},
        {"none follows: the one before", {L"a", L"b", L"c"}, 2, {L"a", L"b"}, 1},
        {"locked ones before do not count", {L"a", L"b", L"c"}, 2, {L"b", L"c"}, 1},
        {"files that the overview left out count", {L"b.jpg"}, 0, {L"a.mpg", L"b.jpg"}, 1},
        {"nothing was pressed", {L"a"}, -1, {L"a"}, std::nullopt},
        {"beyond the last one", {L"a"}, 1, {L"a"}, std::nullopt},
        {"nothing is listed", {L"a"}, 0, {}, std::nullopt},
        {"no items", {}, 0, {L"a"}, std::nullopt},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(startIndexOf(c.items, c.current, c.listed), c.expected) << c.why;
    }
}

TEST(StartIndexRule, TheParameterHasOneDigit) {
    Names names;
    for (wchar_t c = L'a'; c <= L'l'; ++c) {
        names.emplace_back(1, c);
    }
    for (int i = 0; i < 12; ++i) {
        EXPECT_EQ(startIndexOf(names, i, names), std::min(i, 9));
    }
}

}  // namespace
}  // namespace edit
