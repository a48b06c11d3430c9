// The card processor, as the component sees it.
#pragma once

#include "components/charge/core/Clock.h"
#include "components/charge/core/Expiry.h"
#include "platform/Money.h"
#include "platform/SecretText.h"

#include <cstdint>
#include <optional>
#include <stdexcept>
#include <string>

namespace tollvane::charge {

enum class Operation { Charge, VoiceCapture, Refund, Void };

// "CHARGE", "VOICE", "REFUND", "VOID": in files and in the log.
const char* operationText(Operation operation) noexcept;
// Nothing for another text.
std::optional<Operation> operationFromText(const std::string& text);

// The processor could not be reached, or its answer was lost: the outcome is not known.
class ProcessorUnreachable : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

struct ProcessorRequest {
    std::string key; // the same key is the same operation, however often it is sent
    Operation operation = Operation::Charge;
    bool testMode = true;
    Moment time;
    Money amount;
    SecretText cardNumber; // of a refund at least the last four digits
    SecretText cardCode;   // empty when it was not given
    std::optional<Expiry> expiry;
    std::string zip;
    std::string invoiceNumber;
    std::string voiceCode;     // of a voice capture
    std::string transactionId; // that a refund or void refers to
    std::int64_t duplicateWindowSeconds = 0;
};

struct ProcessorAnswer {
    int responseCode = 0; // 1 approved, 2 declined, 3 error, 4 held for review
    int reasonCode = 0;
    int subCode = 0;
    std::string reasonText;
    std::string approvalCode;
    std::string transactionId;

    bool approved() const { return responseCode == 1; }

    friend bool operator==(const ProcessorAnswer&, const ProcessorAnswer&) = default;
};

class Processor {
public:
    virtual ~Processor() = default;

    // Answers declines and errors as well as approvals. Raises ProcessorUnreachable when the
    // outcome is not known.
    virtual ProcessorAnswer submit(const ProcessorRequest& request) = 0;
    // What was answered to the operation with this key; nothing when it never arrived. Raises
    // ProcessorUnreachable.
    virtual std::optional<ProcessorAnswer> find(const std::string& key, bool testMode) = 0;
};

} // namespace tollvane::charge
