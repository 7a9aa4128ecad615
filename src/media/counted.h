#pragma once

#include <windows.h>

#include <unknwn.h>

#include <atomic>
#include <new>
#include <utility>

namespace media {

/// Counts references for a heap object that implements one interface.
template <typename Interface>
class Counted : public Interface {
  public:
    virtual ~Counted() = default;
    STDMETHODIMP QueryInterface(REFIID id, void** object) override {
        if (object == nullptr) {
            return E_POINTER;
        }
        if (id != IID_IUnknown && id != __uuidof(Interface)) {
            *object = nullptr;
            return E_NOINTERFACE;
        }
        *object = static_cast<Interface*>(this);
        AddRef();
        return S_OK;
    }
    STDMETHODIMP_(ULONG) AddRef() override { return ++references_; }
    STDMETHODIMP_(ULONG) Release() override {
        const ULONG left = --references_;
        if (left == 0) {
            delete this;
        }
        return left;
    }

  private:
    std::atomic<ULONG> references_{1};
};

/// Gives out the only thing that there is to enumerate. `Source` makes it, or a reference to it.
template <typename Interface, typename Thing, typename Source>
class OneOf : public Counted<Interface> {
  public:
    explicit OneOf(Source source, bool given = false) : source_(std::move(source)), given_(given) {}
    STDMETHODIMP Next(ULONG wanted, Thing** things, ULONG* fetched) override {
        ULONG count = 0;
        if (wanted > 0 && !given_) {
            things[0] = source_();
            if (things[0] == nullptr) {
                return E_OUTOFMEMORY;
            }
            given_ = true;
            count = 1;
        }
        if (fetched != nullptr) {
            *fetched = count;
        }
        return count == wanted ? S_OK : S_FALSE;
    }
    STDMETHODIMP Skip(ULONG count) override {
        const bool enough = count <= (given_ ? 0u : 1u);
        given_ = given_ || count > 0;
        return enough ? S_OK : S_FALSE;
    }
    STDMETHODIMP Reset() override {
        given_ = false;
        return S_OK;
    }
    STDMETHODIMP Clone(Interface** copy) override {
        *copy = new (std::nothrow) OneOf(source_, given_);
        return *copy != nullptr ? S_OK : E_OUTOFMEMORY;
    }

  private:
    Source source_;
    bool given_;
};

}  // namespace media
