#pragma once

#include "components/charge/core/Ledger.h"
#include "components/environment/MissingPayments.h"
#include "platform/MessageBox.h"
#include "tests/proof/simulation/Entry.h"
#include "tests/proof/simulation/Report.h"
#include "tests/proof/simulation/SimulatedCharge.h"
#include "tests/proof/simulation/SimulatedHost.h"

#include <set>
#include <string>
#include <vector>

namespace tollvane::simulation {

/// Compares the three books with each other, and what the operator was told with them.
class Judge {
public:
    Judge(ChargeGround& ground, SimulatedHost& host, Report& report)
        : ground_(ground), host_(host), report_(report) {}

    charge::FilePath ledgerPath() const;
    /// What the processor has in its books now.
    std::vector<charge::LedgerEntry> ledger() const;
    /// Approved operations of an entry.
    std::vector<charge::LedgerEntry> approvals(const Entry& entry) const;
    /// The log's lines that tell an outcome, with this text in them.
    int outcomes(const std::string& text) const;

    /// A box is on the screen. `outcomeUnknown`: the operation raised an error.
    void look(const Message& box, const Entry& entry, bool outcomeUnknown);
    /// Before a sign-in: of what has no record the operator was told. `told` are the ids that the
    /// program named.
    void lookBeforeSignIn(const std::vector<Entry>& entries, const std::set<std::string>& told);
    /// The sign-in found these payments missing and recorded them.
    void lookAfterSignIn(const std::vector<environment::MissingPayment>& named);
    /// After the last sign-in: every approved operation stands once in ledger, log and store, with
    /// the same amount and sign, and nothing else stands there.
    void closeBooks(const std::vector<Entry>& entries);
    /// The three books, byte by byte.
    void foldBooks(Trace& trace) const;

private:
    void lookAtRefusal(const Message& box, const Entry& entry, bool outcomeUnknown);
    void checkLog(const charge::LedgerEntry& approved);
    void checkRecord(const charge::LedgerEntry& approved, std::vector<StoredPayment>& payments);
    void checkStore();
    void checkEntry(const Entry& entry);
    /// Approved operations that belong into the store.
    std::vector<charge::LedgerEntry> livePayments() const;

    ChargeGround& ground_;
    SimulatedHost& host_;
    Report& report_;
    std::set<std::string> missing_; ///< ids that had no record before the sign-in
    std::set<std::string> recordedLater_;
};

} // namespace tollvane::simulation
