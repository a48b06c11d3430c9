#pragma once

#include "platform/Desktop.h"

namespace tollvane {

/// The maker's About box, in front of `owner`. A component that cannot be created, and everything
/// else that goes wrong, is told to the operator; nothing is raised for it.
void showAbout(const Desktop& desktop, WindowNumber owner);

} // namespace tollvane
