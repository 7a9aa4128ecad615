#include "media/file_source.h"

#include <condition_variable>
#include <cstring>
#include <deque>
#include <mutex>
#include <new>
#include <utility>

#include "media/counted.h"

namespace media {

namespace {

using platform::ComPtr;

const wchar_t kPinName[] = L"Output";

/// This source's own class id.
const CLSID kFileSourceId = {0x6b1c7c6e, 0x52f4, 0x4a0b, {0x9d, 0x3e, 0x40, 0x77, 0x2a, 0x91, 0x5e, 0xc8}};

/// A stream of no particular kind, so that the graph takes the splitter which looks into the bytes itself.
AM_MEDIA_TYPE streamType() {
    AM_MEDIA_TYPE type{};
    type.majortype = MEDIATYPE_Stream;
    type.subtype = GUID_NULL;
    type.bFixedSizeSamples = TRUE;
    type.lSampleSize = 1;
    return type;
}

/// The one type that the pin has, for the caller to free; null without memory.
struct StreamTypeSource {
    AM_MEDIA_TYPE* operator()() const {
        auto* type = static_cast<AM_MEDIA_TYPE*>(CoTaskMemAlloc(sizeof(AM_MEDIA_TYPE)));
        if (type != nullptr) {
            *type = streamType();
        }
        return type;
    }
};

/// The filter's one pin, counted for the caller.
struct PinSource {
    ComPtr<IPin> pin;
    IPin* operator()() const {
        pin->AddRef();
        return pin.get();
    }
};

using OneType = OneOf<IEnumMediaTypes, AM_MEDIA_TYPE, StreamTypeSource>;
using OnePin = OneOf<IEnumPins, IPin, PinSource>;

/// The output pin. It is a part of its filter and lives and dies with it.
class SourcePin : public IPin, public IAsyncReader {
  public:
    SourcePin(IBaseFilter& filter, std::unique_ptr<FileStream> stream)
        : filter_(filter), stream_(std::move(stream)) {}
    virtual ~SourcePin() = default;

    STDMETHODIMP QueryInterface(REFIID id, void** object) override {
        if (object == nullptr) {
            return E_POINTER;
        }
        if (id == IID_IUnknown || id == IID_IPin) {
            *object = static_cast<IPin*>(this);
        } else if (id == IID_IAsyncReader) {
            *object = static_cast<IAsyncReader*>(this);
        } else {
            *object = nullptr;
            return E_NOINTERFACE;
        }
        AddRef();
        return S_OK;
    }
    STDMETHODIMP_(ULONG) AddRef() override { return filter_.AddRef(); }
    STDMETHODIMP_(ULONG) Release() override { return filter_.Release(); }

    // IPin
    STDMETHODIMP Connect(IPin* receiver, const AM_MEDIA_TYPE* type) override {
        if (connected_) {
            return VFW_E_ALREADY_CONNECTED;
        }
        if (type != nullptr && QueryAccept(type) != S_OK) {
            return VFW_E_TYPE_NOT_ACCEPTED;
        }
        const AM_MEDIA_TYPE own = streamType();
        const HRESULT result = receiver->ReceiveConnection(this, &own);
        if (SUCCEEDED(result)) {
            connected_ = ComPtr<IPin>(receiver);
        }
        return result;
    }
    STDMETHODIMP ReceiveConnection(IPin*, const AM_MEDIA_TYPE*) override { return E_UNEXPECTED; }
    STDMETHODIMP Disconnect() override {
        if (!connected_) {
            return S_FALSE;
        }
        connected_.reset();
        return S_OK;
    }
    STDMETHODIMP ConnectedTo(IPin** pin) override {
        *pin = connected_.get();
        if (*pin == nullptr) {
            return VFW_E_NOT_CONNECTED;
        }
        (*pin)->AddRef();
        return S_OK;
    }
    STDMETHODIMP ConnectionMediaType(AM_MEDIA_TYPE* type) override {
        *type = connected_ ? streamType() : AM_MEDIA_TYPE{};
        return connected_ ? S_OK : VFW_E_NOT_CONNECTED;
    }
    STDMETHODIMP QueryPinInfo(PIN_INFO* info) override {
        info->pFilter = &filter_;
        filter_.AddRef();
        info->dir = PINDIR_OUTPUT;
        lstrcpynW(info->achName, kPinName, MAX_PIN_NAME);
        return S_OK;
    }
    STDMETHODIMP QueryDirection(PIN_DIRECTION* direction) override {
        *direction = PINDIR_OUTPUT;
        return S_OK;
    }
    STDMETHODIMP QueryId(LPWSTR* id) override {
        *id = static_cast<LPWSTR>(CoTaskMemAlloc(sizeof(kPinName)));
        if (*id == nullptr) {
            return E_OUTOFMEMORY;
        }
        std::memcpy(*id, kPinName, sizeof(kPinName));
        return S_OK;
    }
    STDMETHODIMP QueryAccept(const AM_MEDIA_TYPE* type) override {
        return type->majortype == MEDIATYPE_Stream && type->subtype == GUID_NULL ? S_OK : S_FALSE;
    }
    STDMETHODIMP EnumMediaTypes(IEnumMediaTypes** types) override {
        *types = new (std::nothrow) OneType(StreamTypeSource{});
        return *types != nullptr ? S_OK : E_OUTOFMEMORY;
    }
    STDMETHODIMP QueryInternalConnections(IPin**, ULONG*) override { return E_NOTIMPL; }
    STDMETHODIMP EndOfStream() override { return E_UNEXPECTED; }
    STDMETHODIMP NewSegment(REFERENCE_TIME, REFERENCE_TIME, double) override { return E_UNEXPECTED; }

    // IAsyncReader, and the two calls that it shares with IPin
    STDMETHODIMP RequestAllocator(IMemAllocator* preferred, ALLOCATOR_PROPERTIES* wanted,
                                  IMemAllocator** actual) override {
        ComPtr<IMemAllocator> allocator(preferred);
        ALLOCATOR_PROPERTIES granted{};
        if (!allocator || FAILED(allocator->SetProperties(wanted, &granted))) {
            const HRESULT result = CoCreateInstance(CLSID_MemoryAllocator, nullptr, CLSCTX_INPROC_SERVER,
                                                    IID_IMemAllocator, allocator.putVoid());
            if (FAILED(result)) {
                return result;
            }
            if (const HRESULT set = allocator->SetProperties(wanted, &granted); FAILED(set)) {
                return set;
            }
        }
        *actual = allocator.get();
        (*actual)->AddRef();
        return S_OK;
    }
    STDMETHODIMP Request(IMediaSample* sample, DWORD_PTR user) override {
        const std::lock_guard lock(mutex_);
        if (flushing_) {
            return VFW_E_WRONG_STATE;
        }
        requests_.push_back({ComPtr<IMediaSample>(sample), user});
        wake_.notify_one();
        return S_OK;
    }
    STDMETHODIMP WaitForNext(DWORD timeout, IMediaSample** sample, DWORD_PTR* user) override {
        *sample = nullptr;
        *user = 0;
        ReadRequest request;
        {
            std::unique_lock lock(mutex_);
            const auto ready = [this] { return flushing_ || !requests_.empty(); };
            if (timeout == INFINITE) {
                wake_.wait(lock, ready);
            } else if (!wake_.wait_for(lock, std::chrono::milliseconds(timeout), ready)) {
                return VFW_E_TIMEOUT;
            }
            if (requests_.empty()) {
                return VFW_E_WRONG_STATE;
            }
            request = std::move(requests_.front());
            requests_.pop_front();
            if (flushing_) {
                *user = request.user;
                *sample = request.sample.get();
                (*sample)->AddRef();
                return VFW_E_WRONG_STATE;
            }
        }
        *user = request.user;
        *sample = request.sample.get();
        (*sample)->AddRef();
        return SyncReadAligned(*sample);
    }
    STDMETHODIMP SyncReadAligned(IMediaSample* sample) override {
        REFERENCE_TIME begin = 0;
        REFERENCE_TIME end = 0;
        BYTE* bytes = nullptr;
        if (FAILED(sample->GetTime(&begin, &end)) || FAILED(sample->GetPointer(&bytes))) {
            return E_UNEXPECTED;
        }
        constexpr REFERENCE_TIME kUnit = 10'000'000;  // one byte counts as one second
        const REFERENCE_TIME wanted = std::min<REFERENCE_TIME>((end - begin) / kUnit, sample->GetSize());
        const std::size_t got = stream_->read(begin / kUnit, {bytes, static_cast<std::size_t>(wanted)});
        sample->SetActualDataLength(static_cast<LONG>(got));
        return got == static_cast<std::size_t>(wanted) ? S_OK : S_FALSE;
    }
    STDMETHODIMP SyncRead(LONGLONG position, LONG length, BYTE* bytes) override {
        if (length < 0) {
            return E_INVALIDARG;
        }
        const auto wanted = static_cast<std::size_t>(length);
        return stream_->read(position, {bytes, wanted}) == wanted ? S_OK : S_FALSE;
    }
    STDMETHODIMP Length(LONGLONG* total, LONGLONG* available) override {
        *total = stream_->length();
        if (available != nullptr) {
            *available = *total;
        }
        return S_OK;
    }
    STDMETHODIMP BeginFlush() override {
        const std::lock_guard lock(mutex_);
        flushing_ = true;
        wake_.notify_all();
        return S_OK;
    }
    STDMETHODIMP EndFlush() override {
        const std::lock_guard lock(mutex_);
        flushing_ = false;
        return S_OK;
    }

  private:
    struct ReadRequest {
        ComPtr<IMediaSample> sample;
        DWORD_PTR user = 0;
    };

    IBaseFilter& filter_;
    std::unique_ptr<FileStream> stream_;
    ComPtr<IPin> connected_;
    std::mutex mutex_;
    std::condition_variable wake_;
    std::deque<ReadRequest> requests_;
    bool flushing_ = false;
};

/// The filter around the pin: it has no thread of its own, so its states are only kept.
class FileSource : public Counted<IBaseFilter> {
  public:
    explicit FileSource(std::unique_ptr<FileStream> stream) : pin_(*this, std::move(stream)) {}

    STDMETHODIMP QueryInterface(REFIID id, void** object) override {
        if (object != nullptr && (id == IID_IPersist || id == IID_IMediaFilter)) {
            *object = static_cast<IBaseFilter*>(this);
            AddRef();
            return S_OK;
        }
        return Counted::QueryInterface(id, object);
    }
    STDMETHODIMP GetClassID(CLSID* id) override {
        *id = kFileSourceId;
        return S_OK;
    }
    STDMETHODIMP Stop() override { return enter(State_Stopped); }
    STDMETHODIMP Pause() override { return enter(State_Paused); }
    STDMETHODIMP Run(REFERENCE_TIME) override { return enter(State_Running); }
    STDMETHODIMP GetState(DWORD, FILTER_STATE* state) override {
        *state = state_;
        return S_OK;
    }
    STDMETHODIMP SetSyncSource(IReferenceClock* clock) override {
        clock_ = ComPtr<IReferenceClock>(clock);
        return S_OK;
    }
    STDMETHODIMP GetSyncSource(IReferenceClock** clock) override {
        *clock = clock_.get();
        if (*clock != nullptr) {
            (*clock)->AddRef();
        }
        return S_OK;
    }
    STDMETHODIMP EnumPins(IEnumPins** pins) override {
        *pins = new (std::nothrow) OnePin(PinSource{ComPtr<IPin>(&pin_)});
        return *pins != nullptr ? S_OK : E_OUTOFMEMORY;
    }
    STDMETHODIMP FindPin(LPCWSTR id, IPin** pin) override {
        *pin = lstrcmpW(id, kPinName) == 0 ? &pin_ : nullptr;
        if (*pin == nullptr) {
            return VFW_E_NOT_FOUND;
        }
        (*pin)->AddRef();
        return S_OK;
    }
    STDMETHODIMP QueryFilterInfo(FILTER_INFO* info) override {
        lstrcpynW(info->achName, name_.c_str(), MAX_FILTER_NAME);
        info->pGraph = graph_;
        if (graph_ != nullptr) {
            graph_->AddRef();
        }
        return S_OK;
    }
    STDMETHODIMP JoinFilterGraph(IFilterGraph* graph, LPCWSTR name) override {
        graph_ = graph;  // not counted: the graph holds its filters
        name_ = name != nullptr ? name : L"";
        return S_OK;
    }
    STDMETHODIMP QueryVendorInfo(LPWSTR*) override { return E_NOTIMPL; }

  private:
    HRESULT enter(FILTER_STATE state) {
        state_ = state;
        return S_OK;
    }

    SourcePin pin_;
    FILTER_STATE state_ = State_Stopped;
    ComPtr<IReferenceClock> clock_;
    IFilterGraph* graph_ = nullptr;
    std::wstring name_;
};

}  // namespace

ComPtr<IBaseFilter> createFileSource(std::unique_ptr<FileStream> stream) {
    ComPtr<IBaseFilter> filter;
    *filter.put() = new FileSource(std::move(stream));
    return filter;
}

ComPtr<IPin> findPin(IBaseFilter* filter, PIN_DIRECTION direction) {
    ComPtr<IEnumPins> pins;
    if (FAILED(filter->EnumPins(pins.put()))) {
        return {};
    }
    ComPtr<IPin> pin;
    while (pins->Next(1, pin.put(), nullptr) == S_OK) {
        PIN_DIRECTION its = PINDIR_INPUT;
        if (SUCCEEDED(pin->QueryDirection(&its)) && its == direction) {
            return pin;
        }
    }
    return {};
}

}  // namespace media
