#pragma once

#include "platform/Money.h"

#include <string>

namespace tollvane::simulation {

/// What a customer at the counter wants.
struct Entry {
    int type = 0; ///< of transaction
    bool byTelephone = false;
    bool swiped = false;
    bool withCardCode = false;
    bool withState = false;
    Money amount;
    std::string card;      ///< its number; of a refund the last four digits
    std::string invoice;   ///< of this entry alone
    std::string reference; ///< earlier transaction
    // What the operator came to know of it.
    bool lookedUp = false; ///< the program said that the log has to be asked
    bool interrupted = false;

    std::string amountText() const { return currencyText(amount, MoneyStyle()); }
};

} // namespace tollvane::simulation
