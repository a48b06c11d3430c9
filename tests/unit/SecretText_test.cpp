#include "platform/Error.h"
#include "platform/SecretText.h"

#include <gtest/gtest.h>

#include <utility>

namespace tollvane {
namespace {

TEST(SecretText, IsCopiedAndMovedAndStaysItselfWhenAssignedToItself) {
    const SecretText card("4111111111111111");
    SecretText other("5555555555554444");
    other = card;
    EXPECT_EQ(other, card);
    SecretText& same = other;
    other = same;
    EXPECT_EQ(other, card);
    other = std::move(same);
    EXPECT_EQ(other, card);
    SecretText moved;
    moved = std::move(other);
    EXPECT_EQ(moved, card);
}

TEST(SecretText, WipingLeavesNoByteOfTheMemoryAndNoneBesideItChanges) {
    std::string memory = "x4111111111111111x";

    wipeMemory(memory.data() + 1, 16);

    EXPECT_EQ(memory, "x" + std::string(16, '\0') + "x");
}

TEST(SecretText, GrowsCharacterByCharacter) {
    SecretText text;
    std::string wanted;
    for (int i = 0; i < 200; ++i) {
        const char character = static_cast<char>('0' + i % 10);
        text.append(character);
        wanted += character;
    }
    EXPECT_EQ(text.view(), wanted);
    EXPECT_EQ(text.size(), 200U);
}

TEST(SecretText, ShowsItsLastFourCharactersOnly) {
    EXPECT_EQ(SecretText("41111234").masked(), "****1234");
    EXPECT_EQ(SecretText("1234").masked(), "1234");
    try {
        (void)SecretText("123").masked();
        FAIL() << "no error";
    } catch (const Error& error) {
        EXPECT_EQ(error.number(), errornumber::invalidProcedureCall);
    }
}

} // namespace
} // namespace tollvane
