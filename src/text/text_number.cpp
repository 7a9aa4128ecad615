#include "text/text_number.h"

#include <array>
#include <charconv>
#include <cmath>
#include <limits>

namespace text {

namespace {

constexpr bool isDigit(wchar_t c) {
    return c >= L'0' && c <= L'9';
}

constexpr bool isSpace(wchar_t c) {
    return c == L' ' || c == L'\t' || c == L'\r' || c == L'\n';
}

/// A walk over the characters of a number that keeps them as ASCII.
class NumberScan {
  public:
    explicit NumberScan(std::wstring_view text) : rest_(text) {}

    void skipSpaces() {
        while (!rest_.empty() && isSpace(rest_.front())) {
            rest_.remove_prefix(1);
        }
    }

    /// Takes a sign; true for a minus.
    bool takeSign() {
        if (rest_.empty() || (rest_.front() != L'-' && rest_.front() != L'+')) {
            return false;
        }
        const bool minus = rest_.front() == L'-';
        rest_.remove_prefix(1);
        return minus;
    }

    /// Takes the digits and the point; false when there is no digit.
    bool takeMantissa() {
        std::size_t digits = takeDigits();
        if (!rest_.empty() && rest_.front() == L'.') {
            rest_.remove_prefix(1);
            ascii_ += '.';
            digits += takeDigits();
        }
        return digits > 0;
    }

    /// Takes the exponent, but only a whole one: "1e" and "1e+" end before the letter.
    void takeExponent() {
        if (rest_.empty() || (rest_.front() != L'e' && rest_.front() != L'E')) {
            return;
        }
        std::size_t at = 1;
        const bool sign = at < rest_.size() && (rest_[at] == L'+' || rest_[at] == L'-');
        at += sign ? 1U : 0U;
        if (at >= rest_.size() || !isDigit(rest_[at])) {
            return;
        }
        ascii_ += 'e';
        ascii_ += sign && rest_[1] == L'-' ? '-' : '+';
        rest_.remove_prefix(at);
        takeDigits();
    }

    const std::string& ascii() const { return ascii_; }

  private:
    std::size_t takeDigits() {
        std::size_t count = 0;
        while (count < rest_.size() && isDigit(rest_[count])) {
            ascii_ += static_cast<char>(rest_[count]);
            ++count;
        }
        rest_.remove_prefix(count);
        return count;
    }

    std::wstring_view rest_;
    std::string ascii_;
};

/// Whether a number that no double can hold is one of the huge ones: tells them from the tiny ones by
/// the place of the first digit that is not 0.
bool isHuge(const std::string& number) {
    const std::size_t letter = number.find('e');
    const std::string mantissa = number.substr(0, letter);
    const std::size_t first = mantissa.find_first_of("123456789");
    if (first == std::string::npos) {
        return false;
    }
    const std::size_t point = std::min(mantissa.find('.'), mantissa.size());
    const double place = static_cast<double>(point) - static_cast<double>(first);
    double exponent = 0;
    for (std::size_t i = letter == std::string::npos ? number.size() : letter + 2; i < number.size(); ++i) {
        exponent = std::min(exponent * 10 + (number[i] - '0'), 1e18);
    }
    const bool minus = letter != std::string::npos && number[letter + 1] == '-';
    return place + (minus ? -exponent : exponent) > 0;
}

template <typename Text, typename Float>
Text shortestText(Float value) {
    if (value == 0 || !std::isfinite(value)) {
        return Text(1, '0');
    }
    std::array<char, 1200> buffer{};
    const auto result =
        std::to_chars(buffer.data(), buffer.data() + buffer.size(), value, std::chars_format::fixed);
    return {buffer.data(), result.ptr};
}

}  // namespace

double numericValue(std::wstring_view text) {
    NumberScan scan(text);
    scan.skipSpaces();
    const bool minus = scan.takeSign();
    if (!scan.takeMantissa()) {
        return 0;
    }
    scan.takeExponent();
    const std::string& number = scan.ascii();
    double value = 0;
    const auto result = std::from_chars(number.data(), number.data() + number.size(), value);
    if (result.ec == std::errc::result_out_of_range) {
        value = isHuge(number) ? std::numeric_limits<double>::max() : 0;
    }
    return minus && value != 0 ? -value : value;
}

double numericValue(std::string_view text) {
    return numericValue(std::wstring(text.begin(), text.end()));
}

int wholeNumber(double value) {
    if (std::isnan(value)) {
        return 0;
    }
    constexpr double low = std::numeric_limits<int>::min();
    constexpr double high = std::numeric_limits<int>::max();
    return static_cast<int>(std::min(std::max(std::nearbyint(value), low), high));
}

int wholeNumber16(double value) {
    return std::min(std::max(wholeNumber(value), -32768), 32767);
}

int wholeNumber16(std::wstring_view text) {
    return wholeNumber16(numericValue(text));
}

std::wstring decimalText(double value) {
    return shortestText<std::wstring>(value);
}

std::string decimalBytes(float value) {
    return shortestText<std::string>(value);
}

}  // namespace text
