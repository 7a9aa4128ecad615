#include "edit/entry_editor.h"

#include <utility>

#include "edit/editor_place.h"
#include "edit/item_file.h"
#include "platform/directory.h"
#include "platform/monitors.h"

namespace edit {

namespace {

constexpr ui::Twips kGap = 90;  // between thumbnail and editor

ScreenArea areaOf(const RECT& place) {
    return {{static_cast<int>(place.left), static_cast<int>(place.right)},
            {static_cast<int>(place.top), static_cast<int>(place.bottom)}};
}

}  // namespace

EntryEditor::EntryEditor(Parts parts) : parts_(std::move(parts)) {
    Form3& form = parts_.form;
    form.OK.onClick = [this] { accept(); };
    form.CANCEL.onClick = form.onCloseAsked = [this] { close(); };
    form.onKey = [this](int key, bool repeated) { return pressed(key, repeated); };
    form.onTyped = [this](wchar_t character) { return typed(character); };
    form.onDpi = [this] {
        if (const auto index = itemOf(fileName_)) {
            placeBeside(*index);
        }
    };
}

EntryEditor::~EntryEditor() {
    Form3& form = parts_.form;
    form.OK.onClick = form.CANCEL.onClick = form.onCloseAsked = form.onDpi = nullptr;
    form.onKey = nullptr;
    form.onTyped = nullptr;
}

void EntryEditor::open(int index) {
    if (index < 0 || index >= parts_.records.thumbCount() || !isThere(index)) {
        close();
        return;
    }
    parts_.form.Check1.setValue(BST_UNCHECKED);
    const std::vector<std::wstring> musicFiles = parts_.musicFiles();
    fillMusic(musicFiles);
    fileName_ = parts_.records.thumbRecords[static_cast<std::size_t>(index)].fileName;
    parts_.allowTips(false);
    show(index);
    parts_.form.show();
    fill(index, musicFiles);
}

void EntryEditor::close() {
    fileName_.clear();
    parts_.form.hide();
    parts_.allowTips(true);
}

void EntryEditor::recordsChanged() {
    if (!isOpen()) {
        return;
    }
    if (const auto index = itemOf(fileName_)) {
        show(*index);
    } else {
        close();
    }
}

// An item is known by its file, wherever it lies meanwhile.
std::optional<int> EntryEditor::itemOf(const std::wstring& fileName) const {
    const auto index = itemNamed(parts_.records, fileName);
    return index && isThere(*index) ? index : std::nullopt;
}

bool EntryEditor::isThere(int index) const {
    const auto& record = parts_.records.thumbRecords[static_cast<std::size_t>(index)];
    return !record.deleted && platform::fileExists(pathOf(parts_.records, index));
}

// Without music files the list keeps its items.
void EntryEditor::fillMusic(const std::vector<std::wstring>& musicFiles) {
    if (musicFiles.empty()) {
        return;
    }
    ui::ComboBox& list = parts_.form.Combo3;
    list.clear();
    for (const std::wstring& item : musicItems(musicFiles)) {
        list.add(item);
    }
}

void EntryEditor::show(int index) {
    placeBeside(index);
    parts_.form.setTitle(editorCaption(index));
}

void EntryEditor::placeBeside(int index) {
    Form3& form = parts_.form;
    const RECT thumbnail = parts_.place(index);
    const POINT middle{(thumbnail.left + thumbnail.right) / 2, (thumbnail.top + thumbnail.bottom) / 2};
    RECT own{};
    GetWindowRect(form.hwnd(), &own);
    const EditorPlace place = placeEditor(
        areaOf(thumbnail), static_cast<int>(own.right - own.left), static_cast<int>(own.bottom - own.top),
        ui::toPixels(kGap, form.dpi()), areaOf(platform::Monitors::current().workAreaAt(middle)));
    // On a monitor of another scaling the form gets another size; its onDpi places it anew then.
    SetWindowPos(form.hwnd(), nullptr, place.left, place.top, 0, 0,
                 SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE);
    form.pointAt(place.rightOfThumbnail, place.pointedAt);
}

void EntryEditor::fill(int index, const std::vector<std::wstring>& musicFiles) {
    Form3& form = parts_.form;
    const EntryFields fields =
        readEntryLine(parts_.records.thumbRecords[static_cast<std::size_t>(index)].entry, musicFiles);
    form.UTT.setText(fields.title);
    form.UTT.caretToEnd();
    form.UTT.setFocus();
    form.Combo1.setSelectedIndex(fields.pause);
    form.Combo2.setSelectedIndex(fields.effect);
    form.Check1.setValue(fields.date ? BST_CHECKED : BST_UNCHECKED);
    // None where nothing matches: the choice made for another item must not become this one's.
    form.Combo3.setSelectedIndex(fields.music);
    opened_ = form.texts();
}

void EntryEditor::accept() {
    if (!isOpen()) {
        return;
    }
    const auto index = itemOf(fileName_);
    if (!index) {
        const std::wstring sentence =
            L"Die Datei \"" + fileName_ + L"\" ist nicht mehr da oder wird gelöscht.";
        close();
        if (onRefused) {
            onRefused(sentence);
        }
        return;
    }
    const overview::ThumbRecord& record = parts_.records.thumbRecords[static_cast<std::size_t>(*index)];
    store(*index, editedEntryLine(record.entry, opened_, parts_.form.texts()));
}

void EntryEditor::store(int index, const std::wstring& line) {
    overview::ThumbRecord& record = parts_.records.thumbRecords[static_cast<std::size_t>(index)];
    const std::wstring fileName = record.fileName;
    record.toolTip = line;
    parts_.tipChanged(index);
    record.entry = line;
    parts_.records.changed = true;
    close();
    parts_.loop.doEvents();
    // Those events may have moved the item, or opened the editor for another one.
    if (const auto now = itemOf(fileName)) {
        parts_.redraw(*now);
    }
    parts_.shownAgain();
}

bool EntryEditor::pressed(int key, bool repeated) {
    Form3& form = parts_.form;
    if (key == VK_ESCAPE) {
        close();
        return true;
    }
    // In an open list Enter chooses, and on "Abbruch" it presses that. Held down since the menu it does
    // nothing.
    const bool own = form.CANCEL.hasFocus() || form.Combo1.droppedDown() || form.Combo2.droppedDown() ||
                     form.Combo3.droppedDown();
    if (key != VK_RETURN || own) {
        return false;
    }
    if (!repeated) {
        accept();
    }
    return true;
}

// The items of the effects begin with a blank, so that the list itself would not find them by their letters.
bool EntryEditor::typed(wchar_t character) {
    ui::ComboBox& effects = parts_.form.Combo2;
    const auto capital = static_cast<wchar_t>(
        reinterpret_cast<ULONG_PTR>(CharUpperW(reinterpret_cast<LPWSTR>(static_cast<ULONG_PTR>(character)))));
    const int index = effectIndex(capital);
    if (!effects.hasFocus() || effects.droppedDown() || index == 0) {
        return false;
    }
    effects.setSelectedIndex(index);
    return true;
}

}  // namespace edit
