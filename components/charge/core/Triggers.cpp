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
    {cents(7001, 1), {.settledAtOnce = true}},
    {cents(7002, 20), {.reason = Reason::Declined}},
    {cents(7002, 21), {.reason = Reason::InsufficientFunds}},
    {cents(7002, 22), {.reason = Reason::KeepCard}},
    {cents(7002, 23), {.reason = Reason::CardCodeMismatch}},
    {cents(7002, 27), {.reason = Reason::AddressMismatch}},
    {cents(7003, 60), {.reason = Reason::ProcessorError}},
    {cents(7003, 61), {.reason = Reason::ProcessorBusy}},
    {cents(7004, 80), {.reason = Reason::HeldForReview}},
    {cents(7005, 1), {.trouble = LineTrouble::AnswerLost}},
    {cents(7005, 2), {.trouble = LineTrouble::RequestLost}},
    {cents(7005, 3), {.trouble = LineTrouble::AnswerLostLineDead}},
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
