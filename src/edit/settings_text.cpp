#include "edit/settings_text.h"

#include <algorithm>
#include <iterator>
#include <optional>
#include <utility>

#include "files/file_filter.h"
#include "overview/entry_lines.h"
#include "text/trimming.h"

namespace edit {

namespace {

constexpr int kMarginDpi = 32;  // a pixel of margin for that many dots per inch

enum Worth { kDateWorth, kVideoWorth, kMusicWorth, kValueWorth, kNameWorth, kTitleWorth };

std::wstring twoDigits(int number) {
    constexpr int kTen = 10;
    constexpr int kHundred = 100;
    return std::to_wstring(number / kTen % kTen) + std::to_wstring(number % kHundred % kTen);
}

/// The pieces by index, in rows.
using Rows = std::vector<std::vector<std::size_t>>;

/// The thumbnail's inside, and how texts are measured in one font.
struct Page {
    const std::vector<SettingsPiece>& pieces;
    int width;
    int height;
    int points;
    const MeasureText& measure;

    int widthOf(std::size_t piece) const { return measure(pieces[piece].text, points).width; }
    int blank() const { return measure(L" ", points).width; }
    int rowHeight() const { return measure(L"Ag", points).height; }
    int mostRows() const { return std::max(1, height / std::max(1, rowHeight())); }
};

/// Fills rows from left to right; a piece that wants a row of its own gets it unless they are `packed`.
Rows rowsOf(const Page& page, const std::vector<std::size_t>& pieces, bool packed) {
    Rows rows;
    int used = 0;
    for (const std::size_t piece : pieces) {
        const int width = page.widthOf(piece);
        const bool breaks = !packed && page.pieces[piece].ownRow;
        if (rows.empty() || breaks || used + page.blank() + width > page.width) {
            rows.emplace_back();
            used = width;
        } else {
            used += page.blank() + width;
        }
        rows.back().push_back(piece);
    }
    return rows;
}

bool allWhole(const Page& page, const std::vector<std::size_t>& pieces) {
    return std::all_of(pieces.begin(), pieces.end(),
                       [&](std::size_t piece) { return page.widthOf(piece) <= page.width; });
}

bool fitsDown(const Page& page, const Rows& rows) {
    return static_cast<int>(rows.size()) <= page.mostRows();
}

// Of several that are worth the least, the last one.
void dropLeast(const std::vector<SettingsPiece>& pieces, std::vector<std::size_t>& kept) {
    const auto least = std::min_element(kept.rbegin(), kept.rend(), [&](std::size_t a, std::size_t b) {
        return pieces[a].worth < pieces[b].worth;
    });
    kept.erase(std::next(least).base());
}

SettingsLayout placed(const Page& page, const Rows& rows, int margin) {
    SettingsLayout layout;
    layout.points = page.points;
    const int rowHeight = page.rowHeight();
    int top = margin + std::max(0, page.height - static_cast<int>(rows.size()) * rowHeight);
    for (const auto& row : rows) {
        int left = margin;
        for (const std::size_t piece : row) {
            const int width = std::min(page.widthOf(piece), page.width);
            layout.pieces.push_back({piece, left, top, width, rowHeight});
            left += width + page.blank();
        }
        top += rowHeight;
    }
    return layout;
}

/// The rows of a font where they fit; none where they do not.
std::optional<Rows> fittingRows(const Page& page, const std::vector<std::size_t>& pieces) {
    if (page.points > kComfortableSettingsPoints && !allWhole(page, pieces)) {
        return std::nullopt;
    }
    for (const bool packed : {false, true}) {
        Rows rows = rowsOf(page, pieces, packed);
        if (fitsDown(page, rows) && (!packed || page.points <= kComfortableSettingsPoints)) {
            return rows;
        }
    }
    return std::nullopt;
}

}  // namespace

std::wstring shortDay(const Day& day) {
    return twoDigits(day.day) + L"." + twoDigits(day.month) + L"." + twoDigits(day.year);
}

std::vector<SettingsPiece> settingsPieces(std::wstring_view fileName, std::wstring_view entry,
                                          std::wstring_view date) {
    const script::Entry meaning = overview::entryMeaning(entry);
    std::vector<SettingsPiece> pieces;
    const auto add = [&](std::wstring text, int worth, bool ownRow = true) -> SettingsPiece& {
        SettingsPiece piece;
        piece.text = std::move(text);
        piece.worth = worth;
        piece.ownRow = ownRow;
        pieces.push_back(std::move(piece));
        return pieces.back();
    };
    if (!date.empty()) {
        add(std::wstring(date), kDateWorth);
    }
    add(std::wstring(fileName.substr(0, fileName.rfind(L'.'))), kNameWorth);
    if (const std::wstring_view title = text::trimmed(meaning.title); !title.empty()) {
        add(std::wstring(title), kTitleWorth);
    }
    bool first = true;
    const auto value = [&](std::wstring text, int worth) -> SettingsPiece& {
        return add(std::move(text), worth, std::exchange(first, false));
    };
    if (!meaning.pause.empty()) {
        value(meaning.pause + L" s", kValueWorth);
    }
    if (!meaning.effect.empty()) {
        value(L"Effekt " + meaning.effect, kValueWorth);
    }
    if (meaning.dateFlag) {
        value(L"Datum", kValueWorth).dateFlag = true;
    }
    if (meaning.music) {
        value(L"Musik: " + *meaning.music, kMusicWorth);
    }
    if (files::isVideoName(fileName)) {
        add(L"Video", kVideoWorth);
    }
    return pieces;
}

SettingsLayout layOutSettings(const std::vector<SettingsPiece>& pieces, int width, int height, int dpi,
                              const MeasureText& measure) {
    const int margin = std::max(1, dpi / kMarginDpi);
    std::vector<std::size_t> kept(pieces.size());
    for (std::size_t i = 0; i < kept.size(); ++i) {
        kept[i] = i;
    }
    Page page{pieces, std::max(1, width - 2 * margin), std::max(1, height - 2 * margin),
              kLargestSettingsPoints, measure};
    for (; page.points >= kSmallestSettingsPoints; --page.points) {
        if (const auto rows = fittingRows(page, kept)) {
            return placed(page, *rows, margin);
        }
    }
    page.points = kSmallestSettingsPoints;
    while (kept.size() > 1) {
        dropLeast(pieces, kept);
        if (const auto rows = fittingRows(page, kept)) {
            return placed(page, *rows, margin);
        }
    }
    return placed(page, rowsOf(page, kept, true), margin);
}

}  // namespace edit
