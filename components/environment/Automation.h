// Late-bound calls on another component.
#pragma once

#include "components/common/ComPtr.h"
#include "components/common/ComText.h"
#include "components/common/ComponentError.h"

#include <initializer_list>
#include <string>
#include <string_view>

namespace tollvane::environment {

// Arguments that stay with the caller for the time of the call.
[[nodiscard]] VARIANT argument(LONG value) noexcept;
[[nodiscard]] VARIANT argument(bool value) noexcept;
[[nodiscard]] VARIANT argument(const com::Bstr& text) noexcept;
[[nodiscard]] VARIANT argument(BSTR text) noexcept;
[[nodiscard]] VARIANT argument(CY value) noexcept;

// A call that did not reach the component, or that it has no member for: only the system says why.
class BareFailure : public com::ComponentError {
public:
    explicit BareFailure(HRESULT result);
};

// One object of another component. Everything raises ComponentError with the number, the source and
// the description that the component gave, or BareFailure.
class Remote {
public:
    explicit Remote(com::ComPtr<IDispatch> object);

    com::Variant call(const wchar_t* name, std::initializer_list<VARIANT> arguments = {}) const;
    [[nodiscard]] Remote object(const wchar_t* name,
                                std::initializer_list<VARIANT> arguments = {}) const;
    [[nodiscard]] com::ComPtr<IDispatch> pointer(const wchar_t* name,
                                                 std::initializer_list<VARIANT> arguments) const;
    void put(const wchar_t* name, VARIANT value) const;
    [[nodiscard]] std::wstring text(const wchar_t* name,
                                    std::initializer_list<VARIANT> arguments = {}) const;
    [[nodiscard]] LONG number(const wchar_t* name,
                              std::initializer_list<VARIANT> arguments = {}) const;
    // By the member's own number, which saves asking for it.
    [[nodiscard]] LONG number(DISPID member, std::initializer_list<VARIANT> arguments) const;
    [[nodiscard]] bool flag(const wchar_t* name,
                            std::initializer_list<VARIANT> arguments = {}) const;

private:
    [[nodiscard]] DISPID memberOf(const wchar_t* name) const;
    com::Variant call(DISPID member, std::initializer_list<VARIANT> arguments) const;
    com::Variant invoke(DISPID member, WORD way, DISPPARAMS& parameters) const;

    com::ComPtr<IDispatch> object_;
};

} // namespace tollvane::environment
