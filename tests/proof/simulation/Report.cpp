#include "tests/proof/simulation/Report.h"

#include <sstream>

namespace tollvane::simulation {

namespace {

constexpr std::size_t kLatest = 60;
constexpr std::size_t kMostComplaints = 5;

template <class Is>
std::string namesOf(const Is& is) {
    std::string names;
    for (std::size_t i = 0; i < kFaultKinds; ++i) {
        if (is(i)) {
            names += (names.empty() ? "" : ", ") + std::string(nameOf(static_cast<Fault>(i)));
        }
    }
    return names;
}

} // namespace

void Trace::fold(const std::string& text) {
    for (const char c : text + "\n") {
        digest_ = (digest_ ^ static_cast<unsigned char>(c)) * 1099511628211U;
    }
}

void Trace::line(const std::string& text) {
    fold(text);
    latest_.push_back(text);
    if (latest_.size() > kLatest) {
        latest_.pop_front();
    }
}

std::string Trace::latest() const {
    std::string text;
    for (const std::string& line : latest_) {
        text += line + "\n";
    }
    return text;
}

void Report::complain(const std::string& what) {
    trace.line("COMPLAINT " + what);
    ++complained;
    if (complaints.size() < kMostComplaints) {
        complaints.push_back(what + "\n" + trace.latest());
    }
}

std::string Report::neverDrawn() const {
    return namesOf([this](std::size_t i) { return drawn.at(i) == 0; });
}
std::string Report::neverStruck() const {
    return namesOf([this](std::size_t i) { return struck.at(i) == 0; });
}
std::string Report::neverInCall(const Faults& kinds) const {
    return namesOf([&](std::size_t i) {
        return kinds.count(static_cast<Fault>(i)) != 0 && inCall.at(i) == 0;
    });
}
std::string Report::oftenerThanDrawn() const {
    return namesOf([this](std::size_t i) { return struck.at(i) > drawn.at(i); });
}

void Report::hit(const Faults& faults, const Faults& whileBusy) {
    for (const Fault fault : faults) {
        ++struck.at(static_cast<std::size_t>(fault));
    }
    for (const Fault fault : whileBusy) {
        ++inCall.at(static_cast<std::size_t>(fault));
    }
}

std::string Report::summary() const {
    std::ostringstream out;
    out << "transactions " << transactions << "\nsubmissions " << submissions << "\napproved "
        << approved << "\ndeclined " << declined << "\nerrors " << errors << "\nrestarts "
        << restarts << "\nrecorded at once " << recordedAtOnce
        << "\nmissing, told in the status bar " << missingAndTold
        << "\nmissing after a crash, told by the log " << missingAndLogged
        << "\nfound missing at the next sign-in and recorded " << recordedLater
        << "\nrecords compared with the ledger after the last sign-in " << recordsCompared
        << "\nended in mid-call, then tried again " << endedInCallTriedAgain
        << "\nended in mid-call, then only started again " << endedInCallLeft << "\ncomplaints "
        << complained << "\n";
    for (std::size_t i = 0; i < kFaultKinds; ++i) {
        out << "fault " << nameOf(static_cast<Fault>(i)) << ": " << drawn[i] << " drawn, "
            << struck[i] << " met, " << inCall[i] << " in mid-call\n";
    }
    out << "trace " << std::hex << trace.digest() << "\n";
    return out.str();
}

} // namespace tollvane::simulation
