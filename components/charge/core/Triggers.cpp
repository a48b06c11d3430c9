#include "components/charge/core/Triggers.h"

namespace tollvane::charge {

namespace {

constexpr std::int64_t cents(std::int64_t units, std::int64_t hundredths) {
    return (units * 100 + hundredths) * (Money::scale / 100);
}

struct AmountRow {
    std::int64_t scaled;
    Trigger trigger;
};

const AmountRow amountRows[] = {
    {cents(7001, 1), {std::nullopt, LineTrouble::None, true}},
    {cents(7002, 20), {Reason::Declined, LineTrouble::None, false}},
    {cents(7002, 21), {Reason::InsufficientFunds, LineTrouble::None, false}},
    {cents(7002, 22), {Reason::KeepCard, LineTrouble::None, false}},
    {cents(7002, 23), {Reason::CardCodeMismatch, LineTrouble::None, false}},
    {cents(7002, 27), {Reason::AddressMismatch, LineTrouble::None, false}},
    {cents(7003, 60), {Reason::ProcessorError, LineTrouble::None, false}},
    {cents(7003, 61), {Reason::ProcessorBusy, LineTrouble::None, false}},
    {cents(7004, 80), {Reason::HeldForReview, LineTrouble::None, false}},
    {cents(7005, 1), {std::nullopt, LineTrouble::AnswerLost, false}},
    {cents(7005, 2), {std::nullopt, LineTrouble::RequestLost, false}},
    {cents(7005, 3), {std::nullopt, LineTrouble::AnswerLostLineDead, false}},
};

bool isCharge(const ProcessorRequest& request) {
    return request.operation == Operation::Charge || request.operation == Operation::VoiceCapture;
}

bool isWrongCode(std::string_view code) {
    return code == "999" || code == "9999";
}

} // namespace

Trigger triggerFor(const ProcessorRequest& request) {
    Trigger trigger;
    for (const AmountRow& row : amountRows) {
        if (row.scaled == request.amount.scaled())
            trigger = row.trigger;
    }
    if (!isCharge(request)) {
        // Declines are for cards; refunds and voids only meet trouble on the line.
        trigger.reason.reset();
        trigger.settledAtOnce = false;
        return trigger;
    }
    if (request.operation == Operation::VoiceCapture && request.voiceCode == "000000")
        trigger.reason = Reason::VoiceCodeUnknown;
    else if (isWrongCode(request.cardCode.view()))
        trigger.reason = Reason::CardCodeMismatch;
    else if (request.zip == "00000")
        trigger.reason = Reason::AddressMismatch;
    return trigger;
}

} // namespace tollvane::charge
