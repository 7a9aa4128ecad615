#include "media/media_command.h"

#include <gtest/gtest.h>

#include <limits>
#include <string>
#include <variant>
#include <vector>

namespace media {
namespace {

using namespace std::string_literals;

struct Understood {
    std::string text;
    MediaCommand command;
};

class UnderstoodCommand : public testing::TestWithParam<Understood> {};

TEST_P(UnderstoodCommand, GivesItsParts) {
    const ParsedCommand parsed = parseMediaCommand(GetParam().text);
    ASSERT_TRUE(std::holds_alternative<MediaCommand>(parsed))
        << GetParam().text << ": error " << static_cast<unsigned>(std::get<MediaError>(parsed));
    EXPECT_EQ(std::get<MediaCommand>(parsed), GetParam().command) << GetParam().text;
}

INSTANTIATE_TEST_SUITE_P(
    ProgramsOwn, UnderstoodCommand,
    testing::Values(
        Understood{"stop VIDEO", StopCommand{"VIDEO"}}, Understood{"close VIDEO", CloseCommand{"VIDEO"}},
        Understood{"open C:\\BILDER\\FILM~1.MPG alias VIDEO parent 65842 style child",
                   OpenCommand{"C:\\BILDER\\FILM~1.MPG", "VIDEO", 65842, true}},
        Understood{"set VIDEO audio all off", SetAudioCommand{"VIDEO", false}},
        Understood{"set VIDEO audio all on", SetAudioCommand{"VIDEO", true}},
        Understood{" put VIDEO window at 0 0 1920 1080", PutWindowCommand{"VIDEO", 0, 0, 1920, 1080}},
        Understood{" put VIDEO window at 0 0 683.4667 512.5", PutWindowCommand{"VIDEO", 0, 0, 684, 513}},
        Understood{"play VIDEO", PlayCommand{"VIDEO", {}}},
        Understood{"play VIDEO from 0", PlayCommand{"VIDEO", 0}},
        Understood{"pause VIDEO", PauseCommand{"VIDEO"}},
        Understood{"set VIDEO time format milliseconds", SetTimeFormatCommand{"VIDEO"}},
        Understood{"status VIDEO length", StatusCommand{"VIDEO", StatusCommand::Item::Length}},
        Understood{"status VIDEO position", StatusCommand{"VIDEO", StatusCommand::Item::Position}},
        Understood{"status VIDEO mode", StatusCommand{"VIDEO", StatusCommand::Item::Mode}},
        Understood{"where VIDEO source", WhereSourceCommand{"VIDEO"}},
        Understood{"update VIDEO hdc 16843009", UpdateCommand{"VIDEO", 16843009}},
        Understood{"setaudio VIDEO volume to 0", SetVolumeCommand{"VIDEO", 0}},
        Understood{"setaudio AUDIO volume to 500", SetVolumeCommand{"AUDIO", 500}},
        Understood{"open C:\\MUSIK\\01LIED~1.MP3 alias AUDIO",
                   OpenCommand{"C:\\MUSIK\\01LIED~1.MP3", "AUDIO", 0, false}},
        Understood{"play AUDIO", PlayCommand{"AUDIO", {}}}));

INSTANTIATE_TEST_SUITE_P(
    Writing, UnderstoodCommand,
    testing::Values(
        Understood{"  stop\t VIDEO \t", StopCommand{"VIDEO"}}, Understood{"STOP video", StopCommand{"video"}},
        Understood{"Open a.mpg Style Child Parent 7 Alias Film", OpenCommand{"a.mpg", "Film", 7, true}},
        Understood{"open \"Z:\\Meine Bilder\\ein film.mpg\" alias VIDEO",
                   OpenCommand{"Z:\\Meine Bilder\\ein film.mpg", "VIDEO", 0, false}},
        Understood{"open \xE4\xF6\xFC.mp3 alias AUDIO", OpenCommand{"\xE4\xF6\xFC.mp3", "AUDIO", 0, false}},
        Understood{"open alias alias alias", OpenCommand{"alias", "alias", 0, false}},
        Understood{"set V time format ms", SetTimeFormatCommand{"V"}},
        Understood{"setaudio V volume to 2147483647", SetVolumeCommand{"V", 2147483647}},
        Understood{"put V window at -5 -2.25 10.0 0", PutWindowCommand{"V", -5, -3, 10, 0}},
        Understood{"put V window at -0.5 0 10 10", PutWindowCommand{"V", -1, 0, 10, 10}},
        Understood{"update V hdc 18446744073709551615",
                   UpdateCommand{"V", std::numeric_limits<std::uint64_t>::max()}},
        Understood{"stop VIDEO\0 rest of a buffer"s, StopCommand{"VIDEO"}}));

struct Misunderstood {
    std::string text;
    MediaError error;
};

class MisunderstoodCommand : public testing::TestWithParam<Misunderstood> {};

TEST_P(MisunderstoodCommand, GivesAnError) {
    const ParsedCommand parsed = parseMediaCommand(GetParam().text);
    ASSERT_TRUE(std::holds_alternative<MediaError>(parsed)) << GetParam().text;
    EXPECT_EQ(std::get<MediaError>(parsed), GetParam().error) << GetParam().text;
}

INSTANTIATE_TEST_SUITE_P(
    Words, MisunderstoodCommand,
    testing::Values(Misunderstood{"", MediaError::MissingCommand},
                    Misunderstood{" \t ", MediaError::MissingCommand},
                    Misunderstood{"\0stop VIDEO"s, MediaError::MissingCommand},
                    Misunderstood{"eject VIDEO", MediaError::UnrecognizedCommand},
                    Misunderstood{"stopp VIDEO", MediaError::UnrecognizedCommand},
                    Misunderstood{"\"stop\" VIDEO", MediaError::UnrecognizedCommand},
                    Misunderstood{"stop", MediaError::MissingDeviceName},
                    Misunderstood{"stop VIDEO now", MediaError::UnrecognizedKeyword},
                    Misunderstood{"play VIDEO wait", MediaError::UnrecognizedKeyword},
                    Misunderstood{"play VIDEO from", MediaError::MissingArgument},
                    Misunderstood{"play VIDEO from 0 to 10", MediaError::UnrecognizedKeyword},
                    Misunderstood{"set VIDEO", MediaError::MissingParameter},
                    Misunderstood{"set VIDEO time", MediaError::MissingParameter},
                    Misunderstood{"set VIDEO time format frames", MediaError::BadTimeFormat},
                    Misunderstood{"set VIDEO audio left off", MediaError::UnrecognizedKeyword},
                    Misunderstood{"set VIDEO audio all loud", MediaError::UnrecognizedKeyword},
                    Misunderstood{"set VIDEO door open", MediaError::UnrecognizedKeyword},
                    Misunderstood{"status VIDEO", MediaError::MissingParameter},
                    Misunderstood{"status VIDEO weather", MediaError::UnrecognizedKeyword},
                    Misunderstood{"where VIDEO", MediaError::MissingParameter},
                    Misunderstood{"where VIDEO destination", MediaError::UnrecognizedKeyword},
                    Misunderstood{"setaudio VIDEO volume 5", MediaError::UnrecognizedKeyword},
                    Misunderstood{"setaudio VIDEO volume to", MediaError::MissingArgument},
                    Misunderstood{"update VIDEO hdc", MediaError::MissingArgument},
                    Misunderstood{"put VIDEO window at 0 0 5", MediaError::MissingArgument},
                    Misunderstood{"put VIDEO window at 0 0 5 5 5", MediaError::UnrecognizedKeyword},
                    Misunderstood{"put VIDEO window client", MediaError::UnrecognizedKeyword}));

INSTANTIATE_TEST_SUITE_P(
    Numbers, MisunderstoodCommand,
    testing::Values(Misunderstood{"play V from x", MediaError::BadInteger},
                    Misunderstood{"play V from 1.5", MediaError::BadInteger},
                    Misunderstood{"play V from -1", MediaError::OutOfRange},
                    Misunderstood{"play V from 2147483648", MediaError::OutOfRange},
                    Misunderstood{"setaudio V volume to -1", MediaError::OutOfRange},
                    Misunderstood{"setaudio V volume to +5", MediaError::BadInteger},
                    Misunderstood{"setaudio V volume to 5x", MediaError::BadInteger},
                    Misunderstood{"update V hdc -1", MediaError::BadInteger},
                    Misunderstood{"update V hdc 18446744073709551616", MediaError::OutOfRange},
                    Misunderstood{"put V window at 0 0 -1 5", MediaError::OutOfRange},
                    Misunderstood{"put V window at 0 0 5 -0.5", MediaError::OutOfRange},
                    Misunderstood{"put V window at 0 0 5. 5", MediaError::BadInteger},
                    Misunderstood{"put V window at 0 0 .5 5", MediaError::BadInteger},
                    Misunderstood{"put V window at 0 0 5.1.2 5", MediaError::BadInteger},
                    Misunderstood{"put V window at 0 0 5e3 5", MediaError::BadInteger},
                    Misunderstood{"put V window at 0 0 1000001 5", MediaError::OutOfRange}));

INSTANTIATE_TEST_SUITE_P(
    Open, MisunderstoodCommand,
    testing::Values(Misunderstood{"open", MediaError::MissingDeviceName},
                    Misunderstood{"open a.mpg", MediaError::MissingParameter},
                    Misunderstood{"open  alias VIDEO parent 5 style child", MediaError::UnrecognizedKeyword},
                    Misunderstood{"open a b.mpg alias VIDEO", MediaError::UnrecognizedKeyword},
                    Misunderstood{"open a.mpg alias", MediaError::MissingArgument},
                    Misunderstood{"open a.mpg alias V alias W", MediaError::DuplicateFlag},
                    Misunderstood{"open a.mpg alias V parent", MediaError::MissingArgument},
                    Misunderstood{"open a.mpg alias V parent x", MediaError::BadInteger},
                    Misunderstood{"open a.mpg alias V style", MediaError::MissingParameter},
                    Misunderstood{"open a.mpg alias V style popup", MediaError::UnrecognizedKeyword},
                    Misunderstood{"open \"a.mpg alias V", MediaError::NoClosingQuote},
                    Misunderstood{"open \"\" alias V", MediaError::MissingDeviceName},
                    Misunderstood{"open \"a\"b alias V", MediaError::UnrecognizedKeyword}));

// Every beginning of a command that is cut off is an error or a shorter command of the same device.
TEST(CutOffCommand, NeverBecomesAnotherDevice) {
    const std::string whole = "open \"C:\\a b.mpg\" alias VIDEO parent 65842 style child";
    for (std::size_t length = 0; length < whole.size(); ++length) {
        const ParsedCommand parsed = parseMediaCommand(whole.substr(0, length));
        if (const auto* command = std::get_if<MediaCommand>(&parsed)) {
            const OpenCommand& open = std::get<OpenCommand>(*command);
            EXPECT_EQ(open.path, "C:\\a b.mpg") << length;
            EXPECT_FALSE(open.child) << length;
        }
    }
}

}  // namespace
}  // namespace media
