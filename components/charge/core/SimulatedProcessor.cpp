#include "components/charge/core/SimulatedProcessor.h"

#include "components/charge/core/CardDataMask.h"
#include "components/charge/core/ProcessorRules.h"
#include "platform/Checksum.h"

#include <utility>

namespace tollvane::charge {

namespace {

constexpr std::uint64_t firstTestId = 9'000'000'001;
constexpr std::uint64_t firstLiveId = 1'000'000'001;

std::string transactionId(const Ledger& ledger, bool testMode) {
    return std::to_string((testMode ? firstTestId : firstLiveId) + ledger.count());
}

// Six letters and digits that cannot be mistaken for each other, the same for the same key.
std::string approvalCode(const std::string& key) {
    constexpr std::string_view alphabet = "0123456789ABCDEFGHJKLMNPQRSTUVWX";
    std::uint32_t value = crc32(key);
    std::string code;
    for (int i = 0; i < 6; ++i, value >>= 5)
        code += alphabet[value % alphabet.size()];
    return code;
}

bool getsId(const ProcessorAnswer& answer) {
    return answer.approved() || answer.responseCode == 4 || answer.responseCode == 2;
}

LedgerEntry entryFor(const ProcessorRequest& request, ProcessorAnswer answer, bool settledAtOnce) {
    LedgerEntry entry;
    entry.key = request.key;
    entry.operation = request.operation;
    entry.epochSeconds = request.time.epochSeconds;
    entry.day = request.time.dayText();
    entry.amount = request.amount;
    entry.lastFour = lastFour(request.cardNumber.view());
    entry.expiry = request.expiry ? request.expiry->compact() : "";
    entry.invoiceNumber = withoutCardNumbers(request.invoiceNumber);
    entry.reference = withoutCardNumbers(request.transactionId);
    entry.settledAtOnce = settledAtOnce;
    entry.answer = std::move(answer);
    return entry;
}

} // namespace

SimulatedProcessor::SimulatedProcessor(FileStore& files, FilePath folder)
    : files_(files), folder_(std::move(folder)) {}

FilePath SimulatedProcessor::ledgerPath(const FilePath& folder, bool testMode) {
    return folder / (testMode ? "ledger-test.dat" : "ledger-live.dat");
}

Ledger SimulatedProcessor::openLedger(bool testMode) const {
    Ledger ledger(files_, ledgerPath(folder_, testMode));
    try {
        ledger.load();
    } catch (const FileFailure& problem) {
        throw ProcessorUnreachable(std::string("The processor's ledger cannot be read: ") +
                                   problem.what());
    }
    return ledger;
}

ProcessorAnswer SimulatedProcessor::record(Ledger& ledger, const ProcessorRequest& request,
                                           ProcessorAnswer answer, bool settledAtOnce) const {
    if (getsId(answer))
        answer.transactionId = transactionId(ledger, request.testMode);
    if (answer.approved())
        answer.approvalCode = request.operation == Operation::VoiceCapture
                                  ? request.voiceCode
                                  : approvalCode(request.key);
    try {
        ledger.add(entryFor(request, answer, settledAtOnce));
    } catch (const FileFailure& problem) {
        throw ProcessorUnreachable(std::string("The processor's ledger cannot be written: ") +
                                   problem.what());
    }
    return answer;
}

ProcessorAnswer SimulatedProcessor::submit(const ProcessorRequest& request) {
    Ledger ledger = openLedger(request.testMode);
    if (const LedgerEntry* known = ledger.byKey(request.key))
        return known->answer;
    const Trigger trigger = triggerFor(request);
    if (trigger.trouble == LineTrouble::RequestLost)
        throw ProcessorUnreachable("The line to the processor is down.");
    ProcessorAnswer answer =
        record(ledger, request, decide(request, trigger, ledger), trigger.settledAtOnce);
    if (trigger.trouble == LineTrouble::None || !answer.approved())
        return answer;
    lineDead_ = trigger.trouble == LineTrouble::AnswerLostLineDead;
    throw ProcessorUnreachable("The processor's answer was lost.");
}

std::optional<ProcessorAnswer> SimulatedProcessor::find(const std::string& key, bool testMode) {
    if (lineDead_)
        throw ProcessorUnreachable("The line to the processor is down.");
    const Ledger ledger = openLedger(testMode);
    const LedgerEntry* known = ledger.byKey(key);
    return known ? std::optional(known->answer) : std::nullopt;
}

} // namespace tollvane::charge
