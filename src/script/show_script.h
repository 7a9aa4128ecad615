#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace script {

inline constexpr const wchar_t* kScriptFile = L"Panorell.txt";

/// The path of a folder's show script: folder, "\" and the file's name, also behind a folder that already
/// ends in "\".
std::wstring scriptPath(std::wstring_view folder);

/// What the show script says about one picture.
struct Entry {
    std::wstring title;                 ///< as sliced from the line, trailing blank included
    std::wstring pause;                 ///< text of " *P=", empty for none; see pauseMilliseconds
    std::wstring effect;                ///< one character of " *E=", empty for none; see effectNumberOf
    std::optional<std::wstring> music;  ///< text of " *M=" when there is one, possibly empty
    bool dateFlag = false;              ///< " *D"
    friend bool operator==(const Entry&, const Entry&) = default;
};

/// Reads the entry of one key from the lines of a script, given one after the other.
///
/// A line belongs to the key when it begins with it, whatever follows. Title and markers are kept from
/// line to line: the last matching line gives the title; a matching line without any "*" keeps the
/// markers of an earlier one; a marker that a later line lacks keeps its value.
class EntryReader {
  public:
    explicit EntryReader(std::wstring_view key) : key_(key) {}

    /// Takes the next line (without its line end).
    void line(std::wstring_view text) {
        // A line of another key changes nothing: the markers in force were read with their own line.
        if (text.substr(0, key_.size()) == key_) {
            matchingLine(text);
        }
    }

    const Entry& entry() const { return entry_; }

  private:
    void matchingLine(std::wstring_view text);
    void readMarkers(std::wstring_view markers);

    std::wstring key_;
    Entry entry_;
};

/// The lines of a text: CR LF, LF and a lone CR end a line, and the last one needs no end. Every other
/// character, NUL included, belongs to its line. The views point into `text`.
std::vector<std::wstring_view> splitLines(std::wstring_view text);

/// The entry of a key in the whole text of a script.
Entry readEntry(std::wstring_view text, std::wstring_view key);

/// Whether a title is shown: it is neither empty nor a single blank.
bool showsTitle(std::wstring_view title);

/// A pause text as an interval: its leading number ("." as decimal point) in seconds times 1000, rounded
/// to whole milliseconds with ties to even. 0 (the timer never fires) for no number or a negative one.
int pauseMilliseconds(std::wstring_view pause);

/// The effect number of an effect character: code - 64 ("A" is 1, "a" is 33), 0 for "#". std::nullopt for
/// the empty text. May be negative for a digit or a sign.
std::optional<int> effectNumberOf(std::wstring_view effect);

}  // namespace script
