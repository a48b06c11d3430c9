#include "platform/win32/ComHandles.h"

#include "platform/SecretText.h"

#include <new>

namespace tollvane::win32 {

Bstr::Bstr(std::string_view text) {
    const int given = static_cast<int>(text.size());
    const int needed = MultiByteToWideChar(CP_ACP, 0, text.data(), given, nullptr, 0);
    held_ = SysAllocStringLen(nullptr, static_cast<UINT>(needed));
    if (!held_) {
        throw std::bad_alloc();
    }
    MultiByteToWideChar(CP_ACP, 0, text.data(), given, held_, needed);
}

void Bstr::freeWiped(BSTR text) noexcept {
    if (text) {
        wipeMemory(text, SysStringByteLen(text));
        SysFreeString(text);
    }
}

VariantHolder::~VariantHolder() {
    if (V_VT(&held_) == VT_BSTR) {
        Bstr::freeWiped(V_BSTR(&held_));
        VariantInit(&held_);
    }
    VariantClear(&held_);
}

} // namespace tollvane::win32
