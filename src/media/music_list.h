#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace media {

/// The entry of a music file in `musicList`: the name itself when it begins with a digit, else the name
/// behind three blanks, so that it is never taken for a locked one.
std::wstring musicEntry(std::wstring_view fileName);

/// `musicList` from the names of `File2`, in their order.
std::vector<std::wstring> musicEntries(const std::vector<std::wstring>& fileNames);

/// Whether the rotation skips an entry: it begins with "99".
bool isLocked(std::wstring_view entry);

/// The file name in an entry: without the blanks at its ends.
std::wstring fileNameOfEntry(std::wstring_view entry);

/// The bare title of a music file's name: without ".mp3" and, where the name begins with a digit, without
/// the three characters of its order prefix. Empty for a name too short to hold one.
std::wstring musicTitle(std::wstring_view fileName);

/// The index after `index`, 0 after the last of `count`.
int nextMusicIndex(int index, int count);

/// Where the rotation stands after it has skipped locked titles.
struct Rotation {
    int index = 0;
    bool playable = false;  ///< false: every title is locked, or there is none
    friend bool operator==(const Rotation&, const Rotation&) = default;
};

/// Skips locked titles from `index` on, wrapping at the end, for at most one pass and one title over the
/// list. An index outside the list counts as 0.
Rotation skipLocked(const std::vector<std::wstring>& musicList, int index);

/// The index of the last entry that contains `request` (case-sensitive), locked or not; `index` when
/// none does.
int requestedIndex(const std::vector<std::wstring>& musicList, std::wstring_view request, int index);

/// The text of `musicRequest` that stops the music.
inline constexpr const wchar_t* kStopRequest = L"<";

/// Whether a tick of the rotation has to wait: the time of day in seconds is below `musicEndTime`.
bool isBeforeEnd(float secondsOfDay, int musicEndTime);

/// The new `musicEndTime` after a title was opened: the whole part of time of day (s) + numeric value of
/// the device's length reply + 2. The reply is in milliseconds and is added as it is, on purpose: a title
/// stays on until a request or a reset. Ends at the bounds of int.
int musicEndTime(float secondsOfDay, std::string_view lengthReply);

}  // namespace media
