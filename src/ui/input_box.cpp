#include "ui/input_box.h"

#include "platform/monitors.h"
#include "ui/button.h"
#include "ui/control_ids.h"
#include "ui/event_loop.h"
#include "ui/form.h"
#include "ui/label.h"
#include "ui/placement.h"
#include "ui/text_box.h"

namespace ui {

namespace {

// In pixels of 96 DPI, which is what the layout is thought in.
constexpr Twips kPixel = 15;
constexpr Twips kWidth = 440 * kPixel;
constexpr Twips kMargin = 16 * kPixel;
constexpr Twips kPadding = 14 * kPixel;
constexpr Twips kInner = kWidth - 2 * (kMargin + kPadding);
constexpr Twips kTextHeight = 30 * kPixel;
constexpr Twips kButtonWidth = 104 * kPixel;
constexpr Twips kButtonHeight = 34 * kPixel;
constexpr Twips kGap = 12 * kPixel;

Twips heightOfPrompt(const std::wstring& prompt, int dpi) {
    const int height = measureHeight(prompt, font(FontSpec{}, dpi), toPixels(kInner, dpi));
    return toTwips(height, dpi);
}

class InputForm : public Form {
  public:
    InputForm(const Window* owner, const InputQuestion& question, Twips promptHeight)
        : Form({.className = L"PanorellInputBox",
                .title = question.title,
                .width = kWidth,
                .height = cardHeight(promptHeight) + 3 * kMargin + kButtonHeight,
                .fixedSize = true,
                .owner = owner}),
          prompt_({.parent = *this,
                   .id = id::kInputPrompt,
                   .place = {kMargin + kPadding, kMargin + kPadding, kInner, promptHeight},
                   .text = question.prompt}),
          text_(at(id::kInputText,
                   {kMargin + kPadding, kMargin + kPadding + promptHeight + kGap, kInner, kTextHeight},
                   question.text),
                {.longest = question.longest}),
          ok_(at(id::kInputOK, buttonPlace(promptHeight, 1), L"OK"), ButtonLook::Accent),
          cancel_(at(id::kInputCANCEL, buttonPlace(promptHeight, 0), L"Abbruch")) {
        setCards({{kMargin, kMargin, kWidth - 2 * kMargin, cardHeight(promptHeight)}});
        ok_.onClick = [this] { answer(text_.text()); };
        text_.onReturn = [this] {
            if (!returnHeld_) {
                answer(text_.text());
            }
        };
        cancel_.onClick = onCloseAsked = [this] { answer(std::nullopt); };
        // Held down since a menu or a box before, Enter answers nothing.
        onKey = [this](int key, bool repeated) {
            if (key == VK_ESCAPE) {
                answer(std::nullopt);
            }
            returnHeld_ = key == VK_RETURN && repeated;
            return key == VK_ESCAPE || returnHeld_;
        };
        text_.selectAll();
    }

    void moveOver(const Window& owner);
    bool answered() const { return answered_; }
    const std::optional<std::wstring>& given() const { return answer_; }

  protected:
    // The focus is in the text from the beginning, however late the window becomes the active one.
    void onFocus(bool gained) override {
        Form::onFocus(gained);
        if (gained && GetFocus() == hwnd()) {
            text_.setFocus();
        }
    }

  private:
    static Twips cardHeight(Twips promptHeight) {
        return kPadding + promptHeight + kGap + kTextHeight + kPadding;
    }
    // Counted from the right.
    static TwipsRect buttonPlace(Twips promptHeight, int index) {
        return {kWidth - kMargin - kButtonWidth - static_cast<float>(index) * (kButtonWidth + kGap),
                cardHeight(promptHeight) + 2 * kMargin, kButtonWidth, kButtonHeight};
    }
    CreateArgs at(int id, const TwipsRect& place, const std::wstring& text) {
        return {.parent = *this, .id = id, .place = place, .text = text, .tabStop = true};
    }
    void answer(std::optional<std::wstring> given) {
        answer_ = std::move(given);
        answered_ = true;
    }

    Label prompt_;
    TextBox text_;
    PushButton ok_;
    PushButton cancel_;
    std::optional<std::wstring> answer_;
    bool answered_ = false;
    bool returnHeld_ = false;
};

void InputForm::moveOver(const Window& owner) {
    const HWND below = GetAncestor(owner.hwnd(), GA_ROOT);
    const RECT bounds = platform::Monitors::current().areaOf(below);
    RECT over{};
    GetWindowRect(below, &over);
    RECT own{};
    GetWindowRect(hwnd(), &own);
    const int left = centredOver({over.left, over.right}, own.right - own.left, {bounds.left, bounds.right});
    const int top = centredOver({over.top, over.bottom}, own.bottom - own.top, {bounds.top, bounds.bottom});
    SetWindowPos(hwnd(), nullptr, left, top, 0, 0, SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE);
}

// Takes all input from a window while it lives.
class Blocked {
  public:
    explicit Blocked(HWND window) : window_(window) {
        wasEnabled_ = window_ != nullptr && EnableWindow(window_, FALSE) == FALSE;
    }
    ~Blocked() {
        if (wasEnabled_) {
            EnableWindow(window_, TRUE);
        }
    }
    Blocked(const Blocked&) = delete;
    Blocked& operator=(const Blocked&) = delete;

  private:
    HWND window_;
    bool wasEnabled_;
};

}  // namespace

std::optional<std::wstring> inputBox(const Window* owner, const InputQuestion& question) {
    const HWND below = owner != nullptr ? GetAncestor(owner->hwnd(), GA_ROOT) : nullptr;
    const int dpi = platform::Monitors::current().dpiOf(below != nullptr ? below : GetDesktopWindow());
    InputForm form(owner, question, heightOfPrompt(question.prompt, dpi));
    // The owner takes input again before the box ends: otherwise the system would make another program's
    // window the active one.
    const Blocked blocked(below);
    if (owner != nullptr) {
        form.moveOver(*owner);
    }
    form.show();
    while (!form.answered()) {
        EventLoop::current().waitEvents();
    }
    return form.given();
}

}  // namespace ui
