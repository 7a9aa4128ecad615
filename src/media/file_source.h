#pragma once

#include <windows.h>

#include <dshow.h>

#include <memory>

#include "media/file_stream.h"
#include "platform/com.h"

namespace media {

/// A source filter for MPEG program streams that gives out `stream`. Its one pin is an output that the
/// reader behind it pulls from; the stream is closed with the filter's last reference.
platform::ComPtr<IBaseFilter> createFileSource(std::unique_ptr<FileStream> stream);

/// The first pin of `filter` with this direction, or none.
platform::ComPtr<IPin> findPin(IBaseFilter* filter, PIN_DIRECTION direction);

}  // namespace media
