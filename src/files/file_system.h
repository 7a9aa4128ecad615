#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "files/file_stamp.h"

namespace files {

/// How an operation on a file ended.
enum class Failure {
    None,
    Missing,         ///< no such file or folder
    Exists,          ///< the name is taken
    Denied,          ///< no permission; may pass, since a file that is about to vanish answers so as well
    InUse,           ///< another program holds the file; may pass
    WriteProtected,  ///< the whole medium takes no change
    Full,            ///< no room on the medium
    Other
};

/// Whether it is worth trying again a little later: virus scanners and indexers hold files for moments.
constexpr bool mayPass(Failure failure) {
    return failure == Failure::Denied || failure == Failure::InUse;
}

/// The attributes of a file that outlive a rename; the bits are the system's own.
inline constexpr std::uint32_t kReadOnly = 1;
inline constexpr std::uint32_t kHidden = 2;
inline constexpr std::uint32_t kSystem = 4;
inline constexpr std::uint32_t kKeptAttributes = kReadOnly | kHidden | kSystem;

struct FolderEntry {
    std::wstring name;  ///< without its folder
    bool folder = false;
    std::uint32_t attributes = 0;  ///< of kKeptAttributes
    FileStamp stamp;
};

/// What an operation found, good only when it did not fail.
template <typename Value>
struct Answer {
    Failure failure = Failure::None;
    Value value{};
};

/// A file held open so that no other program can open it. It is closed with this object and stays.
class HeldFile {
  public:
    virtual ~HeldFile() = default;
    virtual Answer<std::string> read() = 0;
    /// Adds bytes at the end; they are on the medium when it does not fail. After a failure the file may
    /// end in a part of them.
    virtual Failure append(std::string_view bytes) = 0;
    /// Removes the file, which nobody else can open before it is gone.
    virtual Failure remove() = 0;
};

/// What the program does to files that must not be lost, and nothing else: a disk of the tests' own stands
/// in for the real one. Paths are full. Nothing throws; nothing waits.
class FileSystem {
  public:
    virtual ~FileSystem() = default;

    /// What a folder holds, in one reading.
    virtual Answer<std::vector<FolderEntry>> list(const std::wstring& folder) const = 0;
    virtual Answer<FolderEntry> stat(const std::wstring& path) const = 0;
    /// Never overwrites. Two paths that differ only in case are refused as Exists: some systems report
    /// success and do nothing, so the caller goes through a third name.
    virtual Failure rename(const std::wstring& from, const std::wstring& to) = 0;
    virtual Failure remove(const std::wstring& path) = 0;
    /// Writes a file that was not there; its content is on the medium when it does not fail. After a
    /// failure nothing of it is left, if that can be had.
    virtual Failure writeNew(const std::wstring& path, std::string_view bytes) = 0;
    virtual Answer<std::string> read(const std::wstring& path) const = 0;
    /// Puts the file `from` in the place of `to`, which may be missing, in one step.
    virtual Failure replace(const std::wstring& from, const std::wstring& to) = 0;
    /// `attributes`: of kKeptAttributes.
    virtual Failure setAttributes(const std::wstring& path, std::uint32_t attributes) = 0;
    /// Brings the names in a folder to the medium, where the system offers that.
    virtual Failure flushFolder(const std::wstring& folder) = 0;

    struct Held {
        Failure failure = Failure::None;
        std::unique_ptr<HeldFile> file;  ///< null after a failure
    };
    /// Writes a file that was not there and holds it. Its content is on the medium before this returns.
    virtual Held createHeld(const std::wstring& path, std::string_view bytes) = 0;
    /// Holds a file for reading, adding and removing. InUse when any other program has it open.
    virtual Held openHeld(const std::wstring& path) = 0;

    /// A form of a name that is equal for names which the file system takes for the same.
    virtual std::wstring folded(std::wstring_view name) const = 0;
};

}  // namespace files
