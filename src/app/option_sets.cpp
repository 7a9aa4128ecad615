#include "app/option_sets.h"

#include <windows.h>

#include "app/folder_choice.h"
#include "app/option_set.h"
#include "platform/short_path.h"
#include "show/pause_time.h"

namespace app {

namespace {

constexpr wchar_t kSaveFailedTip[] = L"Panorell.ini kann nicht geschrieben werden";

}  // namespace

void OptionSets::load() {
    // The lists that change below count as another folder of the user's.
    const int index = parts_.state.StartIndex;
    const OptionSet set = readOptionSet([this](const OptionKey& key) {
        return parts_.settings.read(parts_.state.CurrentSet, key.name, key.fallback, key.longest);
    });
    parts_.options.IntT.setText(set.delay);
    if (const auto scroll = show::pauseScrollOf(set.delay)) {
        parts_.options.IntS.setValue(*scroll);
    }
    parts_.options.LoopC.setValue(set.loop);
    parts_.options.ShowFN.setValue(set.date);
    parts_.options.MUTE.setValue(set.sound);
    parts_.options.Musik.setValue(set.music);
    parts_.options.Check1.setValue(set.effects);
    if (parts_.state.rememberedFolder.empty()) {
        chooseFolder(parts_.lists.Drive1, parts_.lists.Dir1, set.drive, set.dir);
    } else {
        chooseFolder(parts_.lists.Drive1, parts_.lists.Dir1, parts_.state.rememberedDrive,
                     parts_.state.rememberedFolder);
    }
    if (onListsWanted) {
        onListsWanted();
    }
    if (index >= 0 && index < parts_.lists.File1.count()) {
        parts_.lists.File1.setSelectedIndex(index);
    }
    if (index > 0) {
        parts_.lists.File1.setTopIndex(index - 1);
        parts_.state.rememberedDrive.clear();
        parts_.state.rememberedFolder.clear();
    }
    parts_.Pic2.show();
}

void OptionSets::store() {
    OptionSet set;
    set.drive = parts_.lists.Drive1.drive();
    const std::wstring folder = parts_.lists.Dir1.path();
    set.dir = platform::storablePath(folder);
    set.delay = parts_.options.IntT.text();
    set.loop = parts_.options.LoopC.value();
    set.date = parts_.options.ShowFN.value();
    set.sound = parts_.options.MUTE.value();
    set.music = parts_.options.Musik.value();
    set.effects = parts_.options.Check1.value();
    const bool stored = writeOptionSet(set, [this](const OptionKey& key, const std::wstring& value) {
        return parts_.settings.write(parts_.state.CurrentSet, key.name, value);
    });
    parts_.SAVE.setToolTip(stored ? kSaveTip : kSaveFailedTip);
    if (!stored) {
        return;
    }
    if (const auto index = optionSetIndex(parts_.state.CurrentSet)) {
        parts_.options.Option1[static_cast<std::size_t>(*index)]->setToolTip(folderDisplayName(folder));
    }
    MessageBeep(MB_OK);
}

void OptionSets::choose(int index) {
    parts_.state.rememberedDrive.clear();
    parts_.state.rememberedFolder.clear();
    parts_.Pic2.hide();
    parts_.loop.doEvents();
    parts_.Pic3.setFocus();
    parts_.state.CurrentSet = optionSetName(index);
    parts_.state.StartIndex = 0;
    load();
}

void OptionSets::showFolderNames() {
    for (int i = 0; i < kOptionSetCount; ++i) {
        const std::wstring folder =
            parts_.settings.read(optionSetName(i), kDirKey.name, kDirKey.fallback, kDirKey.longest);
        parts_.options.Option1[static_cast<std::size_t>(i)]->setToolTip(
            folderDisplayName(platform::longPath(folder)));
    }
}

}  // namespace app
