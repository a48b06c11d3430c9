#pragma once

#include "platform/Form.h"

#include <span>

namespace tollvane {

/// The menu tree of the transaction form, the pop-up of `cmdModify` included.
std::span<const MenuDescription> chargeInfoMenus();

} // namespace tollvane
