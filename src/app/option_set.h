#pragma once

#include <array>
#include <cstddef>
#include <functional>
#include <optional>
#include <string>
#include <string_view>

namespace app {

inline constexpr int kOptionSetCount = 4;
inline constexpr std::wstring_view kSettingsFile = L"Panorell.ini";

/// A key of the settings file: its name, what counts where it is missing, and how many characters of its
/// value are read (a profile read needs room for one more).
struct OptionKey {
    const wchar_t* name;
    const wchar_t* fallback;
    std::size_t longest;
};

inline constexpr OptionKey kDriveKey{L"Drive", L"C:", 2};
inline constexpr OptionKey kDirKey{L"Dir", L"\\", 79};
inline constexpr OptionKey kDelayKey{L"Delay", L"5", 2};
inline constexpr OptionKey kLoopKey{L"Loop", L"0", 1};
inline constexpr OptionKey kDateKey{L"Date", L"0", 79};
inline constexpr OptionKey kSoundKey{L"Sound", L"1", 1};
inline constexpr OptionKey kMusicKey{L"Music", L"1", 1};
inline constexpr OptionKey kEffectsKey{L"Effekte", L"1", 1};

/// The tooltip of SAVE.
inline constexpr const wchar_t* kSaveTip = L"Einstellungen speichern";

/// Keys that belong to the program and to no set.
inline constexpr const wchar_t* kProgramSection = L"Prog";
inline constexpr OptionKey kEditorKey{L"Name", L"C:\\WINDOWS\\SYSTEM32\\MSPAINT.EXE", 79};
inline constexpr OptionKey kShapeKey{L"Shape", L"screen", 79};
inline constexpr OptionKey kColourKey{L"Colour", L"on", 79};

/// One option set; the defaults are those of a missing file. Check boxes hold 0, 1 or 2 (greyed).
struct OptionSet {
    std::wstring drive = kDriveKey.fallback;
    std::wstring dir = kDirKey.fallback;
    std::wstring delay = kDelayKey.fallback;  ///< text for `IntT`
    int loop = 0;
    int date = 0;
    int sound = 1;
    int music = 1;
    int effects = 1;
    friend bool operator==(const OptionSet&, const OptionSet&) = default;
};

/// Gives the stored text of a key, the key's fallback where it is missing; may be longer than is read.
using OptionReader = std::function<std::wstring(const OptionKey&)>;
/// Whether the value was written.
using OptionWriter = std::function<bool(const OptionKey&, const std::wstring& value)>;

/// What is used of a stored value: up to the first NUL, and no more than the key's longest.
std::wstring cutOptionValue(const OptionKey& key, std::wstring_view value);

/// Reads a set, key after key. A check box whose value is not 0, 1 or 2 gets its default.
OptionSet readOptionSet(const OptionReader& read);

/// Writes a set, key after key in the order of the file, up to the first that cannot be written; false then.
bool writeOptionSet(const OptionSet& set, const OptionWriter& write);

/// "Set1" ... "Set4" for index 0 ... 3: the section of a set and the value of `CurrentSet`.
std::wstring optionSetName(int index);

/// The index 0 ... 3 that the last character of a set's name gives; std::nullopt for any other.
std::optional<int> optionSetIndex(std::wstring_view name);

/// The name a set button shows for a folder: the text after the last "\" up to the first "." of the whole
/// path. Empty where that "." lies before the last "\".
std::wstring folderDisplayName(std::wstring_view path);

/// `programDir` with a "\" at its end.
std::wstring withBackslash(std::wstring_view programDir);

/// Whether the value of kShapeKey asks for the screen's own shape: every value does but "4:3".
bool usesScreenShape(std::wstring_view value);

/// Whether the value of kColourKey leaves the colours of pictures matched to the monitor: all but "off" does.
bool matchesColours(std::wstring_view value);

}  // namespace app
