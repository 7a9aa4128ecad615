#include "edit/date_input.h"

#include <cstddef>

namespace edit {

namespace {

constexpr int kFirstYear = 1980;
constexpr int kLastYear = 2107;
constexpr std::size_t kYearDigits = 4;
constexpr std::size_t kMostDigits = 2;

bool isBlank(wchar_t c) {
    return c == L' ' || c == L'\t' || c == L'\r' || c == L'\n' || c == L'\u00A0';
}

bool isDigit(wchar_t c) {
    return c >= L'0' && c <= L'9';
}

/// Takes a text apart from its front. A step that does not find what it wants takes nothing.
class Scanner {
  public:
    explicit Scanner(std::wstring_view text) : rest_(text) {}

    bool atEnd() const { return rest_.empty(); }

    bool skipBlanks() {
        const std::size_t before = rest_.size();
        while (!rest_.empty() && isBlank(rest_.front())) {
            rest_.remove_prefix(1);
        }
        return rest_.size() < before;
    }

    bool take(wchar_t wanted) {
        const bool found = !rest_.empty() && rest_.front() == wanted;
        rest_.remove_prefix(found ? 1 : 0);
        return found;
    }

    /// A number of so many digits, no further digit behind it.
    bool takeNumber(std::size_t fewest, std::size_t most, int& number) {
        std::size_t digits = 0;
        while (digits < rest_.size() && isDigit(rest_[digits])) {
            ++digits;
        }
        if (digits < fewest || digits > most) {
            return false;
        }
        number = 0;
        for (const wchar_t digit : rest_.substr(0, digits)) {
            number = number * 10 + (digit - L'0');
        }
        rest_.remove_prefix(digits);
        return true;
    }

  private:
    std::wstring_view rest_;
};

bool takeGermanDate(Scanner& scanner, text::DateTime& moment) {
    return scanner.takeNumber(1, kMostDigits, moment.day) && scanner.take(L'.') &&
           scanner.takeNumber(1, kMostDigits, moment.month) && scanner.take(L'.') &&
           scanner.takeNumber(kYearDigits, kYearDigits, moment.year);
}

bool takeIsoDate(Scanner& scanner, text::DateTime& moment) {
    return scanner.takeNumber(kYearDigits, kYearDigits, moment.year) && scanner.take(L'-') &&
           scanner.takeNumber(1, kMostDigits, moment.month) && scanner.take(L'-') &&
           scanner.takeNumber(1, kMostDigits, moment.day);
}

bool takeTime(Scanner& scanner, text::DateTime& moment) {
    return scanner.takeNumber(1, kMostDigits, moment.hour) && scanner.take(L':') &&
           scanner.takeNumber(kMostDigits, kMostDigits, moment.minute) &&
           (!scanner.take(L':') || scanner.takeNumber(kMostDigits, kMostDigits, moment.second));
}

std::wstring withZeros(int number, std::size_t digits) {
    std::wstring text = std::to_wstring(number);
    return text.size() < digits ? std::wstring(digits - text.size(), L'0') + text : text;
}

}  // namespace

std::optional<text::DateTime> parseDateInput(std::wstring_view input) {
    Scanner scanner(input);
    text::DateTime moment;
    scanner.skipBlanks();
    const Scanner begin = scanner;
    const bool german = takeGermanDate(scanner, moment);
    if (!german) {
        scanner = begin;
        if (!takeIsoDate(scanner, moment)) {
            return std::nullopt;
        }
    }
    const bool joined = !german && scanner.take(L'T');
    const bool apart = !joined && scanner.skipBlanks();
    if ((joined || (apart && !scanner.atEnd())) && !takeTime(scanner, moment)) {
        return std::nullopt;
    }
    scanner.skipBlanks();
    const bool keepable = moment.year >= kFirstYear && moment.year <= kLastYear;
    return scanner.atEnd() && keepable && text::isInCalendar(moment) ? std::optional(moment) : std::nullopt;
}

std::wstring dateTimeText(const text::DateTime& moment) {
    return withZeros(moment.day, 2) + L"." + withZeros(moment.month, 2) + L"." +
           withZeros(moment.year, kYearDigits) + L" " + withZeros(moment.hour, 2) + L":" +
           withZeros(moment.minute, 2) + L":" + withZeros(moment.second, 2);
}

std::wstring tipWithDate(std::wstring_view tip, std::wstring_view formerDate, std::wstring_view date) {
    const std::wstring former = std::wstring(formerDate) + L"\r";
    if (tip.ends_with(former) &&
        (tip.size() == former.size() || tip[tip.size() - former.size() - 1] == L'\r')) {
        tip.remove_suffix(former.size());
    }
    std::wstring result(tip);
    if (!result.empty() && result.back() != L'\r') {
        result += L'\r';
    }
    return result.append(date) + L"\r";
}

}  // namespace edit
