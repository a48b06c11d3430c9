// A day's amounts where money is written in other ways: whatever the operator's locale, the same
// digits give the same amount to the cent, from the keys to the processor, the books and the paper.

#include "tests/scenarios/Till.h"

#include "platform/LocaleStyle.h"

#include <algorithm>

namespace tollvane::test {
namespace {

/// A locale of the fake, with what its user has changed about it.
struct Manner {
    const char* name;
    std::uint32_t locale;
    std::vector<std::pair<std::uint32_t, std::string>> changed;
    bool wholeUnits = false; ///< its money has no decimals
};

void PrintTo(const Manner& manner, std::ostream* out) {
    *out << manner.name;
}

std::vector<Manner> manners() {
    using namespace localeitem;
    std::vector<Manner> all{
        {"UnitedStates", localeid::unitedStates, {}},
        {"UnitedKingdom", localeid::unitedKingdom, {}},
        {"Germany", localeid::germany, {}},
        {"Switzerland", localeid::switzerland, {}},
        {"India", localeid::india, {}},
        {"Kuwait", localeid::kuwait, {}},
        {"Japan", localeid::japan, {}, true},
        // Code page 932 has the yen sign where others have the backslash.
        {"JapanInItsCodePage", localeid::japan, {{currency, "\\"}}, true},
        // Code page 1256: the letters of the riyal, the right-to-left mark before the minus sign.
        {"ArabicInItsCodePage",
         localeid::kuwait,
         {{currency, "\xD1.\xD3.\xFE"}, {moneyDigits, "2"}, {negativeOrder, "3"}}},
        {"NoGroups", localeid::germany, {{moneyGrouping, "0"}, {moneyThousand, ""}}},
        {"BlankGroups", localeid::germany, {{thousand, "\xA0"}, {moneyThousand, "\xA0"}}},
    };
    for (std::size_t order = 0; order < 16; ++order) {
        static std::vector<std::string> names(16);
        names[order] = "NegativeOrder" + std::to_string(order);
        all.push_back(
            {names[order].c_str(),
             localeid::germany,
             {{negativeOrder, std::to_string(order)}, {positiveOrder, std::to_string(order % 4)}}});
    }
    return all;
}

class Locales : public TillTest, public ::testing::WithParamInterface<Manner> {
protected:
    void SetUp() override {
        till.desktop.locale.use(GetParam().locale);
        for (const auto& [item, value] : GetParam().changed) {
            till.desktop.locale.set(item, value);
        }
        till.open();
    }

    MoneyStyle style() { return moneyStyle(till.desktop.locale); }
    std::string shown(Money amount) { return currencyText(amount, style()); }

    /// An amount as this locale can hold it.
    Money amount(std::int64_t units, std::int64_t cents) {
        return Money::fromScaled(units * Money::scale +
                                 (GetParam().wholeUnits ? 0 : cents * Money::scale / 100));
    }

    /// Keys an amount into a money box and leaves it.
    void key(const char* name, std::int64_t units, std::int64_t cents) {
        till.enter(name, shown(Money())); // what is there may be of another locale
        till.box(name).setFocus();
        std::string keys = std::to_string(units);
        if (!GetParam().wholeUnits) {
            keys += style().decimalSeparator + std::to_string(100 + cents).substr(1);
        }
        till.desktop.robot->typeText(keys);
        till.box("txtEMail").setFocus();
    }

    void expectApproved(const char* operation, Money amount, Money posted) {
        till.submit();
        const std::vector<Message> boxes = till.boxes();
        ASSERT_EQ(boxes.size(), 1U) << ::testing::PrintToString(boxes);
        ASSERT_EQ(boxes[0].title, "Approved") << boxes[0];
        EXPECT_EQ(till.lastOperation().name, operation);
        EXPECT_EQ(till.lastOperation().property("Amount"), Variant(amount));
        ASSERT_FALSE(till.desktop.hostData.posted.empty());
        EXPECT_EQ(till.desktop.hostData.posted.back().value("Amount"), Variant(posted));
    }

    void fillCharge() {
        till.fillCharge();
        key("txtAmount", 12345, 67);
        key("txtTaxAmount", 678, 90);
    }
};

TEST_P(Locales, AChargeIsSentPostedAndPrintedToTheCent) {
    fillCharge();
    EXPECT_EQ(till.text("txtAmount"), shown(amount(12345, 67)));

    expectApproved("AuthorizeAndCapture", amount(12345, 67), amount(12345, 67));

    EXPECT_EQ(till.lastOperation().property("Tax"), Variant(amount(678, 90)));
    till.program().Print_Receipt();
    EXPECT_EQ(till.boxes(), std::vector<Message>());
    const std::vector<std::string> words = till.desktop.printers.last().words();
    EXPECT_EQ(std::ranges::count(words, shown(amount(12345, 67))), 2) << "one for each copy";
}

TEST_P(Locales, AVoiceAuthorizationARefundAndAVoidAreTheSameAmounts) {
    fillCharge();
    till.press("chkVoiceAuth");
    till.enter("txtAuthNum", "A1B2C3");
    expectApproved("CaptureVoiceAuth", amount(12345, 67), amount(12345, 67));

    till.fillRefund();
    key("txtAmount", 345, 6);
    expectApproved("Credit", amount(345, 6), Money::fromScaled(-amount(345, 6).scaled()));

    till.fillVoid();
    key("txtAmount", 9999999, 0);
    expectApproved("Void", amount(9999999, 0), Money::fromScaled(-amount(9999999, 0).scaled()));
}

TEST_P(Locales, ComingBackToABoxChangesNothing) {
    for (const char* name : {"txtAmount", "txtTaxAmount"}) {
        key(name, 4321, 99);
        const std::string before = till.text(name);

        for (int times = 0; times < 3; ++times) {
            till.box(name).setFocus();
            till.box("txtEMail").setFocus();
        }

        EXPECT_EQ(till.text(name), before) << name;
        EXPECT_EQ(moneyFromText(before, style()), amount(4321, 99)) << name;
    }
    EXPECT_EQ(till.boxes(), std::vector<Message>());
}

TEST_P(Locales, ANegativeAmountStaysNegative) {
    till.box("txtAmount").setFocus();
    till.desktop.robot->typeText("-12");
    till.box("txtEMail").setFocus();

    EXPECT_EQ(till.text("txtAmount"), shown(Money::fromUnits(-12)));
    EXPECT_EQ(till.box("txtAmount").foreColour(), Colour::rgb(255, 0, 0));
    EXPECT_EQ(moneyFromText(till.text("txtAmount"), style()), Money::fromUnits(-12));
}

TEST_P(Locales, ANewEntryShowsZeroAndASwipeIsTaken) {
    EXPECT_EQ(till.text("txtAmount"), shown(Money()));
    till.box("txtDescription").setFocus();

    till.desktop.robot->typeText("%B4111111111111111^SMITH/JOHN^2712101000000?\r");

    EXPECT_EQ(till.text("txtCardNumber"), "4111111111111111");
    till.box("txtEMail").setFocus();
    EXPECT_EQ(till.text("txtAmount"), shown(Money()));
    EXPECT_EQ(till.boxes(), std::vector<Message>());
}

INSTANTIATE_TEST_SUITE_P(Of, Locales, ::testing::ValuesIn(manners()),
                         [](const auto& row) { return std::string(row.param.name); });

} // namespace
} // namespace tollvane::test
