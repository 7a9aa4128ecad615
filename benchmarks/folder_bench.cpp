// Folders and show scripts that are far larger than usual.

#include <filesystem>
#include <stdexcept>
#include <string>

#include "app/file_filter.h"
#include "bench_main.h"
#include "platform/error.h"
#include "script/script_file.h"
#include "script/show_script.h"
#include "support/picture_writer.h"
#include "ui/file_list.h"
#include "ui/form.h"
#include "ui/windows_loop.h"

namespace bench {

namespace {

constexpr int kMany = 10'000;

std::wstring scriptFolder() {
    const std::wstring folder = temporaryFolder() + L"\\script";
    if (!std::filesystem::exists(folder)) {
        std::filesystem::create_directory(folder);
        std::string text;
        for (int i = 0; i < kMany; ++i) {
            text += "IMG_" + std::to_string(kMany + i) + " Ein Titel wie viele andere *P=7 *E=C *M=\r\n";
        }
        support::writeBytes(folder + L"\\" + script::kScriptFile, {text.begin(), text.end()});
    }
    return folder;
}

double lookUp() {
    const std::wstring folder = scriptFolder();
    const std::wstring key = L"IMG_" + std::to_wstring(kMany + kMany / 2);
    script::Entry entry;
    const double time = milliseconds([&] {
        const auto text = script::readScriptFile(folder);
        entry = script::readEntry(text.value_or(std::wstring()), key);
    });
    if (entry.title.empty()) {
        throw std::runtime_error("the entry was not found");
    }
    return time;
}

std::wstring manyFiles() {
    const std::wstring folder = temporaryFolder() + L"\\many";
    if (!std::filesystem::exists(folder)) {
        std::filesystem::create_directory(folder);
        for (int i = 0; i < kMany; ++i) {
            // One in a hundred is music.
            const wchar_t* extension = i % 100 == 99 ? L".mp3" : L".jpg";
            support::writeBytes(folder + L"\\IMG_" + std::to_wstring(i) + extension, {});
        }
    }
    return folder;
}

double fillLists() {
    const std::wstring folder = manyFiles();
    ui::WindowsLoop loop;
    ui::Form form({.className = L"PanorellBenchLists", .title = L"", .width = 9000, .height = 6000});
    ui::FileList File1({.parent = form, .place = {0, 0, 4000, 5000}}, app::isListed, app::kTypPatterns[0]);
    ui::FileList File2({.parent = form, .visible = false}, app::isListed, app::kMusicPattern);
    form.show();
    loop.doEvents();
    const double time = milliseconds([&] {
        File1.setPath(folder);
        File2.setPath(folder);
        loop.doEvents();
    });
    if (File1.count() + File2.count() != kMany) {
        throw std::runtime_error("files are missing in the lists");
    }
    return time;
}

const Figure kLookUp("script_lookup_10000_lines", "ms", 9, lookUp);
const Figure kLists("lists_of_10000_files", "ms", 5, fillLists);

}  // namespace

}  // namespace bench
