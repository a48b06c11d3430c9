// Every row of a receipt with its place and font, for every kind of transaction and every text that
// may be missing.

#include "gateway/TransactionType.h"
#include "output/Receipt.h"
#include "tests/desktop/TestDesktop.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace tollvane::test {
namespace {

using Rows = std::vector<std::string>;

class ReceiptLayout : public ::testing::Test {
protected:
    void SetUp() override {
        desk.clock.set({2026, 3, 7, 9, 5, 3});
        company("Name", "Oak & Elm");
        company("Street", "1 Market Square");
        company("Additional Address", "Second Floor");
        company("City", "Springfield");
        company("State", "IL");
        company("Zip", "62701");
        company("Phone", "(217) 555-0100");
        hold("FirstName", std::string("Mary Ann"));
        hold("LastName", std::string("Smith"));
        hold("CardNumber", SecretText("4111111111111111"));
        hold("Amount", Money::fromScaled(1'234'5000));
    }
    void TearDown() override { desk.expectNothingLeftOver(); }

    void company(const std::string& name, const std::string& text) {
        desk.registry.addString("HKEY_LOCAL_MACHINE\\Software\\Norrow "
                                "Programs\\Tollvane\\Company Information",
                                name, text);
    }
    void hold(const std::string& property, Variant value) {
        desk.charge.object()->put(property, std::move(value));
    }
    const PrintedDocument& print(int type) {
        const ChargeComponent charge(desk.charge.object(), desk.locale);
        printReceipt(desk.desktop(), charge, type);
        return desk.printers.last();
    }

    void approve() { ChargeComponent(desk.charge.object(), desk.locale).AuthorizeAndCapture(); }
    /// What the customer's copy says below the card.
    static Rows afterTheCard(const PrintedDocument& printed) {
        constexpr std::size_t kFirst = 13;
        const Rows rows = printed.rows();
        return {rows.begin() + kFirst, rows.begin() + static_cast<std::ptrdiff_t>(rows.size() / 2)};
    }

    TestDesktop desk;
};

/// The copy's rows as they stand `down` twips below those of the customer's copy.
Rows copyRows(double down, const std::string& labelX, const std::string& label) {
    const auto at = [down](const std::string& x, double y, const std::string& rest) {
        return x + " " + std::to_string(static_cast<int>(y + down)) + " " + rest;
    };
    return {at("4449", 230, "Times New Roman 13 bold: Tollvane Receipt"),
            at(labelX, 529, "Times New Roman 8 italic: " + label),
            at("0", 1265, "Arial 11 bold: Date 03-07-2026"),
            at("300", 1771, "Arial 11 bold: Oak & Elm"),
            at("300", 2024, "Arial 11 bold: 1 Market Square"),
            at("300", 2277, "Arial 11 bold: Second Floor"),
            at("300", 2530, "Arial 11 bold: Springfield, IL 62701"),
            at("300", 3036, "Arial 11 bold: (217) 555-0100"),
            at("300", 4048, "Arial 11: Name"),
            at("1940", 4048, "Arial 11: Mary Ann Smith"),
            at("300", 4301, "Arial 11: Card Number"),
            at("1940", 4301, "Arial 11: ************1111"),
            at("1940", 4554, "Arial 11 italic: Information suppressed for security"),
            at("300", 4807, "Arial 11: Amount"),
            at("1940", 4807, "Arial 11: $1,234.50"),
            at("300", 5060, "Arial 11: Authorized"),
            at("1940", 5060, "Arial 11: A1B2C3"),
            at("300", 5313, "Arial 11: Transaction ID"),
            at("1940", 5313, "Arial 11: 7001")};
}

TEST_F(ReceiptLayout, AChargePrintsTwoCopiesPartedByARuleAtHalfThePage) {
    approve();
    const PrintedDocument& printed = print(transtype::charge);

    Rows expected = copyRows(0, "5193", "(customer)");
    // The second copy starts a line below the rule, the first one a line below the top.
    const Rows store = copyRows(8'312 - 230, "5313", "(store)");
    expected.insert(expected.end(), store.begin(), store.end());
    EXPECT_EQ(printed.rows(), expected);
    ASSERT_EQ(printed.lines.size(), 1U);
    EXPECT_EQ(printed.lines[0], (PrintedLine{0, 8'059, 11'186, 8'059}));
    EXPECT_EQ(printed.name, "Tollvane Receipt");
    EXPECT_TRUE(printed.ended);
    EXPECT_EQ(desk.printers.documents.size(), 1U);
}

TEST_F(ReceiptLayout, ARefundNamesTheCreditAndHasNoAuthorizedRow) {
    approve();
    EXPECT_EQ(afterTheCard(print(transtype::refund)),
              (Rows{"300 4807 Arial 11: Amount", "1940 4807 Arial 11: $1,234.50 - credit",
                    "300 5060 Arial 11: Transaction ID", "1940 5060 Arial 11: 7001"}));
}

TEST_F(ReceiptLayout, AVoidHasNoAmountAndNoAuthorizedRow) {
    approve();
    EXPECT_EQ(afterTheCard(print(transtype::voiding)),
              (Rows{"300 4807 Arial 11: Amount", "1940 4807 Arial 11: ** VOID **",
                    "300 5060 Arial 11: Transaction ID", "1940 5060 Arial 11: 7001"}));
}

TEST_F(ReceiptLayout, AnyOtherTypeLeavesTheAmountsLabelAloneOnItsLine) {
    approve();
    for (const int type : {-1, 3}) {
        EXPECT_EQ(afterTheCard(print(type)),
                  (Rows{"300 4807 Arial 11: Amount", "300 5060 Arial 11: Transaction ID",
                        "1940 5060 Arial 11: 7001"}))
            << type;
    }
}

TEST_F(ReceiptLayout, AnEmptyAdditionalAddressTakesNoLine) {
    company("Additional Address", "");
    const Rows rows = print(transtype::voiding).rows();
    EXPECT_EQ(Rows(rows.begin() + 4, rows.begin() + 8),
              (Rows{"300 2024 Arial 11 bold: 1 Market Square",
                    "300 2277 Arial 11 bold: Springfield, IL 62701",
                    "300 2783 Arial 11 bold: (217) 555-0100", "300 3795 Arial 11: Name"}));
}

TEST_F(ReceiptLayout, ACompanyOfWhichNothingIsStoredKeepsItsLines) {
    for (const char* name :
         {"Name", "Street", "Additional Address", "City", "State", "Zip", "Phone"}) {
        company(name, "");
    }
    const Rows rows = print(transtype::voiding).rows();
    EXPECT_EQ(Rows(rows.begin() + 2, rows.begin() + 5),
              (Rows{"0 1265 Arial 11 bold: Date 03-07-2026", "300 2277 Arial 11 bold: ,  ",
                    "300 3795 Arial 11: Name"}));
}

TEST_F(ReceiptLayout, ALongCompanyNameIsPrintedWholeOnItsOneLine) {
    const std::string name(200, 'W');
    company("Name", name);
    const Rows rows = print(transtype::charge).rows();
    EXPECT_EQ(rows[3], "300 1771 Arial 11 bold: " + name);
    EXPECT_EQ(rows[4], "300 2024 Arial 11 bold: 1 Market Square");
}

TEST_F(ReceiptLayout, AnEmptyTransactionIdLeavesItsRowOut) {
    EXPECT_EQ(afterTheCard(print(transtype::charge)),
              (Rows{"300 4807 Arial 11: Amount", "1940 4807 Arial 11: $1,234.50",
                    "300 5060 Arial 11: Authorized"}));
}

TEST_F(ReceiptLayout, AnEmptyCardNumberPrintsVoidTransaction) {
    hold("CardNumber", SecretText());
    EXPECT_EQ(print(transtype::voiding).rows()[11], "1940 4301 Arial 11: ** VOID TRANSACTION **");
}

TEST_F(ReceiptLayout, AllButTheLastFourCharactersOfACardNumberAreStars) {
    hold("CardNumber", SecretText("1111"));
    EXPECT_EQ(print(transtype::charge).rows()[11], "1940 4301 Arial 11: 1111");
    hold("CardNumber", SecretText("51111"));
    EXPECT_EQ(print(transtype::charge).rows()[11], "1940 4301 Arial 11: *1111");
    hold("CardNumber", SecretText("6304000000000000131"));
    EXPECT_EQ(print(transtype::charge).rows()[11], "1940 4301 Arial 11: ***************0131");
}

TEST_F(ReceiptLayout, ACardNumberOfThreeCharactersRaises5AndEndsNoDocument) {
    hold("CardNumber", SecretText("111"));
    try {
        print(transtype::charge);
        FAIL() << "printed";
    } catch (const Error& error) {
        EXPECT_EQ(error.number(), errornumber::invalidProcedureCall);
    }
    EXPECT_FALSE(desk.printers.last().ended);
    EXPECT_TRUE(desk.printers.last().givenBack);
}

TEST_F(ReceiptLayout, BlanksAroundAnApprovalCodeAreLeftOut) {
    desk.charge.answer({.approvalCode = "  A1 B2 "});
    approve();
    EXPECT_EQ(print(transtype::charge).rows()[16], "1940 5060 Arial 11: A1 B2");
}

TEST_F(ReceiptLayout, TheAmountIsWrittenAsTheOperatorsLocaleWritesMoney) {
    desk.locale.use(localeid::germany);
    desk.locale.set(localeitem::currency, "EUR");
    EXPECT_EQ(print(transtype::refund).rows()[14], "1940 4807 Arial 11: 1.234,50 EUR - credit");
}

TEST_F(ReceiptLayout, TheLeftOriginIsTakenAsAWholeNumber) {
    struct Row {
        double left;
        const char* date;
        const char* name;
    };
    for (const Row& row : {Row{240.4, "240 1265", "540 4048"}, Row{240.5, "240 1265", "540 4048"},
                           Row{241.5, "242 1265", "542 4048"}, Row{-60, "-60 1265", "240 4048"}}) {
        desk.printers.left = row.left;
        const PrintedDocument& printed = print(transtype::voiding);
        EXPECT_EQ(printed.rows()[2], std::string(row.date) + " Arial 11 bold: Date 03-07-2026");
        EXPECT_EQ(printed.rows()[8], std::string(row.name) + " Arial 11: Name");
        EXPECT_EQ(printed.lines[0].fromX, printed.texts[2].x);
        EXPECT_EQ(printed.lines[0].toX, 11'186);
        EXPECT_EQ(printed.texts[0].x, 4'449) << "centred on the width, wherever the origin is";
    }
}

TEST_F(ReceiptLayout, AnotherPageMovesTheCentreAndTheSecondCopy) {
    desk.printers.width = 11'520;
    desk.printers.height = 15'120;
    const PrintedDocument& printed = print(transtype::voiding);
    EXPECT_EQ(printed.rows()[0], "4616 230 Times New Roman 13 bold: Tollvane Receipt");
    EXPECT_EQ(printed.lines[0], (PrintedLine{0, 7'560, 11'520, 7'560}));
    EXPECT_EQ(printed.rows()[printed.texts.size() / 2],
              "4616 7813 Times New Roman 13 bold: Tollvane Receipt");
}

TEST_F(ReceiptLayout, NeitherTheCardsOtherDigitsNorItsExpiryAreOnThePaper) {
    hold("ExpirationDate", std::string("3-2029"));
    approve();
    for (const std::string& text : print(transtype::charge).words()) {
        EXPECT_EQ(text.find("41111"), std::string::npos) << text;
        EXPECT_EQ(text.find("2029"), std::string::npos) << text;
        EXPECT_EQ(text.find('#'), std::string::npos) << text;
    }
}

} // namespace
} // namespace tollvane::test
