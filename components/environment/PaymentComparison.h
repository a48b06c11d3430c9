// The charge component's log against the payment records, and the recording of what is missing.
#pragma once

#include "components/environment/EnvironmentState.h"
#include "components/environment/MissingPayments.h"

#include <string>
#include <vector>

namespace tollvane::environment {

// The payments of the last week that the charge component tells as approved and the host data
// server does not hold; oldest first. None when the server stored more than 50,000 meanwhile, which
// is more than it lists. Raises ComponentError when one of the two cannot be asked.
[[nodiscard]] std::vector<MissingPayment> findMissingPayments(const EnvironmentState& state);

// Records one of them as it would have been, with what is known of it: transaction, amount,
// approval and the card's last four digits. Answers false when it is there by now. Raises
// ComponentError.
bool recordPayment(const EnvironmentState& state, const MissingPayment& payment);

// "31.40" in the person's own way of writing money.
[[nodiscard]] std::wstring moneyText(std::int64_t scaledAmount);

// Tells the person which payments are missing and offers to record them; nothing when there are
// none, or when the components cannot be compared: neither keeps anybody from working.
void offerMissingPayments(const EnvironmentState& state, HWND owner) noexcept;

} // namespace tollvane::environment
