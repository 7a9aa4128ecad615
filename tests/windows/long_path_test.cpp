// Files whose paths are longer than the system takes them without a word about that.
#include <gmock/gmock.h>

#include <stdexcept>
#include <string>
#include <vector>

#include "overview/thumb_folder.h"
#include "overview/thumbnail_store.h"
#include "picture/pixels.h"
#include "platform/directory.h"
#include "platform/file_bytes.h"
#include "platform/file_facts.h"
#include "platform/short_path.h"
#include "script/script_file.h"
#include "support/import_hook.h"
#include "support/scratch_folder.h"

namespace platform {
namespace {

using support::ImportHook;
using testing::IsEmpty;

/// Notes the paths that the program hands to the system and that the system would refuse.
class PathWatch {
  public:
    PathWatch() { one = this; }
    ~PathWatch() { one = nullptr; }
    PathWatch(const PathWatch&) = delete;
    PathWatch& operator=(const PathWatch&) = delete;

    std::vector<std::wstring> refused;

  private:
    static const wchar_t* seen(const wchar_t* path) {
        const std::wstring text(path);
        if (text.size() >= MAX_PATH && !text.starts_with(L"\\\\?\\")) {
            one->refused.push_back(text);
        }
        return path;
    }
    static HANDLE WINAPI create(const wchar_t* path, DWORD access, DWORD share, SECURITY_ATTRIBUTES* security,
                                DWORD how, DWORD flags, HANDLE like) {
        return one->create_.original<decltype(create)>()(seen(path), access, share, security, how, flags,
                                                         like);
    }
    static DWORD WINAPI attributes(const wchar_t* path) {
        return one->attributes_.original<decltype(attributes)>()(seen(path));
    }
    static BOOL WINAPI setAttributes(const wchar_t* path, DWORD value) {
        return one->setAttributes_.original<decltype(setAttributes)>()(seen(path), value);
    }
    static DWORD WINAPI shortName(const wchar_t* path, wchar_t* buffer, DWORD size) {
        return one->shortName_.original<decltype(shortName)>()(seen(path), buffer, size);
    }

    static BOOL WINAPI makeFolder(const wchar_t* path, SECURITY_ATTRIBUTES* security) {
        return one->makeFolder_.original<decltype(makeFolder)>()(seen(path), security);
    }
    static BOOL WINAPI move(const wchar_t* from, const wchar_t* to, DWORD flags) {
        return one->move_.original<decltype(move)>()(seen(from), seen(to), flags);
    }
    static BOOL WINAPI remove(const wchar_t* path) {
        return one->remove_.original<decltype(remove)>()(seen(path));
    }
    static BOOL WINAPI removeFolder(const wchar_t* path) {
        return one->removeFolder_.original<decltype(removeFolder)>()(seen(path));
    }

    static inline PathWatch* one = nullptr;
    ImportHook create_{"CreateFileW", &create};
    ImportHook attributes_{"GetFileAttributesW", &attributes};
    ImportHook setAttributes_{"SetFileAttributesW", &setAttributes};
    ImportHook shortName_{"GetShortPathNameW", &shortName};
    ImportHook makeFolder_{"CreateDirectoryW", &makeFolder};
    ImportHook move_{"MoveFileExW", &move};
    ImportHook remove_{"DeleteFileW", &remove};
    ImportHook removeFolder_{"RemoveDirectoryW", &removeFolder};
};

class LongPath : public testing::Test {
  protected:
    LongPath() {
        const std::wstring folder = folder_.folder(std::wstring(120, L'o'));
        path_ = joinPath(folder, std::wstring(140, L'b') + L".jpg");
        const HANDLE file =
            CreateFileW((L"\\\\?\\" + path_).c_str(), GENERIC_WRITE, 0, nullptr, CREATE_NEW, 0, nullptr);
        if (file == INVALID_HANDLE_VALUE) {
            throw std::runtime_error("no file with a long path");
        }
        CloseHandle(file);
    }
    ~LongPath() override { DeleteFileW((L"\\\\?\\" + path_).c_str()); }

    support::ScratchFolder folder_;
    std::wstring path_;
};

TEST_F(LongPath, AFileIsReadAskedAndChanged) {
    const PathWatch watch;
    const auto facts = readFileFacts(path_);
    ASSERT_TRUE(facts);
    EXPECT_FALSE(facts->hidden);
    const FileTimes wanted{facts->times.created - 100'000'000, facts->times.accessed,
                           facts->times.written - 200'000'000};
    EXPECT_EQ(writeFileTimes(path_, wanted), 0U);
    EXPECT_TRUE(setFileHidden(path_, true));
    const auto changed = readFileFacts(path_);
    ASSERT_TRUE(changed);
    EXPECT_EQ(changed->times.written, wanted.written);
    EXPECT_TRUE(changed->hidden);
    EXPECT_THAT(readFileBytes(path_, 10), IsEmpty());
    EXPECT_THAT(watch.refused, IsEmpty());
}

TEST_F(LongPath, AShortFormIsOneThatAnyProgramTakes) {
    const PathWatch watch;
    const std::wstring form = wideShortPath(path_);
    EXPECT_THAT(watch.refused, IsEmpty());
    // A drive may keep no short names.
    if (!form.empty()) {
        EXPECT_LT(form.size(), std::size_t{255});
        EXPECT_FALSE(form.starts_with(L"\\\\?\\")) << form;
        EXPECT_TRUE(fileExists(form)) << form;
    }
}

TEST_F(LongPath, AFolderIsWorkedIn) {
    const std::wstring folder = joinPath(folder_.folder(std::wstring(100, L'o')), std::wstring(160, L'p'));
    ASSERT_TRUE(CreateDirectoryW((L"\\\\?\\" + folder).c_str(), nullptr));
    {
        const PathWatch watch;
        EXPECT_TRUE(overview::canWriteTo(folder));
        EXPECT_EQ(script::readScript(folder).state, script::ScriptReading::State::Missing);
        overview::ThumbnailStore store(folder, {L"a.jpg", L"b.jpg"}, true);
        EXPECT_EQ(store.create(), 0U);
        for (const wchar_t* name : {L"a.jpg", L"b.jpg"}) {
            EXPECT_EQ(store.save(name, picture::Pixels(4, 3)), 0U);
        }
        EXPECT_FALSE(store.pathOf(L"a.jpg").empty());
        EXPECT_TRUE(overview::readThumbnail(store.pathOf(L"a.jpg")));
        store.remove(L"a.jpg");
        EXPECT_TRUE(store.pathOf(L"a.jpg").empty());
        store.removeAll();
        EXPECT_FALSE(store.folderThere());
        EXPECT_THAT(watch.refused, IsEmpty());
    }
    EXPECT_TRUE(RemoveDirectoryW((L"\\\\?\\" + folder).c_str()));
}

}  // namespace
}  // namespace platform
