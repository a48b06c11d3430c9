// The system's own letters judge ours.

#include "controls/ProperCase.h"
#include "entry/FieldFilters.h"
#include "platform/Letters.h"

#include <windows.h>

#include <clocale>
#include <gtest/gtest.h>
#include <string>

namespace tollvane::test {
namespace {

class LettersJudge : public testing::Test {
protected:
    void SetUp() override {
        before_ = std::setlocale(LC_CTYPE, nullptr);
        ASSERT_NE(std::setlocale(LC_CTYPE, ""), nullptr);
    }
    void TearDown() override { std::setlocale(LC_CTYPE, before_.c_str()); }

private:
    std::string before_;
};

TEST_F(LettersJudge, SmallAndCapitalLettersAreTheCodePages) {
    for (int code = 1; code < 256; ++code) {
        const char letter = static_cast<char>(code);
        if (IsDBCSLeadByte(static_cast<BYTE>(code)) != FALSE) {
            continue;
        }
        char small = letter;
        char capital = letter;
        CharLowerBuffA(&small, 1);
        CharUpperBuffA(&capital, 1);
        EXPECT_EQ(smallLetter(letter), small) << code;
        EXPECT_EQ(capitalLetter(letter), capital) << code;
        EXPECT_EQ(lowerCased(std::string(1, letter)), std::string(1, small)) << code;
    }
}

/// Another code page than the process's, for the letters of one test.
class LettersOf : public testing::Test {
protected:
    explicit LettersOf(const char* page) : page_(page) {}
    void SetUp() override {
        before_ = std::setlocale(LC_CTYPE, nullptr);
        ASSERT_NE(std::setlocale(LC_CTYPE, page_), nullptr);
    }
    void TearDown() override { std::setlocale(LC_CTYPE, before_.c_str()); }

private:
    const char* page_;
    std::string before_;
};

class JapaneseLetters : public LettersOf {
protected:
    JapaneseLetters() : LettersOf("Japanese_Japan.932") {}

    // Letters whose second byte looks like "c", "^", "|", "_" and the backslash.
    static constexpr std::string_view kField = "\x93\x63";
    static constexpr std::string_view kTa = "\x83\x5E";
    static constexpr std::string_view kPo = "\x83\x7C";
    static constexpr std::string_view kDa = "\x83\x5F";
    static constexpr std::string_view kSo = "\x83\x5C";

    static std::string all() {
        std::string text;
        for (const std::string_view letter : {kField, kTa, kPo, kDa, kSo}) {
            text += letter;
        }
        return text;
    }
};

TEST_F(JapaneseLetters, KeepTheirFirstHalfAndTheirHalfWidthFellows) {
    for (int code = 0x80; code < 0x100; ++code) {
        const char letter = static_cast<char>(code);
        EXPECT_EQ(capitalLetter(letter), letter) << code;
        EXPECT_EQ(smallLetter(letter), letter) << code;
    }
    EXPECT_EQ(lowerCased("A" + all()), "a" + all());
}

TEST_F(JapaneseLetters, AreOneKeyEach) {
    for (const std::string_view letter : {kField, kTa, kPo, kDa, kSo}) {
        int key = typedKey(letter);
        EXPECT_GT(key, kLargestByte);
        EXPECT_EQ(typedBytes(key), letter);
        filterNameKey(key);
        EXPECT_EQ(typedBytes(key), letter);
    }
}

TEST_F(JapaneseLetters, PassThePasteFilterOfNamesWhole) {
    std::string name = "a-" + all() + "\xB1";
    filterNamePaste(name);
    EXPECT_EQ(name, "A" + all() + "\xB1");
}

TEST_F(JapaneseLetters, AreNeverCutInTwo) {
    const std::string text = "a" + all();
    EXPECT_EQ(wholeCharacters(text, 4), 3U);
    EXPECT_EQ(wholeCharacters(text, 5), 5U);
    EXPECT_EQ(lastCharacter(text), kSo);
}

TEST_F(JapaneseLetters, StartNoWordByTheirSecondHalf) {
    ProperCase rules;
    rules.gotFocus();
    int letter = typedKey(kField);
    rules.keyPress({"", 0, 0}, letter);
    EXPECT_EQ(typedBytes(letter), kField);

    int key = 'b';
    rules.keyPress({kDa, 2, 0}, key);
    EXPECT_EQ(key, 'b');
    rules.keyPress({"\x83\x5F ", 3, 0}, key);
    EXPECT_EQ(key, 'B');
}

class ArabicLetters : public LettersOf {
protected:
    ArabicLetters() : LettersOf("Arabic_Saudi Arabia.1256") {}
};

TEST_F(ArabicLetters, StayAndSoDoFrenchOnesWithoutACapitalInTheCodePage) {
    for (int code = 0x80; code < 0x100; ++code) {
        constexpr int kLargeLigature = 0x8C;
        constexpr int kSmallLigature = 0x9C;
        const char letter = static_cast<char>(code);
        const char capital = static_cast<char>(code == kSmallLigature ? kLargeLigature : code);
        EXPECT_EQ(capitalLetter(letter), capital) << code;
    }
}

} // namespace
} // namespace tollvane::test
