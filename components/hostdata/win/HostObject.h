// Base of the server's objects: any thread may call them, and failures arrive as automation errors.
#pragma once

#include "components/common/ComFailure.h"
#include "components/common/ComText.h"
#include "components/common/DispatchObject.h"
#include "components/hostdata/HostDataError.h"
#include "components/hostdata/win/Utf8.h"

#include <utility>

namespace tollvane::hostdata {

constexpr const char* kSource = "dcZenda32";

template <class Interface>
class HostObject : public com::DispatchObject<Interface> {
protected:
    explicit HostObject(const IID& interfaceId) : com::DispatchObject<Interface>(interfaceId) {
        // The type description is loaded now: several threads may make the first call together.
        com::ComPtr<ITypeInfo> loaded;
        com::check(this->GetTypeInfo(0, 0, loaded.put()));
    }

    // Runs the body of an interface method.
    template <class Body>
    HRESULT serve(Body&& body) noexcept {
        return com::guarded(this->interfaceId(), kSource, [&] {
            try {
                body();
            } catch (const HostDataError& error) {
                throw com::ComponentError(static_cast<std::uint32_t>(error.number()), kSource,
                                          com::narrow(std::wstring_view(wide(error.what()))));
            }
        });
    }

    // Hands a new object to the caller.
    template <class Object, class... Arguments>
    static void giveObject(IDispatch** out, Arguments&&... arguments) {
        if (out == nullptr)
            com::throwFailure(E_POINTER);
        *out = nullptr;
        *out = com::makeObject<Object>(std::forward<Arguments>(arguments)...).release();
    }
};

} // namespace tollvane::hostdata
