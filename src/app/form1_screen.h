#pragma once

#include <optional>

#include "app/form1.h"
#include "platform/monitors.h"
#include "platform/profile_file.h"
#include "show/show_screen.h"

namespace app {

/// The main window as the show surface.
class Form1Screen : public show::ShowScreen {
  public:
    /// `settings` tells the shape of the fit rule.
    Form1Screen(Form1& form, const platform::ProfileFile& settings) : form_(form), settings_(settings) {}

    bool inSetup() const override;
    void moveToSecondScreen() override;
    void takeOver() override;
    SIZE size() const override;
    void arrange() override;
    show::ShowSurface surface() const override {
        return surfaceOf(platform::Monitors::current().areaOf(form_.hwnd()));
    }
    ui::Pointer& pointer() override { return pointer_; }
    RECT rectangle() const override;
    /// The monitors have changed: their profiles are read anew.
    void forgetColours() { knownMonitor_.reset(); }

    /// The surface that a show would have, once the window has taken over.
    show::ShowSurface surfaceToCome() const;
    /// The colours of the monitor that the window is on.
    picture::ColourTarget colours() const;

  private:
    show::ShowSurface surfaceOf(const RECT& monitor) const;
    picture::ColourTarget coloursAt(const RECT& monitor) const;

    Form1& form_;
    const platform::ProfileFile& settings_;
    ui::Pointer pointer_;
    /// The profile of a monitor is read once, until the screens change.
    mutable std::optional<RECT> knownMonitor_;
    mutable picture::ColourTarget knownColours_;
};

}  // namespace app
