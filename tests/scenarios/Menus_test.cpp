// The menus of the transaction form: their tree, what they show when they open, their settings.

#include "controls/FormatType.h"
#include "entry/ChargeInfoMenus.h"
#include "tests/scenarios/Till.h"

#include <algorithm>
#include <cctype>
#include <map>

namespace tollvane::test {
namespace {

struct Entry {
    int level;
    const char* name;
    const char* caption;
};

constexpr std::array kTree{Entry{0, "mnuProgram", "&Program"},
                           Entry{1, "mnu_PZendaSettings", "&Zenda Data Settings ..."},
                           Entry{1, "mnu_CompanyInfo", "&Company Info ..."},
                           Entry{1, "mnuHistory", "&View History"},
                           Entry{2, "mnu_Report", "Run &Transaction Browser"},
                           Entry{2, "mnu_HSep", "-"},
                           Entry{2, "mnuPrinter", "&Printer"},
                           Entry{2, "mnuWindow", "&Window"},
                           Entry{1, "mnuPSep1", "-"},
                           Entry{1, "mnu_POptions", "&Options"},
                           Entry{2, "mnu_POAuto", "&Auto Format Text"},
                           Entry{3, "mnu_POAnone", "(&none)"},
                           Entry{3, "mnu_POALowerCase", "&Lower Case"},
                           Entry{3, "mnu_POAUpperCase", "&UpperCase"},
                           Entry{3, "mnu_POAProperCase", "&Proper Case"},
                           Entry{2, "mnu_PODefault", "&Default Invoice Numbers"},
                           Entry{2, "mnu_POMore", "&More Options ..."},
                           Entry{1, "mnuPSep2", "-"},
                           Entry{1, "mnuExit", "E&xit"},
                           Entry{0, "mnu_Print", "P&rint"},
                           Entry{1, "mnu_PrintReceipt", "Print &Receipt"},
                           Entry{0, "mnuHelp", "&Help"},
                           Entry{1, "mnu_HContents", "&Contents && Index"},
                           Entry{1, "mnu_HData", "&Data Path"},
                           Entry{1, "mnu_HSep1", "-"},
                           Entry{1, "mnu_About", "&About"},
                           Entry{0, "mnuPopup", "Popup"},
                           Entry{1, "mnu_PGateway", "Modify &Gateway"},
                           Entry{1, "mnu_PSettings", "Modify &Settings"}};

constexpr std::array kFormats{"mnu_POAnone", "mnu_POALowerCase", "mnu_POAUpperCase",
                              "mnu_POAProperCase"};

/// The access key of a caption as a small letter, or 0.
char accessKey(std::string_view caption) {
    std::size_t at = caption.find('&');
    while (at != std::string_view::npos && at + 1 < caption.size()) {
        if (caption[at + 1] != '&') {
            return static_cast<char>(std::tolower(static_cast<unsigned char>(caption[at + 1])));
        }
        at = caption.find('&', at + 2);
    }
    return 0;
}

class Menus : public OpenTillTest {
protected:
    MenuItem& item(std::string_view name) { return till.form().control<MenuItem>(name); }
    void open(std::string_view menu) { till.desktop.robot->openMenu(till.form(), menu); }
    void choose(std::string_view name) { till.desktop.robot->chooseMenu(till.form(), name); }
    /// The items of auto format that carry a check mark after "&Options" was opened.
    std::vector<std::string> checkedFormats() {
        open("mnu_POptions");
        std::vector<std::string> checked;
        for (const char* name : kFormats) {
            if (item(name).checked()) {
                checked.emplace_back(name);
            }
        }
        return checked;
    }
    void storeFormat(std::uint32_t type) {
        till.desktop.registry.addNumber(kOptions, "FormatType", type);
    }
    std::optional<std::uint32_t> stored(const char* name) {
        return till.desktop.registry.number(kOptions, name);
    }
    void addLog() { till.desktop.files.addFile("C:\\ProgramData\\Tollvane\\Transactions.log"); }

    static constexpr const char* kOptions =
        "HKEY_LOCAL_MACHINE\\Software\\Norrow Programs\\Tollvane\\Options";
};

TEST_F(Menus, StandInTheirOrderWithTheirCaptions) {
    const auto rows = chargeInfoMenus();
    ASSERT_EQ(rows.size(), kTree.size());
    for (std::size_t i = 0; i < rows.size(); ++i) {
        EXPECT_EQ(rows[i].level, kTree[i].level) << kTree[i].name;
        EXPECT_EQ(rows[i].name, kTree[i].name);
        EXPECT_EQ(item(kTree[i].name).caption(), kTree[i].caption);
    }
}

TEST_F(Menus, OnlyThePopUpIsNotInTheBar) {
    for (const Entry& entry : kTree) {
        if (entry.level == 0) {
            EXPECT_EQ(item(entry.name).visible(), std::string_view(entry.name) != "mnuPopup");
        }
    }
}

TEST_F(Menus, EveryItemOfAMenuHasAnAccessKeyOfItsOwn) {
    std::map<int, std::string> taken; // by level; a new menu starts a new list
    for (const Entry& entry : kTree) {
        taken.erase(taken.upper_bound(entry.level), taken.end());
        if (std::string_view(entry.caption) == "-" || std::string_view(entry.name) == "mnuPopup") {
            continue;
        }
        const char key = accessKey(entry.caption);
        EXPECT_NE(key, 0) << entry.caption;
        EXPECT_EQ(taken[entry.level].find(key), std::string::npos) << entry.caption;
        taken[entry.level] += key;
    }
}

TEST_F(Menus, TheBarsAccessKeysBelongToNoControlOfTheForm) {
    for (Control* control : till.form().controls()) {
        const auto* captioned = dynamic_cast<Captioned*>(control);
        if (captioned == nullptr || control->kind() == ControlKind::menuItem) {
            continue;
        }
        const char key = accessKey(captioned->caption());
        EXPECT_TRUE(key != 'p' && key != 'r' && key != 'h') << captioned->caption();
    }
}

TEST_F(Menus, OpenByTheirAccessKeys) {
    addLog();
    item("mnuPrinter").setEnabled(false);
    till.desktop.robot->accessKey('P');
    EXPECT_TRUE(item("mnuPrinter").enabled());
}

TEST_F(Menus, WithNoLogFileTheLogIsNeitherPrintedNorOpened) {
    open("mnuProgram");

    EXPECT_FALSE(item("mnuPrinter").enabled());
    EXPECT_FALSE(item("mnuWindow").enabled());
    choose("mnuPrinter");
    choose("mnuWindow");
    EXPECT_TRUE(till.desktop.shell.executions.empty());
}

TEST_F(Menus, WithALogFileTheLogIsOffered) {
    open("mnuProgram");
    addLog();

    open("mnuProgram");

    EXPECT_TRUE(item("mnuPrinter").enabled());
    EXPECT_TRUE(item("mnuWindow").enabled());
}

TEST_F(Menus, ALogThatCannotBeNamedIsNotOfferedAndNothingIsSaid) {
    addLog();
    open("mnuProgram");
    till.desktop.record.failNext("charge.LogFilePath", Error(70, "charge", "Permission denied"));

    open("mnuProgram");

    EXPECT_FALSE(item("mnuPrinter").enabled());
    EXPECT_FALSE(item("mnuWindow").enabled());
    EXPECT_EQ(till.boxes(), std::vector<Message>());
}

TEST_F(Menus, ChoosingUpperCaseChecksOnlyUpperCaseWhenOptionsReopen) {
    choose("mnu_POAUpperCase");

    EXPECT_EQ(checkedFormats(), std::vector<std::string>{"mnu_POAUpperCase"});
}

class FormatItem : public Menus, public ::testing::WithParamInterface<std::size_t> {};

TEST_P(FormatItem, StoresItsTypeAndAppliesItToTheTexts) {
    storeFormat(formattype::upperCase);
    constexpr std::array kShown{"oNE two", "one two", "ONE TWO", "ONE Two"};

    choose(kFormats[GetParam()]);

    EXPECT_EQ(stored("FormatType"), GetParam());
    EXPECT_EQ(checkedFormats(), std::vector<std::string>{kFormats[GetParam()]});
    till.box("txtDescription").setFocus();
    till.desktop.robot->typeText("oNE two");
    EXPECT_EQ(till.text("txtDescription"), kShown[GetParam()]);
}

INSTANTIATE_TEST_SUITE_P(OfAutoFormat, FormatItem, ::testing::Range<std::size_t>(0, 4),
                         [](const auto& row) {
                             return std::string(kFormats[row.param]).substr(7);
                         });

TEST_F(Menus, AStoredFormatOutsideTheFourLeavesAllUnchecked) {
    storeFormat(formattype::upperCase);
    ASSERT_EQ(checkedFormats().size(), 1U);
    for (const std::uint32_t odd : {4U, 5U, 0xFFFFFFFFU}) {
        storeFormat(odd);
        EXPECT_EQ(checkedFormats(), std::vector<std::string>()) << odd;
    }
}

TEST_F(Menus, DefaultInvoiceNumbersShowsWhatIsStored) {
    till.set(option::defaultInvoiceNumber, true);
    open("mnu_POptions");
    EXPECT_TRUE(item("mnu_PODefault").checked());

    till.set(option::defaultInvoiceNumber, false);
    open("mnu_POptions");
    EXPECT_FALSE(item("mnu_PODefault").checked());
}

TEST_F(Menus, DefaultInvoiceNumbersStoresItsOpposite) {
    till.set(option::defaultInvoiceNumber, true);

    choose("mnu_PODefault");
    EXPECT_EQ(stored("DefaultInvoiceNumbers"), 0U);

    choose("mnu_PODefault");
    EXPECT_EQ(stored("DefaultInvoiceNumbers"), 0xFFFFFFFFU);
}

TEST_F(Menus, AReceiptIsOfferedOnlyAfterAnApproval) {
    open("mnu_Print");
    EXPECT_FALSE(item("mnu_PrintReceipt").enabled());

    till.approveCharge();
    open("mnu_Print");
    EXPECT_TRUE(item("mnu_PrintReceipt").enabled());

    till.program().ClearText();
    open("mnu_Print");
    EXPECT_FALSE(item("mnu_PrintReceipt").enabled());
}

TEST_F(Menus, DataSettingsAskTheHostDataServer) {
    int configured = 0;
    till.desktop.hostData.script().method("ConfigureSettings",
                                          [&](std::vector<Argument>& arguments) -> Variant {
                                              EXPECT_TRUE(arguments.empty());
                                              ++configured;
                                              return {};
                                          });
    choose("mnu_PZendaSettings");

    EXPECT_EQ(configured, 1);
    EXPECT_EQ(till.boxes(), std::vector<Message>());
}

TEST_F(Menus, AHostDataServerWithoutSettingsIsReported) {
    choose("mnu_PZendaSettings");

    const std::vector<Message> boxes = till.boxes();
    ASSERT_EQ(boxes.size(), 1U);
    EXPECT_TRUE(boxes[0].text.starts_with(
        "There was an error configuring the data settings.\r\n\r\nError: 438, "));
}

TEST_F(Menus, AFailingItemIsReportedAndTheFormStaysUsable) {
    till.desktop.record.failNext("charge.ConfigureSettings", Error(70, "charge", "Busy"));
    till.desktop.robot->planPopUp("mnu_PSettings");

    till.press("cmdModify");

    EXPECT_EQ(
        till.boxes(),
        (std::vector<Message>{information(
            "", "There was an error configuring the gateway settings.\r\n\r\nError: 70, Busy")}));
    till.expectUsable();
}

} // namespace
} // namespace tollvane::test
