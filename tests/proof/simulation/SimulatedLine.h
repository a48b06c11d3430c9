#pragma once

#include "components/charge/core/SimulatedProcessor.h"

#include <deque>
#include <functional>
#include <memory>
#include <optional>
#include <set>

namespace tollvane::simulation {

enum class LineTrouble {
    requestLost,          ///< the processor never sees it, and says so when asked
    replyLost,            ///< carried out, and told when asked
    replyLostAndLineDead, ///< carried out, and cannot be asked
    lateApproval,         ///< carried out only when the line has been given up
    processorDown,        ///< neither seen nor can it be asked
    requestSentTwice,     ///< a network that repeats
    programEnds,          ///< carried out, and nobody is there for the answer
};

/// What lies between the till and the processor; outlives both.
struct Line {
    std::deque<LineTrouble> troubles; ///< of the next requests, one each
    std::set<LineTrouble> struck;     ///< of them
    bool dead = false;
    std::optional<charge::ProcessorRequest> late;
    /// Runs while the processor works.
    std::function<void()> whileBusy;
    /// Ends the program, and all of its process.
    std::function<void()> endProgram;

    /// What is still under way arrives.
    void deliver(charge::FileStore& files, const charge::FilePath& folder);
};

/// The built-in processor at the other end of a line.
class ProcessorOnLine final : public charge::Processor {
public:
    ProcessorOnLine(charge::FileStore& files, const charge::FilePath& folder, Line& line)
        : inner_(files, folder), line_(line) {}

    charge::ProcessorAnswer submit(const charge::ProcessorRequest& request) override;
    std::optional<charge::ProcessorAnswer> find(const std::string& key, bool testMode) override;

private:
    charge::SimulatedProcessor inner_;
    Line& line_;
};

} // namespace tollvane::simulation
