#include "app/recovery_notice.h"

namespace app {

namespace {

/// What is over before, nobody needs to read.
constexpr double kUnnoticedMs = 300;
constexpr ui::Twips kWidth = 8400;
constexpr ui::Twips kHeight = 1200;
constexpr ui::TwipsRect kText{300, 450, kWidth - 600, 300};
constexpr const wchar_t* kNotice = L"Eine unterbrochene Änderung des Ordners wird in Ordnung gebracht ...";

}  // namespace

void RecoveryNotice::show() {
    form_.emplace(ui::Form::Args{.className = L"PanorellRecovery",
                                 .title = L"  Ordner",
                                 .width = kWidth,
                                 .height = kHeight,
                                 .fixedSize = true});
    text_.emplace(ui::CreateArgs{.parent = *form_, .place = kText, .text = kNotice}, ui::Alignment::Centre);
    form_->show();
}

void RecoveryNotice::pause(int ms) {
    if (!form_ && loop_.now() - begun_ >= kUnnoticedMs) {
        show();
    }
    loop_.sleepPainting(ms);
}

}  // namespace app
