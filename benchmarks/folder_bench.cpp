// Folders and show scripts that are far larger than usual.

#include <filesystem>
#include <stdexcept>
#include <string>

#include "bench_main.h"
#include "files/file_filter.h"
#include "platform/error.h"
#include "script/script_file.h"
#include "script/show_script.h"
#include "support/many_files.h"
#include "support/picture_writer.h"
#include "ui/file_list.h"
#include "ui/form.h"
#include "ui/windows_loop.h"

namespace bench {

namespace {

constexpr int kLines = 10'000;

std::wstring scriptFolder() {
    const std::wstring folder = temporaryFolder() + L"\\script";
    if (!std::filesystem::exists(folder)) {
        std::filesystem::create_directory(folder);
        std::string text;
        for (int i = 0; i < kLines; ++i) {
            text += "IMG_" + std::to_string(kLines + i) + " Ein Titel wie viele andere *P=7 *E=C *M=\r\n";
        }
        support::writeBytes(folder + L"\\" + script::kScriptFile, {text.begin(), text.end()});
    }
    return folder;
}

double lookUp() {
    const std::wstring folder = scriptFolder();
    const std::wstring key = L"IMG_" + std::to_wstring(kLines + kLines / 2);
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

double fillLists() {
    const support::ManyFiles folder;
    ui::WindowsLoop loop;
    ui::Form form({.className = L"PanorellBenchLists", .title = L"", .width = 9000, .height = 6000});
    ui::FileList File1({.parent = form, .place = {0, 0, 4000, 5000}}, files::isListed,
                       files::kTypPatterns[0]);
    ui::FileList File2({.parent = form, .visible = false}, files::isListed, files::kMusicPattern);
    form.show();
    loop.doEvents();
    const double time = milliseconds([&] {
        ui::FileList::setPath(folder.path(), {&File1, &File2});
        loop.doEvents();
    });
    if (File1.count() != support::ManyFiles::kPictures || File2.count() != support::ManyFiles::kTitles) {
        throw std::runtime_error("files are missing in the lists");
    }
    return time;
}

const Figure kLookUp("script_lookup_10000_lines", "ms", 9, lookUp);
const Figure kLists("lists_of_10000_files", "ms", 5, fillLists);

}  // namespace

}  // namespace bench
