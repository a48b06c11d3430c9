#include "controls/ProperCase.h"

#include <gtest/gtest.h>

#include <string>

namespace tollvane {
namespace {

constexpr int kBackspace = 8;
constexpr int kLeft = 37;
constexpr int kDelete = 46;

/// A text box that is typed into.
struct Box {
    ProperCase rules;
    std::string text;
    int start = 0;
    int length = 0;

    TypedInto now() const { return {text, start, length}; }
    void select(int from, int count) {
        start = from;
        length = count;
    }
    std::string type(std::string_view characters) {
        for (const char character : characters) {
            int key = static_cast<unsigned char>(character);
            rules.keyDown(now(), key >= 'a' && key <= 'z' ? key - 32 : 0xDE);
            rules.keyPress(now(), key);
            text.replace(static_cast<std::size_t>(start), static_cast<std::size_t>(length), 1,
                         static_cast<char>(key));
            select(start + 1, 0);
        }
        return text;
    }
    void backspace() {
        int key = kBackspace;
        rules.keyDown(now(), key);
        rules.keyPress(now(), key);
        if (length == 0 && start > 0) {
            select(start - 1, 1);
        }
        text.erase(static_cast<std::size_t>(start), static_cast<std::size_t>(length));
        length = 0;
    }
};

TEST(ProperCase, CapitalisesEveryWord) {
    EXPECT_EQ(Box().type("123 main st."), "123 Main St.");
    EXPECT_EQ(Box().type("old mill road"), "Old Mill Road");
}

TEST(ProperCase, CapitalisesBehindEachDelimiter) {
    for (const char delimiter : std::string(" .'#-_&@")) {
        EXPECT_EQ(Box().type(std::string("a") + delimiter + "b"),
                  std::string("A") + delimiter + "B");
    }
    EXPECT_EQ(Box().type("o'neil"), "O'Neil");
    EXPECT_EQ(Box().type("a/b,c"), "A/b,c");
}

TEST(ProperCase, CapitalisesBothLettersOfADirection) {
    EXPECT_EQ(Box().type("45 nw"), "45 NW");
    EXPECT_EQ(Box().type("45 ne"), "45 NE");
    EXPECT_EQ(Box().type("45 sw 3rd st"), "45 SW 3rd St");
    EXPECT_EQ(Box().type("45 se"), "45 SE");
    EXPECT_EQ(Box().type("45 no"), "45 No");
    EXPECT_EQ(Box().type("elm nw"), "Elm Nw");
}

TEST(ProperCase, NeverMakesALetterSmall) {
    EXPECT_EQ(Box().type("McDONALD"), "McDONALD");
}

TEST(ProperCase, CapitalisesTheFirstLetterWhenTheFocusArrives) {
    Box box;
    box.text = "old";
    box.select(0, 3);
    box.rules.gotFocus();

    EXPECT_TRUE(box.rules.CapitalizeNext());
    EXPECT_EQ(box.type("elm"), "Elm");
}

TEST(ProperCase, KeepsTheCharacterBehindABackspaceAsItIsTyped) {
    Box box;
    box.type("de V");
    box.backspace();

    EXPECT_EQ(box.type("vries"), "De vries");
}

TEST(ProperCase, CapitalisesAgainInABoxThatWasEmptied) {
    Box box;
    box.type("X");
    box.select(0, 1);
    box.backspace();

    EXPECT_EQ(box.type("elm"), "Elm");
}

TEST(ProperCase, BackspaceAndDeleteDecideByWhatRemains) {
    for (const int key : {kBackspace, kDelete}) {
        ProperCase rules;
        rules.keyDown({"abc", 1, 1}, key);
        EXPECT_FALSE(rules.CapitalizeNext());
        rules.keyDown({"abc", 0, 3}, key);
        EXPECT_TRUE(rules.CapitalizeNext());
        rules.keyDown({"abc", 3, 0}, key);
        EXPECT_FALSE(rules.CapitalizeNext());
        rules.keyDown({"", 0, 0}, key);
        EXPECT_TRUE(rules.CapitalizeNext());
    }
}

TEST(ProperCase, ALetterTypedAfterMovingTheCaretStaysAsItIs) {
    Box box;
    box.type("Elm St");
    box.rules.keyDown(box.now(), kLeft);
    box.select(4, 0);

    EXPECT_EQ(box.type("w "), "Elm w St");
}

TEST(ProperCase, OnlyKeysThatMoveTheCaretAwayFromTheStartEndTheCapital) {
    constexpr int kPageUp = 33;
    constexpr int kDown = 40;
    const auto capitalBehind = [](int key, int start) {
        ProperCase rules;
        rules.gotFocus();
        rules.keyDown({"abc", start, 1}, key);
        return rules.CapitalizeNext();
    };
    for (int key = kPageUp; key <= kDown; ++key) {
        EXPECT_FALSE(capitalBehind(key, 1)) << key;
        EXPECT_TRUE(capitalBehind(key, 0)) << key;
    }
    EXPECT_TRUE(capitalBehind(kPageUp - 1, 1));
    EXPECT_TRUE(capitalBehind(kDown + 1, 1));
}

TEST(ProperCase, APartlySelectedTextTakesTheCharacterAsItIs) {
    Box box;
    box.type("Elm ");
    box.select(1, 2);

    EXPECT_EQ(box.type("a"), "Ea ");
}

TEST(ProperCase, LooksAtTheEndOfTheTextAndNotAtTheCaret) {
    ProperCase rules;
    rules.gotFocus();
    int key = 'x';

    rules.keyPress({"ab ", 1, 0}, key);

    EXPECT_EQ(key, 'X');
}

TEST(ProperCase, LeavesDroppedKeysAlone) {
    ProperCase rules;
    rules.gotFocus();
    int key = 0;

    rules.keyPress({"", 0, 0}, key);

    EXPECT_EQ(key, 0);
    EXPECT_TRUE(rules.CapitalizeNext());
}

TEST(ProperCase, LeavesCodesAloneThatAreNoCharacters) {
    ProperCase rules;
    rules.gotFocus();
    int key = 0x161; // the low byte is a small letter

    rules.keyPress({"", 0, 0}, key);

    EXPECT_EQ(key, 0x161);
}

TEST(ProperCase, TakesTheLastCharacterOfTheCodePageAsAny) {
    ProperCase rules;
    rules.keyDown({"abc", 1, 1}, kBackspace);
    int key = 0xFF;

    rules.keyPress({"abc", 1, 0}, key);

    EXPECT_TRUE(rules.CapitalizeNext());
}

} // namespace
} // namespace tollvane
