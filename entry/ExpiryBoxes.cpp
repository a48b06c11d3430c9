#include "entry/ExpiryBoxes.h"

#include "entry/Raised.h"
#include "platform/LocaleStyle.h"
#include "platform/Text.h"

#include <array>
#include <string>

namespace tollvane {

namespace {

constexpr std::array kMonths{"January", "February", "March",     "April",   "May",      "June",
                             "July",    "August",   "September", "October", "November", "December"};
constexpr int kYearsOffered = 11;
constexpr int kCentury = 100;

DateTime firstOfMonth(int month, int year) {
    return {.year = year, .month = month, .day = 1};
}

} // namespace

ExpiryBoxes::ExpiryBoxes(const Desktop& desktop, ChargeInfoControls& controls)
    : desktop_(desktop), controls_(controls) {}

void ExpiryBoxes::fill(const ChargeComponent& charge) {
    const Raised guard(settingBoxes_);
    fillMonths();
    fillYears(charge);
}

void ExpiryBoxes::fillMonths() {
    controls_.cboExpMonth.clear();
    for (int month = 1; month <= static_cast<int>(kMonths.size()); ++month) {
        controls_.cboExpMonth.addItem(
            zeroPadded(month, 2) + "   " + kMonths[static_cast<std::size_t>(month - 1)], month);
    }
}

void ExpiryBoxes::fillYears(const ChargeComponent& charge) {
    const int thisYear = desktop_.clock.now().year;
    controls_.cboExpYear.clear();
    for (int year = thisYear; year < thisYear + kYearsOffered; ++year) {
        controls_.cboExpYear.addItem(zeroPadded(year, 4), year);
    }
    controls_.cboExpYear.setListIndex(-1);
    const auto expiry = dateFromText(charge.ExpirationDate(), dateOrder(desktop_.locale));
    for (int i = 0; expiry && i < controls_.cboExpYear.count(); ++i) {
        if (controls_.cboExpYear.itemData(i) == expiry->year) {
            controls_.cboExpYear.setListIndex(i);
        }
    }
}

void ExpiryBoxes::select(int month, int yearOfCentury) {
    const Raised guard(settingBoxes_);
    const bool offered = month >= 1 && month <= controls_.cboExpMonth.count();
    controls_.cboExpMonth.setListIndex(offered ? month - 1 : -1);
    ComboBox& years = controls_.cboExpYear;
    int entry = years.count() - 1;
    while (entry >= 0 && years.itemData(entry) % kCentury != yearOfCentury) {
        --entry;
    }
    years.setListIndex(entry);
}

void ExpiryBoxes::selectFirst() {
    const Raised guard(settingBoxes_);
    controls_.cboExpMonth.setListIndex(0);
    controls_.cboExpYear.setListIndex(0);
}

void ExpiryBoxes::cboExpMonth_Click(ChargeComponent& charge) {
    if (settingBoxes_) {
        return;
    }
    if (controls_.cboExpMonth.listIndex() < 0) {
        const Raised guard(settingBoxes_);
        controls_.cboExpMonth.setListIndex(0);
    }
    const int month = controls_.cboExpMonth.itemData(controls_.cboExpMonth.listIndex());
    const int chosenYear = controls_.cboExpYear.listIndex();
    const int year =
        chosenYear < 0 ? desktop_.clock.now().year : controls_.cboExpYear.itemData(chosenYear);
    charge.SetExpirationDate(firstOfMonth(month, year));
}

void ExpiryBoxes::cboExpYear_Click(ChargeComponent& charge) {
    if (settingBoxes_) {
        return;
    }
    // Without a month this raises, and that is what the operator is told.
    const int month = controls_.cboExpMonth.itemData(controls_.cboExpMonth.listIndex());
    const int year = controls_.cboExpYear.itemData(controls_.cboExpYear.listIndex());
    charge.SetExpirationDate(firstOfMonth(month, year));
}

} // namespace tollvane
