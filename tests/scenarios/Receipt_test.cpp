// Printing the receipt of the entry that was approved last, and what the operator is told when that
// does not work. The printer is a fake on either desktop.

#include "tests/scenarios/Till.h"

#include <algorithm>

namespace tollvane::test {
namespace {

using Words = std::vector<std::string>;

Message printFailure(const std::string& number, const std::string& description) {
    Message box = information(description, "There was an error printing the receipt.\r\n\r\n"
                                           "Error = " +
                                               number + ", " + description + ".");
    box.icon = MessageIcon::exclamation;
    return box;
}

class Receipt : public OpenTillTest {
protected:
    /// Submits what was filled in; it is approved.
    void approve() {
        till.submit();
        ASSERT_TRUE(till.program().TransactionApproved());
        till.boxes();
    }
    void approveCharge() {
        till.fillCharge();
        approve();
    }
    Words printed() {
        till.program().Print_Receipt();
        EXPECT_EQ(till.boxes(), std::vector<Message>());
        return till.desktop.printers.last().words();
    }
    /// Text number `which` behind every label of that name: one for each copy.
    static Words behind(const Words& words, const std::string& label) {
        Words values;
        for (std::size_t i = 0; i + 1 < words.size(); ++i) {
            if (words[i] == label) {
                values.push_back(words[i + 1]);
            }
        }
        return values;
    }
    static bool has(const Words& words, const std::string& text) {
        return std::ranges::find(words, text) != words.end();
    }
    /// Prints where this goes wrong: one box or none, no document, and the till works on.
    void expectFailure(const std::vector<Message>& boxes) {
        till.program().Print_Receipt();
        EXPECT_EQ(till.boxes(), boxes);
        EXPECT_EQ(till.form().mousePointer(), MousePointer::standard);
        EXPECT_EQ(till.desktop.printers.openJobs(), 0U);
        for (const auto& document : till.desktop.printers.documents) {
            EXPECT_FALSE(document->ended);
        }
        EXPECT_EQ(till.desktop.registry.openKeys(), 0U);
    }
    void hold(const std::string& property, Variant value) {
        till.desktop.charge.object()->put(property, std::move(value));
    }

    FakePrinters& printers = till.desktop.printers;
};

TEST_F(Receipt, WithoutAnAuthorizationThereIsNothingToPrintAndNoJobStarts) {
    till.program().Print_Receipt();
    EXPECT_EQ(till.boxes(), std::vector<Message>{information(
                                "Nothing to Print", "This transaction has not been authorized.")});
    EXPECT_TRUE(printers.documents.empty());
    EXPECT_EQ(till.form().mousePointer(), MousePointer::standard);
}

TEST_F(Receipt, TheMenuPrintsOnlyWhatWasAuthorized) {
    till.desktop.robot->chooseMenu(till.form(), "mnu_PrintReceipt");
    EXPECT_FALSE(till.form().control<MenuItem>("mnu_PrintReceipt").enabled());
    EXPECT_TRUE(printers.documents.empty());
    EXPECT_EQ(till.boxes(), std::vector<Message>());

    approveCharge();
    till.desktop.robot->chooseMenu(till.form(), "mnu_PrintReceipt");
    EXPECT_TRUE(till.form().control<MenuItem>("mnu_PrintReceipt").enabled());
    EXPECT_EQ(printers.documents.size(), 1U);
    EXPECT_TRUE(has(printers.last().words(), "A1B2C3"));
}

TEST_F(Receipt, ADeclinedChargeHasNothingToPrint) {
    till.fillCharge();
    till.desktop.charge.answer(declined(2, 2, "This transaction has been declined."));
    till.submit();
    till.boxes();
    till.program().Print_Receipt();
    EXPECT_EQ(till.desktop.boxes.last().title, "Nothing to Print");
    EXPECT_TRUE(printers.documents.empty());
}

TEST_F(Receipt, AChargeIsPrintedOnceForTheCustomerAndOnceForTheStore) {
    till.setCompany("City", "Springfield");
    till.setCompany("State", "IL");
    till.setCompany("Zip", "62701");
    till.setCompany("Phone", "555-0100");
    approveCharge();

    const Words words = printed();

    const Words customer{"Tollvane Receipt",
                         "(customer)",
                         "Date 11-21-2026",
                         "Oak & Elm",
                         "Springfield, IL 62701",
                         "555-0100",
                         "Name",
                         "Mary Ann Smith",
                         "Card Number",
                         "************1111",
                         "Information suppressed for security",
                         "Amount",
                         "$25.00",
                         "Authorized",
                         "A1B2C3",
                         "Transaction ID",
                         "7001"};
    Words expected = customer;
    expected.insert(expected.end(), customer.begin(), customer.end());
    expected[customer.size() + 1] = "(store)";
    EXPECT_EQ(words, expected);
    EXPECT_EQ(printers.last().lines.size(), 1U);
    EXPECT_TRUE(printers.last().ended);
}

TEST_F(Receipt, AVoidWithoutACardNumberSaysSoInTheCardAndTheAmountRow) {
    till.fillVoid();
    approve();
    const Words words = printed();
    EXPECT_EQ(behind(words, "Card Number"),
              (Words{"** VOID TRANSACTION **", "** VOID TRANSACTION **"}));
    EXPECT_EQ(behind(words, "Amount"), (Words{"** VOID **", "** VOID **"}));
    EXPECT_FALSE(has(words, "Authorized"));
}

TEST_F(Receipt, ARefundPrintsItsAmountAsACreditWithoutAnAuthorizedRow) {
    till.fillRefund();
    till.enter("txtAmount", "12.5");
    approve();
    const Words words = printed();
    EXPECT_EQ(behind(words, "Amount"), (Words{"$12.50 - credit", "$12.50 - credit"}));
    EXPECT_FALSE(has(words, "Authorized"));
}

TEST_F(Receipt, AnEmptyAdditionalAddressLeavesNoBlankLine) {
    till.setCompany("Street", "1 Market Square");
    till.setCompany("Additional Address", "");
    till.setCompany("City", "Springfield");
    approveCharge();
    printed();
    const auto& texts = printers.last().texts;
    ASSERT_EQ(texts[4].text, "1 Market Square");
    EXPECT_EQ(texts[5].text, "Springfield,  ");
    EXPECT_EQ(texts[5].y - texts[4].y, FakePrinters::lineHeight(texts[4].font));
}

TEST_F(Receipt, AnEmptyTransactionIdLeavesItsRowOut) {
    till.desktop.charge.answer({.transactionId = ""});
    approveCharge();
    const Words words = printed();
    EXPECT_FALSE(has(words, "Transaction ID"));
    EXPECT_TRUE(has(words, "Authorized"));
}

TEST_F(Receipt, ACardNumberOfFourCharactersIsPrintedWithoutAStar) {
    till.fillRefund();
    approve();
    EXPECT_EQ(behind(printed(), "Card Number"), (Words{"1111", "1111"}));
}

TEST_F(Receipt, ACardNumberOfThreeCharactersShowsTheErrorBox) {
    approveCharge();
    hold("CardNumber", SecretText("111"));
    expectFailure({printFailure("5", "Invalid procedure call or argument")});
}

TEST_F(Receipt, CancellingAtThePrinterEndsPrintingSilently) {
    approveCharge();
    printers.refusal = Error(32'755, "Printer", "Printing was cancelled");
    expectFailure({});
}

TEST_F(Receipt, APrinterErrorEndsPrintingSilently) {
    approveCharge();
    printers.refusal = Error(482, "Printer", "Printer error");
    expectFailure({});
    printers.refusal.reset();
    printers.refusalAtEnd = Error(482, "Printer", "Printer error");
    expectFailure({});
}

TEST_F(Receipt, BlanksAroundAnApprovalCodeAreNotPrinted) {
    till.desktop.charge.answer({.approvalCode = "  A1B2C3 "});
    approveCharge();
    EXPECT_EQ(behind(printed(), "Authorized"), (Words{"A1B2C3", "A1B2C3"}));
}

TEST_F(Receipt, WithoutADefaultPrinterTheBoxSaysSoUnderTheErrorsOwnTitle) {
    approveCharge();
    printers.missing = Error(484, "Printer", "There is no default printer");
    expectFailure({printFailure("484", "There is no default printer")});
}

TEST_F(Receipt, APausedPrinterShowsTheErrorBox) {
    approveCharge();
    printers.missing = Error(21, "Printer", "The printer \"Till\" is paused");
    expectFailure({printFailure("21", "The printer \"Till\" is paused")});
}

TEST_F(Receipt, ADriversErrorAtTheStartOrTheEndShowsTheErrorBox) {
    approveCharge();
    printers.refusal = Error(5, "Printer", "Access denied");
    expectFailure({printFailure("5", "Access denied")});
    printers.refusal.reset();
    printers.refusalAtEnd = Error(112, "Printer", "Disk full");
    expectFailure({printFailure("112", "Disk full")});
}

TEST_F(Receipt, AfterAFailureTheNextAttemptPrints) {
    approveCharge();
    printers.refusal = Error(5, "Printer", "Access denied");
    till.program().Print_Receipt();
    till.boxes();
    printers.refusal.reset();
    EXPECT_TRUE(has(printed(), "A1B2C3"));
    EXPECT_TRUE(printers.last().ended);
}

TEST_F(Receipt, TheHourglassStandsWhileItPrintsAndWhileAFailureIsShown) {
    approveCharge();
    std::vector<MousePointer> seen;
    const auto look = [&] { seen.push_back(till.form().mousePointer()); };
    printers.whilePrinting = look;
    till.program().Print_Receipt();
    EXPECT_GT(seen.size(), 30U);
    EXPECT_EQ(std::ranges::count(seen, MousePointer::standard), 0);
    EXPECT_EQ(till.form().mousePointer(), MousePointer::standard);

    seen.clear();
    printers.missing = Error(484, "Printer", "There is no default printer");
    till.desktop.boxes.whileOpen = [&](const Message&) { look(); };
    till.program().Print_Receipt();
    EXPECT_EQ(seen, std::vector<MousePointer>{MousePointer::hourglass});
    EXPECT_EQ(till.form().mousePointer(), MousePointer::standard);
}

TEST_F(Receipt, PrintingAgainPrintsTheSameTransactionAgain) {
    approveCharge();
    const Words first = printed();
    EXPECT_EQ(printed(), first);
    EXPECT_EQ(printers.documents.size(), 2U);
}

TEST_F(Receipt, WhatTheShopChangesInItsSettingsIsOnTheNextReceipt) {
    approveCharge();
    printed();
    till.setCompany("Name", "Elm & Oak");
    EXPECT_TRUE(has(printed(), "Elm & Oak"));
}

TEST_F(Receipt, ANewEntryHasNothingToPrintAnyMore) {
    approveCharge();
    till.choose(1);
    till.program().Print_Receipt();
    EXPECT_EQ(till.desktop.boxes.last().title, "Nothing to Print");
    EXPECT_TRUE(printers.documents.empty());
}

TEST_F(Receipt, AComponentThatDoesNotAnswerIsNoticedBeforeThePrinterStarts) {
    approveCharge();
    till.desktop.faults.failAt(Port::automation, 1, 462);
    expectFailure({printFailure("462", "Planned failure")});
    EXPECT_EQ(till.desktop.faults.failedCall(), "charge.ExpirationDate");
    EXPECT_TRUE(printers.documents.empty());
}

} // namespace
} // namespace tollvane::test
