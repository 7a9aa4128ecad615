// Files that cannot be played, or only half: silence, and the next one plays.
#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>
#include <fstream>
#include <iterator>
#include <string>
#include <tuple>
#include <vector>

#include "media_fixture.h"
#include "platform/short_path.h"
#include "support/picture_writer.h"

namespace media {
namespace {

using support::mediaFile;
using support::milliseconds;
using support::pumpFor;
using support::pumpUntil;
using Bytes = std::vector<std::uint8_t>;

Bytes bytesOf(const std::string& name) {
    std::ifstream file(mediaFile(name), std::ios::binary);
    const Bytes bytes{std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
    EXPECT_FALSE(bytes.empty()) << name;
    return bytes;
}

Bytes firstOf(Bytes bytes, std::size_t count) {
    bytes.resize(std::min(bytes.size(), count));
    return bytes;
}

/// A program stream in which every packet is private: no decoder knows what is in it.
Bytes withoutDecoder(Bytes film) {
    for (std::size_t i = 0; i + 3 < film.size(); ++i) {
        const bool packet = film[i] == 0 && film[i + 1] == 0 && film[i + 2] == 1;
        if (packet && (film[i + 3] == 0xE0 || film[i + 3] == 0xC0)) {
            film[i + 3] = 0xBD;
        }
    }
    return film;
}

/// Visible windows of this program besides the one that films are shown in.
int otherWindows(HWND films) {
    struct Count {
        HWND films;
        int windows;
    } count{films, 0};
    EnumWindows(
        [](HWND window, LPARAM context) -> BOOL {
            auto& found = *reinterpret_cast<Count*>(context);
            DWORD process = 0;
            GetWindowThreadProcessId(window, &process);
            const bool own = process == GetCurrentProcessId() && IsWindowVisible(window);
            found.windows += own && window != found.films ? 1 : 0;
            return TRUE;
        },
        reinterpret_cast<LPARAM>(&count));
    return count.windows;
}

struct BadFile {
    const char* what;
    const wchar_t* name;
    Bytes (*bytes)();
};

const BadFile kBadFiles[] = {
    {"NothingInAFilm", L"empty.mpg", [] { return Bytes(); }},
    {"NothingInATitle", L"empty.mp3", [] { return Bytes(); }},
    {"NoiseAsAFilm", L"noise.mpg", [] { return bytesOf("damaged.mpg"); }},
    {"NoiseAsATitle", L"noise.mp3", [] { return bytesOf("damaged.mp3"); }},
    {"TheFirstPackOnly", L"pack.mpg", [] { return firstOf(bytesOf("film_short.mpg"), 20); }},
    {"HalfATitle", L"half.mp3", [] { return firstOf(bytesOf("tone1320.mp3"), 5000); }},
    {"HalfAFilm", L"half.mpg", [] { return firstOf(bytesOf("film_short.mpg"), 12'000); }},
    {"ATitleAsAFilm", L"title.mpg", [] { return bytesOf("tone1320.mp3"); }},
    {"AFilmAsATitle", L"film.mp3", [] { return bytesOf("film_short.mpg"); }},
    {"APictureAsAFilm", L"picture.mpg", [] { return bytesOf("..\\grey.jpg"); }},
    {"TextAsAFilm", L"text.mpg", [] { return Bytes(3000, std::uint8_t{'x'}); }},
    {"NoDecoder", L"private.mpg", [] { return withoutDecoder(bytesOf("film_short.mpg")); }},
};

using Case = std::tuple<BackEnd, BadFile>;

class BadMedia : public support::MediaTest, public testing::WithParamInterface<Case> {
  protected:
    BadMedia() : MediaTest(std::get<BackEnd>(GetParam())) {}
    support::TemporaryFolder folder_;
};

TEST_P(BadMedia, IsPassedOverInSilence) {
    constexpr double kPatienceMs = 10'000;
    const BadFile& bad = std::get<BadFile>(GetParam());
    const std::wstring path = folder_.file(bad.name);
    support::writeBytes(path, bad.bytes());
    const bool title = std::wstring(bad.name).find(L".mp3") != std::wstring::npos;
    const std::string alias = title ? "AUDIO" : "VIDEO";
    const std::string child = title ? std::string() : " parent " + window_.handleText() + " style child";
    const double begin = milliseconds();
    const unsigned error = send("open " + platform::shortPath(path) + " alias " + alias + child).error;
    send("set " + alias + " time format milliseconds");
    const std::string length = ask("status " + alias + " length");
    EXPECT_TRUE(error == 0 || length.empty()) << "what is not open has no length";
    send("setaudio " + alias + " volume to 100");
    send("play " + alias);
    pumpFor(200);
    // The media control interface shows the pictures of a film that was opened as a title in a window of its
    // own.
    const bool filmByName = title && std::get<BackEnd>(GetParam()) == BackEnd::Mci && error == 0;
    EXPECT_LE(otherWindows(window_.handle()), filmByName ? 1 : 0) << "nobody is asked or told anything";
    send("stop " + alias);
    send("close " + alias);
    EXPECT_LT(milliseconds() - begin, kPatienceMs) << "holds the program up";
    EXPECT_EQ(window_.child(), nullptr);
    EXPECT_TRUE(DeleteFileW(path.c_str())) << "still in use";

    ASSERT_EQ(send("open " + mediaFile("tone1320.mp3") + " alias AUDIO").error, 0u);
    send("play AUDIO");
    EXPECT_TRUE(pumpUntil([&] { return number("status AUDIO position") >= 100; }, 5000));
}

INSTANTIATE_TEST_SUITE_P(Files, BadMedia,
                         testing::Combine(testing::Values(BackEnd::Mci, BackEnd::DirectShow),
                                          testing::ValuesIn(kBadFiles)),
                         [](const auto& one) {
                             return std::string(std::get<BadFile>(one.param).what) +
                                    (std::get<BackEnd>(one.param) == BackEnd::Mci ? "ByMci" : "ByGraph");
                         });

class TitleNames : public support::MediaTest, public testing::WithParamInterface<BackEnd> {
  protected:
    TitleNames() : MediaTest(GetParam()) {}
    support::TemporaryFolder folder_;
};

TEST_P(TitleNames, OutsideTheCodePageTooPlayOrStaySilent) {
    struct Name {
        const wchar_t* name;
        bool plays;  ///< whether the code page holds it
    };
    const Name names[] = {
        {L"01 Lied.mp3", true},
        {L"02 \u00C4rger \u00FCber \u00D6l \u00DFei Dank.mp3", true},
        {L"03 \u041C\u043E\u044F \u043F\u0435\u0441\u043D\u044F.mp3", false},
        {L"\u65E5\u672C.mp3", false},
    };
    for (const Name& one : names) {
        const std::wstring path = folder_.file(one.name);
        support::writeBytes(path, bytesOf("tone1320.mp3"));
        const std::string shortPath = platform::shortPath(path);
        EXPECT_FALSE(one.plays && shortPath.empty()) << testing::PrintToString(path);
        const unsigned error = send("open " + shortPath + " alias AUDIO").error;
        EXPECT_EQ(error == 0, !shortPath.empty()) << shortPath;
        send("set AUDIO time format milliseconds");
        if (shortPath.empty()) {
            EXPECT_EQ(ask("status AUDIO length"), "");
        } else {
            EXPECT_NEAR(number("status AUDIO length"), 4049, 200) << shortPath;
        }
        EXPECT_EQ(send("play AUDIO").error == 0, error == 0);
        send("stop AUDIO");
        send("close AUDIO");
        EXPECT_EQ(otherWindows(window_.handle()), 0);
    }
}

INSTANTIATE_TEST_SUITE_P(Both, TitleNames, testing::Values(BackEnd::Mci, BackEnd::DirectShow),
                         [](const auto& one) {
                             return std::string(one.param == BackEnd::Mci ? "ByMci" : "ByGraph");
                         });

}  // namespace
}  // namespace media
