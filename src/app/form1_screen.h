#pragma once

#include "app/form1.h"
#include "app/surface_settings.h"
#include "show/show_screen.h"

namespace app {

/// The main window as the show surface.
class Form1Screen : public show::ShowScreen {
  public:
    /// `surfaces` tells what pictures are fitted to.
    Form1Screen(Form1& form, SurfaceSettings& surfaces) : form_(form), surfaces_(surfaces) {}

    bool inSetup() const override;
    void moveToSecondScreen() override;
    bool leaveSetup() override;
    void takeOver() override;
    void uncover() override { form_.uncover(); }
    SIZE size() const override;
    void arrange() override;
    show::ShowSurface surface() const override;
    ui::Pointer& pointer() override { return pointer_; }
    RECT rectangle() const override;

    /// Whether the window covers the monitor that it is on, as that is now.
    bool coversMonitor() const;
    /// The surface that a show would have, once the window has taken over.
    show::ShowSurface surfaceToCome() const;
    /// The colours of the monitor that the window is on.
    picture::ColourTarget colours() const;

  private:
    Form1& form_;
    SurfaceSettings& surfaces_;
    ui::Pointer pointer_;
};

}  // namespace app
