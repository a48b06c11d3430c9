#pragma once

#include "entry/ChargeInfoControls.h"
#include "gateway/ChargeComponent.h"
#include "platform/Desktop.h"

namespace tollvane {

/// The two lists from which the card's expiry is chosen.
class ExpiryBoxes {
public:
    /// All arguments outlive the object.
    ExpiryBoxes(const Desktop& desktop, ChargeInfoControls& controls);

    /// Fills the twelve months and the eleven years from this one on. `charge` may already hold an
    /// expiration date, whose year is then selected.
    void fill(const ChargeComponent& charge);

    /// The handlers of a choice: both hand the first day of the chosen month to `charge`. Only the
    /// month's own selects a missing month and falls back to the current year.
    void cboExpMonth_Click(ChargeComponent& charge);
    void cboExpYear_Click(ChargeComponent& charge);

    /// Selects an expiry as a card states it: month 1 to 12 and the year inside its century. What
    /// the lists do not offer clears the selection, so that nothing of an earlier card stays.
    void select(int month, int yearOfCentury);
    /// Selects the first month and the first year.
    void selectFirst();

private:
    void fillMonths();
    void fillYears(const ChargeComponent& charge);

    Desktop desktop_;
    ChargeInfoControls& controls_;
    bool settingBoxes_ = false; ///< the form itself changes the boxes: clicks mean nothing
};

} // namespace tollvane
