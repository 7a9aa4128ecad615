#pragma once

#include "app/form1.h"
#include "show/show_screen.h"

namespace app {

/// The main window as the show surface.
class Form1Screen : public show::ShowScreen {
  public:
    explicit Form1Screen(Form1& form) : form_(form) {}

    bool inSetup() const override;
    void moveToSecondScreen() override;
    void takeOver() override;
    SIZE size() const override;
    void arrange() override;
    RECT rectangle() const override;

  private:
    Form1& form_;
};

}  // namespace app
