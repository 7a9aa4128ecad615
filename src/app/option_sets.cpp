#include "app/option_sets.h"

#include <windows.h>

#include "app/folder_choice.h"
#include "app/option_set.h"
#include "app/pause_time.h"

namespace app {

void OptionSets::load() {
    // The lists that change below count as another folder of the user's.
    const int index = parts_.state.StartIndex;
    const OptionSet set = readOptionSet([this](const OptionKey& key) {
        return parts_.settings.read(parts_.state.CurrentSet, key.name, key.fallback, key.longest);
    });
    parts_.IntT.setText(set.delay);
    if (const auto scroll = pauseScrollOf(set.delay)) {
        parts_.IntS.setValue(*scroll);
    }
    parts_.LoopC.setValue(set.loop);
    parts_.ShowFN.setValue(set.date);
    parts_.MUTE.setValue(set.sound);
    parts_.Musik.setValue(set.music);
    parts_.Check1.setValue(set.effects);
    if (parts_.state.rememberedFolder.empty()) {
        chooseFolder(parts_.Drive1, parts_.Dir1, set.drive, set.dir);
    } else {
        chooseFolder(parts_.Drive1, parts_.Dir1, parts_.state.rememberedDrive, parts_.state.rememberedFolder);
    }
    if (index >= 0 && index < parts_.File1.count()) {
        parts_.File1.setSelectedIndex(index);
    }
    if (index > 0) {
        parts_.File1.setTopIndex(index - 1);
        parts_.state.rememberedDrive.clear();
        parts_.state.rememberedFolder.clear();
    }
    parts_.Pic2.show();
}

void OptionSets::store() {
    OptionSet set;
    set.drive = parts_.Drive1.drive();
    set.dir = parts_.Dir1.path();
    set.delay = parts_.IntT.text();
    set.loop = parts_.LoopC.value();
    set.date = parts_.ShowFN.value();
    set.sound = parts_.MUTE.value();
    set.music = parts_.Musik.value();
    set.effects = parts_.Check1.value();
    writeOptionSet(set, [this](const OptionKey& key, const std::wstring& value) {
        parts_.settings.write(parts_.state.CurrentSet, key.name, value);
    });
    if (const auto index = optionSetIndex(parts_.state.CurrentSet)) {
        parts_.Option1[static_cast<std::size_t>(*index)]->setToolTip(folderDisplayName(set.dir));
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
        parts_.Option1[static_cast<std::size_t>(i)]->setToolTip(folderDisplayName(folder));
    }
}

}  // namespace app
