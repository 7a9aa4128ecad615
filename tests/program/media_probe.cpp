// media_probe FILE: carries out the media commands of a text file, line by line as they are appended, until a
// line says "end". What is heard of them is the test's business.
#include <windows.h>

#include <fstream>
#include <string>

#include "media/media_back_end.h"
#include "platform/com.h"

namespace {

constexpr DWORD kPollMs = 20;

void runMessages() {
    MSG message{};
    while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE) != FALSE) {
        DispatchMessageW(&message);
    }
}

}  // namespace

int WINAPI wWinMain(HINSTANCE, HINSTANCE, PWSTR file, int) {
    const platform::ComApartment com(platform::ComApartment::Kind::SingleThreaded);
    const auto control = media::createMediaControl();
    const std::wstring path(file);
    std::streamoff done = 0;
    for (;;) {
        std::ifstream commands(std::string(path.begin(), path.end()), std::ios::binary);
        commands.seekg(done);
        for (std::string line; std::getline(commands, line) && !commands.eof();) {
            done = commands.tellg();
            if (line == "end") {
                return 0;
            }
            control->send(line);
        }
        runMessages();
        Sleep(kPollMs);
    }
}
