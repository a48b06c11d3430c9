#include "components/charge/core/OperationBook.h"

#include "components/charge/core/Reasons.h"

namespace tollvane::charge {

OperationBook::OperationBook(FileStore& files, const Settings& settings)
    : lock_(files.lock(settings.dataFolder)), journal_(files, journalPath(settings.dataFolder)),
      log_(files, settings.logFolder / settings.logFileName), open_(journal_.load()) {}

FilePath OperationBook::journalPath(const FilePath& folder) {
    return folder / "journal.dat";
}

void OperationBook::settle(Processor& processor) {
    for (const OpenOperation& operation : open_)
        settleOne(operation, processor);
    open_ = journal_.load();
    if (open_.empty())
        journal_.shorten();
}

void OperationBook::settleOne(const OpenOperation& operation, Processor& processor) {
    const OperationNote& note = operation.note;
    try {
        if (operation.answer) {
            writeOutcome(note, *operation.answer, Settlement::AfterInterruption);
            return;
        }
        const auto found = processor.find(note.key, note.testMode);
        finish(note, found.value_or(answerFor(Reason::NeverReceived)),
               Settlement::AfterInterruption);
    } catch (const ProcessorUnreachable&) {
        // Stays open; the next settle asks again.
    }
}

void OperationBook::writeOutcome(const OperationNote& note, const ProcessorAnswer& answer,
                                 Settlement settlement) {
    if (settlement == Settlement::AtOnce || !log_.hasOutcome(note.key))
        log_.writeOperation(note, answer, settlement);
    journal_.close(note.key);
}

void OperationBook::begin(const OperationNote& note) {
    log_.probe();
    journal_.open(note);
}

void OperationBook::finish(const OperationNote& note, const ProcessorAnswer& answer,
                           Settlement settlement) noexcept {
    try {
        journal_.answered(note.key, answer);
    } catch (...) {
        // The processor can tell it again.
    }
    try {
        writeOutcome(note, answer, settlement);
    } catch (...) {
        // The operation stays open in the journal; nothing may turn the answer into an error.
    }
}

void OperationBook::leaveOpen(const OperationNote& note) noexcept {
    try {
        log_.writeUnknown(note);
    } catch (...) {
        // The journal has it.
    }
}

} // namespace tollvane::charge
