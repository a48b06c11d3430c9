// A day at the counter, scenario by scenario.

#include "tests/proof/faults/Scenario.h"

namespace tollvane::test {

namespace {

constexpr const char* kCard = "%B4111111111111111^SMITH/JOHN^2712101000000?";
constexpr int kAPause = 400; // milliseconds, longer than any inside a swipe

/// A shop whose settings, log and neighbours are all there.
void furnish(Rig& rig) {
    Till& till = rig.till;
    for (const auto& [name, text] : {std::pair{"Street", "2 Elm Road"},
                                     {"City", "Dover"},
                                     {"State", "NY"},
                                     {"Zip", "10001"},
                                     {"Phone", "5551234"}}) {
        till.setCompany(name, text);
    }
    till.setCompanyLocation(7);
    till.set(option::cardCodeRequired, true);
    till.set(option::shopAddress, true);
    till.desktop.registry.addKey("HKEY_LOCAL_MACHINE\\Software\\Norrow Programs\\Tollvane\\Window");
    till.desktop.program.arguments = "/till 3";
    till.desktop.files.addFile(till.desktop.charge.logFilePath + "\\" +
                               till.desktop.charge.logFileName);
    till.desktop.files.addFile(till.desktop.files.folder + "\\LogLens.exe");
    till.desktop.hostData.script().method("ConfigureSettings",
                                          [](std::vector<Argument>&) { return Variant(); });
    auto about = std::make_shared<FakeObject>("about", till.desktop.record);
    about->method("ShowAbout", [](std::vector<Argument>&) { return Variant(); });
    till.desktop.automation.registerProgId("Norrow_About.clsAbout", [about] { return about; });
}

void open(Rig& rig) {
    furnish(rig);
    rig.till.open();
}

void openApproved(Rig& rig) {
    open(rig);
    rig.till.approveCharge();
}

void start(Rig& rig) {
    rig.sabotage.enter(sentence::loading);
    rig.till.start();
}

void submit(Rig& rig) {
    rig.step(sentence::approval, [&] { rig.till.submit(); });
}

void typeAmounts(Rig& rig, const char* amount = "25.00", const char* tax = "1.50") {
    rig.step(sentence::amount, [&] {
        rig.type("txtAmount", amount);
        rig.type("txtTaxAmount", tax);
        rig.robot().click(rig.till.form(), "txtDescription");
    });
}

void keyedCharge(Rig& rig) {
    rig.step(sentence::cardNumber, [&] {
        rig.type("txtCardName", "Mary Ann Smith");
        rig.type("txtCardNumber", "4111111111111111");
        rig.robot().tab();
    });
    rig.step(sentence::expiry, [&] { rig.till.enterExpiry(3, 2027); });
    rig.step(sentence::cardNumber, [&] { rig.type("txtCardCode", "123"); });
    typeAmounts(rig);
    rig.step(sentence::state, [&] {
        rig.till.enter("txtBillToStreet", "1 Oak Street");
        rig.till.enter("txtBillToCity", "Springfield");
        rig.till.enter("txtBillToZip", "62701");
        rig.till.enterState("IL");
    });
    submit(rig);
}

void swipedCharge(Rig& rig) {
    rig.step(sentence::keyboard, [&] {
        rig.robot().click(rig.till.form(), "txtDescription");
        rig.robot().typeText(kCard);
        rig.robot().letTimePass(kAPause);
    });
    typeAmounts(rig);
    submit(rig);
}

void useCompanyDialog(Rig& rig) {
    rig.inDialog("There was an error saving the company information.", [&](Form& form) {
        rig.robot().click(form, "txtCompanyName");
        rig.robot().typeText("Elm & Oak");
        rig.robot().click(form, "cmdApply");
        rig.robot().click(form, "txtCompanyPhone");
        rig.robot().typeText("5554321");
        rig.sabotage.enter(sentence::state);
        rig.robot().chooseItem(form, "cboState", 3);
        rig.sabotage.enter("There was an error saving the company information.");
        rig.robot().click(form, "cmdOK");
        rig.sabotage.enter("There was an error opening the company information.");
    });
}

void useOptionsDialog(Rig& rig) {
    rig.inDialog("There was an error saving the changes.", [&](Form& form) {
        rig.robot().click(form, "chkRPONumber");
        rig.robot().click(form, "cmdApply");
        rig.robot().click(form, "optFormat", 2);
        rig.robot().click(form, "cmdOK");
    });
    rig.choose("There was an error opening the options.", "mnu_POMore");
}

void openFormatMenu(Rig& rig) {
    for (const char* item :
         {"mnu_POALowerCase", "mnu_POAUpperCase", "mnu_POAProperCase", "mnu_POAnone"}) {
        rig.choose("There was an error formatting the text.", item);
    }
}

void pressHelp(Rig& rig) {
    rig.till.desktop.boxes.whileOpen = [](const Message& box) {
        if (box.help) {
            box.help(box);
        }
    };
}

Scenario menu(const char* name, const char* sentence, const char* item) {
    return {.name = name, .prepare = open, .act = [sentence, item](Rig& rig) {
                rig.choose(sentence, item);
            }};
}

std::vector<Scenario> starts() {
    return {
        {.name = "Start", .prepare = furnish, .act = start, .isStart = true},
        {.name = "FirstStart",
         .prepare =
             [](Rig& rig) {
                 furnish(rig);
                 rig.till.setCompany("Name", "");
                 rig.ports->boxes.answer = MessageAnswer::yes;
             },
         .act =
             [](Rig& rig) {
                 rig.inDialog("There was an error saving the company information.",
                              [&rig](Form& form) {
                                  rig.robot().click(form, "cmdCancel");
                                  rig.sabotage.enter(sentence::loading);
                              });
                 start(rig);
             },
         .isStart = true},
        {.name = "LoginCancelled",
         .prepare =
             [](Rig& rig) {
                 furnish(rig);
                 rig.till.desktop.environment.loggedIn = false;
             },
         .act = start,
         .isStart = true,
         .isRefused = true},
        {.name = "LoginWithoutPrivilege",
         .prepare =
             [](Rig& rig) {
                 furnish(rig);
                 rig.till.desktop.environment.privileges.clear();
             },
         .act = start,
         .isStart = true,
         .isRefused = true},
    };
}

std::vector<Scenario> submissions() {
    const auto with = [](void (Till::*fill)()) {
        return [fill](Rig& rig) {
            open(rig);
            (rig.till.*fill)();
        };
    };
    return {
        {.name = "KeyedCharge", .prepare = open, .act = keyedCharge},
        {.name = "SwipedCharge", .prepare = open, .act = swipedCharge},
        {.name = "ChargeInGermany",
         .prepare =
             [](Rig& rig) {
                 rig.till.desktop.locale.use(localeid::germany);
                 open(rig);
                 rig.fillCharge();
             },
         .act =
             [](Rig& rig) {
                 typeAmounts(rig, "25,00", "1,50");
                 submit(rig);
             }},
        {.name = "DeclineWithHelp",
         .prepare =
             [](Rig& rig) {
                 open(rig);
                 rig.till.fillCharge();
                 rig.till.desktop.charge.answer(declined(2, 27, "Declined."));
                 pressHelp(rig);
             },
         .act = submit},
        {.name = "Refund", .prepare = with(&Till::fillRefund), .act = submit},
        {.name = "Void", .prepare = with(&Till::fillVoid), .act = submit},
        {.name = "VoiceCapture",
         .prepare =
             [](Rig& rig) {
                 open(rig);
                 rig.till.fillCharge();
                 rig.till.press("chkVoiceAuth");
                 rig.till.enter("txtAuthNum", "V12345");
             },
         .act = submit},
        {.name = "ChargeAtTheShopsAddress",
         .prepare =
             [](Rig& rig) {
                 open(rig);
                 rig.till.fillCharge();
                 rig.till.enter("txtBillToStreet", "");
             },
         .act = submit},
        {.name = "OtherTypes",
         .prepare = openApproved,
         .act =
             [](Rig& rig) {
                 for (const int type : {transtype::refund, transtype::voiding, transtype::charge}) {
                     rig.step(sentence::newEntry, [&] { rig.till.choose(type); });
                 }
             }},
        {.name = "NewEntry",
         .prepare = openApproved,
         .act =
             [](Rig& rig) { rig.step(sentence::newEntry, [&] { rig.type("txtCardName", "M"); }); }},
        {.name = "Receipt",
         .prepare = openApproved,
         .act = [](Rig& rig) { rig.choose(sentence::receipt, "mnu_PrintReceipt"); }},
    };
}

std::vector<Scenario> dialogsAndMenus() {
    constexpr const char* kCompany = "There was an error opening the company information.";
    return {
        {.name = "CompanyDialog",
         .prepare = open,
         .act =
             [](Rig& rig) {
                 useCompanyDialog(rig);
                 rig.choose(kCompany, "mnu_CompanyInfo");
             }},
        {.name = "OptionsDialog", .prepare = open, .act = useOptionsDialog},
        {.name = "TextFormats", .prepare = open, .act = openFormatMenu},
        menu("DataSettings", "There was an error configuring the data settings.",
             "mnu_PZendaSettings"),
        menu("TransactionBrowser", "There was an error starting the transaction browser.",
             "mnu_Report"),
        menu("PrintedLog", "There was an error printing the transaction history.", "mnuPrinter"),
        menu("OpenedLog", "There was an error opening the transaction history.", "mnuWindow"),
        menu("DefaultInvoiceNumbers", "There was an error setting the default invoice number.",
             "mnu_PODefault"),
        menu("HelpContents", "There was an error opening the help.", "mnu_HContents"),
        menu("DataPath", sentence::dataPath, "mnu_HData"),
        menu("About", "There was an error displaying the program information.", "mnu_About"),
        {.name = "GatewayAndSettings",
         .prepare = open,
         .act =
             [](Rig& rig) {
                 rig.robot().planPopUp("mnu_PGateway");
                 rig.step(sentence::gateway, [&] { rig.till.press("cmdModify"); });
                 rig.robot().planPopUp("mnu_PSettings");
                 rig.step("There was an error configuring the gateway settings.",
                          [&] { rig.till.press("cmdModify"); });
             }},
        {.name = "ExitByMenu",
         .prepare = open,
         .act = [](Rig& rig) { rig.choose(sentence::closing, "mnuExit"); },
         .isEnd = true},
        {.name = "Finished",
         .prepare = openApproved,
         .act = [](Rig& rig) { rig.step(sentence::closing, [&] { rig.till.press("cmdCancel"); }); },
         .isEnd = true},
    };
}

} // namespace

const std::vector<Scenario>& scenarios() {
    static const std::vector<Scenario> all = [] {
        std::vector<Scenario> gathered = starts();
        for (auto part : {submissions(), dialogsAndMenus()}) {
            gathered.insert(gathered.end(), part.begin(), part.end());
        }
        return gathered;
    }();
    return all;
}

} // namespace tollvane::test
