// Texts from automation clients into the transaction, leaving no copy behind.
#pragma once

#include "components/charge/core/ChargeService.h"
#include "components/common/ComText.h"
#include "platform/SecretText.h"

#include <string>

namespace tollvane::charge {

// Source of the component's errors where no room of it is named.
inline constexpr const char* componentSource = "Zendacard";

inline void setField(ChargeService& service, Field field, BSTR value) {
    std::string text = com::narrow(value);
    service.fields().set(field, text);
    wipe(text);
}

inline SecretText secretFrom(BSTR value) {
    std::string text = com::narrow(value);
    SecretText secret(text);
    wipe(text);
    return secret;
}

} // namespace tollvane::charge
