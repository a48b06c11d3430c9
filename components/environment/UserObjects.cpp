#include "components/environment/UserObjects.h"

#include "components/common/ComFailure.h"

namespace tollvane::environment {

HRESULT PersonNameObject::get_First(BSTR* name) {
    return com::guarded(interfaceId(), kSource, [&] { give(name, first_); });
}

HRESULT PersonNameObject::get_Last(BSTR* name) {
    return com::guarded(interfaceId(), kSource, [&] { give(name, last_); });
}

HRESULT CurrentUserObject::get_Item(IDispatch** person) {
    return com::guarded(interfaceId(), kSource, [&] {
        const Session& session = state_->session();
        giveObject<PersonNameObject>(person, session.first, session.last);
    });
}

HRESULT OptionsObject::get_DCObject(IDispatch** server) {
    return com::guarded(interfaceId(), kSource, [&] { give(server, state_->offeredServer()); });
}

HRESULT OptionsObject::put_DCObject(IDispatch* server) {
    return com::guarded(interfaceId(), kSource,
                        [&] { state_->setServer(com::ComPtr<IDispatch>::share(server)); });
}

HRESULT OptionsObject::putref_DCObject(IDispatch* server) {
    return put_DCObject(server);
}

} // namespace tollvane::environment
