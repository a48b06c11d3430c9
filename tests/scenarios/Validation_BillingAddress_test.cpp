// The billing address of a charge: required, replaced by the shop's own, or left as it is.

#include "tests/scenarios/ValidationTest.h"

namespace tollvane::test {
namespace {

const char* const kTitle = "Incomplete Billing Address";

/// What is filled in, and which field the operator is led to.
struct Address {
    const char* what;
    bool street;
    bool state;
    bool city;
    bool zip;
    const char* focus;
};

void PrintTo(const Address& row, std::ostream* out) {
    *out << row.what;
}

constexpr Address kIncomplete[] = {
    {"WithoutStreet", false, true, true, true, "txtBillToStreet"},
    {"WithoutState", true, false, true, true, "cboBillToState"},
    {"WithoutCity", true, true, false, true, "txtBillToCity"},
    {"WithoutZip", true, true, true, false, "txtBillToZip"},
    {"WithoutStateAndCity", true, false, false, true, "cboBillToState"},
    {"WithoutCityAndZip", true, true, false, false, "txtBillToCity"},
    {"Empty", false, false, false, false, "txtBillToStreet"},
};

class BillingAddress : public ChargeTest {
protected:
    void enterAddress(const Address& address) {
        till.enter("txtBillToStreet", address.street ? "1 Oak Street" : "");
        till.enterState(address.state ? "IL" : "");
        till.enter("txtBillToCity", address.city ? "Springfield" : "");
        till.enter("txtBillToZip", address.zip ? "62701" : "");
    }
    void storeShopAddress() {
        till.setCompany("Street", "9 Elm Street");
        till.setCompany("City", "Shelbyville");
        till.setCompany("State", "OH");
        till.setCompany("Zip", "45001");
    }
    static Message required() {
        return information(kTitle, "The billing adress is not complete. "
                                   "The billing address is a required field.\r\n\r\n"
                                   "Enter the complete the billing address to continue.");
    }
    static Message offer() {
        return question(kTitle,
                        "The billing adress is not complete. If a complete billing address is not "
                        "supplied your shop address will be used instead and may result in a "
                        "higher rate charged for this transaction.\r\n\r\n"
                        "Do you want to return to the main form and complete the billing address "
                        "now?");
    }
    void expectSent(const char* street, const char* city, const char* state, const char* zip) {
        EXPECT_EQ(sent("StreetAddress"), street);
        EXPECT_EQ(sent("City"), city);
        EXPECT_EQ(sent("State"), state);
        EXPECT_EQ(sent("ZipCode"), zip);
    }
};

class IncompleteAddress : public BillingAddress, public ::testing::WithParamInterface<Address> {};

TEST_P(IncompleteAddress, WhenRequiredLeadsToTheFirstEmptyField) {
    till.set(option::addressRequired, true);
    enterAddress(GetParam());
    expectRefused(required(), GetParam().focus);
}

TEST_P(IncompleteAddress, WhenRequiredIsNotReplacedByTheShops) {
    till.set(option::addressRequired, true);
    till.set(option::shopAddress, true);
    enterAddress(GetParam());
    expectRefused(required(), GetParam().focus);
}

TEST_P(IncompleteAddress, AnsweredYesLeadsToTheFirstEmptyField) {
    till.set(option::shopAddress, true);
    till.desktop.boxes.answer(MessageAnswer::yes);
    enterAddress(GetParam());
    expectRefused(offer(), GetParam().focus);
}

TEST_P(IncompleteAddress, AnsweredNoSendsTheShopsAddressWhole) {
    till.set(option::shopAddress, true);
    storeShopAddress();
    till.desktop.boxes.answer(MessageAnswer::no);
    enterAddress(GetParam());

    till.submit();

    const std::vector<Message> boxes = till.boxes();
    ASSERT_EQ(boxes.size(), 2U);
    EXPECT_EQ(boxes[0], offer());
    EXPECT_EQ(boxes[1].title, "Approved");
    expectSent("9 Elm Street", "Shelbyville", "OH", "45001");
}

TEST_P(IncompleteAddress, IsSentAsItIsWhenNobodyAsksForIt) {
    enterAddress(GetParam());

    expectPassed();

    expectSent(GetParam().street ? "1 Oak Street" : "", GetParam().city ? "Springfield" : "",
               GetParam().state ? "IL" : "", GetParam().zip ? "62701" : "");
}

INSTANTIATE_TEST_SUITE_P(An, IncompleteAddress, ::testing::ValuesIn(kIncomplete),
                         [](const auto& row) { return std::string(row.param.what); });

TEST_F(BillingAddress, CompleteIsSentWithoutAQuestion) {
    till.set(option::addressRequired, true);
    till.set(option::shopAddress, true);
    storeShopAddress();

    expectPassed();

    expectSent("1 Oak Street", "Springfield", "IL", "62701");
}

TEST_F(BillingAddress, OfBlanksCountsAsFilledIn) {
    till.set(option::addressRequired, true);
    till.enter("txtBillToStreet", " ");

    expectPassed();

    EXPECT_EQ(sent("StreetAddress"), " ");
}

TEST_F(BillingAddress, AnsweredNoSendsAnEmptyShopAddressToo) {
    till.set(option::shopAddress, true);
    till.desktop.boxes.answer(MessageAnswer::no);
    till.enter("txtBillToZip", "");

    till.submit();

    expectSent("", "", "", "");
    EXPECT_EQ(till.operations().size(), 1U);
}

TEST_F(BillingAddress, IsHandedOverInTheOrderStreetCityStateZip) {
    till.submit();

    std::vector<std::string> address;
    for (const std::string& call : till.chargeCalls()) {
        for (const char* property : {"StreetAddress", "City", "State", "ZipCode"}) {
            if (call.starts_with("charge." + std::string(property) + " =")) {
                address.push_back(call);
            }
        }
    }
    EXPECT_EQ(address,
              (std::vector<std::string>{"charge.StreetAddress = \"1 Oak Street\"",
                                        "charge.City = \"Springfield\"", "charge.State = \"IL\"",
                                        "charge.ZipCode = \"62701\""}));
}

TEST_F(BillingAddress, IsJudgedByWhatTheComponentKept) {
    till.set(option::addressRequired, true);
    till.desktop.charge.script().property(
        "State", [] { return Variant(std::string()); }, [](const Variant&) {});

    till.submit();

    EXPECT_EQ(till.boxes(), (std::vector<Message>{required()}));
    EXPECT_EQ(till.focus(), "cboBillToState");
}

} // namespace
} // namespace tollvane::test
