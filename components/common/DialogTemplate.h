// The system's in-memory form of a dialog.
#pragma once

#include "components/common/ModalDialog.h"

#include <vector>

namespace tollvane::com {

// In the system's message font. Raises nothing but std::bad_alloc.
std::vector<BYTE> dialogTemplate(const DialogLayout& layout);

} // namespace tollvane::com
