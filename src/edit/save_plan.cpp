#include "edit/save_plan.h"

#include <algorithm>
#include <unordered_set>

#include "files/file_name.h"
#include "overview/entry_lines.h"
#include "overview/store_rule.h"
#include "script/picture_key.h"
#include "script/script_writer.h"
#include "script/show_script.h"

namespace edit {

namespace {

using Names = std::unordered_set<std::wstring>;

constexpr int kFewest4Digits = 1000;
constexpr std::size_t kDigits = 3;

std::wstring extensionOf(std::wstring_view fileName) {
    const std::wstring_view extension = fileName.substr(std::min(fileName.size(), fileName.rfind(L'.') + 1));
    if (extension == L"JPG") {
        return L"jpg";
    }
    return extension == L"MPG" ? L"mpg" : std::wstring(extension);
}

/// Names as the file system compares them.
Names folded(const std::vector<std::wstring>& names) {
    Names result;
    for (const std::wstring& name : names) {
        result.insert(overview::foldedName(name));
    }
    return result;
}

std::vector<std::wstring> recordNames(const overview::ThumbRecords& records) {
    std::vector<std::wstring> names;
    for (const overview::ThumbRecord& record : records.thumbRecords) {
        names.push_back(record.fileName);
    }
    return names;
}

/// The files that are not among the records.
std::vector<std::wstring> outsiders(const overview::ThumbRecords& records, const SaveFolder& folder) {
    const Names inside = folded(recordNames(records));
    std::vector<std::wstring> result;
    for (const std::wstring& name : folder.names) {
        if (!inside.contains(overview::foldedName(name))) {
            result.push_back(name);
        }
    }
    return result;
}

PrefixFault faultOf(files::NameFault fault) {
    switch (fault) {
        case files::NameFault::None:
            return PrefixFault::None;
        case files::NameFault::Reserved:
            return PrefixFault::Reserved;
        case files::NameFault::TooLong:
            return PrefixFault::TooLong;
        default:
            return PrefixFault::Character;
    }
}

PrefixRefusal judgePrefix(std::wstring_view prefix) {
    if (prefix.find(L'.') != std::wstring_view::npos) {
        return {PrefixFault::Dot, {}};
    }
    if (prefix.starts_with(L' ')) {
        return {PrefixFault::LeadingBlank, {}};
    }
    return {};
}

PrefixRefusal judgeNames(const std::wstring& folder, const std::vector<std::wstring>& names) {
    for (const std::wstring& name : names) {
        const PrefixFault fault = faultOf(files::nameFault(name));
        if (fault != PrefixFault::None) {
            return {fault, name};
        }
        if (folder.size() + 1 + name.size() > files::kLongestPath) {
            return {PrefixFault::TooLong, name};
        }
    }
    return {};
}

/// The lines of the script that belong to files outside the records.
std::vector<std::wstring> keptLines(const SaveFolder& folder, const std::vector<std::wstring>& outside) {
    std::vector<std::wstring> keys;
    // A file that came meanwhile may have a line that was nobody's.
    for (const auto* names : {&folder.formerNames, &folder.names}) {
        for (const std::wstring& name : *names) {
            keys.push_back(script::PictureKey(name));
        }
    }
    const overview::LineOwners owners(keys);
    Names outsideKeys;
    for (const std::wstring& name : outside) {
        outsideKeys.insert(script::PictureKey(name));
    }
    std::vector<std::wstring> kept;
    for (const std::wstring_view line : script::splitLines(folder.scriptText)) {
        if (outsideKeys.contains(owners.ownerOf(line))) {
            kept.emplace_back(line);
        }
    }
    return kept;
}

PrefixRefusal judgeOutsiders(const std::vector<std::wstring>& names, const std::vector<std::wstring>& outside,
                             const std::vector<std::wstring>& kept) {
    Names keys;
    for (const std::wstring& name : names) {
        keys.insert(overview::foldedName(script::PictureKey(name)));
    }
    for (const std::wstring& name : outside) {
        if (keys.contains(overview::foldedName(script::PictureKey(name)))) {
            return {PrefixFault::KeyTaken, name};
        }
    }
    for (const std::wstring& name : names) {
        const std::wstring key = script::PictureKey(name);
        const auto taken = std::find_if(kept.begin(), kept.end(),
                                        [&](const std::wstring& line) { return line.starts_with(key); });
        if (taken != kept.end()) {
            return {PrefixFault::LineTaken, *taken};
        }
    }
    return {};
}

std::wstring inCache(const std::wstring& name) {
    return std::wstring(files::kCacheFolder).append(L"\\").append(name);
}

// A bitmap at a new name that comes from none of the records would show another picture.
void dropOrphans(const SaveFolder& folder, const Names& moved, SavePlan& plan) {
    const Names there = folded(folder.thumbnails);
    for (const std::wstring& name : plan.newNames) {
        const std::wstring thumbnail = overview::thumbnailName(name);
        const std::wstring own = overview::foldedName(thumbnail);
        if (there.contains(own) && !moved.contains(own)) {
            plan.change.drops.push_back(inCache(thumbnail));
        }
    }
}

void moveThumbnails(const overview::ThumbRecords& records, const SaveFolder& folder, SavePlan& plan) {
    const Names there = folded(folder.thumbnails);
    const Names shared = overview::sharedThumbnails(folder.names);
    Names moved;
    for (std::size_t i = 0; i < plan.newNames.size(); ++i) {
        const std::wstring from = overview::thumbnailName(records.thumbRecords[i].fileName);
        const std::wstring to = overview::thumbnailName(plan.newNames[i]);
        const std::wstring own = overview::foldedName(from);
        if (!there.contains(own)) {
            continue;
        }
        const bool first = moved.insert(own).second;
        if (!shared.contains(own)) {
            // Write protection, as a CD leaves it, would keep the overview from renewing the bitmap.
            plan.change.moves.push_back({inCache(from), inCache(to), {}, 0U});
        } else if (first) {
            plan.change.drops.push_back(inCache(from));
        }
    }
    dropOrphans(folder, moved, plan);
}

std::vector<script::ScriptLine> linesOf(const overview::ThumbRecords& records,
                                        const std::vector<std::wstring>& newNames) {
    std::vector<script::ScriptLine> lines;
    for (std::size_t i = 0; i < newNames.size(); ++i) {
        lines.push_back({script::PictureKey(newNames[i]), records.thumbRecords[i].entry});
    }
    return lines;
}

}  // namespace

std::wstring defaultPrefix(std::wstring_view firstFileName) {
    const std::wstring key = script::PictureKey(std::wstring(firstFileName));
    return key.substr(0, key.find(L'0'));
}

std::wstring orderNumber(int position, int count) {
    const std::size_t digits = count >= kFewest4Digits ? kDigits + 1 : kDigits;
    std::wstring number = std::to_wstring(position + 1);
    if (number.size() < digits) {
        number.insert(0, digits - number.size(), L'0');
    }
    return number;
}

std::wstring orderedName(std::wstring_view prefix, int position, int count, std::wstring_view fileName) {
    return std::wstring(prefix) + orderNumber(position, count) + L"." + extensionOf(fileName);
}

SavePlan planSave(const overview::ThumbRecords& records, std::wstring_view prefix, const SaveFolder& folder,
                  const std::vector<std::wstring>& deleted, const ScriptEncoder& encode) {
    SavePlan plan;
    const int count = records.thumbCount();
    for (int i = 0; i < count; ++i) {
        const std::wstring& name = records.thumbRecords[static_cast<std::size_t>(i)].fileName;
        plan.newNames.push_back(orderedName(prefix, i, count, name));
    }
    const std::vector<std::wstring> outside = outsiders(records, folder);
    const std::vector<std::wstring> kept = keptLines(folder, outside);
    plan.refusal = judgePrefix(prefix);
    if (plan.refusal.fault == PrefixFault::None) {
        plan.refusal = judgeNames(records.folder, plan.newNames);
    }
    if (plan.refusal.fault == PrefixFault::None) {
        plan.refusal = judgeOutsiders(plan.newNames, outside, kept);
    }
    if (plan.refusal.fault != PrefixFault::None) {
        return plan;
    }
    plan.change.folder = records.folder;
    for (std::size_t i = 0; i < plan.newNames.size(); ++i) {
        const overview::ThumbRecord& record = records.thumbRecords[i];
        plan.change.moves.push_back({record.fileName, plan.newNames[i], record.stamp, {}});
    }
    moveThumbnails(records, folder, plan);
    plan.change.deleted = deleted;
    plan.change.keep = true;
    plan.scriptText = script::scriptText(linesOf(records, plan.newNames), kept);
    plan.change.script = files::ScriptChange{script::kScriptFile, folder.scriptBytes, {}};
    if (!plan.scriptText.empty()) {
        plan.change.script->after = encode(plan.scriptText);
    }
    plan.names = plan.newNames;
    plan.names.insert(plan.names.end(), outside.begin(), outside.end());
    return plan;
}

std::wstring sentenceOf(const PrefixRefusal& refusal) {
    switch (refusal.fault) {
        case PrefixFault::None:
            break;
        case PrefixFault::Character:
            return L"Die Zeichen \\ / : * ? \" < > | sind in Dateinamen nicht erlaubt.";
        case PrefixFault::Dot:
            return L"Im Prefix darf kein Punkt stehen.";
        case PrefixFault::LeadingBlank:
            return L"Das Prefix darf nicht mit einem Leerzeichen beginnen.";
        case PrefixFault::Reserved:
            return L"\"" + refusal.name + L"\" ist für ein Gerät reserviert.";
        case PrefixFault::TooLong:
            return L"Die Namen würden mit diesem Prefix zu lang.";
        case PrefixFault::KeyTaken:
            return L"Der Name ist schon durch \"" + refusal.name + L"\" vergeben.";
        case PrefixFault::LineTaken:
            return L"Das Prefix würde mit der Zeile \"" + refusal.name + L"\" verwechselt.";
    }
    return {};
}

}  // namespace edit
