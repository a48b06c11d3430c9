// The ways in which each kind of call can fail on a real desktop.

#include "platform/Automation.h"
#include "platform/Error.h"
#include "platform/Printer.h"
#include "tests/desktop/FakeRegistry.h"
#include "tests/proof/faults/FaultyObject.h"
#include "tests/proof/faults/Sabotage.h"

#include <memory>

namespace tollvane::test {

namespace {

using How = Mode::How;

constexpr const char* kDescription = "The component could not do it";

std::vector<Mode> statuses(std::initializer_list<long> numbers) {
    std::vector<Mode> modes;
    for (const long number : numbers) {
        modes.push_back({How::status, "answers " + std::to_string(number), number});
    }
    return modes;
}

std::vector<Mode> raised(std::initializer_list<long> numbers) {
    std::vector<Mode> modes;
    for (const long number : numbers) {
        modes.push_back(
            {How::raises, "raises " + std::to_string(number), number, "Planned failure"});
    }
    return modes;
}

std::vector<Mode> registryModes(const Call& call) {
    // Access denied, bad handle, no memory, bad parameter, corrupt, key marked for deletion.
    std::vector<Mode> modes = statuses({5, 6, 8, 87, 1015, 1018});
    const auto add = [&modes](Mode mode) { modes.push_back(std::move(mode)); };
    if (call.name.starts_with("closeKey")) {
        return statuses({6});
    }
    if (call.name.starts_with("setValueEx")) {
        modes.push_back(statuses({112}).front()); // disk full
        return modes;
    }
    add({How::noText, "answers 1009 without a text", 1009});
    if (call.name.starts_with("createKeyEx")) {
        return modes;
    }
    modes.push_back(statuses({2}).front());
    if (call.name.starts_with("queryValueEx")) {
        modes.push_back(statuses({234}).front());
        add({How::type, "is of type REG_BINARY", registry::binary});
        add({How::type, "is of type REG_MULTI_SZ", registry::multiString});
        add({How::empty, "is empty", registry::string});
    }
    return modes;
}

std::vector<Mode> creationModes() {
    constexpr long kNoInterface = static_cast<long>(static_cast<int>(0x8000'4002U));
    constexpr long kNoModule = static_cast<long>(static_cast<int>(0x8007'007EU));
    return {{How::raises, "class is missing", errornumber::cannotCreateObject,
             "ActiveX component can't create object"},
            {How::raises, "has no such interface", kNoInterface, "No such interface supported"},
            {How::raises, "library is missing", kNoModule, "Module not found."},
            {How::raises, "is refused", 70, "Permission denied"},
            {How::raises, "computer is gone", kServerGone, kServerGoneText}};
}

/// Whether the program looks at what the member answers.
bool answersSomething(const Call& call) {
    for (const char* quiet : {".ClearFields", ".INIT", ".Configure", ".LogLoggedInUser", ".Free",
                              ".GetrecbyIDNumber", ".AddNew", ".Update", ".ShowAbout", " ="}) {
        if (call.name.find(quiet) != std::string::npos) {
            return false;
        }
    }
    return true;
}

std::vector<Mode> memberModes(const Call& call) {
    std::vector<Mode> modes{
        {How::raises, "is unknown", errornumber::memberNotFound,
         "Object doesn't support this property or method"},
        {How::raises, "takes no such type", errornumber::typeMismatch, "Type mismatch"},
        {How::raises, "raises its own error", 3021, kDescription},
        {How::raises, "raises without a text", -2147467259, ""},
        {How::raises, "raises a long text", 1001, std::string(900, 'x')},
        {How::dies, "finds its process dead", kServerGone, kServerGoneText},
        {How::loses, "loses its answer", kServerGone, kServerGoneText},
    };
    if (!answersSomething(call)) {
        return modes;
    }
    const auto answer = [&modes](const char* name, Variant value) {
        modes.push_back({How::answers, name, 0, {}, std::move(value)});
    };
    answer("answers empty", {});
    answer("answers nothing", ObjectRef());
    answer("answers a text", std::string("abc"));
    answer("answers an empty text", std::string());
    answer("answers a long number", std::string("99999999999999"));
    answer("answers a number", 7);
    answer("answers a negative number", -3);
    answer("answers a broken number", 1.0e300);
    answer("answers a date", DateTime{.year = 2026, .month = 2, .day = 3});
    answer("answers an amount", Money::fromUnits(12));
    answer("answers an object", std::make_shared<StrangeObject>());
    return modes;
}

std::vector<Mode> filesModes(const Call& call) {
    if (call.name == "profileString") {
        return {{How::answers, "answers nothing", 0, {}, std::string()},
                {How::answers, "answers words", 0, {}, std::string("left of it")},
                {How::answers, "answers a huge number", 0, {}, std::string("999999999999")}};
    }
    return call.name == "probeForReading" ? statuses({2, 3, 5, 21, 32, 53})
                                          : statuses({2, 3, 5, 8, 193, 740});
}

std::vector<Mode> programModes(const Call& call) {
    if (call.name == "anotherInstanceRuns") {
        return {{How::answers, "cannot claim its place", 0, {}, true}};
    }
    return {{How::raises, "is missing", 326, "Resource not found"}};
}

std::vector<Mode> shellModes(const Call& call) {
    if (call.name == "execute") {
        return statuses({0, 2, 3, 5, 8, 11, 26, 27, 31, 32});
    }
    return {{How::status, "fails", 31}};
}

} // namespace

std::vector<Mode> modesOf(const Call& call) {
    switch (call.callee) {
    case Callee::registry: return registryModes(call);
    case Callee::creation: return creationModes();
    case Callee::member: return memberModes(call);
    case Callee::files: return filesModes(call);
    case Callee::program: return programModes(call);
    case Callee::locale: return statuses({0});
    case Callee::printer:
        return raised({errornumber::printerError, errornumber::cancelled, errornumber::noPrinter, 5,
                       21, 1801});
    case Callee::shell: return shellModes(call);
    case Callee::boxes:
    case Callee::forms:
    case Callee::controls: return raised({7}); // out of memory
    }
    return {};
}

} // namespace tollvane::test
