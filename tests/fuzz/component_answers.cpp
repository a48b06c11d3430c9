// Components that answer anything: values of every type, objects of other components, missing
// members, errors. Nothing of it escapes a handler, nothing is charged twice, the operator is told
// what the component answered, and the next clean charge succeeds.

#include "entry/ChargeInfo.h"
#include "tests/fuzz/Script.h"
#include "tests/scenarios/Till.h"

#include <algorithm>
#include <limits>
#include <memory>
#include <optional>

namespace {

using namespace tollvane;
using namespace tollvane::test;

/// What the components answer from now on; everything is passed on when it is empty.
class Disturbance {
public:
    void begin(std::string bytes, bool onlyOutcome = false) {
        bytes_ = std::move(bytes);
        at_ = 0;
        onlyOutcome_ = onlyOutcome;
    }
    void end() { begin({}); }

    /// Another answer in the place of a true one.
    Variant answer(Variant truth) { return onlyOutcome_ ? truth : spoilt(std::move(truth)); }
    /// The same, for the answer of an operation.
    Variant outcome(Variant truth) { return spoilt(std::move(truth)); }

    /// An operation ran.
    bool ran = false;
    /// What its answer says to the program; nothing when it says neither yes nor no.
    std::optional<bool> told;

private:
    std::size_t next() {
        return at_ < bytes_.size() ? static_cast<unsigned char>(bytes_[at_++]) : 0;
    }
    Variant spoilt(Variant truth);
    Variant number(std::size_t kind);
    /// An object of another component. It lacks every member, or answers each with itself.
    static Variant stranger(bool answersItself);

    std::string bytes_;
    std::size_t at_ = 0;
    bool onlyOutcome_ = false;
};

std::optional<bool> toldBy(const Variant& answer) {
    try {
        return asBool(answer);
    } catch (const Error&) {
        return std::nullopt;
    }
}

/// Objects on their way to the program are disturbed too.
class Disturbed : public AutomationObject {
public:
    Disturbed(ObjectRef inner, Disturbance& disturbance)
        : inner_(std::move(inner)), disturbance_(disturbance) {}

    Variant call(std::string_view member, std::vector<Argument> arguments) override {
        const Variant truth = inner_->call(member, std::move(arguments));
        const bool isOperation = member == "AuthorizeAndCapture" || member == "CaptureVoiceAuth" ||
                                 member == "Credit" || member == "Void";
        if (!isOperation) {
            return passed(disturbance_.answer(truth));
        }
        disturbance_.ran = true;
        const Variant answer = disturbance_.outcome(truth);
        disturbance_.told = toldBy(answer);
        return passed(answer);
    }
    Variant get(std::string_view member, std::vector<Argument> arguments) override {
        return passed(disturbance_.answer(inner_->get(member, std::move(arguments))));
    }
    void put(std::string_view member, Variant value) override {
        disturbance_.answer({});
        inner_->put(member, std::move(value));
    }
    void putReference(std::string_view member, ObjectRef object) override {
        disturbance_.answer({});
        inner_->putReference(member, std::move(object));
    }

private:
    Variant passed(const Variant& answer) {
        const auto* object = std::get_if<ObjectRef>(&answer);
        if (object == nullptr || *object == nullptr) {
            return answer;
        }
        return ObjectRef(std::make_shared<Disturbed>(*object, disturbance_));
    }

    ObjectRef inner_;
    Disturbance& disturbance_;
};

class Stranger : public AutomationObject, public std::enable_shared_from_this<Stranger> {
public:
    explicit Stranger(bool answersItself) : answersItself_(answersItself) {}

    Variant call(std::string_view, std::vector<Argument>) override { return answer(); }
    Variant get(std::string_view, std::vector<Argument>) override { return answer(); }
    void put(std::string_view, Variant) override { answer(); }
    void putReference(std::string_view, ObjectRef) override { answer(); }

private:
    Variant answer() {
        if (!answersItself_) {
            throw Error(errornumber::memberNotFound, "stranger", "No such member");
        }
        return ObjectRef(shared_from_this());
    }
    bool answersItself_;
};

Variant Disturbance::stranger(bool answersItself) {
    return ObjectRef(std::make_shared<Stranger>(answersItself));
}

Variant Disturbance::number(std::size_t kind) {
    using Whole = std::numeric_limits<std::int32_t>;
    using Fraction = std::numeric_limits<double>;
    switch (kind % 8) {
    case 0: return Whole::max();
    case 1: return Whole::min();
    case 2: return std::int32_t{-1};
    case 3: return Fraction::quiet_NaN();
    case 4: return Fraction::infinity();
    case 5: return 1e300;
    case 6: return Money::fromScaled(std::numeric_limits<std::int64_t>::min());
    default: return Money::fromScaled(static_cast<std::int64_t>(next()));
    }
}

Variant Disturbance::spoilt(Variant truth) {
    const std::size_t kind = next();
    switch (kind % 16) {
    case 1: return {};
    case 2: return kind / 16 % 2 == 0;
    case 3: return static_cast<std::int32_t>(kind / 16);
    case 4: return number(kind / 16);
    case 5: return DateTime{2027, 3, 1, 0, 0, 0};
    case 6: return std::string(next() * 16, static_cast<char>(next()));
    case 7: return std::string(kind / 16 % 2 == 0 ? "True" : "12.5");
    case 8: return SecretText("4111111111111111");
    case 9: return ObjectRef();
    case 10: throw Error(errornumber::memberNotFound, "component", "No such member");
    case 11: throw Error(-2147023174, "component", "The RPC server is unavailable.");
    case 12: throw Error(errornumber::cannotCreateObject, "component", "Cannot create object");
    case 13: return stranger(kind / 16 % 2 == 0);
    default: return truth;
    }
}

class DisturbedTill {
public:
    DisturbedTill() {
        till.desktop.automation.registerProgId(
            "ZendaSwiftill.Tollvane", [this] { return disturbed(till.desktop.charge.object()); });
        till.desktop.automation.registerProgId("prjHabitat.clsHabitatI", [this] {
            return disturbed(till.desktop.environment.object());
        });
        till.desktop.automation.registerProgId(
            "dcZenda32.dcclsZenda32", [this] { return disturbed(till.desktop.hostData.object()); });
        till.desktop.automation.registerClass(
            FakeChecker::classId, FakeChecker::interfaceId,
            [this] { return disturbed(till.desktop.checker.object()); });
        till.desktop.boxes.whileOpen = [this](const Message& box) {
            if (box.buttons != MessageButtons::ok) {
                till.desktop.boxes.answer(MessageAnswer::yes);
            }
        };
    }

    Disturbance disturbance;
    Till till;

private:
    ObjectRef disturbed(ObjectRef object) {
        return std::make_shared<Disturbed>(std::move(object), disturbance);
    }
};

void requireNothingEscaped(Till& till) {
    for (const std::string& error : till.desktop.escaped.noted()) {
        require(false, "escaped: " + error);
    }
}

void requireUsable(Till& till) {
    require(till.form().isOpen(), "the form is open");
    require(till.form().mousePointer() == MousePointer::standard, "the pointer is the usual one");
    for (const char* name : {"cmdCancel", "cmdModify"}) {
        require(till.button(name).enabled(), std::string(name) + " is enabled");
    }
    require(till.button("cmdSubmit").enabled(), "cmdSubmit is enabled");
    require(till.box("txtAmount").enabled(), "the amount can be typed");
    require(till.form().activeControl() != nullptr, "a control has the focus");
}

bool hasBox(const std::vector<Message>& boxes, const std::string& title) {
    return std::ranges::any_of(boxes, [&](const Message& box) { return box.title == title; });
}

/// A new entry from the beginning, charged, approved and posted.
void requireCleanCharge(Till& till) {
    till.choose(1);
    till.choose(0);
    till.program().ClearText();
    till.fillCharge();
    till.boxes();
    const std::size_t operations = till.operations().size();
    const std::size_t posted = till.desktop.hostData.posted.size();
    till.submit();
    require(till.operations().size() == operations + 1, "the next charge is sent once");
    require(till.desktop.hostData.posted.size() == posted + 1, "and posted once");
    require(till.program().TransactionApproved(), "and approved");
    require(hasBox(till.boxes(), "Approved"), "and told");
}

/// What is submitted, and what of it goes wrong.
struct Submission {
    std::size_t type;
    bool declines;    ///< the processor does
    bool onlyOutcome; ///< nothing but the operation's answer is disturbed
    std::string script;
};

void fill(Till& till, std::size_t type) {
    till.choose(type == 0 ? 1 : 0);
    till.choose(static_cast<int>(type));
    till.program().ClearText();
    switch (type) {
    case 0: till.fillCharge(); break;
    case 1: till.fillRefund(); break;
    default: till.fillVoid(); break;
    }
}

/// By what the component answered, whatever the processor decided.
void requireTruth(DisturbedTill& shop, const std::vector<Message>& boxes) {
    const std::optional<bool>& told = shop.disturbance.told;
    const bool approved = told.value_or(false);
    require(shop.till.program().TransactionApproved() == approved, "approved is what was told so");
    require(!approved || !hasBox(boxes, "Authorization Failed"), "an approval is not a decline");
    require(approved || !hasBox(boxes, "Approved"), "nothing else is an approval");
    require(!shop.disturbance.ran || told.has_value() ||
                shop.till.status().starts_with("See the transaction log: "),
            "an outcome that is not known stays in sight");
}

void submitDisturbed(DisturbedTill& shop, const Submission& submission) {
    Till& till = shop.till;
    fill(till, submission.type);
    till.boxes();
    till.desktop.charge.forgetAnswers();
    if (submission.declines) {
        till.desktop.charge.answer(declined(2, 27, "Declined."));
    }
    const std::size_t operations = till.operations().size();
    const std::size_t posted = till.desktop.hostData.posted.size();
    shop.disturbance.ran = false;
    shop.disturbance.told.reset();
    shop.disturbance.begin(submission.script, submission.onlyOutcome);
    till.submit();
    shop.disturbance.end();
    const auto boxes = till.boxes();
    requireNothingEscaped(till);
    require(till.operations().size() <= operations + 1, "one operation at most");
    require(till.desktop.hostData.posted.size() <= posted + 1, "one payment at most");
    require(boxes.size() >= 1, "the operator is told");
    requireTruth(shop, boxes);
    till.desktop.charge.forgetAnswers();
    till.desktop.record.forget();
    till.desktop.registry.forgetCalls();
}

void startDisturbed(const std::string& script) {
    DisturbedTill shop;
    shop.disturbance.begin(script);
    shop.till.start();
    shop.disturbance.end();
    requireNothingEscaped(shop.till);
    if (shop.till.isOpen()) {
        requireUsable(shop.till);
        shop.till.press("cmdCancel");
        require(!shop.till.isOpen(), "the form is closed");
    } else {
        require(shop.till.boxes().size() <= 1, "a start that fails says so once");
    }
    requireNothingEscaped(shop.till);
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    Script script(data, size);
    const std::size_t first = script.next();
    const std::size_t what = first % 4;
    if (what == 3) {
        startDisturbed(script.rest());
        return 0;
    }
    static DisturbedTill shop;
    if (!shop.till.isOpen()) {
        shop.till.open();
    }
    submitDisturbed(shop, {what, first / 4 % 2 == 1, first / 8 % 2 == 1, script.rest()});
    requireUsable(shop.till);
    requireCleanCharge(shop.till);
    return 0;
}
