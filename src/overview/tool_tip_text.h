#pragma once

#include <string>
#include <string_view>

namespace overview {

/// What a thumbnail's tip tells, in lines that end in CR: the title where one is shown, the settings of its
/// entry, "[Video]" for a video, and the file's date and time (`date`).
std::wstring toolTipText(std::wstring_view entry, bool video, std::wstring_view date);

}  // namespace overview
