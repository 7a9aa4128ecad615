#pragma once

#include <functional>
#include <string>

#include "overview/box_picture.h"
#include "picture/pixels.h"
#include "ui/window.h"

namespace overview {

/// What a thumbnail shows of its item. It belongs to the item and moves with it.
struct BoxContent {
    picture::Pixels image;  ///< empty: none yet
    std::wstring failed;    ///< the name of an item that cannot be shown; else empty
    bool locked = false;
    bool deleted = false;  ///< marked for deletion
};

/// What happens at the boxes of a grid; each with the index of its box.
struct BoxEvents {
    std::function<void(int index, const ui::MouseEvent&)> onPressed;
    std::function<void(int index)> onDoubleClicked;
    std::function<void(int index)> onEntered;
    std::function<void(int index)> onLeft;
    std::function<void(int index, POINT screen)> onMenu;
    /// A box is about to be shown: more can be drawn onto it; `place` is where its image lies.
    std::function<void(int index, picture::Pixels& box, const ImagePlace& place)> onDraw;
};

/// One thumbnail of a grid: a window without any object of the system besides, since there may be thousands.
/// Its pixels lie in memory and are painted from there.
class ThumbnailBox : public ui::Window {
  public:
    /// `place` in pixels of the parent. `content` and `events` outlive the box.
    ThumbnailBox(ui::Window& parent, int index, const RECT& place, bool visible, const BoxContent& content,
                 const BoxEvents& events);
    ~ThumbnailBox() override { destroy(); }

    void setGap(int gap) { look_.gap = gap; }
    void setSelected(bool selected);
    void setHot(bool hot);
    void setLanding(Landing landing);
    /// The content has changed.
    void repaint();

  protected:
    bool paints() const override { return true; }
    void onPaint(HDC dc, const RECT& area) override;
    bool onEraseBackground(HDC) override { return true; }
    bool onMessage(UINT message, WPARAM w, LPARAM l, LRESULT& result) override;
    bool onMouseDown(const ui::MouseEvent& event) override;
    bool onMouseMove(const ui::MouseEvent& event) override;
    bool onDoubleClick(const ui::MouseEvent& event) override;
    void onMouseLeave() override;

  private:
    void paintName(HDC dc, const SIZE& size) const;

    int index_;
    const BoxContent& content_;
    const BoxEvents& events_;
    BoxLook look_;
    bool over_ = false;
};

}  // namespace overview
