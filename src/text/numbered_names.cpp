#include "text/numbered_names.h"

#include <algorithm>
#include <iterator>
#include <string_view>
#include <tuple>
#include <utility>

namespace text {

namespace {

constexpr auto npos = std::wstring_view::npos;
constexpr std::wstring_view kDigits = L"0123456789";

/// The longest number that every implementation of such an order takes for one.
constexpr std::size_t kLongestNumber = 9;

/// A name and the last number before its extension; none has the length 0.
struct NumberedName {
    std::wstring name;
    std::size_t at = 0;
    std::size_t length = 0;

    std::wstring_view prefix() const { return std::wstring_view(name).substr(0, at); }
    std::wstring_view number() const { return std::wstring_view(name).substr(at, length); }
    std::wstring_view suffix() const { return std::wstring_view(name).substr(at + length); }
    /// Numbers of a row have no zeros in front, or else the same length: "7" and "007" have one value.
    std::size_t zeroFilled() const { return length > 1 && number().starts_with(L'0') ? length : 0; }
    auto row() const { return std::tuple(prefix(), zeroFilled(), suffix()); }
    auto key() const { return std::tuple_cat(row(), std::tuple(length, number())); }
};

// Beside a number, a letter that is not ASCII might be a digit of another script, or join the number.
bool isPlain(wchar_t character) {
    return character > 0 && character < 0x80;
}

NumberedName numbered(std::wstring name) {
    NumberedName made{std::move(name)};
    const std::wstring_view stem = std::wstring_view(made.name).substr(0, made.name.rfind(L'.'));
    const std::size_t last = stem.find_last_of(kDigits);
    if (last == npos) {
        return made;
    }
    const std::size_t before = stem.find_last_not_of(kDigits, last);
    const std::size_t first = before == npos ? 0 : before + 1;
    const std::size_t length = last + 1 - first;
    const bool plain = (first == 0 || isPlain(made.name[first - 1])) &&
                       (last + 1 == made.name.size() || isPlain(made.name[last + 1]));
    if (plain && length <= kLongestNumber) {
        made.at = first;
        made.length = length;
    }
    return made;
}

using Row = std::vector<std::wstring>;

/// The names in rows that are in order, each of them with at least one name.
std::vector<Row> rowsOf(std::vector<std::wstring>& names) {
    std::vector<NumberedName> all;
    all.reserve(names.size());
    for (std::wstring& name : names) {
        all.push_back(numbered(std::move(name)));
    }
    std::sort(all.begin(), all.end(),
              [](const NumberedName& a, const NumberedName& b) { return a.key() < b.key(); });
    std::vector<Row> rows;
    for (std::size_t from = 0; from < all.size();) {
        std::size_t to = from + 1;
        while (to < all.size() && all[from].length > 0 && all[to].row() == all[from].row()) {
            ++to;
        }
        Row& row = rows.emplace_back();
        row.reserve(to - from);
        for (; from < to; ++from) {
            row.push_back(std::move(all[from].name));
        }
    }
    return rows;
}

/// One row of two; most often the second one stands behind the first as a whole.
Row merged(Row first, Row second, const NameOrder& before) {
    const auto middle = static_cast<Row::difference_type>(first.size());
    const bool apart = !before(second.front(), first.back());
    first.insert(first.end(), std::move_iterator(second.begin()), std::move_iterator(second.end()));
    if (!apart) {
        std::inplace_merge(first.begin(), first.begin() + middle, first.end(), before);
    }
    return first;
}

}  // namespace

void sortNumberedNames(std::vector<std::wstring>& names, const NameOrder& before) {
    std::vector<Row> rows = rowsOf(names);
    std::sort(rows.begin(), rows.end(),
              [&before](const Row& a, const Row& b) { return before(a.front(), b.front()); });
    while (rows.size() > 1) {
        std::vector<Row> pairs;
        for (std::size_t i = 0; i + 1 < rows.size(); i += 2) {
            pairs.push_back(merged(std::move(rows[i]), std::move(rows[i + 1]), before));
        }
        if (rows.size() % 2 == 1) {
            pairs.push_back(std::move(rows.back()));
        }
        rows = std::move(pairs);
    }
    names = rows.empty() ? std::vector<std::wstring>() : std::move(rows.front());
}

}  // namespace text
