// Move-only owner of one reference to a COM interface.
#pragma once

#include <windows.h>

#include <unknwn.h>

#include <utility>

namespace tollvane::com {

template <class Interface>
class ComPtr {
public:
    ComPtr() = default;
    // Takes over a reference that the caller already holds.
    explicit ComPtr(Interface* owned) noexcept : pointer_(owned) {}
    ComPtr(ComPtr&& other) noexcept : pointer_(std::exchange(other.pointer_, nullptr)) {}
    ComPtr& operator=(ComPtr&& other) noexcept {
        if (this != &other) {
            reset();
            pointer_ = std::exchange(other.pointer_, nullptr);
        }
        return *this;
    }
    ComPtr(const ComPtr&) = delete;
    ComPtr& operator=(const ComPtr&) = delete;
    ~ComPtr() { reset(); }

    // A second reference to an interface that somebody else owns; null stays null.
    static ComPtr share(Interface* borrowed) noexcept {
        if (borrowed)
            borrowed->AddRef();
        return ComPtr(borrowed);
    }

    Interface* get() const noexcept { return pointer_; }
    Interface* operator->() const noexcept { return pointer_; }
    explicit operator bool() const noexcept { return pointer_ != nullptr; }

    // For out arguments: drops what is held.
    Interface** put() noexcept {
        reset();
        return &pointer_;
    }
    void** putVoid() noexcept { return reinterpret_cast<void**>(put()); }

    Interface* release() noexcept { return std::exchange(pointer_, nullptr); }

    void reset() noexcept {
        if (Interface* old = std::exchange(pointer_, nullptr))
            old->Release();
    }

private:
    Interface* pointer_ = nullptr;
};

// The one place where objects come to life; they start with the one reference that is taken over.
// Throws what the constructor throws.
template <class Object, class... Arguments>
ComPtr<Object> makeObject(Arguments&&... arguments) {
    return ComPtr<Object>(new Object(std::forward<Arguments>(arguments)...));
}

} // namespace tollvane::com
