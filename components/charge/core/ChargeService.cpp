#include "components/charge/core/ChargeService.h"

#include "components/charge/core/ApprovedPayments.h"
#include "components/charge/core/CardDataMask.h"
#include "components/charge/core/Failure.h"
#include "components/charge/core/OperationBook.h"
#include "components/charge/core/Reasons.h"
#include "components/charge/core/TrackOne.h"

#include <utility>

namespace tollvane::charge {

namespace {

bool isCharge(Operation operation) {
    return operation == Operation::Charge || operation == Operation::VoiceCapture;
}

// Raises the errors of the file system as one that says that nothing was sent.
template <class Body>
auto recording(Body&& body) {
    try {
        return std::forward<Body>(body)();
    } catch (const FileFailure& problem) {
        throw failure(failurenumber::cannotRecord, "Journal",
                      std::string("The transaction was not sent because it cannot be recorded. ") +
                          problem.what());
    }
}

// Wipes what must not outlive an operation.
class WipeAtEnd {
public:
    explicit WipeAtEnd(TransactionFields& fields) : fields_(fields) {}
    WipeAtEnd(const WipeAtEnd&) = delete;
    WipeAtEnd& operator=(const WipeAtEnd&) = delete;
    ~WipeAtEnd() {
        fields_.clear(Field::CardCode);
        fields_.clear(Field::TrackOne);
    }

private:
    TransactionFields& fields_;
};

} // namespace

ChargeService::ChargeService(ServiceParts parts) : parts_(std::move(parts)) {}

void ChargeService::clearFields() noexcept {
    fields_.clear();
    answer_ = ProcessorAnswer();
}

bool ChargeService::run(Operation operation, std::string_view argument) {
    const WipeAtEnd wipe(fields_);
    prepareFields(operation, argument); // the argument may be a part of the last answer
    answer_ = ProcessorAnswer();
    const bool trackReadable = deriveFromTrack(operation);
    perform(operation, trackReadable);
    return answer_.approved();
}

void ChargeService::perform(Operation operation, bool trackReadable) {
    const Settings settings = parts_.settings.read();
    const Moment now = parts_.clock.now();
    const OperationNote note = makeNote(operation, settings, now);
    const ProcessorRequest request = makeRequest(note, settings, now);
    const std::unique_ptr<Processor> processor = parts_.connect(settings);
    OperationBook book = recording([&] { return OperationBook(parts_.files, settings); });
    recording([&] {
        book.settle(*processor);
        book.begin(note);
    });
    try {
        const auto objection = ownObjection(trackReadable);
        answer_ = objection ? *objection : ask(*processor, request);
    } catch (...) {
        book.leaveOpen(note);
        throw;
    }
    book.finish(note, answer_);
}

void ChargeService::prepareFields(Operation operation, std::string_view argument) {
    if (operation == Operation::VoiceCapture)
        fields_.set(Field::AuthorizationCode, argument);
    else if (!isCharge(operation))
        fields_.set(Field::TransactionId, argument);
}

bool ChargeService::deriveFromTrack(Operation operation) {
    if (!isCharge(operation) || fields_.get(Field::TrackOne).empty())
        return true;
    const auto track = parseTrackOne(fields_.get(Field::TrackOne));
    if (!track)
        return false;
    fields_.set(Field::CardNumber, track->cardNumber.view());
    if (fields_.get(Field::ExpirationDate).empty() && track->expiry)
        fields_.set(Field::ExpirationDate, track->expiry->text());
    return true;
}

std::optional<ProcessorAnswer> ChargeService::ownObjection(bool trackReadable) const {
    if (const FieldDefinition* field = fields_.firstTooLong())
        return answerFor(Reason::FieldTooLong, field->label);
    if (!trackReadable)
        return answerFor(Reason::UnreadableSwipe);
    return std::nullopt;
}

OperationNote ChargeService::makeNote(Operation operation, const Settings& settings,
                                      const Moment& now) const {
    OperationNote note;
    note.key = parts_.newKey();
    note.date = now.dateText();
    note.time = now.timeText();
    note.operatorName = withoutCardNumbers(operatorName_);
    note.operation = operation;
    note.testMode = settings.testMode;
    note.amount = fields_.money(Field::Amount);
    note.lastFour = lastFour(fields_.get(Field::CardNumber));
    if (!isCharge(operation))
        note.reference = withoutCardNumbers(fields_.get(Field::TransactionId));
    return note;
}

ProcessorRequest ChargeService::makeRequest(const OperationNote& note, const Settings& settings,
                                            const Moment& now) const {
    ProcessorRequest request;
    request.key = note.key;
    request.operation = note.operation;
    request.testMode = note.testMode;
    request.time = now;
    request.amount = note.amount;
    request.cardNumber = SecretText(fields_.get(Field::CardNumber));
    request.cardCode = SecretText(fields_.get(Field::CardCode));
    request.expiry = expiryFromText(fields_.get(Field::ExpirationDate));
    request.zip = fields_.get(Field::Zip);
    request.invoiceNumber = fields_.get(Field::InvoiceNumber);
    request.voiceCode = fields_.get(Field::AuthorizationCode);
    request.transactionId = fields_.get(Field::TransactionId);
    request.duplicateWindowSeconds = settings.duplicateWindowSeconds;
    return request;
}

// A lost answer is asked for once more at once; only when that fails too is the outcome unknown.
ProcessorAnswer ChargeService::ask(Processor& processor, const ProcessorRequest& request) {
    try {
        return processor.submit(request);
    } catch (const ProcessorUnreachable& lost) {
        try {
            const auto found = processor.find(request.key, request.testMode);
            return found ? *found : answerFor(Reason::NeverReceived);
        } catch (const ProcessorUnreachable&) {
            throw failure(failurenumber::outcomeUnknown, "Processor",
                          std::string("It is not known whether the transaction was approved. ") +
                              lost.what() +
                              " Do not charge the card again before the transaction log "
                              "tells the outcome.");
        }
    }
}

void ChargeService::settleOpenOperations() noexcept {
    try {
        const Settings settings = parts_.settings.read();
        const std::unique_ptr<Processor> processor = parts_.connect(settings);
        OperationBook(parts_.files, settings).settle(*processor);
    } catch (...) {
        // The next operation settles first, and reports what keeps it from doing so.
    }
}

std::string ChargeService::approvedPayments(int days) {
    const Settings settings = parts_.settings.read();
    return listText(charge::approvedPayments(
        parts_.files, settings.logFolder / settings.logFileName, parts_.clock.now(), days));
}

void ChargeService::signIn(const std::string& operatorName) noexcept {
    try {
        operatorName_ = operatorName;
        const Settings settings = parts_.settings.read();
        OperationBook(parts_.files, settings)
            .log()
            .writeSignIn(parts_.clock.now(), operatorName, settings.merchantId);
    } catch (...) {
        // See above: the first operation reports it.
    }
}

} // namespace tollvane::charge
