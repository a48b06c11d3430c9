// Between the wide text of automation and the UTF-8 text of the store.
#pragma once

#include "components/hostdata/operators/Secret.h"

#include <windows.h>

#include <oleauto.h>

#include <string>
#include <string_view>

namespace tollvane::hostdata {

[[nodiscard]] std::string utf8(std::wstring_view text);
[[nodiscard]] std::wstring wide(std::string_view text);

// The text of a BSTR that the caller owns; a null BSTR is the empty text.
[[nodiscard]] std::string utf8(BSTR text);
// The same for a password; the caller's BSTR is overwritten, since nobody needs it any more.
[[nodiscard]] Secret takeSecret(BSTR password);

// Hands text to the caller of an interface method.
void give(BSTR* out, std::string_view text);

} // namespace tollvane::hostdata
