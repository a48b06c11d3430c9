#pragma once

#include "tests/scenarios/Till.h"

namespace tollvane::test {

/// A test of the checks before a submission. No setting asks for anything, so that a test turns on
/// what it is about.
class ValidationTest : public OpenTillTest {
protected:
    void SetUp() override {
        for (const char* option :
             {option::shopAddress, option::cardCodeRequired, option::addressRequired,
              option::descriptionRequired, option::invoiceNumberRequired, option::poNumberRequired,
              option::invoiceNumberForPONumber}) {
            till.set(option, false);
        }
        OpenTillTest::SetUp();
    }

    /// Submits and expects these boxes, the focus there, and no word to the gateway.
    void expectRefused(const std::vector<Message>& boxes, const std::string& focus) {
        till.submit();
        EXPECT_EQ(till.boxes(), boxes);
        EXPECT_EQ(till.focus(), focus);
        EXPECT_TRUE(till.operations().empty());
        EXPECT_FALSE(till.program().TransactionApproved());
        till.expectUsable();
    }
    void expectRefused(const Message& box, const std::string& focus) {
        expectRefused(std::vector<Message>{box}, focus);
    }
    /// Submits and expects an approval without a question.
    void expectPassed() {
        till.submit();
        const std::vector<Message> boxes = till.boxes();
        ASSERT_EQ(boxes.size(), 1U) << boxes.at(0);
        EXPECT_EQ(boxes[0].title, "Approved") << boxes[0];
        EXPECT_EQ(till.operations().size(), 1U);
    }
    std::string sent(const std::string& property) { return till.lastOperation().text(property); }
    std::string sentField(const std::string& field) { return till.lastOperation().field(field); }

    static Message invalid(const std::string& text) { return information("Invalid Field", text); }
    static Message missing(const std::string& text) {
        return information("Required Field Missing", text);
    }
    static Message zeroAmount() {
        return invalid("The amount is $0.00.\r\n\r\nEnter a valid amount to continue.");
    }
    static Message noTransactionNumber() {
        return invalid("Refunds/Credits require the transaction id of the original authorization."
                       "\r\n\r\nEnter the original authorization id to continue.");
    }
};

/// The same with a charge filled in that passes every check.
class ChargeTest : public ValidationTest {
protected:
    void SetUp() override {
        ValidationTest::SetUp();
        till.fillCharge();
        till.desktop.record.forget();
    }
};

} // namespace tollvane::test
