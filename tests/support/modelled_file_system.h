#pragma once

#include <memory>
#include <set>
#include <string>
#include <utility>
#include <vector>

#include "files/file_system.h"
#include "support/modelled_held_file.h"
#include "support/modelled_operations.h"

namespace support {

/// The files of a modelled disk. Every call can be made to fail, and the power can go before every single
/// change of the disk; what is held open is closed to everybody else.
class ModelledFileSystem : public files::FileSystem, public ModelledOperations {
  public:
    explicit ModelledFileSystem(ModelledDisk& disk) : ModelledOperations(disk) {}

    bool keepsNumbers = true;                         ///< files have numbers of their own
    int numbersFrom = 0;                              ///< added to every number: the disk was mounted anew
    bool flushesFolders = true;                       ///< the system offers flushFolder
    std::uint64_t written = 133'000'000'000'000'000;  ///< of every file

    files::Answer<std::vector<files::FolderEntry>> list(const std::wstring& folder) const override {
        files::Answer<std::vector<files::FolderEntry>> answer{begin({}), {}};
        const std::wstring before = foldedPath(folder) + L"\\";
        std::set<std::wstring> subFolders;
        for (const auto& [key, node] : disk().live().names) {
            if (!key.starts_with(before)) {
                continue;
            }
            const std::wstring rest = node.path.substr(before.size());
            const std::size_t slash = rest.find(L'\\');
            if (slash == std::wstring::npos) {
                answer.value.push_back(entry(node));
            } else if (subFolders.insert(rest.substr(0, slash)).second) {
                answer.value.push_back({rest.substr(0, slash), true, 0, {}});
            }
        }
        return answer;
    }

    files::Answer<files::FolderEntry> stat(const std::wstring& path) const override {
        const ModelledDisk::Node* node = disk().find(path);
        const files::Failure failure = begin({});
        if (failure != files::Failure::None || node == nullptr) {
            return {node == nullptr ? files::Failure::Missing : failure, {}};
        }
        return {files::Failure::None, entry(*node)};
    }

    files::Failure rename(const std::wstring& from, const std::wstring& to) override {
        if (const files::Failure failure = begin({from, to}); failure != files::Failure::None) {
            return failure;
        }
        const ModelledDisk::Node* node = disk().find(from);
        if (node == nullptr) {
            return files::Failure::Missing;
        }
        if (disk().find(to) != nullptr) {
            return files::Failure::Exists;
        }
        change({ModelledDisk::Change::Kind::Rename, from, to, node->file, {}, 0, 0});
        return files::Failure::None;
    }

    files::Failure remove(const std::wstring& path) override {
        const files::Failure failure = begin({path});
        const ModelledDisk::Node* node = disk().find(path);
        if (node != nullptr && (disk().file(*node).attributes & files::kReadOnly) != 0) {
            return files::Failure::Denied;
        }
        return failure == files::Failure::None ? erase(path) : failure;
    }

    files::Failure writeNew(const std::wstring& path, std::string_view bytes) override {
        const files::Failure failure = begin({path});
        return failure == files::Failure::None ? write(path, bytes) : failure;
    }

    files::Answer<std::string> read(const std::wstring& path) const override {
        const files::Failure failure = begin({path});
        const ModelledDisk::Node* node = disk().find(path);
        if (failure != files::Failure::None || node == nullptr) {
            return {failure == files::Failure::None ? files::Failure::Missing : failure, {}};
        }
        return {files::Failure::None, disk().file(*node).content};
    }

    files::Failure replace(const std::wstring& from, const std::wstring& to) override {
        if (const files::Failure failure = begin({from, to}); failure != files::Failure::None) {
            return failure;
        }
        const ModelledDisk::Node* node = disk().find(from);
        if (node == nullptr) {
            return files::Failure::Missing;
        }
        change({ModelledDisk::Change::Kind::Replace, from, to, node->file, {}, 0, 0});
        return files::Failure::None;
    }

    files::Failure setAttributes(const std::wstring& path, std::uint32_t attributes) override {
        if (const files::Failure failure = begin({path}); failure != files::Failure::None) {
            return failure;
        }
        const ModelledDisk::Node* node = disk().find(path);
        if (node == nullptr) {
            return files::Failure::Missing;
        }
        change({ModelledDisk::Change::Kind::Attributes, path, {}, node->file, {}, attributes, 0});
        return files::Failure::None;
    }

    files::Failure flushFolder(const std::wstring&) override {
        const files::Failure failure = flushesFolders ? begin({}) : files::Failure::Other;
        if (failure == files::Failure::None) {
            step();
            disk().flushAll();
        }
        return failure;
    }

    Held createHeld(const std::wstring& path, std::string_view bytes) override {
        files::Failure failure = begin({path});
        if (failure == files::Failure::None) {
            failure = write(path, bytes);
        }
        return hold(path, failure);
    }

    Held openHeld(const std::wstring& path) override {
        const files::Failure failure = begin({path});
        return hold(path, failure == files::Failure::None && disk().find(path) == nullptr
                              ? files::Failure::Missing
                              : failure);
    }

    std::wstring folded(std::wstring_view name) const override { return foldedPath(name); }

  private:
    files::FolderEntry entry(const ModelledDisk::Node& node) const {
        const ModelledDisk::File& file = disk().file(node);
        const auto number = static_cast<std::uint64_t>(keepsNumbers ? node.file + numbersFrom : 0);
        return {node.path.substr(node.path.rfind(L'\\') + 1),
                false,
                file.attributes,
                {file.content.size(), written, number}};
    }

    Held hold(const std::wstring& path, files::Failure failure) {
        if (failure != files::Failure::None) {
            return {failure, nullptr};
        }
        return {failure, std::make_unique<ModelledHeldFile>(*this, path)};
    }
};

}  // namespace support
