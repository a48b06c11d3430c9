// The system's own letters judge ours.

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

} // namespace
} // namespace tollvane::test
