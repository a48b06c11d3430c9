#include "tests/proof/faults/Sweep.h"

#include "tests/proof/faults/Judge.h"

#include <random>
#include <set>
#include <sstream>

namespace tollvane::test {

namespace {

std::vector<Message> act(Rig& rig, const Scenario& scenario) {
    rig.operationsBefore = rig.till.operations().size();
    rig.till.desktop.boxes.take();
    rig.sabotage.watch(true);
    scenario.act(rig);
    rig.sabotage.watch(false);
    rig.changes = rig.till.desktop.faults.calls(Port::controls);
    rig.dropPlans();
    rig.till.desktop.boxes.whileOpen = {};
    rig.till.desktop.charge.forgetAnswers();
    return rig.till.boxes();
}

std::string kindOf(const Call& call) {
    // Locale items and control changes are many of a kind.
    const bool many = call.callee == Callee::locale || call.callee == Callee::controls;
    return std::to_string(static_cast<int>(call.callee)) + (many ? std::string() : call.name);
}

} // namespace

Sweep::Sweep(const Scenario& scenario, unsigned long seed) : scenario_(scenario), seed_(seed) {
    Rig rig;
    scenario.prepare(rig);
    const int changes = rig.till.desktop.faults.calls(Port::controls);
    rig.sabotage.watch(true);
    boxes_ = act(rig, scenario);
    calls_ = rig.sabotage.calls();
    std::map<std::string, int> ordinals;
    for (Call& call : calls_) {
        call.ordinal = ++ordinals[call.name + "|" + call.key + "|" + call.setting];
    }
    for (int i = changes; i < rig.changes; ++i) {
        calls_.push_back(
            {.callee = Callee::controls, .name = "change " + std::to_string(i - changes + 1)});
    }
}

std::vector<Sweep::Run> Sweep::runs(unsigned long stride) const {
    std::mt19937_64 random(seed_);
    std::set<std::string> kinds;
    std::vector<Run> chosen;
    for (std::size_t i = 0; i < calls_.size(); ++i) {
        std::vector<Mode> modes = modesOf(calls_[i]);
        const std::size_t must =
            kinds.insert(kindOf(calls_[i])).second ? random() % modes.size() : modes.size();
        for (std::size_t m = 0; m < modes.size(); ++m) {
            if (random() % stride == 0 || m == must) {
                chosen.push_back({i, std::move(modes[m])});
            }
        }
    }
    return chosen;
}

std::string Sweep::play(const Run& run) {
    const Call& call = calls_[run.call];
    std::ostringstream title;
    title << scenario_.name << ": call " << run.call + 1 << ", " << call.text() << ", "
          << run.mode.name;
    SCOPED_TRACE(title.str());
    Rig rig;
    scenario_.prepare(rig);
    if (call.callee == Callee::controls) {
        rig.till.desktop.faults.failAt(Port::controls, std::stoi(call.name.substr(7)),
                                       run.mode.number);
    } else {
        rig.sabotage.plan(run.call, run.mode);
    }
    const std::vector<Message> shown = act(rig, scenario_);
    const bool reached = rig.sabotage.reached() || rig.till.desktop.faults.reached();
    const std::string failedChange = rig.till.desktop.faults.failedCall();
    title << (failedChange.empty() ? "" : " (" + failedChange + ")");
    rig.till.desktop.faults.clear();
    if (!reached) {
        return title.str() + "\n  - the call was not made again";
    }
    Judge judge(rig, scenario_);
    judge.boxes(shown, boxes_, call, run.mode);
    judge.money(shown, call, run.mode);
    judge.form();
    judge.life(shown, call, run.mode);
    judge.belongings();
    const std::string reason = judge.reasonForANewStart(call);
    if (!reason.empty()) {
        ++newStarts_[reason];
    }
    judge.nextCharge(!reason.empty());
    return judge.problems().empty() ? std::string() : title.str() + judge.problems();
}

} // namespace tollvane::test
