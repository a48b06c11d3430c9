#include "components/charge/core/ProcessorRules.h"

#include "components/charge/core/CardDataMask.h"
#include "components/charge/core/CardNumberRules.h"
#include "components/charge/core/GatewayMoney.h"

#include <algorithm>

namespace tollvane::charge {

namespace {

constexpr std::int64_t cent = Money::scale / 100;

bool isDigit(char character) {
    return character >= '0' && character <= '9';
}

bool isLetterOrDigit(char character) {
    return isDigit(character) || (character >= 'A' && character <= 'Z') ||
           (character >= 'a' && character <= 'z');
}

bool validAmount(Money amount) {
    return amount.scaled() > 0 && amount.scaled() % cent == 0;
}

bool validVoiceCode(const std::string& code) {
    return code.size() == 6 && std::all_of(code.begin(), code.end(), isLetterOrDigit);
}

bool validCardCode(std::string_view code) {
    return code.empty() || ((code.size() == 3 || code.size() == 4) &&
                            std::all_of(code.begin(), code.end(), isDigit));
}

ProcessorAnswer decideCharge(const ProcessorRequest& request, const Trigger& trigger,
                             const Ledger& ledger) {
    if (!validAmount(request.amount))
        return answerFor(Reason::InvalidAmount);
    if (!acceptableCardNumber(request.cardNumber.view()))
        return answerFor(Reason::InvalidCardNumber);
    if (!request.expiry)
        return answerFor(Reason::InvalidExpiry);
    if (request.expiry->isPast(request.time))
        return answerFor(Reason::CardExpired);
    if (!validCardCode(request.cardCode.view()))
        return answerFor(Reason::InvalidCardCode);
    if (request.operation == Operation::VoiceCapture && !validVoiceCode(request.voiceCode))
        return answerFor(Reason::InvalidVoiceCode);
    if (const LedgerEntry* earlier = ledger.duplicateOf(request))
        return answerFor(Reason::Duplicate, earlier->answer.transactionId);
    return answerFor(trigger.reason.value_or(Reason::Approved));
}

bool isCharge(const LedgerEntry& entry) {
    return entry.operation == Operation::Charge || entry.operation == Operation::VoiceCapture;
}

ProcessorAnswer decideRefund(const ProcessorRequest& request, const Ledger& ledger) {
    if (!validAmount(request.amount))
        return answerFor(Reason::InvalidAmount);
    const LedgerEntry* original = ledger.byTransactionId(request.transactionId);
    if (!original)
        return answerFor(Reason::UnknownTransaction);
    if (!isCharge(*original) || !original->approved() || ledger.isVoid(request.transactionId))
        return answerFor(Reason::NothingToRefund);
    if (lastFour(request.cardNumber.view()) != original->lastFour)
        return answerFor(Reason::RefundCardDiffers);
    if (const LedgerEntry* earlier = ledger.duplicateOf(request))
        return answerFor(Reason::Duplicate, earlier->answer.transactionId);
    const Money left = Money::fromScaled(original->amount.scaled() -
                                         ledger.refunded(request.transactionId).scaled());
    if (request.amount > left)
        return answerFor(Reason::RefundTooLarge, gatewayText(left));
    return answerFor(Reason::Approved);
}

ProcessorAnswer decideVoid(const ProcessorRequest& request, const Ledger& ledger) {
    const LedgerEntry* original = ledger.byTransactionId(request.transactionId);
    if (!original)
        return answerFor(Reason::UnknownTransaction);
    if (ledger.isVoid(request.transactionId))
        return answerFor(Reason::AlreadyVoid);
    if (original->operation == Operation::Void || (!original->approved() && !original->held()))
        return answerFor(Reason::CannotBeVoided);
    if (ledger.isSettled(*original, request.time))
        return answerFor(Reason::AlreadySettled);
    if (!ledger.refunded(request.transactionId).isZero())
        return answerFor(Reason::HasRefunds);
    return answerFor(Reason::Approved);
}

} // namespace

ProcessorAnswer decide(const ProcessorRequest& request, const Trigger& trigger,
                       const Ledger& ledger) {
    switch (request.operation) {
    case Operation::Charge:
    case Operation::VoiceCapture: return decideCharge(request, trigger, ledger);
    case Operation::Refund: return decideRefund(request, ledger);
    case Operation::Void: break;
    }
    return decideVoid(request, ledger);
}

} // namespace tollvane::charge
