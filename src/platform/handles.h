#pragma once

#include <windows.h>

#include <array>
#include <atomic>
#include <cstddef>
#include <type_traits>
#include <utility>

namespace platform {

/// The kinds of system handle that the program owns, one for each way of releasing them.
enum class HandleKind {
    GdiObject,
    MemoryDc,
    WindowDc,
    Selection,
    Icon,
    Cursor,
    GlobalMemory,
    FindHandle,
    Object,
    Menu,
    ColourProfile,
    ColourTransform,
    Count
};

/// How many handles of each kind are owned right now; what the leak tests read.
class HandleCounts {
  public:
    static int live(HandleKind kind) { return counts()[static_cast<std::size_t>(kind)].load(); }
    static void add(HandleKind kind, int change) { counts()[static_cast<std::size_t>(kind)] += change; }

  private:
    static std::array<std::atomic<int>, static_cast<std::size_t>(HandleKind::Count)>& counts() {
        static std::array<std::atomic<int>, static_cast<std::size_t>(HandleKind::Count)> all{};
        return all;
    }
};

/// The one owner of a handle: movable, not copyable, released at the end of its life.
/// `Traits` gives the type, the kind, the value that means "none" and the call that releases.
template <typename Traits>
class Owned {
  public:
    using Handle = typename Traits::Handle;

    Owned() = default;
    explicit Owned(Handle handle) : handle_(handle) { count(+1); }
    Owned(Owned&& other) noexcept : handle_(std::exchange(other.handle_, Traits::none())) {}
    Owned& operator=(Owned&& other) noexcept {
        if (this != &other) {
            reset();
            handle_ = std::exchange(other.handle_, Traits::none());
        }
        return *this;
    }
    Owned(const Owned&) = delete;
    Owned& operator=(const Owned&) = delete;
    ~Owned() { reset(); }

    Handle get() const { return handle_; }
    explicit operator bool() const { return handle_ != Traits::none(); }

    void reset() {
        if (handle_ != Traits::none()) {
            count(-1);
            Traits::release(std::exchange(handle_, Traits::none()));
        }
    }

    /// Gives the handle away: the system or another owner releases it from now on.
    Handle detach() {
        count(-1);
        return std::exchange(handle_, Traits::none());
    }

  private:
    void count(int change) const {
        if (handle_ != Traits::none()) {
            HandleCounts::add(Traits::kind, change);
        }
    }

    Handle handle_ = Traits::none();
};

template <typename T, HandleKind Kind>
struct NullHandleTraits {
    using Handle = T;
    static constexpr HandleKind kind = Kind;
    static Handle none() { return nullptr; }
};

template <typename T>
struct GdiObjectTraits : NullHandleTraits<T, HandleKind::GdiObject> {
    static void release(T handle) { DeleteObject(handle); }
};
struct MemoryDcTraits : NullHandleTraits<HDC, HandleKind::MemoryDc> {
    static void release(HDC handle) { DeleteDC(handle); }
};
struct IconTraits : NullHandleTraits<HICON, HandleKind::Icon> {
    static void release(HICON handle) { DestroyIcon(handle); }
};
struct CursorTraits : NullHandleTraits<HCURSOR, HandleKind::Cursor> {
    static void release(HCURSOR handle) { DestroyCursor(handle); }
};
struct GlobalMemoryTraits : NullHandleTraits<HGLOBAL, HandleKind::GlobalMemory> {
    static void release(HGLOBAL handle) { GlobalFree(handle); }
};
struct MenuTraits : NullHandleTraits<HMENU, HandleKind::Menu> {
    static void release(HMENU handle) { DestroyMenu(handle); }
};
/// Kernel objects that say "none" with null: processes, threads, events, waitable timers.
struct ObjectTraits : NullHandleTraits<HANDLE, HandleKind::Object> {
    static void release(HANDLE handle) { CloseHandle(handle); }
};
/// Files say "none" with INVALID_HANDLE_VALUE.
struct FileTraits {
    using Handle = HANDLE;
    static constexpr HandleKind kind = HandleKind::Object;
    static Handle none() { return INVALID_HANDLE_VALUE; }
    static void release(HANDLE handle) { CloseHandle(handle); }
};
struct FindTraits {
    using Handle = HANDLE;
    static constexpr HandleKind kind = HandleKind::FindHandle;
    static Handle none() { return INVALID_HANDLE_VALUE; }
    static void release(HANDLE handle) { FindClose(handle); }
};

using Font = Owned<GdiObjectTraits<HFONT>>;
using Brush = Owned<GdiObjectTraits<HBRUSH>>;
using Pen = Owned<GdiObjectTraits<HPEN>>;
using Bitmap = Owned<GdiObjectTraits<HBITMAP>>;
using Region = Owned<GdiObjectTraits<HRGN>>;
using MemoryDc = Owned<MemoryDcTraits>;
using Icon = Owned<IconTraits>;
using Cursor = Owned<CursorTraits>;
using GlobalMemory = Owned<GlobalMemoryTraits>;
using Menu = Owned<MenuTraits>;
using Object = Owned<ObjectTraits>;
using File = Owned<FileTraits>;
using FindHandle = Owned<FindTraits>;

static_assert(!std::is_copy_constructible_v<Font> && !std::is_copy_assignable_v<Font>);
static_assert(!std::is_copy_constructible_v<File> && !std::is_copy_assignable_v<File>);

/// The device context of a window's client area, given back at the end of the scope.
class WindowDc {
  public:
    explicit WindowDc(HWND window) : window_(window), dc_(GetDC(window)) {
        HandleCounts::add(HandleKind::WindowDc, +1);
    }
    ~WindowDc() {
        HandleCounts::add(HandleKind::WindowDc, -1);
        ReleaseDC(window_, dc_);
    }
    WindowDc(const WindowDc&) = delete;
    WindowDc& operator=(const WindowDc&) = delete;
    HDC get() const { return dc_; }

  private:
    HWND window_;
    HDC dc_;
};

/// An object selected into a device context, and the former one selected back at the end of the scope.
class Selection {
  public:
    Selection(HDC dc, HGDIOBJ object) : dc_(dc), former_(SelectObject(dc, object)) {
        HandleCounts::add(HandleKind::Selection, +1);
    }
    ~Selection() {
        HandleCounts::add(HandleKind::Selection, -1);
        SelectObject(dc_, former_);
    }
    Selection(const Selection&) = delete;
    Selection& operator=(const Selection&) = delete;

  private:
    HDC dc_;
    HGDIOBJ former_;
};

}  // namespace platform
