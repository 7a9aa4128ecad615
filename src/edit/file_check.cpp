#include "edit/file_check.h"

#include <windows.h>

#include "platform/directory.h"
#include "platform/handles.h"

namespace edit {

namespace {

std::uint64_t joined(DWORD high, DWORD low) {
    return ULARGE_INTEGER{{low, high}}.QuadPart;
}

}  // namespace

std::wstring pathOf(const overview::ThumbRecords& records, const overview::ThumbRecord& record) {
    return platform::joinPath(records.folder, record.fileName);
}

std::optional<files::FileStamp> freshStamp(const std::wstring& path) {
    const platform::File file(CreateFileW(path.c_str(), FILE_READ_ATTRIBUTES,
                                          FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE, nullptr,
                                          OPEN_EXISTING, 0, nullptr));
    BY_HANDLE_FILE_INFORMATION info{};
    if (!file || GetFileInformationByHandle(file.get(), &info) == FALSE) {
        return std::nullopt;
    }
    return files::FileStamp{joined(info.nFileSizeHigh, info.nFileSizeLow),
                            joined(info.ftLastWriteTime.dwHighDateTime, info.ftLastWriteTime.dwLowDateTime),
                            joined(info.nFileIndexHigh, info.nFileIndexLow)};
}

bool isUnchanged(const overview::ThumbRecords& records, const overview::ThumbRecord& record) {
    const auto now = freshStamp(pathOf(records, record));
    return now && files::sameFile(*now, record.stamp);
}

void renewStamp(const overview::ThumbRecords& records, overview::ThumbRecord& record) {
    if (const auto now = freshStamp(pathOf(records, record))) {
        record.stamp = *now;
    }
}

}  // namespace edit
