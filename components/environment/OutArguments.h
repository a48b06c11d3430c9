// What a method of an interface hands to its caller.
#pragma once

#include "components/common/ComPtr.h"

#include <windows.h>

#include <oaidl.h>

#include <string>
#include <utility>

namespace tollvane::environment {

// Wide text, or an object. Raise ComponentError for a null pointer.
void give(BSTR* out, const std::wstring& text);
void give(IDispatch** out, com::ComPtr<IDispatch> object);

// A new object.
template <class Object, class... Arguments>
void giveObject(IDispatch** out, Arguments&&... arguments) {
    if (out != nullptr)
        *out = nullptr;
    give(out, com::ComPtr<IDispatch>(
                  com::makeObject<Object>(std::forward<Arguments>(arguments)...).release()));
}

} // namespace tollvane::environment
