#include "components/hostdata/payments/PaymentFields.h"

#include "components/hostdata/HostDataError.h"
#include "components/hostdata/operators/OperatorRules.h"

#include <algorithm>

namespace tollvane::hostdata {

namespace {

constexpr std::ptrdiff_t kAccountDigits = 4;

[[noreturn]] void refuse(const FieldDefinition& field, const std::string& why) {
    throw HostDataError(Failure::badFieldValue,
                        "The field \"" + std::string(field.name) + "\" " + why);
}

void checkText(const FieldDefinition& field, const std::string& text) {
    const auto length = std::count_if(text.begin(), text.end(), [](char c) {
        return (static_cast<unsigned char>(c) & 0xC0) != 0x80;
    });
    if (static_cast<std::size_t>(length) > field.longest)
        refuse(field, "may have at most " + std::to_string(field.longest) + " characters.");
    const auto digits =
        std::count_if(text.begin(), text.end(), [](char c) { return c >= '0' && c <= '9'; });
    if (std::string_view(field.name) == "Account" && digits > kAccountDigits)
        refuse(field, "takes a masked card number: only its last four digits.");
}

} // namespace

std::size_t paymentField(std::string_view name) {
    const std::string wanted = lowered(std::string(name));
    const auto* found =
        std::find_if(kPaymentFields.begin(), kPaymentFields.end(),
                     [&](const FieldDefinition& field) { return lowered(field.name) == wanted; });
    if (found == kPaymentFields.end())
        throw HostDataError(Failure::unknownField, "A payment record has no field \"" +
                                                       std::string(name.substr(0, 40)) + "\".");
    return static_cast<std::size_t>(found - kPaymentFields.begin());
}

void checkFieldValue(const FieldDefinition& field, const FieldValue& value) {
    if (!field.writable)
        throw HostDataError(Failure::readOnlyField, "The field \"" + std::string(field.name) +
                                                        "\" is filled by the store itself.");
    if (std::holds_alternative<std::monostate>(value))
        return;
    const bool text = std::holds_alternative<std::string>(value);
    if (text != (field.type == FieldType::text))
        refuse(field, "does not take a value of this type.");
    if (text)
        checkText(field, std::get<std::string>(value));
}

} // namespace tollvane::hostdata
