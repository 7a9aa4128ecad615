#pragma once

#include <string>
#include <string_view>

namespace text {

/// The number a text begins with, '.' being the decimal point in every locale.
///
/// Blanks, tabs and line ends in front are skipped; then comes [sign] digits [. digits] [e [sign] digits],
/// digits being wanted on one side of the point at least. What follows the number is ignored, so "2,5"
/// is 2 and "7 Sek" is 7. A text that begins with no number is 0. Too large a number gives the largest
/// finite one, too small a number 0; the result is never infinite and never NaN.
double numericValue(std::wstring_view text);

/// The same for a reply of a device.
double numericValue(std::string_view text);

/// `value` as a 16-bit integer, -32768 ... 32767: rounded to the nearest, halves to the even neighbour;
/// what lies outside becomes the nearer bound, NaN becomes 0.
int wholeNumber16(double value);

/// The 16-bit integer that a text begins with (see numericValue).
int wholeNumber16(std::wstring_view text);

/// `value` rounded to the nearest whole number as an int, halves to the even neighbour; what lies
/// outside the range of int becomes the nearer bound, NaN becomes 0.
int wholeNumber(double value);

/// The shortest decimal text that reads back as the same number: no blanks, no exponent, '.' as point,
/// "0" for either zero and for anything that is not finite.
std::wstring decimalText(double value);

/// The same for a number of a command to a device.
std::string decimalBytes(float value);

}  // namespace text
