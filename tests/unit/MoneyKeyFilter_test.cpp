#include "entry/MoneyKeyFilter.h"

#include <gtest/gtest.h>

#include <string>

namespace tollvane {

void PrintTo(MoneyKey key, std::ostream* out) {
    *out << (key == MoneyKey::taken ? "taken" : key == MoneyKey::dropped ? "dropped" : "beep");
}

namespace {

MoneyKey at(std::string_view text, int start, int length, int key) {
    return judgeMoneyKey({text, start, length, '.'}, key);
}

MoneyKey atEnd(std::string_view text, int key) {
    return at(text, static_cast<int>(text.size()), 0, key);
}

TEST(MoneyKeyFilter, TakesSevenDigitsAndRefusesTheEighthWithABeep) {
    EXPECT_EQ(atEnd("123456", '7'), MoneyKey::taken);
    EXPECT_EQ(atEnd("1234567", '8'), MoneyKey::droppedWithBeep);
    EXPECT_EQ(atEnd("12345.67", '8'), MoneyKey::droppedWithBeep);
    EXPECT_EQ(atEnd("-1234567", '8'), MoneyKey::droppedWithBeep);
}

TEST(MoneyKeyFilter, TakesADigitInPlaceOfASelectedOne) {
    EXPECT_EQ(at("1234567", 0, 7, '8'), MoneyKey::taken);
    EXPECT_EQ(at("1234567", 3, 1, '8'), MoneyKey::taken);
    EXPECT_EQ(at("12345.67", 5, 1, '8'), MoneyKey::droppedWithBeep) << "would make eight digits";
}

TEST(MoneyKeyFilter, FullBoxBeepsAtEveryOtherKey) {
    EXPECT_EQ(atEnd("1234567", 'x'), MoneyKey::droppedWithBeep);
    EXPECT_EQ(atEnd("1234567", '.'), MoneyKey::taken);
    EXPECT_EQ(atEnd("1234567", 8), MoneyKey::taken);
    EXPECT_EQ(at("1234567", 0, 0, '-'), MoneyKey::taken);
}

TEST(MoneyKeyFilter, TakesAMinusSignOnlyInFront) {
    EXPECT_EQ(atEnd("", '-'), MoneyKey::taken);
    EXPECT_EQ(atEnd("  ", '-'), MoneyKey::taken);
    EXPECT_EQ(at("5", 0, 0, '-'), MoneyKey::taken);
    EXPECT_EQ(atEnd("5", '-'), MoneyKey::dropped);
    EXPECT_EQ(at("-5", 0, 0, '-'), MoneyKey::dropped);
    EXPECT_EQ(at("-5", 0, 1, '-'), MoneyKey::taken);
    EXPECT_EQ(at("-5", 0, 2, '-'), MoneyKey::taken);
    EXPECT_EQ(at("5.00", 1, 3, '-'), MoneyKey::dropped);
}

TEST(MoneyKeyFilter, KeepsTheMinusSignInFront) {
    EXPECT_EQ(at("-5", 0, 0, '1'), MoneyKey::droppedWithBeep);
    EXPECT_EQ(at("-5", 0, 0, '.'), MoneyKey::droppedWithBeep);
    EXPECT_EQ(at("-5", 0, 1, '1'), MoneyKey::taken);
    EXPECT_EQ(at("-5", 1, 0, '1'), MoneyKey::taken);
}

TEST(MoneyKeyFilter, TakesOneDecimalPoint) {
    EXPECT_EQ(atEnd("12", '.'), MoneyKey::taken);
    EXPECT_EQ(atEnd("12.", '.'), MoneyKey::droppedWithBeep);
    EXPECT_EQ(at("12.50", 0, 0, '.'), MoneyKey::droppedWithBeep);
    EXPECT_EQ(at("12.50", 2, 1, '.'), MoneyKey::taken);
    EXPECT_EQ(at("12.50", 3, 2, '.'), MoneyKey::droppedWithBeep);
}

TEST(MoneyKeyFilter, DropsEveryOtherKeySilently) {
    for (int key = 32; key < 256; ++key) {
        const bool number = (key >= '0' && key <= '9') || key == '-' || key == '.';
        EXPECT_EQ(atEnd("", key), number ? MoneyKey::taken : MoneyKey::dropped) << key;
    }
}

TEST(MoneyKeyFilter, LetsTheEditingKeysThrough) {
    for (const int key : {1, 3, 8, 22, 24, 26}) {
        EXPECT_EQ(atEnd("1234567", key), MoneyKey::taken) << key;
    }
    EXPECT_EQ(atEnd("", 27), MoneyKey::dropped);
}

TEST(MoneyKeyFilter, KnowsTheDecimalPointOfTheLocale) {
    EXPECT_EQ(judgeMoneyKey({"12", 2, 0, ','}, ','), MoneyKey::taken);
    EXPECT_EQ(judgeMoneyKey({"12,5", 4, 0, ','}, ','), MoneyKey::droppedWithBeep);
    EXPECT_EQ(judgeMoneyKey({"12", 2, 0, ','}, '.'), MoneyKey::dropped);
}

TEST(MoneyPaste, IsTakenWhenTheResultIsANumber) {
    EXPECT_TRUE(mayPasteMoney({"0.00", 0, 4, '.'}, "12.50"));
    EXPECT_TRUE(mayPasteMoney({"0.00", 0, 4, '.'}, "-12.50"));
    EXPECT_TRUE(mayPasteMoney({"", 0, 0, '.'}, "1234567"));
    EXPECT_TRUE(mayPasteMoney({"12", 1, 0, '.'}, "."));
}

TEST(MoneyPaste, IsRefusedWhenItBreaksTheRule) {
    EXPECT_FALSE(mayPasteMoney({"", 0, 0, '.'}, "12345678"));
    EXPECT_FALSE(mayPasteMoney({"12345.67", 8, 0, '.'}, "8"));
    EXPECT_FALSE(mayPasteMoney({"12.50", 0, 0, '.'}, "1."));
    EXPECT_FALSE(mayPasteMoney({"12.50", 5, 0, '.'}, "-"));
    EXPECT_FALSE(mayPasteMoney({"-5", 0, 0, '.'}, "1"));
    EXPECT_FALSE(mayPasteMoney({"-5", 0, 0, '.'}, "-"));
    EXPECT_FALSE(mayPasteMoney({"", 0, 0, '.'}, "$12.50"));
    EXPECT_FALSE(mayPasteMoney({"", 0, 0, '.'}, "1 2"));
}

} // namespace
} // namespace tollvane
