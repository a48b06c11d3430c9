#include "tests/proof/simulation/SimulatedLine.h"

#include "tests/proof/simulation/SimulatedDisk.h"

#include <utility>

namespace tollvane::simulation {

void Line::deliver(charge::FileStore& files, const charge::FilePath& folder) {
    if (const auto request = std::exchange(late, std::nullopt)) {
        try {
            charge::SimulatedProcessor(files, folder).submit(*request);
        } catch (const charge::ProcessorUnreachable&) {
            // It has arrived, or never will; nobody waits for the answer.
        }
    }
}

charge::ProcessorAnswer ProcessorOnLine::submit(const charge::ProcessorRequest& request) {
    if (line_.whileBusy) {
        line_.whileBusy();
    }
    if (line_.dead) {
        throw charge::ProcessorUnreachable("The line to the processor is down.");
    }
    if (line_.troubles.empty()) {
        return inner_.submit(request);
    }
    const LineTrouble trouble = line_.troubles.front();
    line_.troubles.pop_front();
    line_.struck.insert(trouble);
    switch (trouble) {
    case LineTrouble::requestSentTwice: inner_.submit(request); return inner_.submit(request);
    case LineTrouble::requestLost: break;
    case LineTrouble::replyLost: inner_.submit(request); break;
    case LineTrouble::replyLostAndLineDead:
        inner_.submit(request);
        line_.dead = true;
        break;
    case LineTrouble::lateApproval:
        line_.late = request;
        line_.dead = true;
        break;
    case LineTrouble::processorDown: line_.dead = true; break;
    case LineTrouble::programEnds:
        inner_.submit(request);
        line_.endProgram();
        throw PowerCut();
    }
    throw charge::ProcessorUnreachable("The processor does not answer.");
}

std::optional<charge::ProcessorAnswer> ProcessorOnLine::find(const std::string& key,
                                                             bool testMode) {
    if (line_.dead) {
        throw charge::ProcessorUnreachable("The line to the processor is down.");
    }
    return inner_.find(key, testMode);
}

} // namespace tollvane::simulation
