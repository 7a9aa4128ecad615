#pragma once

#include <windows.h>

#include <dshow.h>
#include <qedit.h>

#include <cstdint>
#include <mutex>
#include <optional>
#include <utility>
#include <vector>

#include "media/counted.h"
#include "media/play_clock.h"

namespace media {

/// Keeps the last frames that passed a sample grabber, so that the one on view can be painted at any
/// moment: while the film runs, after its end and in a halt.
class FrameKeeper : public Counted<ISampleGrabberCB> {
  public:
    /// `format` describes the frames: 24 or 32 bits a pixel, not compressed.
    explicit FrameKeeper(const BITMAPINFOHEADER& format);

    static bool canPaint(const BITMAPINFOHEADER& format);

    /// The film's own size in pixels.
    int width() const { return static_cast<int>(format_.biWidth); }
    int height() const {
        return static_cast<int>(format_.biHeight < 0 ? -format_.biHeight : format_.biHeight);
    }

    /// Forgets what passed so far, before the film jumps.
    void clear();

    /// The time stamp of the first frame since clear(), in stream time; none if none came yet.
    std::optional<Ticks> firstStamp() const;

    /// Paints the frame on view at stream time `now` into `dc` at 0, 0 in its own size; false when no frame
    /// has come yet. Frames pass a little before they are due, so the one before the last may be on view.
    bool paint(HDC dc, Ticks now) const;

    STDMETHODIMP SampleCB(double time, IMediaSample* sample) override;
    STDMETHODIMP BufferCB(double time, BYTE* bytes, LONG length) override;

  private:
    struct Frame {
        std::vector<std::uint8_t> pixels;
        Ticks due = 0;
        bool empty = true;
    };

    BITMAPINFOHEADER format_;
    std::size_t frameSize_;
    mutable std::mutex mutex_;
    std::optional<Ticks> firstStamp_;
    Frame last_;
    Frame before_;
};

}  // namespace media
