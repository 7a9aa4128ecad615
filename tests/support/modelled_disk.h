#pragma once

#include <cstdint>
#include <map>
#include <string>
#include <utility>
#include <vector>

namespace support {

/// Upper and lower case of ASCII and Latin-1 letters taken for the same, as a file system does.
inline std::wstring foldedPath(std::wstring_view path) {
    std::wstring folded(path);
    for (wchar_t& c : folded) {
        const bool latin = c >= L'\u00C0' && c <= L'\u00DE' && c != L'\u00D7';
        if ((c >= L'A' && c <= L'Z') || latin) {
            c = static_cast<wchar_t>(c + 32);
        }
    }
    return folded;
}

/// What the medium holds of unflushed changes after the power was cut.
enum class CutModel {
    Ordered,   ///< names change in the order they were changed in, contents come when they like: NTFS
    AnySubset  ///< any of the changes may be missing, of names as well
};

/// A disk: what is on the medium, and the changes that are still on their way there.
class ModelledDisk {
  public:
    struct Node {
        std::wstring path;
        int file = 0;
    };
    struct File {
        std::string content;
        std::uint32_t attributes = 0;
    };
    struct State {
        std::map<std::wstring, Node> names;  ///< by folded path
        std::map<int, File> files;
    };
    struct Change {
        enum class Kind { Create, Remove, Rename, Replace, Content, Attributes };
        Kind kind{};
        std::wstring path;
        std::wstring to;
        int file = 0;
        std::string content;
        std::uint32_t attributes = 0;
        std::size_t untouched = 0;  ///< how many bytes at the content's beginning were there before
    };

    explicit ModelledDisk(CutModel model = CutModel::Ordered) : model_(model) {}

    /// Puts a file onto the medium.
    void put(const std::wstring& path, const std::string& content, std::uint32_t attributes = 0) {
        const int file = newFile();
        for (State* state : {&medium_, &live_}) {
            state->names[foldedPath(path)] = {path, file};
            state->files[file] = {content, attributes};
        }
    }

    const State& live() const { return live_; }
    int newFile() { return ++lastFile_; }
    std::size_t pendingCount() const { return pending_.size(); }
    CutModel model() const { return model_; }

    /// Null when there is no such file.
    const Node* find(const std::wstring& path) const {
        const auto found = live_.names.find(foldedPath(path));
        return found == live_.names.end() ? nullptr : &found->second;
    }
    const File& file(const Node& node) const { return live_.files.at(node.file); }

    void change(const Change& change) {
        apply(live_, change);
        pending_.push_back(change);
    }

    /// Brings everything that is on its way to the medium.
    void flushAll() {
        medium_ = live_;
        pending_.clear();
    }

    /// Brings one file to the medium, and what its name depends on; with ordered names all names.
    void flush(const std::wstring& path) {
        std::vector<bool> forced(pending_.size());
        std::vector<std::wstring> wanted{foldedPath(path)};
        for (std::size_t i = pending_.size(); i-- > 0;) {
            const Change& change = pending_[i];
            const bool ordered = model_ == CutModel::Ordered && change.kind != Change::Kind::Content;
            if (touches(change, wanted)) {
                wanted.push_back(foldedPath(change.path));
                wanted.push_back(foldedPath(change.to));
                forced[i] = true;
            }
            forced[i] = forced[i] || ordered;
        }
        std::vector<Change> left;
        for (std::size_t i = 0; i < pending_.size(); ++i) {
            if (forced[i]) {
                apply(medium_, pending_[i]);
            } else {
                left.push_back(pending_[i]);
            }
        }
        pending_ = left;
    }

    /// The disk after the power was cut: bit i of `kept` tells whether the i-th unflushed change arrived
    /// (ordered names: as many as there are such bits). Contents may arrive in part.
    ModelledDisk afterCut(std::uint64_t kept) const {
        ModelledDisk after = *this;
        after.pending_.clear();
        std::size_t names = 0;
        for (std::size_t i = 0; i < pending_.size(); ++i) {
            names += bit(kept, i) ? 1U : 0U;
        }
        for (std::size_t i = 0; i < pending_.size(); ++i) {
            Change change = pending_[i];
            const bool isContent = change.kind == Change::Kind::Content;
            bool arrives = bit(kept, i);
            if (model_ == CutModel::Ordered && !isContent) {
                arrives = i < names;
            }
            if (isContent && !arrives && bit(kept, i + 17)) {
                change.content.resize((change.untouched + change.content.size()) / 2);
                arrives = true;
            } else if (isContent && !arrives && bit(kept, i + 23)) {
                const std::size_t size = change.content.size();
                change.content.resize(change.untouched);
                change.content.resize(size, '\0');
                arrives = true;
            }
            if (arrives) {
                apply(after.medium_, change);
            }
        }
        after.live_ = after.medium_;
        return after;
    }

  private:
    static bool bit(std::uint64_t bits, std::size_t i) { return ((bits >> (i % 64)) & 1U) != 0; }

    static bool touches(const Change& change, const std::vector<std::wstring>& paths) {
        for (const std::wstring& path : paths) {
            if (!path.empty() && (foldedPath(change.path) == path || foldedPath(change.to) == path)) {
                return true;
            }
        }
        return false;
    }

    // What depends on a change that did not arrive does not arrive either.
    static void apply(State& state, const Change& change) {
        const std::wstring key = foldedPath(change.path);
        const std::wstring target = foldedPath(change.to);
        const auto found = state.names.find(key);
        const bool there = found != state.names.end();
        switch (change.kind) {
            case Change::Kind::Create:
                if (!there) {
                    state.names[key] = {change.path, change.file};
                    state.files[change.file] = {};
                }
                break;
            case Change::Kind::Remove:
                if (there && found->second.file == change.file) {
                    state.names.erase(found);
                }
                break;
            case Change::Kind::Rename:
            case Change::Kind::Replace: {
                const bool free = !state.names.contains(target) || change.kind == Change::Kind::Replace;
                if (there && found->second.file == change.file && free) {
                    state.names.erase(found);
                    state.names[target] = {change.to, change.file};
                }
                break;
            }
            case Change::Kind::Content:
                if (state.files.contains(change.file)) {
                    state.files[change.file].content = change.content;
                }
                break;
            case Change::Kind::Attributes:
                if (state.files.contains(change.file)) {
                    state.files[change.file].attributes = change.attributes;
                }
                break;
        }
    }

    CutModel model_;
    State medium_;
    State live_;
    std::vector<Change> pending_;
    int lastFile_ = 0;
};

}  // namespace support
