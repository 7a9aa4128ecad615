#pragma once

#include <functional>
#include <string>
#include <vector>

namespace text {

/// Whether `a` stands before `b`.
using NameOrder = std::function<bool(const std::wstring& a, const std::wstring& b)>;

/// Sorts file names by an order in which digits count as a number: of two names that differ in one number
/// only, the lower one stands first. `before` may be slow: names of one row ("IMG_0001.jpg", "IMG_0002.jpg"
/// ...) are put in order by their numbers, and `before` is asked only how rows and other names stand to each
/// other.
void sortNumberedNames(std::vector<std::wstring>& names, const NameOrder& before);

}  // namespace text
