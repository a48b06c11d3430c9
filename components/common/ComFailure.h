// The boundary between C++ exceptions and COM results.
#pragma once

#include "components/common/ComponentError.h"

#include <windows.h>

#include <utility>

namespace tollvane::com {

// What the system says about an error or result code, without line ends; never empty.
std::string systemText(DWORD code);

// Throws ComponentError for a failing result, with the system's text for it.
[[noreturn]] void throwFailure(HRESULT result);
[[noreturn]] void throwLastError(DWORD status = GetLastError());
void check(HRESULT result);

// To be called in a catch block: gives the caller an error object with source and description for
// the exception in flight and answers its number. Never throws.
HRESULT reportCurrentException(const IID& interfaceId, const char* defaultSource) noexcept;

// Runs the body of an interface method. defaultSource names the component for errors that carry no
// source of their own.
template <class Body>
HRESULT guarded(const IID& interfaceId, const char* defaultSource, Body&& body) noexcept {
    try {
        std::forward<Body>(body)();
        return S_OK;
    } catch (...) {
        return reportCurrentException(interfaceId, defaultSource);
    }
}

} // namespace tollvane::com
