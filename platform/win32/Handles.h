#pragma once

#include <windows.h>

#include <utility>

namespace tollvane::win32 {

/// Move-only owner of a system handle; `Traits` names the handle type, its empty value and how it
/// is given back.
template <class Traits>
class Owner {
public:
    using Handle = typename Traits::Handle;

    Owner() = default;
    explicit Owner(Handle handle) : handle_(handle) {}
    Owner(Owner&& other) noexcept : handle_(other.release()) {}
    Owner& operator=(Owner&& other) noexcept {
        if (this != &other) {
            reset(other.release());
        }
        return *this;
    }
    Owner(const Owner&) = delete;
    Owner& operator=(const Owner&) = delete;
    ~Owner() { reset(); }

    Handle get() const { return handle_; }
    explicit operator bool() const { return handle_ != Traits::empty(); }
    Handle release() { return std::exchange(handle_, Traits::empty()); }
    void reset(Handle handle = Traits::empty()) {
        const Handle old = std::exchange(handle_, handle);
        if (old != Traits::empty()) {
            Traits::close(old);
        }
    }

private:
    Handle handle_ = Traits::empty();
};

struct KernelTraits {
    using Handle = HANDLE;
    static Handle empty() { return nullptr; }
    static void close(Handle handle) { CloseHandle(handle); }
};
struct WindowTraits {
    using Handle = HWND;
    static Handle empty() { return nullptr; }
    static void close(Handle handle) { DestroyWindow(handle); }
};
struct MenuTraits {
    using Handle = HMENU;
    static Handle empty() { return nullptr; }
    static void close(Handle handle) { DestroyMenu(handle); }
};
struct FontTraits {
    using Handle = HFONT;
    static Handle empty() { return nullptr; }
    static void close(Handle handle) { DeleteObject(handle); }
};
struct BrushTraits {
    using Handle = HBRUSH;
    static Handle empty() { return nullptr; }
    static void close(Handle handle) { DeleteObject(handle); }
};
struct PenTraits {
    using Handle = HPEN;
    static Handle empty() { return nullptr; }
    static void close(Handle handle) { DeleteObject(handle); }
};
struct DeviceContextTraits {
    using Handle = HDC;
    static Handle empty() { return nullptr; }
    static void close(Handle handle) { DeleteDC(handle); }
};
struct IconTraits {
    using Handle = HICON;
    static Handle empty() { return nullptr; }
    static void close(Handle handle) { DestroyIcon(handle); }
};

using KernelHandle = Owner<KernelTraits>;
using WindowHandle = Owner<WindowTraits>;
using MenuHandle = Owner<MenuTraits>;
using FontHandle = Owner<FontTraits>;
using BrushHandle = Owner<BrushTraits>;
using PenHandle = Owner<PenTraits>;
/// A device context that was created, not one that was lent.
using DeviceContextHandle = Owner<DeviceContextTraits>;
using IconHandle = Owner<IconTraits>;

/// An object selected into a device context until the end of the block.
class SelectedObject {
public:
    SelectedObject(HDC context, HGDIOBJ object)
        : context_(context), before_(SelectObject(context, object)) {}
    SelectedObject(const SelectedObject&) = delete;
    SelectedObject& operator=(const SelectedObject&) = delete;
    ~SelectedObject() { SelectObject(context_, before_); }

private:
    HDC context_;
    HGDIOBJ before_;
};

} // namespace tollvane::win32
