#pragma once

#include "app/form1.h"
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
    double shape() const override { return shapeFor(size()); }
    ui::Pointer& pointer() override { return pointer_; }
    RECT rectangle() const override;

    /// What size() will be once the window has taken over.
    SIZE targetSize() const;
    /// The shape of the fit rule for a surface of that size.
    double shapeFor(const SIZE& surface) const;

  private:
    Form1& form_;
    const platform::ProfileFile& settings_;
    ui::Pointer pointer_;
};

}  // namespace app
