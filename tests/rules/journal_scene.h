#pragma once

#include <gtest/gtest.h>

#include <algorithm>
#include <map>
#include <optional>
#include <string>
#include <vector>

#include "files/change_folder.h"
#include "files/journal.h"
#include "files/recovery.h"
#include "support/modelled_disk.h"
#include "support/modelled_file_system.h"

namespace files {

inline const std::wstring kSceneFolder = L"C:\\Bilder";

/// A folder, what is to become of it, and what must hold whatever happens.
struct Scene {
    struct Item {
        std::wstring before;
        std::wstring after;
        std::string content;
        std::uint32_t attributes = 0;
        std::string thumbnail{};  ///< empty: none is stored
        std::uint32_t attributesAfter = 0;
    };
    std::string name;
    std::vector<Item> items;
    std::map<std::wstring, std::string> others;  ///< files that nothing may touch
    std::optional<ScriptChange> script;
    bool keep = false;
};

inline std::wstring at(const std::wstring& name) {
    return kSceneFolder + L"\\" + name;
}

inline std::wstring thumbnailOf(const std::wstring& name) {
    return L"Mini\\" + name.substr(0, name.rfind(L'.')) + L".bmp";
}

inline std::wstring threeDigits(int value) {
    const std::wstring digits = std::to_wstring(1000 + value);
    return digits.substr(1);
}

/// Virtual time: it passes only while something waits.
struct VirtualTime {
    double ms = 0;
    Waiting waiting{[this] { return ms; }, [this](int pause) { ms += pause; }};
};

inline void put(const Scene& scene, support::ModelledDisk& disk) {
    for (const Scene::Item& item : scene.items) {
        disk.put(at(item.before), item.content, item.attributes);
        if (!item.thumbnail.empty()) {
            disk.put(at(thumbnailOf(item.before)), item.thumbnail);
        }
    }
    for (const auto& [name, content] : scene.others) {
        disk.put(at(name), content);
    }
    if (scene.script && scene.script->before) {
        disk.put(at(scene.script->name), *scene.script->before);
    }
}

inline ChangePlan planOf(const Scene& scene, const support::ModelledFileSystem& fileSystem) {
    ChangePlan plan;
    plan.folder = kSceneFolder;
    plan.script = scene.script;
    plan.keep = scene.keep;
    for (const Scene::Item& item : scene.items) {
        const std::optional<std::uint32_t> attributes =
            item.attributesAfter != 0 ? std::optional(item.attributesAfter) : std::nullopt;
        plan.moves.push_back(
            {item.before, item.after, fileSystem.stat(at(item.before)).value.stamp, attributes});
    }
    for (const Scene::Item& item : scene.items) {
        if (!item.thumbnail.empty()) {
            plan.moves.push_back({thumbnailOf(item.before), thumbnailOf(item.after), {}, {}});
        }
    }
    return plan;
}

enum class Side { Old, New };

inline std::optional<std::string> contentOf(const support::ModelledDisk& disk, const std::wstring& name) {
    const support::ModelledDisk::Node* node = disk.find(at(name));
    return node == nullptr ? std::nullopt : std::optional(disk.file(*node).content);
}

inline testing::AssertionResult holdsItem(const support::ModelledDisk& disk, const Scene::Item& item,
                                          Side side) {
    const std::wstring& name = side == Side::Old ? item.before : item.after;
    const support::ModelledDisk::Node* node = disk.find(at(name));
    if (node == nullptr || node->path != at(name) || disk.file(*node).content != item.content) {
        return testing::AssertionFailure() << testing::PrintToString(name) << " is not " << item.content;
    }
    const bool changes = side == Side::New && item.attributesAfter != 0;
    if (disk.file(*node).attributes != (changes ? item.attributesAfter : item.attributes)) {
        return testing::AssertionFailure() << testing::PrintToString(name) << " has lost its attributes";
    }
    const std::optional<std::string> thumbnail = contentOf(disk, thumbnailOf(name));
    if (thumbnail && *thumbnail != item.thumbnail) {
        return testing::AssertionFailure() << testing::PrintToString(name) << " shows another's thumbnail";
    }
    return testing::AssertionSuccess();
}

/// Whether the folder is as it was (Old) or as planned (New): every file once under its name with its
/// attributes, no thumbnail at a wrong name, the script's text, strangers untouched, nothing left over but a
/// journal where one is allowed.
inline testing::AssertionResult isWhole(const support::ModelledDisk& disk, const Scene& scene, Side side,
                                        bool journalAllowed = false) {
    std::size_t expected = scene.items.size();
    for (const Scene::Item& item : scene.items) {
        if (testing::AssertionResult holds = holdsItem(disk, item, side); !holds) {
            return holds;
        }
    }
    for (const auto& [name, content] : scene.others) {
        if (contentOf(disk, name) != content) {
            return testing::AssertionFailure() << testing::PrintToString(name) << " was touched";
        }
        ++expected;
    }
    if (scene.script) {
        const auto& text = side == Side::Old ? scene.script->before : scene.script->after;
        if (contentOf(disk, scene.script->name) != text) {
            return testing::AssertionFailure() << "the script has another text";
        }
        expected += text ? 1U : 0U;
    }
    std::size_t there = 0;
    for (const auto& [key, node] : disk.live().names) {
        const bool journal = journalAllowed && node.path == at(kJournalFile);
        there += isCacheName(node.path.substr(kSceneFolder.size() + 1)) || journal ? 0U : 1U;
    }
    const std::size_t cached =
        static_cast<std::size_t>(std::count_if(scene.others.begin(), scene.others.end(),
                                               [](const auto& other) { return isCacheName(other.first); }));
    if (there != expected - cached) {
        return testing::AssertionFailure() << there << " files instead of " << expected - cached;
    }
    return testing::AssertionSuccess();
}

inline testing::AssertionResult isWholeOnEitherSide(const support::ModelledDisk& disk, const Scene& scene,
                                                    bool journalAllowed) {
    const testing::AssertionResult before = isWhole(disk, scene, Side::Old, journalAllowed);
    const testing::AssertionResult after = isWhole(disk, scene, Side::New, journalAllowed);
    if (before || after) {
        return testing::AssertionSuccess();
    }
    return testing::AssertionFailure()
           << "neither old (" << before.message() << ") nor new (" << after.message() << ")";
}

/// Each name becomes the next one's, the last one the first's: every target is taken until it moves on.
inline Scene ringScene(int count) {
    Scene scene;
    scene.name = "ring of " + std::to_string(count);
    for (int i = 0; i < count; ++i) {
        const std::wstring after = L"P" + threeDigits((i + 1) % count + 1) + L".jpg";
        scene.items.push_back({L"P" + threeDigits(i + 1) + L".jpg", after, "picture " + std::to_string(i)});
    }
    return scene;
}

/// A save: new prefix, videos, hidden files, thumbnails, a script; the temporary stem is taken.
inline Scene saveScene(int count) {
    Scene scene;
    scene.name = "save of " + std::to_string(count);
    for (int i = 0; i < count; ++i) {
        const std::wstring extension = i % 3 == 2 ? L".mpg" : L".jpg";
        Scene::Item item{L"Bild" + std::to_wstring(i) + extension,
                         L"Reise" + threeDigits(count - i) + extension, "content " + std::to_string(i),
                         i % 2 == 1 ? kHidden : 0U, i % 2 == 0 ? "thumbnail " + std::to_string(i) : ""};
        scene.items.push_back(item);
    }
    scene.others = {{L"TMP001.jpg", "a stranger"}, {L"Brief.doc", "dear"}};
    scene.script = ScriptChange{L"Panorell.txt", "Bild0 Titel\r\n", "Reise001 Titel\xE4 100%\r\n"};
    scene.keep = true;
    return scene;
}

/// Names that change only in case, one that stays, one whose attributes change; no script before.
inline Scene caseScene() {
    Scene scene;
    scene.name = "case only";
    scene.items = {{L"meer.JPG", L"Meer.jpg", "sea"},
                   {L"\u00FCber.jpg", L"\u00DCber.jpg", "over"},
                   {L"stays.jpg", L"stays.jpg", "rest", 0, "small rest", kHidden},
                   {L"c.jpg", L"d.jpg", "four", kHidden, "", kReadOnly}};
    scene.script = ScriptChange{L"Panorell.txt", std::nullopt, "d four\r\n"};
    return scene;
}

/// Copies: all files have the same size and time, so that without numbers only their names part them.
inline Scene copiesScene() {
    Scene scene = ringScene(3);
    scene.name = "copies";
    scene.script = ScriptChange{L"Panorell.txt", "P001 a\r\n", std::nullopt};
    scene.items[0].content = "same size 0";
    scene.items[1].content = "same size 1";
    scene.items[2].content = "same size 2";
    return scene;
}

}  // namespace files
