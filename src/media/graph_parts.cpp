#include "media/graph_parts.h"

#include <algorithm>
#include <vector>

#include "media/file_source.h"
#include "media/file_stream.h"

/// In the import library, but in no header.
EXTERN_C const CLSID CLSID_SampleGrabber;

namespace media {

namespace {

using platform::checkResult;
using platform::ComPtr;

/// A media type as a pin hands it out, with its format block.
class MediaType {
  public:
    MediaType() = default;
    ~MediaType() {
        CoTaskMemFree(type_.pbFormat);
        if (type_.pUnk != nullptr) {
            type_.pUnk->Release();
        }
    }
    MediaType(const MediaType&) = delete;
    MediaType& operator=(const MediaType&) = delete;

    AM_MEDIA_TYPE* get() { return &type_; }

    /// The picture format, if it is one of the plain kind.
    const BITMAPINFOHEADER* picture() const {
        const bool plain = type_.formattype == FORMAT_VideoInfo && type_.cbFormat >= sizeof(VIDEOINFOHEADER);
        return plain ? &reinterpret_cast<const VIDEOINFOHEADER*>(type_.pbFormat)->bmiHeader : nullptr;
    }

  private:
    AM_MEDIA_TYPE type_{};
};

/// The file as a stream that is played to its last picture, if it is a program stream.
std::unique_ptr<FileStream> openProgramStream(const std::wstring& path, std::optional<ProgramStream>& found) {
    auto stream = std::make_unique<FileStream>(path);
    const std::int64_t length = stream->length();
    std::vector<std::uint8_t> head(
        static_cast<std::size_t>(std::min<std::int64_t>(length, kProgramStreamWindow)));
    head.resize(stream->read(0, head));
    std::vector<std::uint8_t> tail;
    if (length > static_cast<std::int64_t>(head.size())) {
        tail.resize(kProgramStreamWindow);
        const std::int64_t from = length - static_cast<std::int64_t>(tail.size());
        tail.resize(stream->read(std::max<std::int64_t>(from, 0), tail));
    }
    found = readProgramStream(head, tail.empty() ? head : tail);
    if (!found) {
        return nullptr;
    }
    stream->append(closingPacks(*found));
    return stream;
}

bool renderStream(IGraphBuilder* graph, std::unique_ptr<FileStream> stream) {
    const ComPtr<IBaseFilter> source = createFileSource(std::move(stream));
    checkResult(graph->AddFilter(source.get(), L"Program stream"), "AddFilter");
    if (SUCCEEDED(graph->Render(findPin(source.get(), PINDIR_OUTPUT).get()))) {
        return true;
    }
    graph->RemoveFilter(source.get());
    return false;
}

void render(GraphParts& parts, const std::wstring& path) {
    std::unique_ptr<FileStream> stream = openProgramStream(path, parts.stream);
    if (stream != nullptr && renderStream(parts.graph.get(), std::move(stream))) {
        return;
    }
    parts.stream.reset();
    checkResult(parts.graph->RenderFile(path.c_str(), nullptr), "RenderFile");
}

/// Puts a sample grabber between the renderer and what it is connected to. Without one the film plays all
/// the same, but none of its frames can be painted.
ComPtr<FrameKeeper> insertGrabber(IGraphBuilder* graph, IPin* from, IPin* to) {
    MediaType type;
    if (FAILED(to->ConnectionMediaType(type.get())) || type.picture() == nullptr ||
        !FrameKeeper::canPaint(*type.picture())) {
        return {};
    }
    const auto filter = ComPtr<IBaseFilter>::create(CLSID_SampleGrabber, IID_IBaseFilter);
    const auto grabber = filter.as<ISampleGrabber>(IID_ISampleGrabber);
    ComPtr<FrameKeeper> frames;
    *frames.put() = new FrameKeeper(*type.picture());
    if (!grabber || FAILED(graph->AddFilter(filter.get(), L"Grabber"))) {
        return {};
    }
    AM_MEDIA_TYPE wanted{};
    wanted.majortype = MEDIATYPE_Video;
    wanted.subtype = type.get()->subtype;
    wanted.formattype = FORMAT_VideoInfo;
    grabber->SetMediaType(&wanted);
    grabber->SetBufferSamples(FALSE);
    grabber->SetCallback(frames.get(), 0);
    graph->Disconnect(from);
    graph->Disconnect(to);
    const ComPtr<IPin> in = findPin(filter.get(), PINDIR_INPUT);
    const ComPtr<IPin> out = findPin(filter.get(), PINDIR_OUTPUT);
    if (SUCCEEDED(graph->ConnectDirect(from, in.get(), type.get())) &&
        SUCCEEDED(graph->ConnectDirect(out.get(), to, type.get()))) {
        return frames;
    }
    graph->Disconnect(from);
    graph->Disconnect(in.get());
    graph->RemoveFilter(filter.get());
    checkResult(graph->ConnectDirect(from, to, nullptr), "ConnectDirect");
    return {};
}

}  // namespace

GraphParts::~GraphParts() {
    if (const auto control = graph.as<IMediaControl>(IID_IMediaControl)) {
        control->Stop();
    }
}

GraphParts buildGraph(const std::wstring& path) {
    GraphParts parts;
    parts.graph = ComPtr<IGraphBuilder>::create(CLSID_FilterGraph);
    const auto renderer = ComPtr<IBaseFilter>::create(CLSID_VideoRenderer);
    checkResult(parts.graph->AddFilter(renderer.get(), L"Video Renderer"), "AddFilter");
    render(parts, path);
    const ComPtr<IPin> to = findPin(renderer.get(), PINDIR_INPUT);
    ComPtr<IPin> from;
    if (!to || FAILED(to->ConnectedTo(from.put()))) {
        parts.graph->RemoveFilter(renderer.get());
        return parts;
    }
    parts.frames = insertGrabber(parts.graph.get(), from.get(), to.get());
    return parts;
}

}  // namespace media
