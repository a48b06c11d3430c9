// A processor that lives on this computer: charges, voice captures, refunds up to the charged
// amount, voids until the day is over, duplicates refused. Each of its two sides, test and live,
// has a ledger of its own.
#pragma once

#include "components/charge/core/FileStore.h"
#include "components/charge/core/Ledger.h"
#include "components/charge/core/Processor.h"

namespace tollvane::charge {

class SimulatedProcessor final : public Processor {
public:
    SimulatedProcessor(FileStore& files, FilePath folder);

    // A ledger that cannot be written makes it unreachable; nothing is then charged.
    ProcessorAnswer submit(const ProcessorRequest& request) override;
    std::optional<ProcessorAnswer> find(const std::string& key, bool testMode) override;

    // Where the ledger of one side is kept.
    static FilePath ledgerPath(const FilePath& folder, bool testMode);

private:
    Ledger openLedger(bool testMode) const;
    ProcessorAnswer record(Ledger& ledger, const ProcessorRequest& request, ProcessorAnswer answer,
                           bool settledAtOnce) const;

    FileStore& files_;
    FilePath folder_;
    bool lineDead_ = false;
};

} // namespace tollvane::charge
