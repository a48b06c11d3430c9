// Half a million keystrokes without a plan. As many again, and more, go through the state machines
// alone: see TypedKeys_property.cpp.

#include "tests/unit/FormMonkey.h"

#include <gtest/gtest.h>

#include <random>
#include <vector>

namespace tollvane::test {
namespace {

using Script = std::vector<std::uint8_t>;

/// Mostly what readers and money boxes care about, some of everything.
Script anyScript(std::mt19937& random) {
    static const std::string likely = "%%%B^^?;;+=0123456789..--,abcXYZ/ \b\b\r\x1b|'";
    Script script(std::uniform_int_distribution<std::size_t>(20, 400)(random));
    for (std::uint8_t& byte : script) {
        byte = random() % 3 != 0 ? static_cast<std::uint8_t>(likely[random() % likely.size()])
                                 : static_cast<std::uint8_t>(random());
    }
    return script;
}

std::string shown(const Script& script) {
    std::string text;
    for (const std::uint8_t byte : script) {
        if (byte >= 32 && byte < 127) {
            text += static_cast<char>(byte);
        } else {
            text += "<" + std::to_string(byte) + ">";
        }
    }
    return text;
}

/// The script without what is not needed for the failure, for somebody to read.
Script shrunk(FormMonkey& monkey, Script script) {
    for (std::size_t size = script.size() / 2; size > 0; size /= 2) {
        for (std::size_t at = 0; at + size <= script.size();) {
            Script shorter = script;
            const auto from = shorter.begin() + static_cast<std::ptrdiff_t>(at);
            shorter.erase(from, from + static_cast<std::ptrdiff_t>(size));
            if (monkey.play(shorter).empty()) {
                at += size;
            } else {
                script = shorter;
            }
        }
    }
    return script;
}

/// A share of them, so that several processes can work on it.
class FormMonkeyPlays : public ::testing::TestWithParam<unsigned> {};

TEST_P(FormMonkeyPlays, WithoutBreakingAPromise) {
    constexpr std::uint64_t share = 50'000;
    std::mt19937 random(GetParam());
    FormMonkey monkey;
    while (monkey.keystrokes() < share) {
        const Script script = anyScript(random);
        const std::string complaint = monkey.play(script);
        ASSERT_EQ(complaint, "") << "script: " << shown(shrunk(monkey, script));
    }
}

INSTANTIATE_TEST_SUITE_P(Share, FormMonkeyPlays, ::testing::Range(1U, 11U));

} // namespace
} // namespace tollvane::test
