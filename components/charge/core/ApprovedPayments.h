// What the transaction log tells of payments that the processor approved, for those who compare it
// with other books.
#pragma once

#include "components/charge/core/Clock.h"
#include "components/charge/core/FileStore.h"
#include "components/charge/core/Processor.h"
#include "platform/Money.h"

#include <string>
#include <string_view>
#include <vector>

namespace tollvane::charge {

struct ApprovedPayment {
    std::string transactionId;
    Money amount; // below zero for a refund or void: what it is for the shop's books
    std::string approvalCode;
    std::string lastFour; // of the card, empty when it was not needed
    std::string time;     // "2026-11-21 09:05:03"
    Operation operation = Operation::Charge;
};

// The approved live operations of a log, in its order, from a day ("2026-11-21") on. Lines that are
// not as they were written, and what has no transaction id, are left out.
std::vector<ApprovedPayment> approvedPayments(std::string_view log, std::string_view firstDay);

// The same of a log file, for a number of days that ends now. No more than the last megabyte (some
// 5,000 lines) is read. Raises FileFailure.
std::vector<ApprovedPayment> approvedPayments(FileStore& files, const FilePath& log,
                                              const Moment& now, int days);

// A line each: transaction, amount times 10,000, approval code, last four digits, time and type,
// with tabs between them.
std::string listText(const std::vector<ApprovedPayment>& payments);

} // namespace tollvane::charge
