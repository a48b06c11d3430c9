#include "components/charge/core/Ledger.h"

#include "components/charge/core/CardDataMask.h"
#include "components/charge/core/Failure.h"
#include "components/charge/core/GatewayMoney.h"

#include <algorithm>
#include <charconv>
#include <cstdlib>

namespace tollvane::charge {

namespace {

constexpr const char* formatVersion = "1";

template <class Number>
Number numberFrom(const std::string& text) {
    Number value = 0;
    const auto [end, problem] = std::from_chars(text.data(), text.data() + text.size(), value);
    if (problem != std::errc() || end != text.data() + text.size())
        throw failure(failurenumber::damagedFile, "Ledger",
                      "The processor's ledger holds an entry that cannot be understood.");
    return value;
}

Record toRecord(const LedgerEntry& entry) {
    const ProcessorAnswer& answer = entry.answer;
    return {formatVersion,
            entry.key,
            operationText(entry.operation),
            std::to_string(entry.epochSeconds),
            entry.day,
            gatewayText(entry.amount),
            entry.lastFour,
            entry.expiry,
            entry.invoiceNumber,
            entry.reference,
            entry.settledAtOnce ? "settled" : "",
            std::to_string(answer.responseCode),
            std::to_string(answer.reasonCode),
            std::to_string(answer.subCode),
            answer.approvalCode,
            answer.transactionId,
            answer.reasonText};
}

constexpr std::size_t recordFields = 17;

LedgerEntry fromRecord(const Record& record) {
    const auto operation = record.size() == recordFields && record[0] == formatVersion
                               ? operationFromText(record[2])
                               : std::nullopt;
    if (!operation)
        throw failure(failurenumber::damagedFile, "Ledger",
                      "The processor's ledger was written by another version of this component.");
    LedgerEntry entry;
    entry.key = record[1];
    entry.operation = *operation;
    entry.epochSeconds = numberFrom<std::int64_t>(record[3]);
    entry.day = record[4];
    entry.amount = moneyFromGatewayText(record[5]);
    entry.lastFour = record[6];
    entry.expiry = record[7];
    entry.invoiceNumber = record[8];
    entry.reference = record[9];
    entry.settledAtOnce = !record[10].empty();
    entry.answer.responseCode = numberFrom<int>(record[11]);
    entry.answer.reasonCode = numberFrom<int>(record[12]);
    entry.answer.subCode = numberFrom<int>(record[13]);
    entry.answer.approvalCode = record[14];
    entry.answer.transactionId = record[15];
    entry.answer.reasonText = record[16];
    return entry;
}

bool isSamePayment(const LedgerEntry& entry, const ProcessorRequest& request) {
    if (entry.operation == Operation::Refund)
        return entry.reference == request.transactionId;
    return entry.lastFour == lastFour(request.cardNumber.view()) &&
           entry.expiry == (request.expiry ? request.expiry->compact() : "") &&
           entry.invoiceNumber == withoutCardNumbers(request.invoiceNumber);
}

} // namespace

Ledger::Ledger(FileStore& files, const FilePath& path) : file_(files, path, "processor's ledger") {}

void Ledger::load() {
    std::vector<LedgerEntry> loaded;
    for (const Record& record : file_.load())
        loaded.push_back(fromRecord(record));
    entries_ = std::move(loaded);
}

void Ledger::add(const LedgerEntry& entry) {
    file_.append(toRecord(entry));
    entries_.push_back(entry);
}

const LedgerEntry* Ledger::byKey(const std::string& key) const noexcept {
    const auto found = std::find_if(entries_.begin(), entries_.end(),
                                    [&](const LedgerEntry& each) { return each.key == key; });
    return found == entries_.end() ? nullptr : &*found;
}

const LedgerEntry* Ledger::byTransactionId(const std::string& id) const noexcept {
    if (id.empty())
        return nullptr;
    const auto found = std::find_if(entries_.begin(), entries_.end(), [&](const LedgerEntry& each) {
        return each.answer.transactionId == id;
    });
    return found == entries_.end() ? nullptr : &*found;
}

bool Ledger::isVoid(const std::string& id) const noexcept {
    return std::any_of(entries_.begin(), entries_.end(), [&](const LedgerEntry& each) {
        return each.operation == Operation::Void && each.approved() && each.reference == id;
    });
}

Money Ledger::refunded(const std::string& id) const noexcept {
    std::int64_t total = 0;
    for (const LedgerEntry& each : entries_) {
        if (each.operation == Operation::Refund && each.approved() && each.reference == id &&
            !isVoid(each.answer.transactionId))
            total += each.amount.scaled();
    }
    return Money::fromScaled(total);
}

bool Ledger::isSettled(const LedgerEntry& entry, const Moment& now) const {
    return entry.settledAtOnce || entry.day < now.dayText();
}

const LedgerEntry* Ledger::duplicateOf(const ProcessorRequest& request) const {
    for (auto each = entries_.rbegin(); each != entries_.rend(); ++each) {
        // A clock that was put right in between may have gone back.
        const std::int64_t age = request.time.epochSeconds - each->epochSeconds;
        if ((each->approved() || each->held()) && each->operation == request.operation &&
            each->amount == request.amount && std::abs(age) < request.duplicateWindowSeconds &&
            isSamePayment(*each, request) && !isVoid(each->answer.transactionId))
            return &*each;
    }
    return nullptr;
}

} // namespace tollvane::charge
