#pragma once

#include "platform/DateTime.h"
#include "platform/Money.h"
#include "platform/SecretText.h"

#include <cstdint>
#include <memory>
#include <string>
#include <utility>
#include <variant>

namespace tollvane {

class AutomationObject;
/// A shared, counted reference to a component's object; empty means "nothing".
using ObjectRef = std::shared_ptr<AutomationObject>;

/// A value that crosses to or from a component. SecretText travels as text; the adapter wipes the
/// copies that it makes of it.
using Variant = std::variant<std::monostate, bool, std::int32_t, double, Money, DateTime,
                             std::string, SecretText, ObjectRef>;

/// One argument of a component's operation.
struct Argument {
    Variant value;
    bool byReference = false; ///< handed over as a reference that the component may write to
};

/// Conversions of a component's answer. All raise 13 when the type does not convert and 6 when the
/// number does not fit. Empty reads as false, 0, no amount and "". Fractions round half to even.
/// Numbers in a text are read with the default MoneyStyle, except by asMoney. A secret converts to
/// nothing but a secret, and a date only to text ("2027-03-01 10:30:00").
bool asBool(const Variant& value);
std::int32_t asInt(const Variant& value);
std::string asText(const Variant& value);
SecretText asSecret(const Variant& value);
Money asMoney(const Variant& value, const MoneyStyle& style);
ObjectRef asObject(const Variant& value); ///< 13 also for "nothing"

} // namespace tollvane
