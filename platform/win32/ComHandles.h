#pragma once

#include <windows.h>

#include <oleauto.h>

#include <string_view>
#include <utility>

#ifdef __MINGW32__
extern "C" void SetOaNoCache(); // its headers leave it out
#endif

namespace tollvane::win32 {

/// COM on this thread for as long as the object lives: a single-threaded apartment. Texts that are
/// freed on either side of a call are not kept for reuse from then on: they go back to the heap,
/// where wipeFreedMemory reaches those that somebody else freed unwiped.
class ComApartment {
public:
    ComApartment() : entered_(SUCCEEDED(CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED))) {
        SetOaNoCache();
    }
    ComApartment(const ComApartment&) = delete;
    ComApartment& operator=(const ComApartment&) = delete;
    ~ComApartment() {
        if (entered_) {
            CoUninitialize();
        }
    }

private:
    bool entered_;
};

/// Move-only holder of one reference to an interface.
template <class Interface>
class ComRef {
public:
    ComRef() = default;
    /// Takes over the reference that the caller holds.
    explicit ComRef(Interface* held) : held_(held) {}
    ComRef(ComRef&& other) noexcept : held_(std::exchange(other.held_, nullptr)) {}
    ComRef& operator=(ComRef&& other) noexcept {
        std::swap(held_, other.held_);
        return *this;
    }
    ComRef(const ComRef&) = delete;
    ComRef& operator=(const ComRef&) = delete;
    ~ComRef() {
        if (held_) {
            held_->Release();
        }
    }

    Interface* get() const { return held_; }
    Interface* operator->() const { return held_; }
    explicit operator bool() const { return held_ != nullptr; }
    /// For calls that hand out a reference; only while empty.
    void** receive() { return reinterpret_cast<void**>(&held_); }

private:
    Interface* held_ = nullptr;
};

/// Owner of a BSTR. The text is overwritten before it is freed, since the system keeps freed
/// strings for reuse and any of them may have held card data.
class Bstr {
public:
    Bstr() = default;
    /// Widens 8-bit text of the process code page without an intermediate copy.
    explicit Bstr(std::string_view text);
    Bstr(const Bstr&) = delete;
    Bstr& operator=(const Bstr&) = delete;
    ~Bstr() { freeWiped(held_); }

    BSTR get() const { return held_; }
    BSTR release() { return std::exchange(held_, nullptr); }
    BSTR* receive() { return &held_; }

    static void freeWiped(BSTR text) noexcept;

private:
    BSTR held_ = nullptr;
};

/// Owner of a VARIANT's content; texts are overwritten before they are freed.
class VariantHolder {
public:
    VariantHolder() { VariantInit(&held_); }
    VariantHolder(VariantHolder&& other) noexcept : held_(other.held_) {
        VariantInit(&other.held_);
    }
    VariantHolder(const VariantHolder&) = delete;
    VariantHolder& operator=(const VariantHolder&) = delete;
    VariantHolder& operator=(VariantHolder&&) = delete;
    ~VariantHolder();

    VARIANT& get() { return held_; }
    const VARIANT& get() const { return held_; }

private:
    VARIANT held_{};
};

} // namespace tollvane::win32
