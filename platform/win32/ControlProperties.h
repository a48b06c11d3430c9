#pragma once

#include "platform/Controls.h"

#include <string>

namespace tollvane::win32 {

/// Properties that some kinds of control lack.
enum class Property { visible, tabStop, locked, toolTip, foreColour, backColour, bounds, focus };

bool offers(ControlKind kind, Property property);

/// Raises 438 when the kind of control lacks the property.
void demand(ControlKind kind, Property property, const std::string& controlName);

/// The system's 0x00BBGGRR value of a colour.
unsigned long systemColour(Colour colour);

/// A kind's colours before anyone has set them.
Colour defaultForeColour(ControlKind kind);
Colour defaultBackColour(ControlKind kind);

} // namespace tollvane::win32
