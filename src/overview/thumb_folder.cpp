#include "overview/thumb_folder.h"

#include <windows.h>

#include <unordered_map>
#include <utility>
#include <vector>

#include "files/file_filter.h"
#include "overview/entry_lines.h"
#include "overview/tool_tip_text.h"
#include "platform/directory.h"
#include "platform/error.h"
#include "platform/file_time.h"
#include "platform/handles.h"
#include "script/picture_key.h"
#include "script/script_file.h"

namespace overview {

namespace {

constexpr int kMostProbes = 100;
/// So many names that may not be had are not by chance.
constexpr int kMostRefused = 5;

std::vector<platform::DirectoryEntry> filesOf(const std::wstring& folder) {
    std::vector<platform::DirectoryEntry> found;
    try {
        for (platform::DirectoryEntry& entry : platform::listDirectoryWithNumbers(folder)) {
            if (!entry.folder && files::matchesPattern(entry.name, files::kTypPatterns[0])) {
                found.push_back(std::move(entry));
            }
        }
    } catch (const platform::Error&) {
        found.clear();
    }
    return found;
}

ThumbRecord recordOf(const platform::DirectoryEntry& file, const Entries& entries) {
    ThumbRecord record;
    record.fileName = file.name;
    record.stamp.size = file.size;
    record.stamp.written = file.written;
    record.stamp.number = file.number;
    record.locked = file.hidden;
    const auto entry = entries.find(script::PictureKey(file.name));
    if (entry != entries.end()) {
        record.entry = entry->second;
    }
    return record;
}

std::wstring probeName(int number) {
    return number == 0 ? L"Test.txt" : L"Test-" + std::to_wstring(number) + L".txt";
}

}  // namespace

ThumbFolder readThumbFolder(const std::wstring& folder, const std::wstring& pattern) {
    ThumbFolder read;
    read.records.folder = folder;
    read.records.folderWritable = canWriteTo(folder);
    const std::vector<platform::DirectoryEntry> all = filesOf(folder);
    std::vector<std::wstring> allNames;
    std::vector<std::wstring> keys;
    std::vector<std::wstring> shown;
    std::unordered_map<std::wstring, const platform::DirectoryEntry*> byName;
    for (const platform::DirectoryEntry& file : all) {
        allNames.push_back(file.name);
        keys.push_back(script::PictureKey(file.name));
        byName[file.name] = &file;
        if (files::matchesPattern(file.name, pattern)) {
            shown.push_back(file.name);
        }
    }
    platform::sortNames(shown);
    read.records.script = script::readScript(folder);
    const Entries entries = entriesOf(read.records.script.text, keys);
    for (const std::wstring& name : shown) {
        if (read.records.thumbCount() < kMostThumbnails) {
            read.records.thumbRecords.push_back(recordOf(*byName[name], entries));
        } else {
            ++read.leftOut;
        }
    }
    read.records.folderNames = allNames;
    read.store = ThumbnailStore(folder, allNames, read.records.folderWritable);
    return read;
}

bool canWriteTo(const std::wstring& folder) {
    int refused = 0;
    for (int i = 0; i < kMostProbes; ++i) {
        const platform::File probe(CreateFileW(
            platform::unlimitedPath(platform::joinPath(folder, probeName(i))).c_str(), GENERIC_WRITE | DELETE,
            0, nullptr, CREATE_NEW, FILE_ATTRIBUTE_TEMPORARY | FILE_FLAG_DELETE_ON_CLOSE, nullptr));
        if (probe) {
            return true;
        }
        // A file of the user's own may be in the way, also one that he holds open or that is just going.
        const DWORD fault = GetLastError();
        const bool thisOne = fault == ERROR_ACCESS_DENIED || fault == ERROR_SHARING_VIOLATION;
        if (fault != ERROR_FILE_EXISTS && !(thisOne && ++refused < kMostRefused)) {
            return false;
        }
    }
    return false;
}

std::wstring tipDate(std::uint64_t written) {
    const auto time = platform::localTime(written);
    return time ? platform::longDate(*time) + L", " + platform::shortTime(*time) : std::wstring();
}

std::wstring tipOf(const ThumbRecord& record) {
    return toolTipText(record.entry, files::isVideoName(record.fileName), tipDate(record.stamp.written));
}

}  // namespace overview
