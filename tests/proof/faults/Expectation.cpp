// What the operator is told when a call fails, for every call that the program makes.

#include "tests/proof/faults/Expectation.h"

#include "platform/Error.h"
#include "platform/Printer.h"
#include "tests/desktop/FakeRegistry.h"
#include "tests/proof/faults/Answers.h"
#include "tests/proof/faults/FaultyObject.h"

#include <array>

namespace tollvane::test {

namespace {

using How = Mode::How;

constexpr const char* kLineBreaks = "\r\n\r\n";

/// A failure as the handler gets it.
struct Failure {
    long number = 0;
    std::string description;
    bool descriptionStarts = false;
};

bool isOneOf(const std::string& text, std::initializer_list<const char*> all) {
    for (const char* one : all) {
        if (text == one) {
            return true;
        }
    }
    return false;
}

Told inForm(const std::string& sentence, const Failure& failure, const std::string& prefix = {}) {
    return {.title = {},
            .text = sentence + kLineBreaks + "Error: " + std::to_string(failure.number) + ", " +
                    prefix + failure.description,
            .textStarts = failure.descriptionStarts};
}

Told inReceipt(const Failure& failure) {
    const std::string text = std::string(sentence::receipt) + kLineBreaks +
                             "Error = " + std::to_string(failure.number) + ", " +
                             failure.description;
    return {.title = failure.descriptionStarts ? "" : failure.description,
            .text = failure.descriptionStarts ? text : text + ".",
            .titleEnds = failure.descriptionStarts,
            .textStarts = failure.descriptionStarts};
}

Told inAbout(const Failure& failure) {
    const std::string first =
        std::string("There was an error displaying Tollvane information.") + kLineBreaks;
    const bool missing = failure.number == errornumber::cannotCreateObject;
    return {.title = "Unable to Display About",
            .text = missing ? first + "Error 429, Unable to create About class."
                            : first + "Error: " + std::to_string(failure.number) + ", " +
                                  failure.description + "."};
}

Told inCardCheck(const Failure& failure) {
    return {.title = ":ValidateCardNumber",
            .text = std::string(sentence::cardNumber) + kLineBreaks +
                    "Error: " + std::to_string(failure.number) + " ," + failure.description,
            .titleEnds = true};
}

Told inStateList(const Failure& failure) {
    return {.title = "Load Controls Error",
            .text = std::string(sentence::state) + "\n\nError = " + std::to_string(failure.number) +
                    ", " + failure.description + "."};
}

/// How the start tells of a component's member; null when it is none of the start's own.
struct StartRow {
    std::string name;
    const char* sentence;
    const char* prefix;
};

const StartRow* startRow(const std::string& name) {
    constexpr const char* kLoading = sentence::loading;
    constexpr const char* kNotAuthorized = "Authorization error. ";
    static const std::vector<StartRow> rows{
        {"create prjHabitat.clsHabitatI", kLoading, "Error creating Environment object. "},
        {"environment.INIT", kLoading, "Error setting Environment command line object. "},
        {"create dcZenda32.dcclsZenda32", kLoading, kNotAuthorized},
        {"environment.DCServer", kLoading, kNotAuthorized},
        {"environment.Options", kLoading, kNotAuthorized},
        {"options.DCObject =", kLoading, kNotAuthorized},
        {"environment.SafeCreateUIObj", kLoading, kNotAuthorized},
        {"login.Login", kLoading, kNotAuthorized},
        {"environment.HasSecurity", kLoading, kNotAuthorized},
        {"environment.CurrentUser", kLoading, kNotAuthorized},
        {"user.Item", kLoading, kNotAuthorized},
        {"person.First", kLoading, kNotAuthorized},
        {"person.Last", kLoading, kNotAuthorized},
        {"create ZendaSwiftill.Tollvane", kLoading, "Error creating ZendaCard object. "},
        {"charge.LogLoggedInUser", kLoading, ""},
        {"charge.TransactionField", sentence::entryFields, ""},
        {"charge.ExpirationDate", sentence::expirations, ""},
        {"environment.Data_Path", sentence::dataPath, ""},
        {"environment.Location", sentence::dataPath, ""},
        {"charge.TestMode", sentence::activating, ""},
        {"resourceString", sentence::entryFields, ""},
        {"create ChargeInfo", kLoading, ""},
        {"create frmCompanyInfo", kLoading, ""},
    };
    for (const StartRow& row : rows) {
        if (row.name == name ||
            (name.starts_with("field ") && row.name == "charge.TransactionField")) {
            return &row;
        }
    }
    return nullptr;
}

/// How a handler tells of what a component or the program itself raises.
std::optional<Told> toldBy(const Call& call, const Failure& failure) {
    if (call.name == "create checker" || call.name.starts_with("checker.")) {
        return inCardCheck(failure);
    }
    if (call.step == sentence::loading) {
        constexpr int kStates = 58; // of the form's list; those of a dialog follow
        if (call.name == "resourceString" && call.ordinal > kStates) {
            return inForm(sentence::loading, failure);
        }
        const StartRow* row = startRow(call.name);
        return row == nullptr ? inForm(sentence::loading, failure)
                              : inForm(row->sentence, failure, row->prefix);
    }
    if (isOneOf(call.name, {"create Norrow_About.clsAbout", "about.ShowAbout"})) {
        return inAbout(failure);
    }
    if (isOneOf(call.name, {"charge.LogFilePath", "charge.LogFileName"}) &&
        (call.ordinal == 1 || call.step.find("transaction") == std::string::npos)) {
        return std::nullopt; // a menu that opens shows no boxes
    }
    if (call.name == "charge.TestMode" &&
        !isOneOf(call.step, {sentence::approval, sentence::gateway})) {
        return inForm(sentence::activating, failure);
    }
    if (call.step == sentence::receipt) {
        const bool known =
            failure.number == errornumber::printerError || failure.number == errornumber::cancelled;
        return known ? std::nullopt : std::optional(inReceipt(failure));
    }
    return call.step == sentence::state ? inStateList(failure) : inForm(call.step, failure);
}

std::string descriptionOf(long number) {
    switch (number) {
    case 5: return "Invalid procedure call or argument";
    case 6: return "Overflow";
    case 13: return "Type mismatch";
    default: return "Object doesn't support this property or method";
    }
}

std::optional<Failure> failureOfMember(const Call& call, const Mode& mode) {
    if (mode.how != How::answers) {
        return Failure{mode.number, mode.description};
    }
    const long number = errorOfAnswer(call, mode);
    return number == 0 ? std::nullopt : std::optional(Failure{number, descriptionOf(number)});
}

/// Boxes that come of an answer that is understood but not what was meant.
std::set<std::string> resultsOf(const Call& call) {
    const std::string member = memberOf(call);
    if (isOperation(call)) {
        return {"Approved", "Authorization Failed"};
    }
    if (isOneOf(member, {"Login", "HasSecurity"})) {
        return {""}; // the refusal
    }
    if (call.step == sentence::dataPath) {
        return {"Zenda Data Path & Location"};
    }
    if (isOneOf(member, {"StreetAddress", "City", "State", "ZipCode"})) {
        return {"Incomplete Billing Address"};
    }
    return member == "CheckCardNumber" || call.name == "create checker"
               ? std::set<std::string>{"Invalid Card Number", "Invalid Field"}
               : std::set<std::string>{};
}

Expectation ofMember(const Call& call, const Mode& mode) {
    Expectation expected{.told = {}, .follows = resultsOf(call), .mayReplaceOthers = true};
    if (const auto failure = failureOfMember(call, mode)) {
        expected.told = toldBy(call, *failure);
    }
    return expected;
}

// Registry

struct Saved {
    const char* setting;
    const char* key;
    const char* sentence;
};

constexpr std::array kSaved{
    Saved{"Name", "\\Company Information", "company name."},
    Saved{"Street", "\\Company Information", "company street address."},
    Saved{"Additional Address", "\\Company Information", "company addition address."},
    Saved{"City", "\\Company Information", "company city."},
    Saved{"State", "\\Company Information", "company state."},
    Saved{"Zip", "\\Company Information", "company zip code."},
    Saved{"Phone", "\\Company Information", "company phone."},
    Saved{"Location", "\\Company Information", "company location."},
    Saved{"FormatType", "\\Options", "format type."},
    Saved{"DefaultInvoiceNumbers", "\\Options", "default invoice number setting."},
    Saved{"InvoiceNumberForPONumber", "\\Options", "invoice number for PO number setting."},
    Saved{"ShopAddressForBillToAddress", "\\Options", "shop address for bill to address setting."},
    Saved{"ShowRefundVoidWarning", "\\Options", "ShowRefundVoidWarning setting."},
    Saved{"BillToAddress", "\\Options\\Required Fields", "bill to address required setting."},
    Saved{"CardCode", "\\Options\\Required Fields", "card code required setting."},
    Saved{"InvoiceNumber", "\\Options\\Required Fields", "invoice number required setting."},
    Saved{"PONumber", "\\Options\\Required Fields", "PO number required setting."},
    Saved{"Description", "\\Options\\Required Fields", "description required setting."},
};

bool isText(const Call& call) {
    return call.key == "\\Company Information" && call.setting != "Location";
}

Failure accessFailure(const Call& call, const Mode& mode, const std::string& doing) {
    const bool noText = mode.how == How::noText;
    return {mode.number,
            "There was an error " + doing +
                " the HKEY_LOCAL_MACHINE\\Software\\Norrow Programs\\Tollvane" + call.key +
                " registry key, " + (noText ? "unable to retrieve error description." : ""),
            true};
}

Expectation ofWriting(const Call& call, const Mode& mode) {
    for (const Saved& row : kSaved) {
        if (call.name != "createKeyEx" || call.setting != row.setting || call.key != row.key) {
            continue;
        }
        Told told = inForm("There was an error saving the " + std::string(row.sentence),
                           accessFailure(call, mode, "writing"));
        told.title = isText(call) ? "Tollvane:SaveStringValue" : "Tollvane:SaveNumericValue";
        if (!isText(call) && !isOneOf(row.setting, {"Location", "FormatType"})) {
            told.title += ":SaveBooleanValue, Err.Description";
        }
        return {.told = told, .follows = {}};
    }
    return {}; // the window's place, and a value that cannot be written: silence
}

Told toldOfText(const Call& call, const Failure& failure) {
    if (call.step == sentence::loading) {
        // The start asks for the name, the form shows all of it, a dialog of the first start too.
        const int ofTheForm = call.setting == "Name" ? 2 : 1;
        return inForm(call.ordinal == ofTheForm ? sentence::companyText : sentence::loading,
                      failure);
    }
    return call.step == sentence::receipt ? inReceipt(failure) : inForm(call.step, failure);
}

/// A state that is none of the list's keeps the dialog from opening.
bool isStateOfTheDialog(const Call& call) {
    const bool isSecond = call.step == sentence::loading && call.ordinal == 2;
    const bool isFirst =
        call.step.find("opening the company") != std::string::npos && call.ordinal == 1;
    return call.setting == "State" && (isSecond || isFirst);
}

Expectation ofReading(const Call& call, const Mode& mode) {
    if (!isText(call)) {
        // A number that cannot be read is 0 or the default.
        return {.told = {}, .follows = {"Tip", "Required Field Missing"}};
    }
    if (mode.how == How::type) {
        return {.told = toldOfText(call, {1, "Incorrect function.", true}),
                .follows = {},
                .mayReplaceOthers = true};
    }
    if (mode.how == How::empty || mode.number == registry::fileNotFound) {
        if (isStateOfTheDialog(call)) {
            return {.told = inForm(call.step, {380, "Invalid property value"}),
                    .mayReplaceOthers = true};
        }
        return {.told = {}, .follows = {"Enter Company Information Now?"}};
    }
    return {.told = toldOfText(call, accessFailure(call, mode, "reading")),
            .follows = {},
            .mayReplaceOthers = true};
}

Expectation ofRegistry(const Call& call, const Mode& mode) {
    if (call.name == "closeKey") {
        return {};
    }
    return call.name == "createKeyEx" || call.name == "setValueEx" ? ofWriting(call, mode)
                                                                   : ofReading(call, mode);
}

// Files and the shell

Expectation ofLaunch(const Mode& mode) {
    const bool inTable = mode.number <= 31 && mode.number != 26 && mode.number != 27;
    return {.told = Told{.title = "Application Start Error",
                         .text = inTable ? "Error launching "
                                         : "An unknown error occurred trying to start ",
                         .textStarts = true}};
}

} // namespace

bool Told::isTold(const Message& box) const {
    const bool sameTitle = titleEnds ? box.title.ends_with(title) : box.title == title;
    return sameTitle && (textStarts ? box.text.starts_with(text) : box.text == text);
}

bool tellsOfADeadProcess(const Message& box) {
    return box.text.find("462") != std::string::npos &&
           box.text.find(kServerGoneText) != std::string::npos;
}

Expectation expectationOf(const Call& call, const Mode& mode) {
    const Failure raised{mode.number, mode.description};
    switch (call.callee) {
    case Callee::registry: return ofRegistry(call, mode);
    case Callee::creation:
    case Callee::member: return ofMember(call, mode);
    case Callee::files:
        return call.name == "startProcess" ? ofLaunch(mode) : Expectation{.mayReplaceOthers = true};
    case Callee::shell: return call.name == "execute" ? ofLaunch(mode) : Expectation{};
    case Callee::program:
        if (call.name == "anotherInstanceRuns") {
            return {.follows = {"Application Is Running"}, .mayReplaceOthers = true};
        }
        return {.told = toldBy(call, raised)};
    case Callee::forms:
    case Callee::printer: return {.told = toldBy(call, raised), .mayReplaceOthers = true};
    case Callee::boxes: return {.mayReplaceOthers = true};
    case Callee::locale:
    case Callee::controls: return {};
    }
    return {};
}

} // namespace tollvane::test
