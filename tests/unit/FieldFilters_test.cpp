#include "entry/FieldFilters.h"

#include <gtest/gtest.h>

namespace tollvane {
namespace {

int named(int key) {
    filterNameKey(key);
    return key;
}

int zipped(int key) {
    filterZipKey(key);
    return key;
}

TEST(NameFilter, DropsTheTracksOwnSignsAndCapitalisesTheRest) {
    for (int key = 0; key < 128; ++key) {
        const bool dropped = key == '-' || key == '^' || key == '|';
        const int capital = key >= 'a' && key <= 'z' ? key - 32 : key;
        EXPECT_EQ(named(key), dropped ? 0 : capital) << key;
    }
}

TEST(ZipFilter, LetsDigitsBackspaceApostropheAndBracketsThrough) {
    for (int key = 27; key < 256; ++key) {
        const bool passes = (key >= '0' && key <= '9') || (key >= 39 && key <= 41);
        EXPECT_EQ(zipped(key), passes ? key : 0) << key;
    }
    EXPECT_EQ(zipped(8), 8);
    EXPECT_EQ(zipped(22), 22) << "pasting by keys";
    EXPECT_EQ(zipped(9), 0);
}

TEST(PasteFilters, DoWithATextWhatTypingItDoes) {
    std::string name = "smith-jones|^ x";
    filterNamePaste(name);
    EXPECT_EQ(name, "SMITHJONES X");

    std::string zip = "(123) 45-6'7a";
    filterZipPaste(zip);
    EXPECT_EQ(zip, "(123)456'7");

    std::string number = "4111-1111 1111x1111";
    keepDigits(number);
    EXPECT_EQ(number, "4111111111111111");
}

TEST(Zip, OfNineCharactersGetsItsHyphen) {
    EXPECT_EQ(hyphenatedZip("123456789"), "12345-6789");
    EXPECT_EQ(hyphenatedZip("12345"), "12345");
    EXPECT_EQ(hyphenatedZip("12345-6789"), "12345-6789");
    EXPECT_EQ(hyphenatedZip("12345678"), "12345678");
    EXPECT_EQ(hyphenatedZip(""), "");
}

} // namespace
} // namespace tollvane
