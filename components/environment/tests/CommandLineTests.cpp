#include "components/environment/CommandLine.h"

#include <gtest/gtest.h>

namespace tollvane::environment {
namespace {

std::string refusal(const std::wstring& text) {
    try {
        (void)parseCommandLine(text);
    } catch (const CommandLineError& error) {
        return error.what();
    }
    return "accepted";
}

TEST(CommandLine, ABlankOneGivesNothing) {
    for (const auto* text : {L"", L" ", L" \t "}) {
        const auto line = parseCommandLine(text);
        EXPECT_FALSE(line.server || line.data || line.location || line.user);
    }
}

TEST(CommandLine, EverySwitchIsTaken) {
    const auto line =
        parseCommandLine(L"/server:BACKOFFICE /data:C:\\Data /location:Harbour /user:anna");
    EXPECT_EQ(line.server, L"BACKOFFICE");
    EXPECT_EQ(line.data, L"C:\\Data");
    EXPECT_EQ(line.location, L"Harbour");
    EXPECT_EQ(line.user, L"anna");
}

TEST(CommandLine, QuotedValuesMayHoldBlanks) {
    const auto line = parseCommandLine(L"/data:\"C:\\Shop One\\Data\" \"/location:Old Harbour\"");
    EXPECT_EQ(line.data, L"C:\\Shop One\\Data");
    EXPECT_EQ(line.location, L"Old Harbour");
}

TEST(CommandLine, HyphenAndCapitalsAreTheSameSwitch) {
    EXPECT_EQ(parseCommandLine(L"-SERVER:till2").server, L"till2");
    EXPECT_EQ(parseCommandLine(L"/LocatioN:AtoZ").location, L"AtoZ");
    EXPECT_EQ(parseCommandLine(L"/DATA:D:\\Shop").data, L"D:\\Shop");
    EXPECT_EQ(parseCommandLine(L"/USER:Anna").user, L"Anna");
}

TEST(CommandLine, TheLastOfTwoEqualSwitchesCounts) {
    EXPECT_EQ(parseCommandLine(L"/user:a /user:b").user, L"b");
}

TEST(CommandLine, AnEmptyValueIsGiven) {
    EXPECT_EQ(parseCommandLine(L"/server:").server, L"");
    EXPECT_EQ(parseCommandLine(L"/location:\"\"").location, L"");
}

TEST(CommandLine, AValueMayHoldColonsAndSlashes) {
    EXPECT_EQ(parseCommandLine(L"/data:D:/x/y").data, L"D:/x/y");
}

TEST(CommandLine, UnknownSwitchesAndWordsAreNamedInTheError) {
    EXPECT_NE(refusal(L"/colour:red").find("\"/colour:red\""), std::string::npos);
    EXPECT_NE(refusal(L"invoice.txt").find("\"invoice.txt\""), std::string::npos);
    EXPECT_NE(refusal(L"/server2:x").find("not known"), std::string::npos);
    EXPECT_NE(refusal(L"/").find("not known"), std::string::npos);
    EXPECT_NE(refusal(L"/:x").find("not known"), std::string::npos);
}

TEST(CommandLine, ASwitchWithoutAValueIsAnError) {
    EXPECT_NE(refusal(L"/server").find("needs a colon"), std::string::npos);
}

TEST(CommandLine, AMissingQuotationMarkIsAnError) {
    EXPECT_NE(refusal(L"/data:\"C:\\Shop One").find("quotation mark"), std::string::npos);
}

TEST(CommandLine, LettersThatAnErrorCannotShowAreReplaced) {
    EXPECT_NE(refusal(L"/\u20AC:\n1").find("\"/?:?1\""), std::string::npos);
}

} // namespace
} // namespace tollvane::environment
