#include "edit/file_dates.h"

#include <cstddef>
#include <optional>

#include "edit/date_input.h"
#include "edit/file_moment.h"
#include "edit/item_file.h"
#include "overview/thumb_folder.h"
#include "platform/file_facts.h"
#include "platform/system_message.h"
#include "text/trimming.h"

namespace edit {

namespace {

constexpr wchar_t kTitle[] = L" Datei-Datum";
constexpr wchar_t kLineEnd[] = L"\r\n";
constexpr wchar_t kHowToWrite[] =
    L"Bitte so eingeben: 24.12.2025 18:30 oder 2025-12-24 18:30:00 (Jahre 1980 bis 2107)";
constexpr wchar_t kNeverWas[] = L"Diese Uhrzeit gab es an diesem Tag nicht (Beginn der Sommerzeit)";

}  // namespace

void FileDates::change(int index) {
    const auto file = unchangedFile(parts_.records, index, parts_.dialogue, kTitle);
    if (!file) {
        return;
    }
    const auto shown = momentOf(file->facts.times.written);
    const std::wstring present = shown ? dateTimeText(*shown) : std::wstring();
    const std::wstring prompt = L"Datei-Datum ändern :" + (kLineEnd + present);
    Question question{kTitle, prompt, present + L"  "};
    for (;;) {
        const auto answer = parts_.dialogue.ask(question);
        if (!answer || text::trimmed(*answer).empty() || text::trimmed(*answer) == present) {
            return;
        }
        const auto wanted = parseDateInput(*answer);
        if (wanted && wanted == shown) {
            return;
        }
        if (const auto time = wanted ? fileTimeOf(*wanted) : std::nullopt) {
            set(index, *time);
            return;
        }
        question.prompt = prompt + kLineEnd + (wanted ? kNeverWas : kHowToWrite);
        question.text = *answer;
    }
}

void FileDates::set(int index, std::uint64_t time) {
    // Much may have happened while the question was open.
    const auto file = unchangedFile(parts_.records, index, parts_.dialogue, kTitle);
    if (!file) {
        return;
    }
    overview::ThumbRecord& record = parts_.records.thumbRecords[static_cast<std::size_t>(index)];
    if (const unsigned long code = platform::writeFileTimes(file->path, {time, time, time}); code != 0) {
        parts_.dialogue.tell(L"Das Datum von «" + record.fileName + L"» kann nicht geändert werden: " +
                                 platform::systemMessage(code),
                             kTitle);
        return;
    }
    const std::wstring former = overview::tipDate(record.stamp.written);
    renewStamp(parts_.records, index);
    record.toolTip = tipWithDate(record.toolTip, former, overview::tipDate(record.stamp.written));
    parts_.tipChanged(index);
}

}  // namespace edit
