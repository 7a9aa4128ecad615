#include "ui/drag_image.h"

#include <commctrl.h>

#include "picture/surface.h"
#include "platform/handles.h"

namespace ui {

namespace {

bool dragging = false;
int hiders = 0;

// The list that the picture is made of; the system copies it when the dragging begins.
class OneImage {
  public:
    explicit OneImage(const picture::Pixels& picture)
        : list_(ImageList_Create(picture.width, picture.height, ILC_COLOR24, 1, 0)) {
        picture::Surface surface(picture.width, picture.height);
        surface.put(picture);
        GdiFlush();
        const platform::Bitmap bitmap(screenBitmap(surface));
        if (list_ != nullptr && bitmap) {
            ImageList_Add(list_, bitmap.get(), nullptr);
        }
    }
    ~OneImage() {
        if (list_ != nullptr) {
            ImageList_Destroy(list_);
        }
    }
    OneImage(const OneImage&) = delete;
    OneImage& operator=(const OneImage&) = delete;
    HIMAGELIST get() const { return list_; }

  private:
    // A bitmap that lies in no device context, as the list wants it.
    static HBITMAP screenBitmap(const picture::Surface& surface) {
        const platform::WindowDc screen(nullptr);
        HBITMAP bitmap = CreateCompatibleBitmap(screen.get(), surface.width(), surface.height());
        const platform::MemoryDc dc(CreateCompatibleDC(screen.get()));
        const platform::Selection selected(dc.get(), bitmap);
        BitBlt(dc.get(), 0, 0, surface.width(), surface.height(), surface.dc(), 0, 0, SRCCOPY);
        return bitmap;
    }

    HIMAGELIST list_;
};

}  // namespace

DragImage::DragImage(HWND window, const picture::Pixels& picture, POINT grip, POINT screen)
    : window_(window) {
    const OneImage image(picture);
    if (image.get() == nullptr || ImageList_BeginDrag(image.get(), 0, grip.x, grip.y) == FALSE) {
        return;
    }
    const POINT place = inWindow(screen);
    shown_ = ImageList_DragEnter(window_, place.x, place.y) != FALSE;
    if (!shown_) {
        ImageList_EndDrag();
    }
    dragging = shown_;
}

DragImage::~DragImage() {
    if (shown_) {
        dragging = false;
        ImageList_DragLeave(window_);
        ImageList_EndDrag();
    }
}

// The system counts from the window's own corner, frame included.
POINT DragImage::inWindow(POINT screen) const {
    RECT window{};
    GetWindowRect(window_, &window);
    return {screen.x - window.left, screen.y - window.top};
}

void DragImage::moveTo(POINT screen) {
    if (shown_) {
        const POINT place = inWindow(screen);
        ImageList_DragMove(place.x, place.y);
    }
}

DragImage::Hidden::Hidden() : counted_(dragging) {
    if (counted_ && hiders++ == 0) {
        ImageList_DragShowNolock(FALSE);
    }
}

// The dragging may have ended meanwhile.
DragImage::Hidden::~Hidden() {
    if (counted_ && --hiders == 0 && dragging) {
        ImageList_DragShowNolock(TRUE);
    }
}

}  // namespace ui
