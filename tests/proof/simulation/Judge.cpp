#include "tests/proof/simulation/Judge.h"

#include "components/charge/core/ApprovedPayments.h"
#include "components/charge/core/GatewayMoney.h"
#include "components/environment/MissingPayments.h"
#include "gateway/TransactionType.h"

#include <algorithm>

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

std::string narrow(const std::wstring& text) {
    std::string narrowed;
    for (const wchar_t c : text) {
        narrowed += static_cast<char>(c);
    }
    return narrowed;
}

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

void Judge::checkStore(const charge::LedgerEntry& approved, const std::vector<Entry>& entries,
                       const std::set<std::string>& told, std::vector<StoredPayment>& payments) {
    const std::string& id = approved.answer.transactionId;
    const auto found = std::ranges::find(payments, id, &StoredPayment::transactionId);
    if (found != payments.end()) {
        const std::string code =
            approved.operation == charge::Operation::Void ? "VOID" : approved.answer.approvalCode;
        if (found->amount != recorded(approved) || found->approval != code) {
            report_.complain("the record of " + id + " is not what was charged");
        }
        payments.erase(found);
        ++report_.recorded;
        return;
    }
    missing_.insert(id);
    const auto entry = std::ranges::find(entries, approved.invoiceNumber, &Entry::invoice);
    if (told.count(id) != 0 || (entry != entries.end() && entry->lookedUp)) {
        ++report_.missingAndTold;
    } else if (entry != entries.end() && entry->interrupted) {
        ++report_.missingAndLogged;
    } else {
        report_.complain("no record of " + id + ", and nobody was told");
    }
}

void Judge::compareAtSignIn() {
    const auto compare = [this] {
        const std::string approved =
            charge::listText(charge::approvedPayments(ground_.disk.contents(kLog), {}));
        const std::string stored = host_.list();
        return environment::missingPayments(std::wstring(approved.begin(), approved.end()),
                                            std::wstring(stored.begin(), stored.end()));
    };
    std::set<std::string> named;
    for (const environment::MissingPayment& each : compare()) {
        named.insert(narrow(each.transaction));
        host_.record({narrow(each.transaction), Money::fromScaled(each.amount),
                      narrow(each.approval), narrow(each.lastFour)});
    }
    if (named != missing_) {
        report_.complain("the comparison names other payments than are missing");
    }
    if (!compare().empty()) {
        report_.complain("something is missing after it was recorded");
    }
    report_.recordedLater += static_cast<int>(named.size());
}

void Judge::closeBooks(const std::vector<Entry>& entries, const std::set<std::string>& told) {
    std::vector<StoredPayment> payments = host_.payments();
    for (const charge::LedgerEntry& each : ledger()) {
        if (!each.approved()) {
            continue;
        }
        ++report_.approved;
        checkLog(each);
        if (!ground_.settings.settings.testMode) {
            checkStore(each, entries, told, payments);
        }
    }
    compareAtSignIn();
    for (const StoredPayment& left : payments) {
        report_.complain("a record without a charge, or twice: " + left.transactionId);
    }
    for (const Entry& entry : entries) {
        const auto approved = approvals(entry);
        if (approved.size() > 1) {
            report_.complain("charged " + std::to_string(approved.size()) +
                             " times: " + entry.invoice);
        }
        for (const charge::LedgerEntry& each : approved) {
            if (each.amount != entry.amount) {
                report_.complain("another amount was charged: " + entry.invoice);
            }
        }
    }
}

} // namespace tollvane::simulation
