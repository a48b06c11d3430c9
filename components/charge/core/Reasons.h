// Why a processor or the component itself answered what it answered. Codes are stable: help topics
// and people refer to them. The table for people is in the README of this folder.
#pragma once

#include "components/charge/core/Processor.h"

#include <string>

namespace tollvane::charge {

enum class Reason {
    Approved = 1,

    Declined = 20,
    InsufficientFunds = 21,
    KeepCard = 22,
    CardCodeMismatch = 23,
    VoiceCodeUnknown = 24,
    AddressMismatch = 27,

    InvalidAmount = 30,
    InvalidCardNumber = 31,
    InvalidExpiry = 32,
    CardExpired = 33,
    UnreadableSwipe = 34,
    FieldTooLong = 35,
    Duplicate = 36,
    InvalidVoiceCode = 37,
    InvalidCardCode = 38,
    NeverReceived = 39,

    UnknownTransaction = 50,
    NothingToRefund = 51,
    RefundTooLarge = 52,
    RefundCardDiffers = 53,
    AlreadyVoid = 54,
    AlreadySettled = 55,
    HasRefunds = 56,
    CannotBeVoided = 57,

    ProcessorError = 60,
    ProcessorBusy = 61,

    HeldForReview = 80,
};

// Response code, reason code, sub-code and the text for the person at the counter. detail replaces
// the
// "%" of the text.
ProcessorAnswer answerFor(Reason reason, const std::string& detail = {});

} // namespace tollvane::charge
