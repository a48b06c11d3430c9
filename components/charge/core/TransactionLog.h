// The transaction log for people: one line an operation, in columns that two blanks separate, with
// a "-" for what is empty and a checksum at the end. On the disk when a call returns. Never holds
// card data but the last four digits.
#pragma once

#include "components/charge/core/FileStore.h"
#include "components/charge/core/OperationNote.h"

#include <string>
#include <string_view>

namespace tollvane::charge {

enum class Settlement { AtOnce, AfterInterruption };

// Whether a line (without its end) is as it was written: whole, with the checksum of the rest.
bool isAsWritten(std::string_view line);

class TransactionLog {
public:
    TransactionLog(FileStore& files, FilePath path);

    // All raise FileFailure.

    // Finds out whether the log can take another line.
    void probe();
    void writeOperation(const OperationNote& note, const ProcessorAnswer& answer,
                        Settlement settlement);
    // The processor was asked and the outcome is not known yet.
    void writeUnknown(const OperationNote& note);
    void writeSignIn(const Moment& time, const std::string& operatorName,
                     const std::string& merchantId);
    // Whether the outcome of the operation with this key has its line.
    bool hasOutcome(const std::string& key);

private:
    void mendTail();
    void appendLine(std::string line);

    FileStore& files_;
    FilePath path_;
};

} // namespace tollvane::charge
