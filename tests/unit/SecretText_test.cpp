#include "platform/Error.h"
#include "platform/SecretText.h"
#include "tests/unit/FreedMemory.h"

#include <gtest/gtest.h>

#include <string>
#include <string_view>
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
    SecretText moved("378282246310005");
    moved = std::move(other);
    EXPECT_EQ(moved, card);
    EXPECT_TRUE(other.empty()); // NOLINT(bugprone-use-after-move): neither text stays behind
}

class SecretTextMemory : public testing::Test {
protected:
    static constexpr std::string_view kStart = "41111111";
    static constexpr std::string_view kCard = "4111111111111111";
};

TEST_F(SecretTextMemory, OfAPlainTextIsGivenBackAsItIs) {
    const test::FreedMemory freed(kStart);
    {
        const std::string plain(kCard.begin(), kCard.end());
        EXPECT_EQ(plain, kCard);
    }
    EXPECT_EQ(freed.blocksWithIt(), 1U);
}

TEST_F(SecretTextMemory, IsWipedBeforeItIsGivenBack) {
    const test::FreedMemory freed(kStart);
    {
        SecretText card(kCard);
        SecretText other(card);
        other = SecretText("1234");
        other = card;
        SecretText moved(std::move(card));
        moved = std::move(other);
        moved.clear();
        moved = SecretText(kCard);
        EXPECT_EQ(moved.view(), kCard);
    }
    EXPECT_EQ(freed.blocksWithIt(), 0U);
}

TEST_F(SecretTextMemory, IsWipedWhereverATextGrowsOutOfIt) {
    const test::FreedMemory freed(kStart);
    {
        SecretText grown;
        for (int i = 0; i < 500; ++i) {
            grown.append(kCard[static_cast<std::size_t>(i) % kCard.size()]);
        }
        EXPECT_EQ(grown.size(), 500U);
        SecretText full(kCard);
        full.append('?');
        EXPECT_EQ(full.size(), kCard.size() + 1);
    }
    EXPECT_EQ(freed.blocksWithIt(), 0U);
}

TEST_F(SecretTextMemory, OfAPlainTextIsWipedOnDemand) {
    const test::FreedMemory freed(kStart);
    {
        std::string plain(kCard.begin(), kCard.end());
        wipe(plain);
        EXPECT_EQ(plain, "");
        std::string shortened = "Card number 4111111111111111";
        shortened.resize(4); // the longer text is still behind it
        wipe(shortened);
        EXPECT_EQ(shortened, "");
    }
    EXPECT_EQ(freed.blocksWithIt(), 0U);
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
