// Journal and log of one data folder, with other processes kept out while it lives. Knows in which
// order they are written, so that no crash can lose an outcome or tell it twice.
#pragma once

#include "components/charge/core/Journal.h"
#include "components/charge/core/Settings.h"
#include "components/charge/core/TransactionLog.h"

#include <memory>

namespace tollvane::charge {

class OperationBook {
public:
    // Raises FileFailure and failurenumber::damagedFile.
    OperationBook(FileStore& files, const Settings& settings);

    // Finds out from the processor what became of operations that a crash or a dead line left open.
    // What the processor cannot tell stays open. Raises FileFailure.
    void settle(Processor& processor);

    // Before the processor is asked: the operation is on the disk and the log can take its line.
    // Raises FileFailure.
    void begin(const OperationNote& note);

    // After the processor has answered. The answer stands whatever happens here; what cannot be
    // written now is written by the next settle.
    void finish(const OperationNote& note, const ProcessorAnswer& answer,
                Settlement settlement = Settlement::AtOnce) noexcept;
    void leaveOpen(const OperationNote& note) noexcept;

    TransactionLog& log() noexcept { return log_; }

    static FilePath journalPath(const FilePath& folder);

private:
    void settleOne(const OpenOperation& operation, Processor& processor);
    void writeOutcome(const OperationNote& note, const ProcessorAnswer& answer,
                      Settlement settlement);

    std::unique_ptr<FileStore::Lock> lock_;
    Journal journal_;
    TransactionLog log_;
    std::vector<OpenOperation> open_;
};

} // namespace tollvane::charge
