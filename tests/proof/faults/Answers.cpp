// What wrong answers of components lead to, as a table of its own beside the program's conversions.
#include "tests/proof/faults/Answers.h"

#include "tests/proof/faults/Scenario.h"

#include <array>
#include <stdexcept>

namespace tollvane::test {

namespace {

// What members answer, by the last word of the call.
constexpr std::array kOutcomes{"AuthorizeAndCapture", "CaptureVoiceAuth", "Credit", "Void"};
constexpr std::array kFlags{"TestMode", "Login", "HasSecurity", "CheckCardNumber"};
constexpr std::array kNumbers{"ResponseCode", "ResponseReasonCode", "ResponseSubCode",
                              "cTransactionFields_MaximumLength"};
constexpr std::array kObjects{"TransactionField", "SafeCreateUIObj", "Options",
                              "DCObject",         "CurrentUser",     "Item",
                              "SafeCreateObj"};
constexpr std::array kAmounts{"Amount", "Tax"};

/// What an answer says of an operation, and the error that it ends in elsewhere, by what was asked
/// for; 0 where the answer is understood.
struct Misunderstood {
    const char* answer;
    Outcome outcome;
    long flag, number, object, amount, printedCard, text;
};

constexpr std::array kMisunderstood{
    Misunderstood{"answers empty", Outcome::failure, 0, 0, 13, 0, 0, 0},
    Misunderstood{"answers nothing", Outcome::unknown, 13, 13, 13, 13, 13, 13},
    Misunderstood{"answers a text", Outcome::unknown, 13, 13, 13, 13, 5, 0},
    Misunderstood{"answers an empty text", Outcome::unknown, 13, 13, 13, 13, 0, 0},
    Misunderstood{"answers a long number", Outcome::approval, 0, 6, 13, 0, 0, 0},
    Misunderstood{"answers a number", Outcome::approval, 0, 0, 13, 0, 5, 0},
    Misunderstood{"answers a negative number", Outcome::approval, 0, 0, 13, 0, 5, 0},
    Misunderstood{"answers a broken number", Outcome::approval, 0, 6, 13, 6, 0, 0},
    Misunderstood{"answers a date", Outcome::unknown, 13, 13, 13, 13, 0, 0},
    Misunderstood{"answers an amount", Outcome::approval, 0, 0, 13, 0, 5, 0},
    Misunderstood{"answers an object", Outcome::unknown, 13, 13, 438, 13, 13, 13},
};

template <class Names>
bool isAmong(const Names& names, const std::string& member) {
    for (const char* name : names) {
        if (member == name) {
            return true;
        }
    }
    return false;
}

long numberOf(const Call& call, const Misunderstood& row) {
    const std::string member = memberOf(call);
    if (isAmong(kOutcomes, member)) {
        return row.outcome == Outcome::unknown ? 13 : 0;
    }
    if (isAmong(kFlags, member)) {
        return row.flag;
    }
    if (isAmong(kNumbers, member)) {
        return row.number;
    }
    if (isAmong(kObjects, member)) {
        return row.object;
    }
    if (isAmong(kAmounts, member)) {
        return row.amount;
    }
    return call.step == sentence::receipt && member == "CardNumber" ? row.printedCard : row.text;
}

const Misunderstood& rowOf(const Mode& mode) {
    for (const Misunderstood& row : kMisunderstood) {
        if (mode.name == row.answer) {
            return row;
        }
    }
    throw std::logic_error("no row for a member that " + mode.name);
}

} // namespace

std::string memberOf(const Call& call) {
    return call.name.substr(call.name.rfind('.') + 1);
}

bool isOperation(const Call& call) {
    return isAmong(kOutcomes, memberOf(call));
}

std::optional<Outcome> outcomeSaid(const Call& call, const Mode& mode) {
    const bool says =
        call.callee == Callee::member && mode.how == Mode::How::answers && isOperation(call);
    return says ? std::optional(rowOf(mode).outcome) : std::nullopt;
}

long errorOfAnswer(const Call& call, const Mode& mode) {
    return numberOf(call, rowOf(mode));
}

} // namespace tollvane::test
