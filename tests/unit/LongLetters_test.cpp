// Letters of two bytes at the form, in the code page that this machine's C library has.
#include "platform/Letters.h"
#include "platform/LocaleStyle.h"
#include "tests/scenarios/FieldsTest.h"

#include <clocale>

namespace tollvane::test {
namespace {

constexpr std::string_view kLetter = "\xC3\xA9";

class LongLetters : public FieldsTest {
protected:
    void SetUp() override {
        ASSERT_NE(std::setlocale(LC_CTYPE, "C.UTF-8"), nullptr);
        FieldsTest::SetUp();
    }
    void TearDown() override {
        FieldsTest::TearDown();
        std::setlocale(LC_CTYPE, "C");
    }

    TextBox& description() { return dynamic_cast<TextBox&>(till.form().find("txtDescription")); }
};

TEST_F(LongLetters, AreTypedWhole) {
    goTo("txtDescription");
    type("a" + std::string(kLetter) + "b");
    EXPECT_EQ(till.text("txtDescription"), "a" + std::string(kLetter) + "b");
    type("\b\b");
    EXPECT_EQ(till.text("txtDescription"), "a");
}

TEST_F(LongLetters, AreRefusedWhereOnlyOneOfTheirBytesHasRoom) {
    goTo("txtDescription");
    description().setMaxLength(4);
    type("abc" + std::string(kLetter));
    EXPECT_EQ(till.text("txtDescription"), "abc");
    till.desktop.robot->paste(kLetter);
    EXPECT_EQ(till.text("txtDescription"), "abc");
    type("d");
    EXPECT_EQ(till.text("txtDescription"), "abcd");
}

TEST_F(LongLetters, BehindAHeldSentinelGiveItBack) {
    goTo("txtDescription");
    type("%" + std::string(kLetter));
    EXPECT_EQ(till.text("txtDescription"), "%" + std::string(kLetter));
}

TEST_F(LongLetters, WithinASwipeStayOutOfTheField) {
    goTo("txtDescription");
    type("%B4111" + std::string(kLetter));
    EXPECT_EQ(till.text("txtDescription"), "");
}

TEST_F(LongLetters, OfThreeBytesArePastedWhole) {
    goTo("txtCardName");
    till.desktop.robot->paste("A\xE6\x97\xA5|B");
    EXPECT_EQ(till.text("txtCardName"), "A\xE6\x97\xA5"
                                        "B");
}

TEST_F(LongLetters, AreNoDigitsAndNoAmount) {
    goTo("txtAmount");
    type("1" + std::string(kLetter) + "2");
    EXPECT_EQ(till.text("txtAmount"), "12");
}

TEST_F(LongLetters, AreOneKeyEach) {
    EXPECT_EQ(typedKey(kLetter), 0xC3A9);
    EXPECT_EQ(typedBytes(0xC3A9), kLetter);
    EXPECT_EQ(typedBytes('a'), "a");
    EXPECT_EQ(typedKey("\xE6\x97\xA5"), 0xE6) << "three bytes are no key";
    EXPECT_EQ(lastCharacter(""), "");
    EXPECT_EQ(lastCharacter("a" + std::string(kLetter)), kLetter);
    EXPECT_EQ(wholeCharacters(kLetter, 1), 0U);
}

TEST(DecimalSigns, ThatTheCodePageLacksAreAPoint) {
    FaultPlan faults;
    FakeLocale locale(faults);
    locale.set(test::localeitem::moneyDecimal, "?");
    EXPECT_EQ(moneyStyle(locale).moneyDecimal, ".");
}

} // namespace
} // namespace tollvane::test
