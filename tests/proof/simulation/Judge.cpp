#include "tests/proof/simulation/Judge.h"

#include "components/charge/core/GatewayMoney.h"
#include "gateway/TransactionType.h"

#include <algorithm>
#include <iterator>

namespace tollvane::simulation {

namespace {

constexpr const char* kLog = "logs/ZENDACARD.LOG";

/// The files as they are at this moment, whatever trouble the disk is in.
class Snapshot final : public charge::FileStore {
public:
    explicit Snapshot(SimulatedDisk& disk) : disk_(disk) {}

    std::string read(const charge::FilePath& file, std::uint64_t from) override {
        return disk_.contents(file.plainText()).substr(from);
    }
    std::uint64_t size(const charge::FilePath& file) override {
        return disk_.contents(file.plainText()).size();
    }
    void append(const charge::FilePath&, std::string_view) override {}
    void truncate(const charge::FilePath&, std::uint64_t) override {}
    std::unique_ptr<Lock> lock(const charge::FilePath&) override { return nullptr; }

private:
    SimulatedDisk& disk_;
};

bool has(const std::string& text, const std::string& part) {
    return text.find(part) != std::string::npos;
}

Money recorded(const charge::LedgerEntry& approved) {
    const bool out = approved.operation == charge::Operation::Refund ||
                     approved.operation == charge::Operation::Void;
    return out ? approved.amount.negated() : approved.amount;
}

} // namespace

charge::FilePath Judge::ledgerPath() const {
    const charge::Settings& settings = ground_.settings.settings;
    return charge::SimulatedProcessor::ledgerPath(settings.dataFolder, settings.testMode);
}

std::vector<charge::LedgerEntry> Judge::ledger() const {
    Snapshot files(ground_.disk);
    charge::Ledger books(files, ledgerPath());
    books.load();
    return books.entries();
}

std::vector<charge::LedgerEntry> Judge::approvals(const Entry& entry) const {
    std::vector<charge::LedgerEntry> found = ledger();
    std::erase_if(found, [&](const charge::LedgerEntry& each) {
        return !each.approved() || each.invoiceNumber != entry.invoice;
    });
    return found;
}

int Judge::outcomes(const std::string& text) const {
    const std::string& log = ground_.disk.contents(kLog);
    int count = 0;
    for (std::size_t at = 0; at < log.size();) {
        const std::size_t end = std::min(log.find('\n', at), log.size());
        const std::string line = log.substr(at, end - at);
        count += has(line, text) && !has(line, "(interrupted)") && !has(line, "  UNKNOWN ") ? 1 : 0;
        at = end + 1;
    }
    return count;
}

void Judge::look(const Message& box, const Entry& entry, bool outcomeUnknown) {
    if (box.title == "Authorization Failed") {
        lookAtRefusal(box, entry, outcomeUnknown);
    }
    if (box.title != "Approved") {
        return;
    }
    const auto approved = approvals(entry);
    if (approved.empty() || approved.back().key != ground_.lastKey) {
        report_.complain("shown as approved, which it is not: " + entry.invoice);
    } else if (!has(box.text, approved.back().answer.transactionId) ||
               !has(box.text, approved.back().answer.approvalCode)) {
        report_.complain("approved with another id or code: " + box.text);
    }
}

void Judge::lookAtRefusal(const Message& box, const Entry& entry, bool outcomeUnknown) {
    if (outcomeUnknown) {
        report_.complain("an unknown outcome shown as a decline: " + entry.invoice);
    }
    for (const charge::LedgerEntry& approved : approvals(entry)) {
        // A second try may be refused, when that says why.
        const bool said = has(box.text, approved.answer.transactionId) ||
                          has(box.text, "This transaction is already void.");
        if (approved.key == ground_.lastKey || !said) {
            report_.complain("an approval shown as a decline: " + box.text);
        }
    }
}

void Judge::checkLog(const charge::LedgerEntry& approved) {
    const std::string& log = ground_.disk.contents(kLog);
    const std::string key = "[" + approved.key + "]";
    if (outcomes(key) != 1) {
        report_.complain("the log tells " + std::to_string(outcomes(key)) + " times of " + key);
        return;
    }
    std::size_t at = log.rfind(key);
    const std::size_t start = log.rfind('\n', at) + 1; // npos + 1 is the beginning
    const std::string line = log.substr(start, log.find('\n', at) - start);
    for (const std::string& part :
         {std::string("APPROVED"), charge::gatewayText(approved.amount) + " ",
          approved.answer.transactionId, approved.answer.approvalCode}) {
        if (!has(line, part)) {
            report_.complain("the log's line has no " + part + ": " + line);
        }
    }
}

std::vector<charge::LedgerEntry> Judge::livePayments() const {
    if (ground_.settings.settings.testMode) {
        return {};
    }
    std::vector<charge::LedgerEntry> found = ledger();
    std::erase_if(found, [](const charge::LedgerEntry& each) { return !each.approved(); });
    return found;
}

void Judge::lookBeforeSignIn(const std::vector<Entry>& entries, const std::set<std::string>& told) {
    const std::vector<StoredPayment> payments = host_.payments();
    std::set<std::string> missingBefore;
    missingBefore.swap(missing_);
    for (const charge::LedgerEntry& each : livePayments()) {
        const std::string& id = each.answer.transactionId;
        if (std::ranges::find(payments, id, &StoredPayment::transactionId) != payments.end()) {
            continue;
        }
        missing_.insert(id);
        const auto entry = std::ranges::find(entries, each.invoiceNumber, &Entry::invoice);
        const bool known = entry != entries.end();
        const bool counted = missingBefore.count(id) != 0;
        if (told.count(id) != 0 || (known && entry->lookedUp)) {
            report_.missingAndTold += counted ? 0 : 1;
        } else if (known && entry->interrupted) {
            report_.missingAndLogged += counted ? 0 : 1;
        } else {
            report_.complain("no record of " + id + ", and nobody was told");
        }
    }
}

void Judge::lookAfterSignIn(const std::vector<environment::MissingPayment>& named) {
    for (const environment::MissingPayment& each : named) {
        const std::string id(each.transaction.begin(), each.transaction.end());
        if (missing_.count(id) == 0 || !recordedLater_.insert(id).second) {
            report_.complain("the sign-in found missing what is not: " + id);
        }
        ++report_.recordedLater;
    }
}

void Judge::checkRecord(const charge::LedgerEntry& approved, std::vector<StoredPayment>& payments) {
    const std::string& id = approved.answer.transactionId;
    std::vector<StoredPayment> found;
    std::ranges::copy_if(payments, std::back_inserter(found),
                         [&](const StoredPayment& each) { return each.transactionId == id; });
    std::erase_if(payments, [&](const StoredPayment& each) { return each.transactionId == id; });
    if (found.size() != 1) {
        report_.complain("the store has " + std::to_string(found.size()) + " records of " + id);
        return;
    }
    const StoredPayment& record = found.front();
    const bool isVoid = approved.operation == charge::Operation::Void;
    if (record.amount != recorded(approved)) {
        report_.complain("the record of " + id +
                         " tells another amount: " + std::to_string(record.amount.scaled()) +
                         " for " + std::to_string(recorded(approved).scaled()));
    }
    if (record.approval != (isVoid ? "VOID" : approved.answer.approvalCode) ||
        record.paidBy != "Charge" || !record.account.ends_with(isVoid ? "" : approved.lastFour)) {
        report_.complain("the record of " + id + " is not what was charged: " + record.approval +
                         ", " + record.account + ", " + record.paidBy);
    }
    ++report_.recordsCompared;
    report_.recordedAtOnce += recordedLater_.count(id) == 0 ? 1 : 0;
}

void Judge::checkStore() {
    std::vector<StoredPayment> payments = host_.payments();
    std::int64_t balance = 0;
    for (const StoredPayment& each : payments) {
        balance += each.amount.scaled();
    }
    for (const charge::LedgerEntry& each : livePayments()) {
        balance -= recorded(each).scaled();
        checkRecord(each, payments);
    }
    for (const StoredPayment& left : payments) {
        report_.complain("a record without a charge: " + left.transactionId);
    }
    if (balance != 0) {
        report_.complain("ledger and store differ by " + std::to_string(balance));
    }
}

void Judge::checkEntry(const Entry& entry) {
    const auto approved = approvals(entry);
    if (approved.size() > 1) {
        report_.complain("charged " + std::to_string(approved.size()) + " times: " + entry.invoice);
    }
    for (const charge::LedgerEntry& each : approved) {
        if (each.amount != entry.amount) {
            report_.complain("another amount was charged: " + entry.invoice);
        }
    }
}

void Judge::foldBooks(Trace& trace) const {
    trace.fold(ground_.disk.contents(ledgerPath().plainText()));
    trace.fold(ground_.disk.contents(kLog));
    for (const StoredPayment& each : host_.payments()) {
        trace.fold(each.transactionId + " " + std::to_string(each.amount.scaled()) + " " +
                   each.approval + " " + each.account + " " + each.paidBy);
    }
}

void Judge::closeBooks(const std::vector<Entry>& entries) {
    for (const charge::LedgerEntry& each : ledger()) {
        if (each.approved()) {
            ++report_.approved;
            checkLog(each);
        }
    }
    checkStore();
    std::ranges::for_each(entries, [this](const Entry& entry) { checkEntry(entry); });
}

} // namespace tollvane::simulation
