#include "output/CompanyTexts.h"

#include "platform/Text.h"
#include "settings/AppProperties.h"

#include <string_view>

namespace tollvane {

namespace {

constexpr std::string_view kLineBreak = "\r\n";

std::string lineUnlessEmpty(const std::string& text) {
    return text.empty() ? std::string() : text + std::string(kLineBreak);
}

/// A zip behind a city without a state follows it without a separator.
std::string cityLine(const std::string& city, const std::string& state, const std::string& zip) {
    std::string line = city;
    if (!state.empty()) {
        line += (city.empty() ? "" : ", ") + state;
        line += (zip.empty() ? "" : " ") + zip;
        return line;
    }
    return line + zip;
}

} // namespace

std::string companyAddressBlock(const Desktop& desktop) {
    AppProperties settings(desktop);
    return lineUnlessEmpty(settings.CompanyName()) + lineUnlessEmpty(settings.CompanyStreet()) +
           lineUnlessEmpty(settings.CompanyAdditionalAddress()) +
           cityLine(settings.CompanyCity(), settings.CompanyState(), settings.CompanyZip()) +
           std::string(kLineBreak) + settings.CompanyPhone();
}

std::string defaultInvoiceNumber(const Desktop& desktop) {
    const DateTime now = desktop.clock.now();
    AppProperties settings(desktop);
    return zeroPadded(now.year % 100, 2) + zeroPadded(now.month, 2) + zeroPadded(now.day, 2) +
           std::to_string(now.hour) + std::to_string(now.minute) + std::to_string(now.second) +
           zeroPadded(settings.CompanyLocation(), 3);
}

} // namespace tollvane
