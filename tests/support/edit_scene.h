#pragma once

#include <gtest/gtest.h>

#include <cstddef>
#include <deque>
#include <optional>
#include <string>
#include <vector>

#include "edit/dialogue.h"
#include "edit/file_moment.h"
#include "overview/thumb_folder.h"
#include "platform/file_facts.h"
#include "support/scratch_folder.h"
#include "ui/event_loop.h"

namespace support {

/// A scratch folder of pictures with its records as the overview reads them, and a user with prepared
/// answers.
class EditScene {
  public:
    ScratchFolder folder;
    overview::ThumbRecords records;

    /// What the user answers, one after the other; none is "Abbruch". Without an answer left the test fails.
    std::deque<std::optional<std::wstring>> answers;
    std::vector<edit::Question> asked;
    struct Told {
        std::wstring text;
        std::wstring title;
    };
    std::vector<Told> told;
    /// Runs while a question is open.
    std::function<void()> whileAsked;

    edit::Dialogue dialogue() {
        return {[this](const edit::Question& question) -> std::optional<std::wstring> {
                    asked.push_back(question);
                    if (whileAsked) {
                        whileAsked();
                    }
                    if (answers.empty()) {
                        ADD_FAILURE() << "one question too many";
                        return std::nullopt;
                    }
                    const auto answer = answers.front();
                    answers.pop_front();
                    return answer;
                },
                [this](const std::wstring& text, const std::wstring& title) {
                    told.push_back({text, title});
                }};
    }

    /// Reads the folder as the overview does when it opens.
    void load() {
        records = overview::readThumbFolder(folder.path(), L"*.jpg;*.mpg").records;
        for (overview::ThumbRecord& record : records.thumbRecords) {
            record.toolTip = overview::tipOf(record);
        }
    }

    overview::ThumbRecord& record(int index) { return records.thumbRecords[static_cast<std::size_t>(index)]; }

    platform::FileFacts facts(const wchar_t* name) const {
        const auto read = platform::readFileFacts(folder / name);
        return read.value_or(platform::FileFacts{});
    }

    /// Gives a file three times of which none is a whole second.
    platform::FileTimes setTimes(const wchar_t* name) const {
        const std::uint64_t time = edit::fileTimeOf({2024, 6, 15, 12, 34, 56}).value_or(0);
        constexpr std::uint64_t kHour = 36'000'000'000;
        EXPECT_EQ(platform::writeFileTimes(folder / name,
                                           {time + 1'230'000, time + kHour + 4'560'000, time + 1'230'000}),
                  0u);
        return facts(name).times;
    }
};

}  // namespace support
