// The simulated processor's own books: everything that it ever answered, durably.
#pragma once

#include "components/charge/core/Processor.h"
#include "components/charge/core/RecordFile.h"

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace tollvane::charge {

// Holds no card data but the last four digits and the month of expiry.
struct LedgerEntry {
    std::string key;
    Operation operation = Operation::Charge;
    std::int64_t epochSeconds = 0;
    std::string day; // local, "20261121"
    Money amount;
    std::string lastFour;
    std::string expiry; // "0327", empty when unknown
    std::string invoiceNumber;
    std::string reference; // transaction that a refund or void refers to
    bool settledAtOnce = false;
    ProcessorAnswer answer;

    bool approved() const { return answer.approved(); }
    bool held() const { return answer.responseCode == 4; }
};

class Ledger {
public:
    Ledger(FileStore& files, const FilePath& path);

    // Reads the file. Raises FileFailure and failurenumber::damagedFile.
    void load();
    // On the disk when it returns. Raises FileFailure; the entry is then not part of the ledger.
    void add(const LedgerEntry& entry);

    const LedgerEntry* byKey(const std::string& key) const noexcept;
    const LedgerEntry* byTransactionId(const std::string& id) const noexcept;
    bool isVoid(const std::string& id) const noexcept;
    // Approved refunds of a transaction that are not void.
    Money refunded(const std::string& id) const noexcept;
    // A transaction settles when its day is over.
    bool isSettled(const LedgerEntry& entry, const Moment& now) const;
    // An approved or held operation like this one, not older than the request's window, not void.
    const LedgerEntry* duplicateOf(const ProcessorRequest& request) const;

    std::size_t count() const noexcept { return entries_.size(); }
    const std::vector<LedgerEntry>& entries() const noexcept { return entries_; }

private:
    RecordFile file_;
    std::vector<LedgerEntry> entries_;
};

} // namespace tollvane::charge
