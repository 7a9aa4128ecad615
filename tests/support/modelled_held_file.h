#pragma once

#include <string>
#include <string_view>
#include <utility>

#include "files/file_system.h"
#include "support/modelled_operations.h"

namespace support {

/// A file of a modelled disk that is closed to everybody else.
class ModelledHeldFile : public files::HeldFile {
  public:
    ModelledHeldFile(ModelledOperations& owner, std::wstring path) : owner_(owner), path_(std::move(path)) {
        owner_.inUse.insert(foldedPath(path_));
    }
    ~ModelledHeldFile() override { letGo(); }
    ModelledHeldFile(const ModelledHeldFile&) = delete;
    ModelledHeldFile& operator=(const ModelledHeldFile&) = delete;

    files::Answer<std::string> read() override {
        return {owner_.begin({}), owner_.disk().file(*owner_.disk().find(path_)).content};
    }
    files::Failure append(std::string_view bytes) override {
        const files::Failure failure = owner_.begin({});
        const ModelledDisk::Node node = *owner_.disk().find(path_);
        const std::size_t half = failure == files::Failure::None ? bytes.size() : bytes.size() / 2;
        const std::string& before = owner_.disk().file(node).content;
        owner_.change({ModelledDisk::Change::Kind::Content,
                       path_,
                       {},
                       node.file,
                       before + std::string(bytes.substr(0, half)),
                       0,
                       before.size()});
        owner_.step();
        owner_.disk().flush(path_);
        return failure;
    }
    files::Failure remove() override {
        files::Failure failure = owner_.begin({});
        if (failure == files::Failure::None && (failure = owner_.erase(path_)) == files::Failure::None) {
            letGo();
        }
        return failure;
    }

  private:
    // What is removed is held no more: its name is free.
    void letGo() {
        if (std::exchange(held_, false)) {
            owner_.inUse.erase(foldedPath(path_));
        }
    }

    ModelledOperations& owner_;
    std::wstring path_;
    bool held_ = true;
};

}  // namespace support
