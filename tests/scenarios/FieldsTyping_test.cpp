// Ordinary typing that begins like a swipe.

#include "tests/scenarios/FieldsTest.h"

namespace tollvane::test {
namespace {

struct Typing {
    const char* name;
    std::string keys;
};

void PrintTo(const Typing& typing, std::ostream* out) {
    *out << typing.name;
}

class FieldsTypingByHand : public FieldsTest {};

class FieldsTyping : public FieldsTest, public ::testing::WithParamInterface<Typing> {};

TEST_P(FieldsTyping, StaysWhereItWasTyped) {
    for (const char* field : {"txtDescription", "txtEMail", "txtPONumber"}) {
        goTo(field);
        till.box(field).setText("");

        type(GetParam().keys);
        till.desktop.robot->tab();

        EXPECT_EQ(till.text(field), GetParam().keys);
    }
    EXPECT_EQ(till.text("txtCardNumber"), "");
}

TEST_P(FieldsTyping, AppearsByItselfAfterAMoment) {
    goTo("txtDescription");

    type(GetParam().keys);
    pause();

    EXPECT_EQ(till.text("txtDescription"), GetParam().keys);
    EXPECT_EQ(till.focus(), "txtDescription");
}

INSTANTIATE_TEST_SUITE_P(
    Of, FieldsTyping,
    ::testing::Values(Typing{"PercentSign", "10%"}, Typing{"PercentAndLetter", "10%off"},
                      Typing{"PercentAndBlank", "10% off"}, Typing{"PercentAlone", "%"},
                      Typing{"TwoPercents", "%%x"}, Typing{"ManyPercents", "%%%%"},
                      Typing{"PercentAndSmallB", "%b"}, Typing{"PercentAndSemicolon", "%;%+%"},
                      Typing{"Semicolon", "one; two"}, Typing{"SemicolonAtTheEnd", "one;"},
                      Typing{"SemicolonAndDigits", "bolt;12"}, Typing{"Plus", "1+1=2"},
                      Typing{"PlusAtTheEnd", "1+"}, Typing{"Telephone", "+1 555 0100"},
                      Typing{"Question", ";really?"}, Typing{"Smileys", ";-) +;+ ;?"}),
    [](const auto& row) { return std::string(row.param.name); });

TEST_F(FieldsTypingByHand, EveryLetterButBKeepsItsPercentSign) {
    goTo("txtDescription");
    for (int letter = 'A'; letter <= 'Z'; ++letter) {
        if (letter == 'B') {
            continue;
        }
        const std::string typed = std::string("%") + static_cast<char>(letter);
        till.box("txtDescription").setText("");
        type(typed);
        EXPECT_EQ(till.text("txtDescription"), typed);
    }
}

TEST_F(FieldsTypingByHand, APercentSignGoesWhereTheCaretIs) {
    goTo("txtDescription");
    till.enter("txtDescription", "abcd");
    till.box("txtDescription").select(2, 0);

    type("%x");

    EXPECT_EQ(till.text("txtDescription"), "ab%xcd");
    EXPECT_EQ(till.box("txtDescription").selStart(), 4);
}

TEST_F(FieldsTypingByHand, APercentSignReplacesTheSelection) {
    goTo("txtDescription");
    till.enter("txtDescription", "abcd");
    till.box("txtDescription").select(1, 2);

    type("%x");

    EXPECT_EQ(till.text("txtDescription"), "a%xd");
}

TEST_F(FieldsTypingByHand, ASemicolonReplacesTheSelectionToo) {
    goTo("txtDescription");
    till.enter("txtDescription", "abcd");
    till.box("txtDescription").select(0, 4);

    type(";5 ");

    EXPECT_EQ(till.text("txtDescription"), ";5 ");
}

TEST_F(FieldsTypingByHand, BackspaceTakesBackAPercentSign) {
    goTo("txtDescription");

    type("10%\b");

    EXPECT_EQ(till.text("txtDescription"), "10");
}

TEST_F(FieldsTypingByHand, AnArrowKeyFindsThePercentSignInItsPlace) {
    goTo("txtDescription");

    type("ab%");
    till.desktop.robot->key(keycode::left);
    type("x");

    EXPECT_EQ(till.text("txtDescription"), "abx%");
}

TEST_F(FieldsTypingByHand, TheDownArrowFindsThePercentSignInItsPlace) {
    goTo("txtDescription");

    type("ab");
    till.desktop.robot->key(keycode::left);
    type("%");
    till.desktop.robot->key(keycode::down); // one character on
    type("x");

    EXPECT_EQ(till.text("txtDescription"), "a%bx");
}

TEST_F(FieldsTypingByHand, PastedTextFollowsThePercentSign) {
    goTo("txtDescription");
    type("10%");

    till.desktop.robot->paste(" off");

    EXPECT_EQ(till.text("txtDescription"), "10% off");
}

TEST_F(FieldsTypingByHand, AFullFieldTakesNoPercentSign) {
    goTo("txtDescription");
    till.enter("txtDescription", "abc");
    till.box("txtDescription").setMaxLength(3);
    till.box("txtDescription").select(3, 0);

    type("%x");

    EXPECT_EQ(till.text("txtDescription"), "abc");
}

TEST_F(FieldsTypingByHand, WhatIsGivenBackPassesTheFieldsOwnFilters) {
    goTo("txtCardNumber");
    type("%4;1+1x");
    EXPECT_EQ(till.text("txtCardNumber"), "411");

    goTo("txtAmount");
    type("1%;2");
    pause();
    EXPECT_EQ(till.text("txtAmount"), "12");

    goTo("txtCardName");
    type("a%b;c");
    EXPECT_EQ(till.text("txtCardName"), "A%B;C");
}

TEST_F(FieldsTypingByHand, APercentSignOnAButtonIsNobodys) {
    goTo("cmdSubmit");
    type("%;");
    goTo("txtDescription");

    type("x");
    pause();

    EXPECT_EQ(till.text("txtDescription"), "x");
    EXPECT_TRUE(till.operations().empty());
}

TEST_F(FieldsTypingByHand, AKeyWithoutACharacterLeavesWhatIsHeldBack) {
    goTo("txtDescription");
    type("10%");
    int noCharacter = 0;

    till.form().on.keyPress(noCharacter);

    EXPECT_EQ(till.text("txtKbBuffer"), "%");
    type("x");
    EXPECT_EQ(till.text("txtDescription"), "10%x");
}

TEST_F(FieldsTypingByHand, AnEmptyBufferStopsItsTimer) {
    Timer& timer = till.form().control<Timer>("tmrKbBuffer");
    ASSERT_EQ(till.text("txtKbBuffer"), "");
    timer.setEnabled(true);

    till.desktop.robot->letTimePass(timer.interval() + 100);

    EXPECT_FALSE(timer.enabled());
}

TEST_F(FieldsTypingByHand, AProperCaseFieldTakesAPercentSignAsAnyOtherCharacter) {
    till.desktop.registry.addNumber(
        "HKEY_LOCAL_MACHINE\\Software\\Norrow Programs\\Tollvane\\Options", "FormatType", 3);
    till.program().ApplyAutoFormat();
    goTo("txtDescription");

    type("ten % off; cash");

    EXPECT_EQ(till.text("txtDescription"), "Ten % Off; Cash");
}

} // namespace
} // namespace tollvane::test
