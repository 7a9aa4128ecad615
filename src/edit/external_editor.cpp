#include "edit/external_editor.h"

#include <windows.h>

#include <cstddef>
#include <utility>

#include "edit/editor_command.h"
#include "platform/directory.h"
#include "platform/file_facts.h"
#include "platform/process.h"
#include "platform/short_path.h"
#include "platform/system_message.h"

namespace edit {

namespace {

constexpr wchar_t kTitle[] = L"  Bearbeiten";
constexpr wchar_t kPrompt[] =
    L"Programm zum Bearbeiten der Bilder (vollständiger Pfad)\r\n"
    L"\r\n"
    L"Mit rechter Maustaste Eigenschaften des gewünschten\r\n"
    L"Programms anzeigen und Ziel mit kopieren (Strg-c)\r\n"
    L"und einfügen (Strg-v) übernehmen";

// Where a drive has no short names, or the path is too long for one, the long one does as well.
std::wstring shortOrLong(const std::wstring& path) {
    const std::wstring form = platform::wideShortPath(path);
    return form.empty() ? path : form;
}

// An editor that writes a new file in the place of the former one writes it under the name that it was given;
// not every file system remembers the long name that belonged to it.
void giveNameBack(const std::wstring& path, const std::wstring& given) {
    if (!platform::fileExists(path) && platform::fileExists(given)) {
        MoveFileW(platform::unlimitedPath(given).c_str(), platform::unlimitedPath(path).c_str());
    }
}

class Blocked {
  public:
    Blocked(const ExternalEditor::Desk& desk, const std::wstring& notice) : desk_(desk) {
        desk_.block(notice);
    }
    ~Blocked() { desk_.unblock(); }
    Blocked(const Blocked&) = delete;
    Blocked& operator=(const Blocked&) = delete;

  private:
    const ExternalEditor::Desk& desk_;
};

// A file's times as they were before its editing: put back at the latest with this object.
class KeptTimes {
  public:
    explicit KeptTimes(const ItemFile& file) : file_(file) {}
    ~KeptTimes() { putBack(); }
    KeptTimes(const KeptTimes&) = delete;
    KeptTimes& operator=(const KeptTimes&) = delete;

    unsigned long putBack() {
        const bool due = std::exchange(due_, false);
        return due ? platform::writeFileTimes(file_.path, file_.facts.times) : 0;
    }

  private:
    const ItemFile& file_;
    bool due_ = true;
};

}  // namespace

void ExternalEditor::choose(int index) {
    Question question{kTitle, kPrompt, parts_.EditorPath};
    std::wstring path;
    for (;;) {
        const auto answer = parts_.dialogue.ask(question);
        path = answer ? chosenProgram(*answer) : std::wstring();
        if (path.empty()) {
            return;
        }
        if (isWholePath(path) && platform::fileExists(path)) {
            break;
        }
        MessageBeep(MB_OK);
        question.text = path;
    }
    parts_.EditorPath = path;
    run(index);
    if (!parts_.keepPath(path)) {
        tell(L"Das Programm kann nicht in den Einstellungen gespeichert werden.");
    }
}

void ExternalEditor::run(int index) {
    if (!known()) {
        return;
    }
    if (const auto file = unchangedFile(parts_.records, index, parts_.dialogue, kTitle)) {
        if (const std::wstring trouble = edit(*file, index); !trouble.empty()) {
            tell(trouble);
        }
    }
}

std::wstring ExternalEditor::edit(const ItemFile& former, int index) {
    const std::wstring program = programName(parts_.EditorPath);
    parts_.desk.removeStored(parts_.records.thumbRecords[static_cast<std::size_t>(index)].fileName);
    const Blocked blocked(parts_.desk, L"Warten auf «" + program + L"» ...");
    const std::wstring given = shortOrLong(former.path);
    const platform::StartedProcess editor =
        platform::startAwaitedProcess(editorCommandLine(parts_.EditorPath, given));
    if (!editor.handle) {
        // Its stored thumbnail comes back with it.
        parts_.desk.redraw(index);
        return L"«" + program + L"» kann nicht gestartet werden: " +
               platform::systemMessage(editor.code, parts_.EditorPath);
    }
    KeptTimes times(former);
    parts_.loop.waitPainting(editor.handle.get());
    giveNameBack(former.path, given);
    parts_.desk.redraw(index);
    return putBack(former, index, times.putBack());
}

// What is hidden is locked, and stays so when the editor wrote a file of its own in its place.
std::wstring ExternalEditor::putBack(const ItemFile& former, int index, unsigned long timesCode) {
    const std::wstring& name = parts_.records.thumbRecords[static_cast<std::size_t>(index)].fileName;
    const auto now = renewStamp(parts_.records, index);
    if (!now) {
        return missingText(name);
    }
    if (former.facts.hidden && !now->facts.hidden) {
        platform::setFileHidden(former.path, true);
    }
    return timesCode == 0 ? std::wstring()
                          : L"Das Datum von «" + name + L"» kann nicht wiederhergestellt werden: " +
                                platform::systemMessage(timesCode);
}

void ExternalEditor::tell(const std::wstring& sentence) const {
    parts_.dialogue.tell(sentence, kTitle);
}

}  // namespace edit
