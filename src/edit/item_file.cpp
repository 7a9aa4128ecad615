#include "edit/item_file.h"

#include <algorithm>
#include <cstddef>

#include "files/file_stamp.h"
#include "platform/directory.h"

namespace edit {

namespace {

files::FileStamp stampOf(const platform::FileFacts& facts) {
    return {facts.size, facts.times.written, facts.number};
}

std::optional<ItemFile> readItemFile(const overview::ThumbRecords& records, int index) {
    std::wstring path = pathOf(records, index);
    const auto facts = platform::readFileFacts(path);
    return facts ? std::optional<ItemFile>({std::move(path), *facts}) : std::nullopt;
}

std::wstring faultOf(const overview::ThumbRecords& records, int index, const std::optional<ItemFile>& file) {
    const overview::ThumbRecord& record = records.thumbRecords[static_cast<std::size_t>(index)];
    if (!file) {
        return missingText(record.fileName);
    }
    return files::sameFile(record.stamp, stampOf(file->facts)) ? std::wstring()
                                                               : changedText(record.fileName);
}

}  // namespace

std::optional<int> itemNamed(const overview::ThumbRecords& records, const std::wstring& fileName) {
    const auto& all = records.thumbRecords;
    const auto found = std::find_if(all.begin(), all.end(), [&](const overview::ThumbRecord& record) {
        return record.fileName == fileName;
    });
    return found != all.end() ? std::optional(static_cast<int>(found - all.begin())) : std::nullopt;
}

std::wstring pathOf(const overview::ThumbRecords& records, int index) {
    return platform::joinPath(records.folder, records.thumbRecords[static_cast<std::size_t>(index)].fileName);
}

std::wstring missingText(const std::wstring& fileName) {
    return L"Die Datei «" + fileName + L"» ist nicht mehr da.";
}

std::wstring changedText(const std::wstring& fileName) {
    return L"Die Datei «" + fileName +
           L"» wurde inzwischen von einem anderen Programm geändert; bitte die Übersicht neu öffnen.";
}

std::wstring fileFault(const overview::ThumbRecords& records, int index) {
    return faultOf(records, index, readItemFile(records, index));
}

std::optional<ItemFile> unchangedFile(const overview::ThumbRecords& records, int index,
                                      const Dialogue& dialogue, const std::wstring& title) {
    std::optional<ItemFile> file = readItemFile(records, index);
    const std::wstring fault = faultOf(records, index, file);
    if (!fault.empty()) {
        dialogue.tell(fault, title);
        return std::nullopt;
    }
    return file;
}

std::optional<ItemFile> renewStamp(overview::ThumbRecords& records, int index) {
    std::optional<ItemFile> file = readItemFile(records, index);
    if (file) {
        records.thumbRecords[static_cast<std::size_t>(index)].stamp = stampOf(file->facts);
    }
    return file;
}

}  // namespace edit
