#include "settings/cRegistry.h"
#include "tests/desktop/FakeRegistry.h"
#include "tests/desktop/FaultPlan.h"

#include <gtest/gtest.h>

namespace tollvane::test {
namespace {

const std::string kKey = "Software\\Shop\\Till";
const std::string kFullKey = "HKEY_LOCAL_MACHINE\\" + kKey;
constexpr auto kRoot = rootkey::localMachine;
constexpr std::uint32_t kTextWriteMask = 0x4001F;

class RegistryValues : public testing::Test {
protected:
    void TearDown() override { EXPECT_EQ(system.openKeys(), 0U) << "a key stayed open"; }

    /// The only call of that name; fails the test when there was none or another one.
    RegistryCall theCall(const std::string& name) {
        const auto calls = system.callsOf(name);
        EXPECT_EQ(calls.size(), 1U) << name;
        return calls.empty() ? RegistryCall() : calls.front();
    }

    FaultPlan faults;
    FakeRegistry system{faults};
    cRegistry registry{system, "Tollvane"};
};

TEST_F(RegistryValues, AMissingKeyReadsAsTheDefaults) {
    EXPECT_EQ(registry.GetStringValue(kRoot, kKey, "Name"), "");
    EXPECT_EQ(registry.GetStringValue(kRoot, kKey, "Name", "none"), "none");
    EXPECT_EQ(registry.GetNumericValue(kRoot, kKey, "Count"), 0);
    EXPECT_EQ(registry.GetNumericValue(kRoot, kKey, "Count", -7), -7);
    EXPECT_FALSE(registry.GetBooleanValue(kRoot, kKey, "On"));
    EXPECT_TRUE(registry.GetBooleanValue(kRoot, kKey, "On", true));
    EXPECT_TRUE(registry.GetBinaryValue(kRoot, kKey, "Bytes").empty());
}

TEST_F(RegistryValues, AMissingValueReadsAsTheDefaults) {
    system.addKey(kFullKey);
    EXPECT_EQ(registry.GetStringValue(kRoot, kKey, "Name"), "");
    EXPECT_EQ(registry.GetStringValue(kRoot, kKey, "Name", "none"), "none");
    EXPECT_EQ(registry.GetNumericValue(kRoot, kKey, "Count", 42), 42);
    EXPECT_TRUE(registry.GetBooleanValue(kRoot, kKey, "On", true));
    EXPECT_TRUE(registry.GetBinaryValue(kRoot, kKey, "Bytes").empty());
}

TEST_F(RegistryValues, AStringWithoutBytesReadsAsTheDefault) {
    system.addValue(kFullKey, "Name", registry::string, {});
    EXPECT_EQ(registry.GetStringValue(kRoot, kKey, "Name", "none"), "none");
}

TEST_F(RegistryValues, AStringOfOnlyATerminatorIsEmptyAndNotTheDefault) {
    system.addString(kFullKey, "Name", "");
    EXPECT_EQ(registry.GetStringValue(kRoot, kKey, "Name", "none"), "");
}

TEST_F(RegistryValues, AStringStoredWithoutATerminatorLosesItsLastCharacter) {
    system.addValue(kFullKey, "Name", registry::string, {'S', 'h', 'o', 'p'});
    EXPECT_EQ(registry.GetStringValue(kRoot, kKey, "Name"), "Sho");
}

TEST_F(RegistryValues, StringsAreReadWithReadAccessIntoTwoHundredFiftyFiveBytes) {
    system.addString(kFullKey, "Name", "Shop");
    EXPECT_EQ(registry.GetStringValue(kRoot, kKey, "Name"), "Shop");
    const RegistryCall opened = theCall("openKeyEx");
    EXPECT_EQ(opened.key, "HKEY_LOCAL_MACHINE");
    EXPECT_EQ(opened.subKey, kKey);
    EXPECT_EQ(opened.options, 0U);
    EXPECT_EQ(opened.access, 0x20019U);
    EXPECT_EQ(theCall("queryValueEx").size, 255U);
    EXPECT_EQ(theCall("closeKey").status, registry::success);
}

TEST_F(RegistryValues, AStringOfTwoHundredFiftyFourCharactersIsReadWhole) {
    const std::string longest(254, 'x');
    system.addString(kFullKey, "Name", longest);
    EXPECT_EQ(registry.GetStringValue(kRoot, kKey, "Name"), longest);
}

TEST_F(RegistryValues, AStringOfMoreThanTwoHundredFiftyFourCharactersRaisesMoreData) {
    system.addString(kFullKey, "Name", std::string(255, 'x'));
    system.setSystemText(234, "More Data Is Available.\r\n");
    try {
        registry.GetStringValue(kRoot, kKey, "Name");
        FAIL() << "no error";
    } catch (const Error& error) {
        EXPECT_EQ(error.number(), 234);
        EXPECT_EQ(error.source(), "Tollvane:GetStringValue");
        EXPECT_EQ(
            error.description(),
            "There was an error reading the HKEY_LOCAL_MACHINE\\Software\\Shop\\Till registry "
            "key, more data is available.\r\n");
    }
}

TEST_F(RegistryValues, TheNameDefaultInAnyCaseReadsTheUnnamedValue) {
    system.addString(kFullKey, "", "the unnamed one");
    system.addString(kFullKey, "default", "the named one");
    for (const char* name : {"default", "Default", "DEFAULT", "dEfAuLt"}) {
        EXPECT_EQ(registry.GetStringValue(kRoot, kKey, name), "the unnamed one") << name;
    }
    EXPECT_EQ(registry.GetStringValue(kRoot, kKey, ""), "the unnamed one");
}

TEST_F(RegistryValues, WritingTheNameDefaultMakesAValueOfThatName) {
    EXPECT_TRUE(registry.SaveStringValue(kRoot, kKey, "Default", "text"));
    EXPECT_EQ(system.text(kFullKey, "Default"), "text");
    EXPECT_EQ(system.value(kFullKey, ""), nullptr);
}

TEST_F(RegistryValues, NumbersKnowNoSpecialNameDefault) {
    system.addNumber(kFullKey, "default", 5);
    EXPECT_EQ(registry.GetNumericValue(kRoot, kKey, "default"), 5);
}

TEST_F(RegistryValues, SavingAStringCreatesTheKeyAndWritesTheTextWithoutItsTerminator) {
    EXPECT_TRUE(registry.SaveStringValue(kRoot, kKey, "Name", "Shop"));
    const RegistryCall created = theCall("createKeyEx");
    EXPECT_EQ(created.key, "HKEY_LOCAL_MACHINE");
    EXPECT_EQ(created.subKey, kKey);
    EXPECT_EQ(created.className, "REG_SZ");
    EXPECT_EQ(created.options, 0U);
    EXPECT_EQ(created.access, kTextWriteMask);
    const RegistryCall written = theCall("setValueEx");
    EXPECT_EQ(written.subKey, "Name");
    EXPECT_EQ(written.type, registry::string);
    EXPECT_EQ(written.size, 4U);
    EXPECT_EQ(written.data, (std::vector<std::uint8_t>{'S', 'h', 'o', 'p'}));
    EXPECT_EQ(registry.GetStringValue(kRoot, kKey, "Name"), "Shop");
}

TEST_F(RegistryValues, AnEmptyStringIsWrittenWithLengthZero) {
    EXPECT_TRUE(registry.SaveStringValue(kRoot, kKey, "Name", ""));
    const RegistryCall written = theCall("setValueEx");
    EXPECT_EQ(written.type, registry::string);
    EXPECT_EQ(written.size, 0U);
    ASSERT_NE(system.value(kFullKey, "Name"), nullptr);
    EXPECT_TRUE(system.value(kFullKey, "Name")->data.empty());
}

TEST_F(RegistryValues, EightBitCharactersComeBackAsTheyWere) {
    const std::string text = "Caf\xE9 M\xFCller \x80";
    EXPECT_TRUE(registry.SaveStringValue(kRoot, kKey, "Name", text));
    EXPECT_EQ(registry.GetStringValue(kRoot, kKey, "Name"), text);
}

TEST_F(RegistryValues, SavingANumberWritesFourBytes) {
    EXPECT_TRUE(registry.SaveNumericValue(kRoot, kKey, "Count", 0x01020304));
    const RegistryCall created = theCall("createKeyEx");
    EXPECT_EQ(created.className, "REG_SZ");
    EXPECT_EQ(created.access, kTextWriteMask);
    const RegistryCall written = theCall("setValueEx");
    EXPECT_EQ(written.type, registry::dword);
    EXPECT_EQ(written.size, 4U);
    EXPECT_EQ(written.data, (std::vector<std::uint8_t>{4, 3, 2, 1}));
    EXPECT_EQ(registry.GetNumericValue(kRoot, kKey, "Count"), 0x01020304);
}

TEST_F(RegistryValues, NegativeNumbersComeBackNegative) {
    EXPECT_TRUE(registry.SaveNumericValue(kRoot, kKey, "Count", -2147483647 - 1));
    EXPECT_EQ(system.number(kFullKey, "Count"), 0x80000000U);
    EXPECT_EQ(registry.GetNumericValue(kRoot, kKey, "Count"), -2147483647 - 1);
}

TEST_F(RegistryValues, ANumberIsReadWithReadAccessIntoFourBytes) {
    system.addNumber(kFullKey, "Count", 3);
    EXPECT_EQ(registry.GetNumericValue(kRoot, kKey, "Count", 9), 3);
    EXPECT_EQ(theCall("openKeyEx").access, 0x20019U);
    EXPECT_EQ(theCall("queryValueEx").size, 4U);
}

TEST_F(RegistryValues, ANumberReadOfAStringIsZeroAndNotTheDefault) {
    system.addString(kFullKey, "Count", "12"); // fits the four bytes
    EXPECT_EQ(registry.GetNumericValue(kRoot, kKey, "Count", 9), 0);
    system.addString(kFullKey, "Count", "a long text"); // does not
    EXPECT_EQ(registry.GetNumericValue(kRoot, kKey, "Count", 9), 0);
}

TEST_F(RegistryValues, AStringReadOfANumberRaisesOneWithTheSystemsOwnText) {
    system.addNumber(kFullKey, "Name", 12);
    system.setSystemText(1, "Incorrect Function.\r\n");
    try {
        registry.GetStringValue(kRoot, kKey, "Name", "none");
        FAIL() << "no error";
    } catch (const Error& error) {
        EXPECT_EQ(error.number(), 1);
        EXPECT_EQ(error.source(), "Tollvane:GetStringValue");
        EXPECT_EQ(error.description(), "Incorrect Function.\r\n");
    }
}

TEST_F(RegistryValues, TrueIsStoredWithAllBitsSetAndFalseAsZero) {
    EXPECT_TRUE(registry.SaveBooleanValue(kRoot, kKey, "On", true));
    EXPECT_TRUE(registry.SaveBooleanValue(kRoot, kKey, "Off", false));
    EXPECT_EQ(system.number(kFullKey, "On"), 0xFFFFFFFFU);
    EXPECT_EQ(system.number(kFullKey, "Off"), 0U);
    EXPECT_TRUE(registry.GetBooleanValue(kRoot, kKey, "On"));
    EXPECT_FALSE(registry.GetBooleanValue(kRoot, kKey, "Off", true));
}

TEST_F(RegistryValues, AnyNumberButZeroReadsAsTrue) {
    for (const std::uint32_t number : {1U, 2U, 0x80000000U, 0xFFFFFFFFU}) {
        system.addNumber(kFullKey, "On", number);
        EXPECT_TRUE(registry.GetBooleanValue(kRoot, kKey, "On")) << number;
    }
}

TEST_F(RegistryValues, BytesAreWrittenWithWriteAccessAndReadBack) {
    const std::vector<std::uint8_t> bytes{0, 255, 10, 0};
    EXPECT_TRUE(registry.SaveBinaryValue(kRoot, kKey, "Bytes", bytes));
    EXPECT_EQ(theCall("createKeyEx").access, 0x20006U);
    EXPECT_EQ(theCall("setValueEx").type, registry::binary);
    EXPECT_EQ(theCall("setValueEx").size, 4U);
    EXPECT_EQ(registry.GetBinaryValue(kRoot, kKey, "Bytes"), bytes);
    EXPECT_EQ(theCall("queryValueEx").size, 1024U);
}

TEST_F(RegistryValues, NoBytesAreWrittenAsAValueOfLengthZero) {
    EXPECT_TRUE(registry.SaveBinaryValue(kRoot, kKey, "Bytes", {}));
    const RegistryValue* stored = system.value(kFullKey, "Bytes");
    ASSERT_NE(stored, nullptr);
    EXPECT_EQ(stored->type, registry::binary);
    EXPECT_TRUE(stored->data.empty());
    EXPECT_TRUE(registry.GetBinaryValue(kRoot, kKey, "Bytes").empty());
}

TEST_F(RegistryValues, AThousandTwentyFourBytesAreReadAndOneMoreRaisesMoreData) {
    const std::vector<std::uint8_t> most(1024, 7);
    system.addValue(kFullKey, "Bytes", registry::binary, most);
    EXPECT_EQ(registry.GetBinaryValue(kRoot, kKey, "Bytes"), most);
    system.addValue(kFullKey, "Bytes", registry::binary, std::vector<std::uint8_t>(1025, 7));
    try {
        registry.GetBinaryValue(kRoot, kKey, "Bytes");
        FAIL() << "no error";
    } catch (const Error& error) {
        EXPECT_EQ(error.number(), 234);
        EXPECT_EQ(error.source(), "Tollvane:GetBinaryValue");
    }
}

TEST_F(RegistryValues, ABytesReadOfAStringRaisesOne) {
    system.addString(kFullKey, "Bytes", "text");
    try {
        registry.GetBinaryValue(kRoot, kKey, "Bytes");
        FAIL() << "no error";
    } catch (const Error& error) {
        EXPECT_EQ(error.number(), 1);
        EXPECT_EQ(error.source(), "Tollvane:GetBinaryValue");
    }
}

} // namespace
} // namespace tollvane::test
