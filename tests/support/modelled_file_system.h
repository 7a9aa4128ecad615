#pragma once

#include <memory>
#include <set>
#include <string>
#include <utility>
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

/// The files of a modelled disk. Every call can be made to fail, and the power can go before every single
/// change of the disk; what is held open is closed to everybody else.
class ModelledFileSystem : public files::FileSystem {
  public:
    explicit ModelledFileSystem(ModelledDisk& disk) : disk_(disk) {}

    ModelledFault fault;
    int cutAt = -1;              ///< the power goes before this change of the disk, counted from 0; -1: never
    bool keepsNumbers = true;    ///< files have numbers of their own
    int numbersFrom = 0;         ///< added to every number: the disk was mounted anew
    bool flushesFolders = true;  ///< the system offers flushFolder
    mutable int operations = 0;  ///< calls so far
    int changes = 0;             ///< changes of the disk so far
    std::set<std::wstring> inUse;                     ///< folded paths that another program holds open
    std::uint64_t written = 133'000'000'000'000'000;  ///< of every file

    files::Answer<std::vector<files::FolderEntry>> list(const std::wstring& folder) const override {
        files::Answer<std::vector<files::FolderEntry>> answer{begin({}), {}};
        const std::wstring before = foldedPath(folder) + L"\\";
        std::set<std::wstring> subFolders;
        for (const auto& [key, node] : disk_.live().names) {
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
        const ModelledDisk::Node* node = disk_.find(path);
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
        const ModelledDisk::Node* node = disk_.find(from);
        if (node == nullptr) {
            return files::Failure::Missing;
        }
        if (disk_.find(to) != nullptr) {
            return files::Failure::Exists;
        }
        change({ModelledDisk::Change::Kind::Rename, from, to, node->file, {}, 0, 0});
        return files::Failure::None;
    }

    files::Failure remove(const std::wstring& path) override {
        const files::Failure failure = begin({path});
        const ModelledDisk::Node* node = disk_.find(path);
        if (node != nullptr && (disk_.file(*node).attributes & files::kReadOnly) != 0) {
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
        const ModelledDisk::Node* node = disk_.find(path);
        if (failure != files::Failure::None || node == nullptr) {
            return {failure == files::Failure::None ? files::Failure::Missing : failure, {}};
        }
        return {files::Failure::None, disk_.file(*node).content};
    }

    files::Failure replace(const std::wstring& from, const std::wstring& to) override {
        if (const files::Failure failure = begin({from, to}); failure != files::Failure::None) {
            return failure;
        }
        const ModelledDisk::Node* node = disk_.find(from);
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
        const ModelledDisk::Node* node = disk_.find(path);
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
            disk_.flushAll();
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
        return hold(path, failure == files::Failure::None && disk_.find(path) == nullptr
                              ? files::Failure::Missing
                              : failure);
    }

    std::wstring folded(std::wstring_view name) const override { return foldedPath(name); }

  private:
    class HeldModel : public files::HeldFile {
      public:
        HeldModel(ModelledFileSystem& owner, std::wstring path) : owner_(owner), path_(std::move(path)) {
            owner_.inUse.insert(foldedPath(path_));
        }
        ~HeldModel() override { owner_.inUse.erase(foldedPath(path_)); }
        HeldModel(const HeldModel&) = delete;
        HeldModel& operator=(const HeldModel&) = delete;

        files::Answer<std::string> read() override {
            return {owner_.begin({}), owner_.disk_.file(*owner_.disk_.find(path_)).content};
        }
        files::Failure append(std::string_view bytes) override {
            const files::Failure failure = owner_.begin({});
            const ModelledDisk::Node node = *owner_.disk_.find(path_);
            const std::size_t half = failure == files::Failure::None ? bytes.size() : bytes.size() / 2;
            const std::string& before = owner_.disk_.file(node).content;
            owner_.change({ModelledDisk::Change::Kind::Content,
                           path_,
                           {},
                           node.file,
                           before + std::string(bytes.substr(0, half)),
                           0,
                           before.size()});
            owner_.step();
            owner_.disk_.flush(path_);
            return failure;
        }
        files::Failure remove() override {
            const files::Failure failure = owner_.begin({});
            return failure == files::Failure::None ? owner_.erase(path_) : failure;
        }

      private:
        ModelledFileSystem& owner_;
        std::wstring path_;
    };

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

    files::FolderEntry entry(const ModelledDisk::Node& node) const {
        const ModelledDisk::File& file = disk_.file(node);
        const auto number = static_cast<std::uint64_t>(keepsNumbers ? node.file + numbersFrom : 0);
        return {node.path.substr(node.path.rfind(L'\\') + 1),
                false,
                file.attributes,
                {file.content.size(), written, number}};
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

    Held hold(const std::wstring& path, files::Failure failure) {
        if (failure != files::Failure::None) {
            return {failure, nullptr};
        }
        return {failure, std::make_unique<HeldModel>(*this, path)};
    }

    ModelledDisk& disk_;
};

}  // namespace support
