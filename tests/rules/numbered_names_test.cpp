#include "text/numbered_names.h"

#include <gmock/gmock.h>

#include <algorithm>
#include <random>

#include "text/trimming.h"

namespace text {
namespace {

using testing::ElementsAre;

bool isDigit(wchar_t c) {
    return c >= L'0' && c <= L'9';
}

/// Explorer's order in short: digits count as a number, the case of letters does not count; equal names by
/// their characters.
bool explorersOrder(const std::wstring& a, const std::wstring& b) {
    std::size_t i = 0;
    std::size_t j = 0;
    while (i < a.size() && j < b.size()) {
        if (isDigit(a[i]) != isDigit(b[j])) {
            return isDigit(a[i]);
        }
        if (!isDigit(a[i])) {
            const wchar_t x = lowerAscii(a[i++]);
            const wchar_t y = lowerAscii(b[j++]);
            if (x != y) {
                return x < y;
            }
            continue;
        }
        unsigned long long first = 0;
        unsigned long long second = 0;
        for (; i < a.size() && isDigit(a[i]); ++i) {
            first = first * 10 + static_cast<unsigned long long>(a[i] - L'0');
        }
        for (; j < b.size() && isDigit(b[j]); ++j) {
            second = second * 10 + static_cast<unsigned long long>(b[j] - L'0');
        }
        if (first != second) {
            return first < second;
        }
    }
    const bool endsFirst = i == a.size() && j < b.size();
    const bool endsLater = j == b.size() && i < a.size();
    return endsFirst || (!endsLater && a < b);
}

std::vector<std::wstring> sorted(std::vector<std::wstring> names) {
    sortNumberedNames(names, explorersOrder);
    return names;
}

TEST(NumberedNames, NumbersCountAsNumbers) {
    EXPECT_THAT(sorted({L"b10.jpg", L"b9.jpg", L"a.jpg", L"b100.jpg", L"B11.jpg"}),
                ElementsAre(L"a.jpg", L"b9.jpg", L"b10.jpg", L"B11.jpg", L"b100.jpg"));
    EXPECT_THAT(sorted({L"x2y10.jpg", L"x10y1.jpg", L"x2y9.jpg"}),
                ElementsAre(L"x2y9.jpg", L"x2y10.jpg", L"x10y1.jpg"));
    EXPECT_THAT(sorted({L"007.jpg", L"7.jpg", L"8.jpg", L"07.jpg", L"006.jpg"}),
                ElementsAre(L"006.jpg", L"007.jpg", L"07.jpg", L"7.jpg", L"8.jpg"));
    EXPECT_THAT(sorted({L"2", L"1", L"", L"10"}), ElementsAre(L"", L"1", L"2", L"10"));
    EXPECT_THAT(sorted({}), ElementsAre());
}

TEST(NumberedNames, TheNumberOfAnExtensionIsNoneOfARow) {
    EXPECT_THAT(sorted({L"t10.mp3", L"t9.mp4", L"t9.mp3"}), ElementsAre(L"t9.mp3", L"t9.mp4", L"t10.mp3"));
}

/// 2,000 names of a few rows, with names between them, gaps, zeros in front and other cases.
std::vector<std::wstring> mixedNames(std::mt19937& random) {
    const std::vector<std::wstring> prefixes{L"IMG_",  L"img_", L"",    L"a1b",  L"2024-05-01_",
                                             L"Bild ", L"ä",    L"x\0", L"IMG_0"};
    const std::vector<std::wstring> suffixes{L".jpg", L".JPG", L"", L"a.jpg", L"ß.jpg", L"-1.jpg", L".2.mp3"};
    std::vector<std::wstring> names;
    for (int i = 0; i < 2000; ++i) {
        std::wstring number = std::to_wstring(random() % 3000);
        if (random() % 3 == 0) {
            number.insert(0, random() % 4, L'0');
        } else if (random() % 20 == 0) {
            number += L"0000000000";
        }
        names.push_back(prefixes[random() % prefixes.size()] + number + suffixes[random() % suffixes.size()]);
    }
    std::sort(names.begin(), names.end());
    names.erase(std::unique(names.begin(), names.end()), names.end());
    std::shuffle(names.begin(), names.end(), random);
    return names;
}

TEST(NumberedNames, TheOrderIsThatOfComparingAll) {
    std::mt19937 random(1);
    for (int round = 0; round < 20; ++round) {
        const std::vector<std::wstring> names = mixedNames(random);
        std::vector<std::wstring> expected = names;
        std::sort(expected.begin(), expected.end(), explorersOrder);
        ASSERT_EQ(sorted(names), expected) << "round " << round;
    }
}

TEST(NumberedNames, ARowIsNotCompared) {
    std::vector<std::wstring> names;
    for (int i = 9999; i >= 0; --i) {
        names.push_back(L"Titel" + std::to_wstring(i) + L".mp3");
    }
    names.push_back(L"Zuletzt.mp3");
    int asked = 0;
    sortNumberedNames(names, [&asked](const std::wstring& a, const std::wstring& b) {
        ++asked;
        return explorersOrder(a, b);
    });
    EXPECT_EQ(names.front(), L"Titel0.mp3");
    EXPECT_EQ(names[9999], L"Titel9999.mp3");
    EXPECT_LT(asked, 5);
}

}  // namespace
}  // namespace text
