// Text and values at the COM boundary: BSTR and VARIANT owners, and the way between wide text and
// the 8-bit text that the components use inside.
#pragma once

#include <windows.h>

#include <oleauto.h>

#include <cstdint>
#include <string>
#include <string_view>

namespace tollvane::com {

// Between UTF-16 and the process's code page. Characters without a counterpart become "?".
std::string narrow(std::wstring_view text);
std::wstring widen(std::string_view text);

// The text of a BSTR that the caller owns; a null BSTR is the empty text.
std::string narrow(BSTR text);
std::wstring_view view(BSTR text) noexcept;

// Overwrites a BSTR that somebody else owns with zeros, keeping its length.
void wipe(BSTR text) noexcept;

// Move-only owner of a BSTR.
class Bstr {
public:
    Bstr() = default;
    explicit Bstr(BSTR owned) noexcept : text_(owned) {}
    // Both throw std::bad_alloc when there is no memory.
    explicit Bstr(std::wstring_view text);
    explicit Bstr(std::string_view text);
    Bstr(Bstr&& other) noexcept;
    Bstr& operator=(Bstr&& other) noexcept;
    Bstr(const Bstr&) = delete;
    Bstr& operator=(const Bstr&) = delete;
    ~Bstr();

    BSTR get() const noexcept { return text_; }
    BSTR* put() noexcept;
    BSTR release() noexcept;

private:
    BSTR text_ = nullptr;
};

// Hands text to a caller through an out argument; throws ComponentError for a null pointer.
void give(BSTR* out, std::string_view text);
void give(VARIANT_BOOL* out, bool value);
void give(LONG* out, std::int32_t value);

// Move-only owner of a VARIANT.
class Variant {
public:
    Variant() noexcept { VariantInit(&value_); }
    explicit Variant(bool value) noexcept;
    explicit Variant(std::int32_t value) noexcept;
    explicit Variant(std::string_view text);
    // An object; takes its own reference.
    explicit Variant(IDispatch* object) noexcept;
    Variant(Variant&& other) noexcept;
    Variant& operator=(Variant&& other) noexcept;
    Variant(const Variant&) = delete;
    Variant& operator=(const Variant&) = delete;
    ~Variant() { VariantClear(&value_); }

    const VARIANT& get() const noexcept { return value_; }
    VARIANT* put() noexcept;
    VARIANT release() noexcept;

private:
    VARIANT value_;
};

} // namespace tollvane::com
