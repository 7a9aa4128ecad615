#pragma once

#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "app/parameter_text.h"
#include "app/surface_settings.h"
#include "show/picture_source.h"
#include "ui/curtain.h"

namespace app {

/// The first picture of a show that the parameters start at once. Its decoding begins before there is a
/// window, and the window has it on the screen before it has controls; the show takes it from here.
///
/// It is a guess, since the lists of the folder are not filled yet. One that proves wrong (another monitor,
/// other files meanwhile) is thrown away.
class FirstPicture : public show::PictureSource {
  public:
    /// `pictures` decodes it, and is passed what else is asked for.
    FirstPicture(show::PictureSource& pictures, SurfaceSettings& surfaces, const Parameters& parameters);

    /// What covers the window from its first moment on; null where the show does not begin with a picture, or
    /// none is asked for.
    const ui::Curtain* curtain() const { return path_.empty() ? nullptr : &curtain_; }

    void setSurface(const show::ShowSurface& surface) override;
    std::optional<show::ShowPicture> take(const std::wstring& path) override;
    bool ready(const std::wstring& path) override;
    void prepare(const std::vector<std::wstring>& paths) override;
    void giveBack(picture::Surface surface) override { pictures_.giveBack(std::move(surface)); }

  private:
    void begin(const std::wstring& folder, int index);
    const picture::Surface* picture();

    show::PictureSource& pictures_;
    SurfaceSettings& surfaces_;
    ui::Curtain curtain_;
    std::wstring path_;
    show::ShowSurface surface_;
    bool awaited_ = false;
    /// The picture while it is on the curtain.
    std::optional<show::ShowPicture> held_;
};

}  // namespace app
