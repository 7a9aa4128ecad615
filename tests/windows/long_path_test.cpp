// Files whose paths are longer than the system takes them without a word about that.
#include <gmock/gmock.h>

#include <stdexcept>
#include <string>
#include <vector>

#include "platform/directory.h"
#include "platform/file_bytes.h"
#include "platform/file_facts.h"
#include "platform/short_path.h"
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

    static inline PathWatch* one = nullptr;
    ImportHook create_{"CreateFileW", &create};
    ImportHook attributes_{"GetFileAttributesW", &attributes};
    ImportHook setAttributes_{"SetFileAttributesW", &setAttributes};
    ImportHook shortName_{"GetShortPathNameW", &shortName};
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

}  // namespace
}  // namespace platform
