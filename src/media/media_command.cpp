#include "media/media_command.h"

#include <charconv>
#include <cmath>
#include <utility>

namespace media {

namespace {

/// Thrown inside the parser only, where a command turns out to make no sense.
struct Refused {
    MediaError error;
};

bool isBlank(char c) {
    return c == ' ' || c == '\t';
}

char lower(char c) {
    return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
}

bool sameWord(std::string_view word, std::string_view keyword) {
    if (word.size() != keyword.size()) {
        return false;
    }
    for (std::size_t i = 0; i < word.size(); ++i) {
        if (lower(word[i]) != keyword[i]) {
            return false;
        }
    }
    return true;
}

/// The words of a command, one after the other.
class Words {
  public:
    explicit Words(std::string_view text) : rest_(text.substr(0, text.find('\0'))) { skipBlanks(); }

    bool atEnd() const { return rest_.empty(); }

    std::string_view next(MediaError whenMissing) {
        if (atEnd()) {
            throw Refused{whenMissing};
        }
        std::size_t length = 0;
        while (length < rest_.size() && !isBlank(rest_[length])) {
            ++length;
        }
        return take(length);
    }

    /// The next word, or the text between the double quotes that begin here.
    std::string nextPath() {
        if (atEnd() || rest_.front() != '"') {
            return std::string(next(MediaError::MissingDeviceName));
        }
        const std::size_t end = rest_.find('"', 1);
        if (end == std::string_view::npos) {
            throw Refused{MediaError::NoClosingQuote};
        }
        std::string path(rest_.substr(1, end - 1));
        if (end + 1 < rest_.size() && !isBlank(rest_[end + 1])) {
            throw Refused{MediaError::UnrecognizedKeyword};
        }
        take(end + 1);
        if (path.empty()) {
            throw Refused{MediaError::MissingDeviceName};
        }
        return path;
    }

    /// Reads `keyword`; anything else is refused.
    void expect(std::string_view keyword) {
        if (!sameWord(next(MediaError::MissingParameter), keyword)) {
            throw Refused{MediaError::UnrecognizedKeyword};
        }
    }

    void expectEnd() const {
        if (!atEnd()) {
            throw Refused{MediaError::UnrecognizedKeyword};
        }
    }

  private:
    std::string_view take(std::size_t length) {
        const std::string_view word = rest_.substr(0, length);
        rest_.remove_prefix(length);
        skipBlanks();
        return word;
    }

    void skipBlanks() {
        while (!rest_.empty() && isBlank(rest_.front())) {
            rest_.remove_prefix(1);
        }
    }

    std::string_view rest_;
};

template <typename Number>
Number wholeNumber(std::string_view word) {
    Number value = 0;
    const auto [end, failed] = std::from_chars(word.data(), word.data() + word.size(), value);
    if (failed == std::errc::result_out_of_range) {
        throw Refused{MediaError::OutOfRange};
    }
    if (failed != std::errc() || end != word.data() + word.size()) {
        throw Refused{MediaError::BadInteger};
    }
    return value;
}

int count(std::string_view word) {
    const int value = wholeNumber<int>(word);
    if (value < 0) {
        throw Refused{MediaError::OutOfRange};
    }
    return value;
}

/// A number of pixels that may carry decimals.
double pixels(std::string_view word) {
    constexpr int kFarthest = 1'000'000;
    const std::size_t point = word.find('.');
    const int whole = wholeNumber<int>(word.substr(0, point));
    if (whole < -kFarthest || whole > kFarthest) {
        throw Refused{MediaError::OutOfRange};
    }
    if (point == std::string_view::npos) {
        return whole;
    }
    const std::string_view decimals = word.substr(point + 1);
    if (decimals.empty()) {
        throw Refused{MediaError::BadInteger};
    }
    double fraction = 0;
    double unit = 1;
    for (const char c : decimals) {
        if (c < '0' || c > '9') {
            throw Refused{MediaError::BadInteger};
        }
        unit /= 10;
        fraction += unit * (c - '0');
    }
    return word.front() == '-' ? whole - fraction : whole + fraction;
}

std::string alias(Words& words) {
    return std::string(words.next(MediaError::MissingDeviceName));
}

void once(bool& seen) {
    if (std::exchange(seen, true)) {
        throw Refused{MediaError::DuplicateFlag};
    }
}

MediaCommand parseOpen(Words& words) {
    OpenCommand open;
    open.path = words.nextPath();
    bool hasAlias = false;
    bool hasParent = false;
    bool hasStyle = false;
    while (!words.atEnd()) {
        const std::string_view keyword = words.next(MediaError::MissingParameter);
        if (sameWord(keyword, "alias")) {
            once(hasAlias);
            open.alias = words.next(MediaError::MissingArgument);
        } else if (sameWord(keyword, "parent")) {
            once(hasParent);
            open.parent = wholeNumber<std::uint64_t>(words.next(MediaError::MissingArgument));
        } else if (sameWord(keyword, "style")) {
            once(hasStyle);
            words.expect("child");
            open.child = true;
        } else {
            throw Refused{MediaError::UnrecognizedKeyword};
        }
    }
    if (!hasAlias) {
        throw Refused{MediaError::MissingParameter};
    }
    return open;
}

MediaCommand parsePlay(Words& words) {
    PlayCommand play{alias(words), {}};
    if (!words.atEnd()) {
        words.expect("from");
        play.from = count(words.next(MediaError::MissingArgument));
    }
    return play;
}

MediaCommand parsePut(Words& words) {
    PutWindowCommand put;
    put.alias = alias(words);
    words.expect("window");
    words.expect("at");
    const double left = pixels(words.next(MediaError::MissingArgument));
    const double top = pixels(words.next(MediaError::MissingArgument));
    const double width = pixels(words.next(MediaError::MissingArgument));
    const double height = pixels(words.next(MediaError::MissingArgument));
    if (width < 0 || height < 0) {
        throw Refused{MediaError::OutOfRange};
    }
    put.left = static_cast<int>(std::floor(left));
    put.top = static_cast<int>(std::floor(top));
    put.width = static_cast<int>(std::ceil(width));
    put.height = static_cast<int>(std::ceil(height));
    return put;
}

MediaCommand parseSet(Words& words) {
    std::string name = alias(words);
    const std::string_view item = words.next(MediaError::MissingParameter);
    if (sameWord(item, "time")) {
        words.expect("format");
        const std::string_view format = words.next(MediaError::MissingParameter);
        if (!sameWord(format, "milliseconds") && !sameWord(format, "ms")) {
            throw Refused{MediaError::BadTimeFormat};
        }
        return SetTimeFormatCommand{std::move(name)};
    }
    if (sameWord(item, "audio")) {
        words.expect("all");
        const std::string_view state = words.next(MediaError::MissingParameter);
        if (!sameWord(state, "on") && !sameWord(state, "off")) {
            throw Refused{MediaError::UnrecognizedKeyword};
        }
        return SetAudioCommand{std::move(name), sameWord(state, "on")};
    }
    throw Refused{MediaError::UnrecognizedKeyword};
}

MediaCommand parseSetAudio(Words& words) {
    SetVolumeCommand volume{alias(words), 0};
    words.expect("volume");
    words.expect("to");
    volume.volume = count(words.next(MediaError::MissingArgument));
    return volume;
}

MediaCommand parseStatus(Words& words) {
    std::string name = alias(words);
    const std::string_view item = words.next(MediaError::MissingParameter);
    using Item = StatusCommand::Item;
    for (const auto& [keyword, value] : {std::pair{std::string_view("length"), Item::Length},
                                         {std::string_view("position"), Item::Position},
                                         {std::string_view("mode"), Item::Mode}}) {
        if (sameWord(item, keyword)) {
            return StatusCommand{std::move(name), value};
        }
    }
    throw Refused{MediaError::UnrecognizedKeyword};
}

MediaCommand parseWhere(Words& words) {
    WhereSourceCommand where{alias(words)};
    words.expect("source");
    return where;
}

MediaCommand parseUpdate(Words& words) {
    UpdateCommand update{alias(words), 0};
    words.expect("hdc");
    update.dc = wholeNumber<std::uint64_t>(words.next(MediaError::MissingArgument));
    return update;
}

template <typename Command>
MediaCommand parseBare(Words& words) {
    return Command{alias(words)};
}

struct Verb {
    std::string_view name;
    MediaCommand (*parse)(Words&);
};

constexpr Verb kVerbs[] = {
    {"open", parseOpen},
    {"close", parseBare<CloseCommand>},
    {"stop", parseBare<StopCommand>},
    {"pause", parseBare<PauseCommand>},
    {"play", parsePlay},
    {"put", parsePut},
    {"set", parseSet},
    {"setaudio", parseSetAudio},
    {"status", parseStatus},
    {"where", parseWhere},
    {"update", parseUpdate},
};

}  // namespace

ParsedCommand parseMediaCommand(std::string_view text) {
    try {
        Words words(text);
        const std::string_view name = words.next(MediaError::MissingCommand);
        for (const Verb& verb : kVerbs) {
            if (sameWord(name, verb.name)) {
                MediaCommand command = verb.parse(words);
                words.expectEnd();
                return command;
            }
        }
        return MediaError::UnrecognizedCommand;
    } catch (const Refused& refused) {
        return refused.error;
    }
}

}  // namespace media
