#pragma once

#include <windows.h>

#include <objbase.h>

#include <cstddef>
#include <utility>

#include "platform/error.h"

namespace platform {

/// Throws Error with the name of the call when `result` is a failure.
inline void checkResult(HRESULT result, const char* call) {
    if (FAILED(result)) {
        throw Error(call, static_cast<unsigned long>(result));
    }
}

/// The calling thread takes part in COM as long as the object lives. Objects nest; every thread needs its
/// own. A worker thread keeps one for its whole life, or every call would load and unload the servers anew.
/// A thread that is already in the other kind of apartment stays there; its calls work all the same.
class ComApartment {
  public:
    enum class Kind { MultiThreaded, SingleThreaded };

    explicit ComApartment(Kind kind = Kind::MultiThreaded)
        : result_(CoInitializeEx(
              nullptr, kind == Kind::MultiThreaded ? COINIT_MULTITHREADED : COINIT_APARTMENTTHREADED)) {
        if (result_ != RPC_E_CHANGED_MODE) {
            checkResult(result_, "CoInitializeEx");
        }
    }
    ~ComApartment() {
        if (SUCCEEDED(result_)) {
            CoUninitialize();
        }
    }
    ComApartment(const ComApartment&) = delete;
    ComApartment& operator=(const ComApartment&) = delete;

  private:
    HRESULT result_;
};

/// One counted reference to a COM object, or none.
template <typename T>
class ComPtr {
  public:
    ComPtr() = default;
    ComPtr(std::nullptr_t) {}
    /// Takes a further reference.
    explicit ComPtr(T* object) : object_(object) { addRef(); }
    ComPtr(const ComPtr& other) : object_(other.object_) { addRef(); }
    ComPtr(ComPtr&& other) noexcept : object_(std::exchange(other.object_, nullptr)) {}
    ComPtr& operator=(ComPtr other) noexcept {
        std::swap(object_, other.object_);
        return *this;
    }
    ~ComPtr() { reset(); }

    void reset() {
        if (T* object = std::exchange(object_, nullptr)) {
            object->Release();
        }
    }

    T* get() const { return object_; }
    T* operator->() const { return object_; }
    explicit operator bool() const { return object_ != nullptr; }

    /// Where a call that returns an object writes it; what was held is released first.
    T** put() {
        reset();
        return &object_;
    }
    void** putVoid() { return reinterpret_cast<void**>(put()); }

    /// The object's other interface U, or none when it has none. `id` is for interfaces that the
    /// compiler knows no id of.
    template <typename U>
    ComPtr<U> as(REFIID id = __uuidof(U)) const {
        ComPtr<U> other;
        if (object_ != nullptr && FAILED(object_->QueryInterface(id, other.putVoid()))) {
            return {};
        }
        return other;
    }

    /// A new object of a registered class. Throws Error.
    static ComPtr create(REFCLSID classId, REFIID id = __uuidof(T)) {
        ComPtr object;
        checkResult(CoCreateInstance(classId, nullptr, CLSCTX_INPROC_SERVER, id, object.putVoid()),
                    "CoCreateInstance");
        return object;
    }

  private:
    void addRef() {
        if (object_ != nullptr) {
            object_->AddRef();
        }
    }

    T* object_ = nullptr;
};

}  // namespace platform
