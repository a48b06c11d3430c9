#include "components/charge/core/Reasons.h"

namespace tollvane::charge {

namespace {

struct Row {
    Reason reason;
    int responseCode;
    int subCode;
    const char* text;
};

constexpr Row rows[] = {
    {Reason::Approved, 1, 0, "The transaction has been approved."},

    {Reason::Declined, 2, 1, "The card was declined. Ask for another way to pay."},
    {Reason::InsufficientFunds, 2, 1,
     "The card was declined because its limit is reached. Ask for another way to pay."},
    {Reason::KeepCard, 2, 2,
     "The card was declined. The bank asks you to call before giving it back."},
    {Reason::CardCodeMismatch, 2, 3,
     "The card was declined because the card code is not right. Check the card code."},
    {Reason::VoiceCodeUnknown, 2, 4,
     "The voice authorization was declined: the bank does not know this authorization number."},
    {Reason::AddressMismatch, 2, 5,
     "The card was declined because the billing address is not the card holder's. Check the zip "
     "code."},

    {Reason::InvalidAmount, 3, 0, "The amount must be a whole number of cents above zero."},
    {Reason::InvalidCardNumber, 3, 0, "The card number is not valid."},
    {Reason::InvalidExpiry, 3, 0, "The expiration date is missing or not valid."},
    {Reason::CardExpired, 3, 0, "The card has expired."},
    {Reason::UnreadableSwipe, 3, 0,
     "The swiped card could not be read. Swipe it again or type the card number."},
    {Reason::FieldTooLong, 3, 0, "The % is too long."},
    {Reason::Duplicate, 3, 0,
     "The same transaction was approved a moment ago as transaction %. Nothing was charged again."},
    {Reason::InvalidVoiceCode, 3, 0, "The authorization number must have six letters or digits."},
    {Reason::InvalidCardCode, 3, 0, "The card code must have three or four digits."},
    {Reason::NeverReceived, 3, 1,
     "The processor did not receive the transaction. Nothing was charged; try again."},

    {Reason::UnknownTransaction, 3, 0,
     "There is no transaction with this id. Check the transaction id."},
    {Reason::NothingToRefund, 3, 0,
     "This transaction cannot be refunded: it is not an approved charge."},
    {Reason::RefundTooLarge, 3, 0, "The refund is too large: % is left to refund."},
    {Reason::RefundCardDiffers, 3, 0,
     "The last four digits are not those of the card that was charged."},
    {Reason::AlreadyVoid, 3, 0, "This transaction is already void."},
    {Reason::AlreadySettled, 3, 0,
     "This transaction is already settled and cannot be voided. Refund it instead."},
    {Reason::HasRefunds, 3, 0,
     "This transaction has been refunded in part and cannot be voided. Void its refunds first."},
    {Reason::CannotBeVoided, 3, 0,
     "This transaction was not approved, so there is nothing to void."},

    {Reason::ProcessorError, 3, 2,
     "The processor reports an error. Nothing was charged; try again."},
    {Reason::ProcessorBusy, 3, 3,
     "The processor is busy. Nothing was charged; try again in a few minutes."},

    {Reason::HeldForReview, 4, 0,
     "The transaction is held for review. Do not charge the card again until it is reviewed."},
};

std::string filledIn(std::string text, const std::string& detail) {
    const std::size_t place = text.find('%');
    return place == std::string::npos ? text : text.replace(place, 1, detail);
}

} // namespace

ProcessorAnswer answerFor(Reason reason, const std::string& detail) {
    ProcessorAnswer answer;
    answer.reasonCode = static_cast<int>(reason);
    for (const Row& row : rows) {
        if (row.reason == reason) {
            answer.responseCode = row.responseCode;
            answer.subCode = row.subCode;
            answer.reasonText = filledIn(row.text, detail);
        }
    }
    return answer;
}

} // namespace tollvane::charge
