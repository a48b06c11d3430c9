#pragma once

#include "platform/Automation.h"
#include "platform/win32/ComHandles.h"

namespace tollvane::win32 {

/// A component's object behind its late-bound interface.
class Win32Object final : public AutomationObject {
public:
    explicit Win32Object(ComRef<IDispatch> dispatch) : dispatch_(std::move(dispatch)) {}

    using AutomationObject::call;
    using AutomationObject::get;

    Variant call(std::string_view member, std::vector<Argument> arguments) override;
    Variant get(std::string_view member, std::vector<Argument> arguments) override;
    void put(std::string_view member, Variant value) override;
    void putReference(std::string_view member, ObjectRef object) override;

    IDispatch* dispatch() const { return dispatch_.get(); }

private:
    Variant invoke(std::string_view member, std::vector<Argument>& arguments, WORD how);

    ComRef<IDispatch> dispatch_;
};

} // namespace tollvane::win32
