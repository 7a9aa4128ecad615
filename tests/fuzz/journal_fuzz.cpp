#include "files/change_folder.h"
#include "files/file_name.h"
#include "files/journal.h"
#include "files/recovery.h"
#include "fuzz/check.h"
#include "support/modelled_disk.h"
#include "support/modelled_file_system.h"

#include <algorithm>
#include <cstdint>
#include <iterator>
#include <set>
#include <string>
#include <string_view>

namespace {

using fuzz::check;

const std::wstring kFolder = L"C:\\Bilder";

/// The files of the folder, and some that are none of its business.
constexpr const wchar_t* kInside[] = {L"C:\\Bilder\\a.jpg", L"C:\\Bilder\\b.jpg", L"C:\\Bilder\\c.mpg",
                                      L"C:\\Bilder\\TMP001.jpg", L"C:\\Bilder\\P001.jpg"};
constexpr const wchar_t* kOutside[] = {L"C:\\a.jpg", L"C:\\Bilder2\\a.jpg", L"C:\\Bilder\\Sub\\a.jpg",
                                       L"C:\\Panorell.txt"};

std::string contentOf(const std::wstring& path) {
    return "content of " + std::string(path.begin(), path.end());
}

/// All of one size, so that only names and numbers part them.
std::string pictureOf(std::size_t i) {
    return "picture " + std::to_string(i);
}

void put(support::ModelledDisk& disk) {
    for (std::size_t i = 0; i < std::size(kInside); ++i) {
        disk.put(kInside[i], pictureOf(i));
    }
    for (const wchar_t* path : kOutside) {
        disk.put(path, contentOf(path));
    }
    disk.put(L"C:\\Bilder\\Mini\\a.bmp", "thumbnail");
    disk.put(L"C:\\Bilder\\Panorell.txt", "old");
}

bool isPlace(std::wstring_view name) {
    const bool cache = files::isCacheName(name);
    return files::isPlainName(cache ? name.substr(files::kCacheFolder.size() + 1) : name);
}

void checkNames(const files::Journal& journal) {
    for (const files::JournalMove& move : journal.moves) {
        check(isPlace(move.oldName) && isPlace(move.temporaryName) && isPlace(move.newName));
        check(files::isCacheName(move.oldName) == files::isCacheName(move.newName));
        check((move.oldAttributes | move.newAttributes | files::kKeptAttributes) == files::kKeptAttributes);
    }
    for (const std::wstring& name : journal.drops) {
        check(files::isCacheName(name) && isPlace(name));
    }
    check(!journal.script ||
          (files::isPlainName(journal.script->name) && files::isPlainName(journal.temporaryScript)));
}

bool allPicturesAreThere(const support::ModelledDisk& disk) {
    std::set<std::string> contents;
    for (const auto& [path, node] : disk.live().names) {
        contents.insert(disk.file(node).content);
    }
    for (std::size_t i = 0; i < std::size(kInside); ++i) {
        if (!contents.contains(pictureOf(i))) {
            return false;
        }
    }
    return true;
}

/// However a journal is made up: no picture is lost, and nothing beside the folder is touched.
void checkRecovery(const std::string& bytes) {
    support::ModelledDisk disk;
    put(disk);
    disk.put(kFolder + L"\\" + files::kJournalFile, bytes);
    support::ModelledFileSystem fileSystem(disk);
    double ms = 0;
    const files::Waiting waiting{[&] { return ms; }, [&](int pause) { ms += pause; }};
    for (int again = 0; again < 2; ++again) {
        files::recoverFolder(fileSystem, kFolder, waiting);
        check(allPicturesAreThere(disk));
        for (const wchar_t* path : kOutside) {
            const auto* node = disk.find(path);
            check(node != nullptr && disk.file(*node).content == contentOf(path));
        }
    }
}

void checkReading(const std::string& bytes) {
    const files::JournalReading reading = files::readJournal(bytes);
    if (reading.kind != files::JournalReading::Kind::Whole) {
        return;
    }
    checkNames(reading.journal);
    const std::string written = files::journalBytes(reading.journal);
    const files::JournalReading again = files::readJournal(written);
    check(again.kind == files::JournalReading::Kind::Whole);
    check(files::journalBytes(again.journal) == written);
}

/// A journal with these lines, whatever they are, that is whole: its last line is right.
std::string wholeJournal(std::string_view lines) {
    std::string bytes = files::journalBytes({});
    bytes.erase(bytes.find("end\t"));
    bytes.append(lines);
    if (bytes.back() != '\n') {
        bytes += '\n';
    }
    std::uint64_t sum = 14695981039346656037U;
    for (const char byte : bytes) {
        sum = (sum ^ static_cast<unsigned char>(byte)) * 1099511628211U;
    }
    char digits[17] = {};
    for (int i = 15; i >= 0; --i, sum >>= 4) {
        digits[i] = "0123456789abcdef"[sum & 15];
    }
    const std::string_view all(digits, 16);
    const std::size_t first = std::min<std::size_t>(all.find_first_not_of('0'), 15);
    return bytes + "end\t" + std::to_string(bytes.size()) + "\t" + std::string(all.substr(first)) + "\n";
}

}  // namespace

/// The first byte tells the phase, the rest are the journal's lines; also read as they are.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string text(data, data + size);
    checkReading(text);
    if (text.empty()) {
        return 0;
    }
    const std::string whole = wholeJournal(std::string_view(text).substr(1));
    const bool endsOnce = text.find("end\t") == std::string::npos;
    check(!endsOnce || files::readJournal(whole).kind != files::JournalReading::Kind::Torn);
    std::string marks;
    for (int bits = static_cast<unsigned char>(text[0]); bits % 4 != 0; bits /= 4) {
        marks += files::phaseMark(static_cast<files::Phase>(bits % 4 - 1));
    }
    checkReading(whole);
    checkRecovery(whole + marks);
    checkRecovery(text);
    return 0;
}
