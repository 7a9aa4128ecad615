#include "app/option_set.h"
#include "app/parameter_text.h"
#include "edit/editor_command.h"
#include "fuzz/check.h"
#include "show/pause_time.h"
#include "text/text_number.h"

#include <cmath>
#include <cstdint>
#include <string>

namespace {

using fuzz::check;

bool isCheckState(const std::optional<int>& value) {
    return !value || (*value >= 0 && *value <= 2);
}

void checkParameters(const std::wstring& text) {
    const app::Parameters parameters = app::parseParameters(text);
    check(!parameters.optionIndex || (*parameters.optionIndex >= 0 && *parameters.optionIndex <= 3));
    check(!parameters.startIndex || (*parameters.startIndex >= 0 && *parameters.startIndex <= 9));
    check(isCheckState(parameters.date) && isCheckState(parameters.loop));
    check(isCheckState(parameters.videoSound) && isCheckState(parameters.music));
    check(!parameters.pauseText || parameters.pauseText->size() <= 2);
    check(parameters.drive.has_value() == parameters.folder.has_value());
    if (parameters.drive) {
        check(parameters.drive->size() == 2 && parameters.drive->back() == L':');
        check(parameters.folder->find(L'"') == std::wstring::npos);
        const std::wstring shorter = parameters.folder->substr(0, 2);
        check(shorter == parameters.drive->substr(0, shorter.size()));
    }
}

/// What is built from a harmless folder reads back, whatever the rest of the state.
void checkRoundTrip(std::wstring name, std::uint8_t bits) {
    std::erase_if(name, [](wchar_t c) { return c == L'=' || c == L'"' || c == L':'; });
    const app::ParameterState state{
        L"C:\\" + name, std::to_wstring(1 + bits % 60), bits & 1, bits >> 1 & 1, bits >> 2 & 1, bits % 3,
        bits % 4};
    const app::Parameters parameters = app::parseParameters(app::buildParameterText(state));
    check(parameters.folder == state.folder && parameters.pauseText == state.pauseText);
    check(parameters.date == state.date && parameters.loop == state.loop);
    check(parameters.videoSound == state.videoSound && parameters.music == state.music);
    check(parameters.optionIndex == state.optionIndex);
    check(!parameters.startIndex && !parameters.runAtOnce);
}

void checkNumbers(const std::wstring& text) {
    check(std::isfinite(text::numericValue(text)));
    const show::PauseTextChange change = show::pauseTextChanged(text);
    check(!change.scroll ||
          (*change.scroll >= show::kPauseScrollMin && *change.scroll <= show::kPauseScrollMax));
    const double value = text::numericValue(text);
    check(text::numericValue(text::decimalText(value)) == value);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::wstring text(data, data + size);
    checkParameters(text);
    checkParameters(std::wstring(app::parametersOfCommandLine(text)));
    checkRoundTrip(text, size == 0 ? std::uint8_t{0} : data[0]);
    checkNumbers(text);
    check(app::folderDisplayName(text).find_first_of(L".\\") == std::wstring::npos);
    check(edit::programName(text).find_first_of(L".\\") == std::wstring::npos);
    return 0;
}
