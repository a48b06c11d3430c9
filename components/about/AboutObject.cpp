#include "components/about/AboutObject.h"

#include "components/about/AboutDialog.h"
#include "components/common/ComFailure.h"

namespace tollvane::about {

namespace {

// Window handles have 32 significant bits, whatever the size of a pointer.
HWND windowOf(LONG handle) {
    const HWND window = reinterpret_cast<HWND>(static_cast<LONG_PTR>(handle));
    return IsWindow(window) ? window : nullptr;
}

} // namespace

HRESULT AboutObject::ShowAbout(VARIANT_BOOL withComponents, LONG owner) {
    return com::guarded(interfaceId(), "Norrow_About", [&] {
        AboutDialog dialog(readProduct(), withComponents != VARIANT_FALSE);
        dialog.run(windowOf(owner));
    });
}

} // namespace tollvane::about
