#include "components/common/ComText.h"

#include "components/common/ComFailure.h"

#include <new>
#include <utility>

namespace tollvane::com {

std::string narrow(std::wstring_view text) {
    if (text.empty())
        return {};
    const int length = static_cast<int>(text.size());
    const int needed =
        WideCharToMultiByte(CP_ACP, 0, text.data(), length, nullptr, 0, nullptr, nullptr);
    std::string result(static_cast<std::size_t>(needed), '\0');
    WideCharToMultiByte(CP_ACP, 0, text.data(), length, result.data(), needed, nullptr, nullptr);
    return result;
}

std::wstring widen(std::string_view text) {
    if (text.empty())
        return {};
    const int length = static_cast<int>(text.size());
    const int needed = MultiByteToWideChar(CP_ACP, 0, text.data(), length, nullptr, 0);
    std::wstring result(static_cast<std::size_t>(needed), L'\0');
    MultiByteToWideChar(CP_ACP, 0, text.data(), length, result.data(), needed);
    return result;
}

std::wstring_view view(BSTR text) noexcept {
    return text ? std::wstring_view(text, SysStringLen(text)) : std::wstring_view();
}

std::string narrow(BSTR text) {
    return narrow(view(text));
}

void wipe(BSTR text) noexcept {
    if (text)
        SecureZeroMemory(text, SysStringByteLen(text));
}

namespace {

BSTR allocate(std::wstring_view text) {
    BSTR result = SysAllocStringLen(text.data(), static_cast<UINT>(text.size()));
    if (!result)
        throw std::bad_alloc();
    return result;
}

void requireOut(const void* out) {
    if (!out)
        throwFailure(E_POINTER);
}

} // namespace

Bstr::Bstr(std::wstring_view text) : text_(allocate(text)) {}

// Converts in place: card data leaves no copy behind.
Bstr::Bstr(std::string_view text) {
    const int length = static_cast<int>(text.size());
    const int needed =
        length > 0 ? MultiByteToWideChar(CP_ACP, 0, text.data(), length, nullptr, 0) : 0;
    text_ = SysAllocStringLen(nullptr, static_cast<UINT>(needed));
    if (!text_)
        throw std::bad_alloc();
    if (needed > 0)
        MultiByteToWideChar(CP_ACP, 0, text.data(), length, text_, needed);
}

Bstr::Bstr(Bstr&& other) noexcept : text_(std::exchange(other.text_, nullptr)) {}

Bstr& Bstr::operator=(Bstr&& other) noexcept {
    std::swap(text_, other.text_);
    return *this;
}

Bstr::~Bstr() {
    SysFreeString(text_);
}

BSTR* Bstr::put() noexcept {
    SysFreeString(std::exchange(text_, nullptr));
    return &text_;
}

BSTR Bstr::release() noexcept {
    return std::exchange(text_, nullptr);
}

void give(BSTR* out, std::string_view text) {
    requireOut(out);
    *out = nullptr;
    *out = Bstr(text).release();
}

void give(VARIANT_BOOL* out, bool value) {
    requireOut(out);
    *out = value ? VARIANT_TRUE : VARIANT_FALSE;
}

void give(LONG* out, std::int32_t value) {
    requireOut(out);
    *out = value;
}

Variant::Variant(bool value) noexcept : Variant() {
    V_VT(&value_) = VT_BOOL;
    V_BOOL(&value_) = value ? VARIANT_TRUE : VARIANT_FALSE;
}

Variant::Variant(std::int32_t value) noexcept : Variant() {
    V_VT(&value_) = VT_I4;
    V_I4(&value_) = value;
}

Variant::Variant(std::string_view text) : Variant() {
    V_BSTR(&value_) = Bstr(text).release();
    V_VT(&value_) = VT_BSTR;
}

Variant::Variant(IDispatch* object) noexcept : Variant() {
    V_VT(&value_) = VT_DISPATCH;
    V_DISPATCH(&value_) = object;
    if (object)
        object->AddRef();
}

Variant::Variant(Variant&& other) noexcept : value_(other.release()) {}

Variant& Variant::operator=(Variant&& other) noexcept {
    std::swap(value_, other.value_);
    return *this;
}

VARIANT* Variant::put() noexcept {
    VariantClear(&value_);
    return &value_;
}

VARIANT Variant::release() noexcept {
    VARIANT result = value_;
    VariantInit(&value_);
    return result;
}

} // namespace tollvane::com
