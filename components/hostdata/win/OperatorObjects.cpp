#include "components/hostdata/win/OperatorObjects.h"

namespace tollvane::hostdata {

HRESULT SignInAnswerObject::get_Succeeded(VARIANT_BOOL* succeeded) {
    return serve([&] { com::give(succeeded, !answer_.token.empty()); });
}

HRESULT SignInAnswerObject::get_Token(BSTR* token) {
    return serve([&] { give(token, answer_.token); });
}

HRESULT SignInAnswerObject::get_UserName(BSTR* name) {
    return serve([&] { give(name, answer_.who.userName); });
}

HRESULT SignInAnswerObject::get_First(BSTR* name) {
    return serve([&] { give(name, answer_.who.firstName); });
}

HRESULT SignInAnswerObject::get_Last(BSTR* name) {
    return serve([&] { give(name, answer_.who.lastName); });
}

HRESULT SignInAnswerObject::get_WaitMilliseconds(LONG* milliseconds) {
    return serve(
        [&] { com::give(milliseconds, static_cast<std::int32_t>(answer_.waitMilliseconds)); });
}

HRESULT SignInAnswerObject::get_Examined(VARIANT_BOOL* examined) {
    return serve([&] { com::give(examined, answer_.examined); });
}

HRESULT OperatorObject::get_Id(LONG* id) {
    return serve([&] { com::give(id, static_cast<std::int32_t>(who_.id)); });
}

HRESULT OperatorObject::get_UserName(BSTR* name) {
    return serve([&] { give(name, who_.userName); });
}

HRESULT OperatorObject::get_First(BSTR* name) {
    return serve([&] { give(name, who_.firstName); });
}

HRESULT OperatorObject::get_Last(BSTR* name) {
    return serve([&] { give(name, who_.lastName); });
}

HRESULT OperatorObject::get_Enabled(VARIANT_BOOL* enabled) {
    return serve([&] { com::give(enabled, who_.enabled); });
}

HRESULT OperatorObject::HasPrivilege(LONG number, VARIANT_BOOL* held) {
    return serve([&] { com::give(held, who_.privileges.contains(static_cast<int>(number))); });
}

HRESULT OperatorsObject::get_Item(LONG index, IDispatch** who) {
    return serve([&] {
        if (index < 1 || static_cast<std::size_t>(index) > operators_.size())
            throw HostDataError(Failure::unknownOperator, "There is no operator at this place.");
        giveObject<OperatorObject>(who, operators_[static_cast<std::size_t>(index) - 1]);
    });
}

HRESULT OperatorsObject::get_Count(LONG* count) {
    return serve([&] { com::give(count, static_cast<std::int32_t>(operators_.size())); });
}

} // namespace tollvane::hostdata
