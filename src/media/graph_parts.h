#pragma once

#include <windows.h>

#include <dshow.h>

#include <optional>
#include <string>

#include "media/frame_keeper.h"
#include "media/program_stream.h"
#include "platform/com.h"

namespace media {

/// A filter graph that plays one file, and those of its parts that are spoken to.
struct GraphParts {
    GraphParts() = default;
    GraphParts(GraphParts&&) = default;
    GraphParts& operator=(GraphParts&&) = delete;
    /// Stops the graph and lets go of its parts before the graph itself.
    ~GraphParts();

    platform::ComPtr<IGraphBuilder> graph;
    /// Takes frames in passing; none if the file has no video.
    platform::ComPtr<FrameKeeper> frames;
    /// Where the film ends; none unless it is a program stream.
    std::optional<ProgramStream> stream;
};

/// Builds the graph for the file at `path`: an explicitly added Video Renderer, since the system's choice
/// may show nothing, and a sample grabber before it. Sound that cannot be rendered is left out.
/// Throws platform::Error when nothing of the file can be played.
GraphParts buildGraph(const std::wstring& path);

}  // namespace media
