#pragma once

#include "components/charge/core/Ledger.h"
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
    /// At the end of the day: ledger, log and store. `told` are the ids that the program named.
    /// What has no record is to be found by the comparison at the next sign-in, which records it.
    void closeBooks(const std::vector<Entry>& entries, const std::set<std::string>& told);

private:
    void lookAtRefusal(const Message& box, const Entry& entry, bool outcomeUnknown);
    void checkLog(const charge::LedgerEntry& approved);
    void checkStore(const charge::LedgerEntry& approved, const std::vector<Entry>& entries,
                    const std::set<std::string>& told, std::vector<StoredPayment>& payments);

    void compareAtSignIn();

    ChargeGround& ground_;
    SimulatedHost& host_;
    Report& report_;
    std::set<std::string> missing_; ///< ids of charges without a record
};

} // namespace tollvane::simulation
