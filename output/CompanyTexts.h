#pragma once

#include "platform/Desktop.h"

#include <string>

namespace tollvane {

/// The company's name and address from the settings, one line each ("\r\n"), the phone last.
std::string companyAddressBlock(const Desktop& desktop);

/// A number for an invoice that has none: date, time and the company's location number. Its length
/// varies, since hour, minute and second carry no leading zero.
std::string defaultInvoiceNumber(const Desktop& desktop);

} // namespace tollvane
