#pragma once

#include <set>
#include <string>
#include <string_view>
#include <vector>

#include "files/file_system.h"
#include "support/modelled_disk.h"

namespace support {

/// Thrown out of the operation during which the power goes.
struct PowerCut {};

/// Operations that fail, counted over all calls from 0.
struct ModelledFault {
    int first = -1;  ///< -1: none
    int count = 1;
    files::Failure failure = files::Failure::Denied;

    bool strikes(int operation) const {
        return first >= 0 && operation >= first && operation < first + count;
    }
};

/// The operations on a modelled disk: they are counted, each can be made to fail, and the power can go before
/// every single change of the disk.
class ModelledOperations {
  public:
    explicit ModelledOperations(ModelledDisk& disk) : disk_(disk) {}

    ModelledFault fault;
    int cutAt = -1;              ///< the power goes before this change of the disk, counted from 0; -1: never
    mutable int operations = 0;  ///< calls so far
    int changes = 0;             ///< changes of the disk so far
    std::set<std::wstring> inUse;  ///< folded paths that another program holds open

    ModelledDisk& disk() { return disk_; }
    const ModelledDisk& disk() const { return disk_; }

    /// Counts an operation; how it ends before it has begun, if it does.
    files::Failure begin(const std::vector<std::wstring>& paths) const {
        if (fault.strikes(operations++)) {
            return fault.failure;
        }
        for (const std::wstring& path : paths) {
            if (inUse.contains(foldedPath(path))) {
                return files::Failure::InUse;
            }
        }
        return files::Failure::None;
    }

    void step() {
        if (changes++ == cutAt) {
            throw PowerCut();
        }
    }

    void change(const ModelledDisk::Change& change) {
        step();
        disk_.change(change);
    }

    files::Failure erase(const std::wstring& path) {
        const ModelledDisk::Node* node = disk_.find(path);
        if (node == nullptr) {
            return files::Failure::Missing;
        }
        change({ModelledDisk::Change::Kind::Remove, path, {}, node->file, {}, 0, 0});
        return files::Failure::None;
    }

    files::Failure write(const std::wstring& path, std::string_view bytes) {
        if (disk_.find(path) != nullptr) {
            return files::Failure::Exists;
        }
        const int file = disk_.newFile();
        change({ModelledDisk::Change::Kind::Create, path, {}, file, {}, 0, 0});
        change({ModelledDisk::Change::Kind::Content, path, {}, file, std::string(bytes), 0, 0});
        step();
        disk_.flush(path);
        return files::Failure::None;
    }

  private:
    ModelledDisk& disk_;
};

}  // namespace support
