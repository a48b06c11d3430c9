// The component's work, without COM: the current transaction, the four operations, the answer.
#pragma once

#include "components/charge/core/Clock.h"
#include "components/charge/core/FileStore.h"
#include "components/charge/core/OperationNote.h"
#include "components/charge/core/Processor.h"
#include "components/charge/core/Settings.h"
#include "components/charge/core/TransactionFields.h"

#include <functional>
#include <memory>
#include <string>
#include <string_view>

namespace tollvane::charge {

class OperationBook;

// What the service stands on. The references must outlive it.
struct ServiceParts {
    FileStore& files;
    Clock& clock;
    SettingsSource& settings;
    // A text that was never answered before: letters only.
    std::function<std::string()> newKey;
    // One connection for one operation.
    std::function<std::unique_ptr<Processor>(const Settings&)> connect;
};

class ChargeService {
public:
    explicit ChargeService(ServiceParts parts);

    TransactionFields& fields() noexcept { return fields_; }
    const ProcessorAnswer& answer() const noexcept { return answer_; }

    // Wipes the transaction and the answer.
    void clearFields() noexcept;

    // The argument is the voice authorization code of a voice capture, the earlier transaction's id
    // of a refund or void, and nothing for a charge. True when approved. Declines and errors of the
    // processor are answers; raised are failurenumber::cannotRecord (nothing was sent),
    // outcomeUnknown, damagedFile, and 13 or 6 for an amount that is none.
    // Card code and track are wiped when it returns.
    bool run(Operation operation, std::string_view argument);

    // Settles what an earlier run left open, as far as it can be done now.
    void settleOpenOperations() noexcept;

    // The live payments that the log tells as approved in the last days, as listText tells them.
    // Raises FileFailure.
    std::string approvedPayments(int days);

    // The operator's name for the log, and the log's line about it. That the log cannot be written
    // stops no one from signing in: it stops the first operation.
    void signIn(const std::string& operatorName) noexcept;

private:
    void prepareFields(Operation operation, std::string_view argument);
    // Problems that the processor need not be asked about.
    std::optional<ProcessorAnswer> ownObjection(bool trackReadable) const;
    bool deriveFromTrack(Operation operation);
    OperationNote makeNote(Operation operation, const Settings& settings, const Moment& now) const;
    ProcessorRequest makeRequest(const OperationNote& note, const Settings& settings,
                                 const Moment& now) const;
    ProcessorAnswer ask(Processor& processor, const ProcessorRequest& request);
    void perform(Operation operation, bool trackReadable);

    ServiceParts parts_;
    TransactionFields fields_;
    ProcessorAnswer answer_;
    std::string operatorName_;
};

} // namespace tollvane::charge
