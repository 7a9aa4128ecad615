#include "files/parked_journal.h"

#include "files/journal.h"
#include "platform/directory.h"

namespace files {

namespace {

std::wstring journalPath(const std::wstring& folder) {
    return platform::joinPath(folder, kJournalFile);
}

std::wstring parkedPath(const std::wstring& folder) {
    return platform::joinPath(folder, kParkedJournalFile);
}

}  // namespace

Failure parkJournal(FileSystem& fileSystem, const std::wstring& folder) {
    return fileSystem.replace(journalPath(folder), parkedPath(folder));
}

void unparkJournal(FileSystem& fileSystem, const std::wstring& folder) {
    fileSystem.rename(parkedPath(folder), journalPath(folder));
}

void dropParkedJournal(FileSystem& fileSystem, const std::wstring& folder) {
    fileSystem.remove(parkedPath(folder));
}

}  // namespace files
