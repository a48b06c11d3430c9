#include "settings/cRegistry.h"
#include "tests/desktop/FakeRegistry.h"
#include "tests/desktop/FaultPlan.h"

#include <functional>
#include <gtest/gtest.h>

namespace tollvane::test {
namespace {

const std::string kKey = "Software\\Shop\\Till";
const std::string kFullKey = "HKEY_LOCAL_MACHINE\\" + kKey;
constexpr auto kRoot = rootkey::localMachine;

class RegistryFailures : public testing::Test {
protected:
    void TearDown() override { EXPECT_EQ(system.openKeys(), 0U) << "a key stayed open"; }

    static Error errorOf(const std::function<void()>& operation) {
        try {
            operation();
        } catch (const Error& error) {
            return error;
        }
        ADD_FAILURE() << "no error";
        return {0, "", ""};
    }

    static void expectError(const std::function<void()>& operation, long number,
                            const std::string& source, const std::string& description) {
        const Error error = errorOf(operation);
        EXPECT_EQ(error.number(), number);
        EXPECT_EQ(error.source(), source);
        EXPECT_EQ(error.description(), description);
    }

    FaultPlan faults;
    FakeRegistry system{faults};
    cRegistry registry{system, "Tollvane"};
};

constexpr auto kReadDenied =
    "There was an error reading the HKEY_LOCAL_MACHINE\\Software\\Shop\\Till "
    "registry key, access is denied.\r\n";
constexpr auto kWriteDenied = "There was an error writing the HKEY_LOCAL_MACHINE\\Software\\Shop\\"
                              "Till registry key, access is denied.\r\n";

TEST_F(RegistryFailures, AStringThatMayNotBeReadRaisesTheReadError) {
    system.deny(kFullKey, registry::everything);
    expectError([&] { registry.GetStringValue(kRoot, kKey, "Name"); }, 5, "Tollvane:GetStringValue",
                kReadDenied);
}

TEST_F(RegistryFailures, BytesThatMayNotBeReadRaiseTheReadError) {
    system.deny(kFullKey, registry::everything);
    expectError([&] { registry.GetBinaryValue(kRoot, kKey, "Bytes"); }, 5,
                "Tollvane:GetBinaryValue", kReadDenied);
}

TEST_F(RegistryFailures, AFailedQueryRaisesTheReadErrorAndClosesTheKey) {
    system.addString(kFullKey, "Name", "Shop");
    system.failNext("queryValueEx", registry::accessDenied);
    expectError([&] { registry.GetStringValue(kRoot, kKey, "Name"); }, 5, "Tollvane:GetStringValue",
                kReadDenied);
    EXPECT_EQ(system.callsOf("closeKey").size(), 1U);
}

TEST_F(RegistryFailures, ANumberThatMayNotBeReadIsZeroAndRaisesNothing) {
    system.deny(kFullKey, registry::everything);
    EXPECT_EQ(registry.GetNumericValue(kRoot, kKey, "Count", 9), 0);
    EXPECT_FALSE(registry.GetBooleanValue(kRoot, kKey, "On", true));
}

TEST_F(RegistryFailures, AFailedNumberQueryClosesTheKey) {
    system.addNumber(kFullKey, "Count", 3);
    system.failNext("queryValueEx", registry::accessDenied);
    EXPECT_EQ(registry.GetNumericValue(kRoot, kKey, "Count", 9), 0);
    EXPECT_EQ(system.callsOf("closeKey").size(), 1U);
}

/// A registry whose values cannot be asked for at all.
class BrokenRegistry : public FakeRegistry {
public:
    using FakeRegistry::FakeRegistry;
    long queryValueEx(RegistryKey /*key*/, const char* /*name*/, std::uint32_t* /*reserved*/,
                      std::uint32_t* /*type*/, std::uint8_t* /*data*/,
                      std::uint32_t* /*size*/) override {
        throw Error(7, "Registry", "Out of memory");
    }
};

TEST(RegistryThatBreaks, GivesZeroForANumberAndRaisesForAText) {
    FaultPlan faults;
    BrokenRegistry system(faults);
    system.addNumber(kFullKey, "Count", 3);
    cRegistry registry(system, "Tollvane");

    EXPECT_EQ(registry.GetNumericValue(kRoot, kKey, "Count", 9), 0);
    EXPECT_FALSE(registry.GetBooleanValue(kRoot, kKey, "Count", true));
    EXPECT_THROW(registry.GetStringValue(kRoot, kKey, "Count"), Error);
    EXPECT_EQ(system.openKeys(), 0U);
}

TEST_F(RegistryFailures, EveryKindOfSavingRaisesTheWriteErrorWithItsOwnTrail) {
    system.deny("HKEY_LOCAL_MACHINE\\Software", registry::anyWrite);
    expectError([&] { registry.SaveStringValue(kRoot, kKey, "Name", "x"); }, 5,
                "Tollvane:SaveStringValue", kWriteDenied);
    expectError([&] { registry.SaveNumericValue(kRoot, kKey, "Count", 1); }, 5,
                "Tollvane:SaveNumericValue", kWriteDenied);
    expectError([&] { registry.SaveBinaryValue(kRoot, kKey, "Bytes", {1}); }, 5,
                "Tollvane:SaveBinaryValue", kWriteDenied);
    expectError([&] { registry.SaveBooleanValue(kRoot, kKey, "On", true); }, 5,
                "Tollvane:SaveNumericValue:SaveBooleanValue, Err.Description", kWriteDenied);
}

TEST_F(RegistryFailures, AValueThatCannotBeWrittenAnswersFalseAndRaisesNothing) {
    const std::vector<std::function<bool()>> saves{
        [&] { return registry.SaveStringValue(kRoot, kKey, "Name", "x"); },
        [&] { return registry.SaveNumericValue(kRoot, kKey, "Count", 1); },
        [&] { return registry.SaveBooleanValue(kRoot, kKey, "On", true); },
        [&] { return registry.SaveBinaryValue(kRoot, kKey, "Bytes", {1}); }};
    for (const auto& save : saves) {
        system.failNext("setValueEx", registry::accessDenied);
        EXPECT_FALSE(save());
    }
}

TEST_F(RegistryFailures, DeletingInAMissingKeyRaisesTheSystemsTextAlone) {
    system.setSystemText(2, "The System Cannot Find It.\r\n");
    expectError([&] { registry.DeleteRegValue(kRoot, kKey, "Name"); }, 2, "Tollvane:DeleteRegValue",
                "The System Cannot Find It.\r\n");
    expectError([&] { registry.DeleteRegKey(kRoot, kKey, "Child"); }, 2, "Tollvane:DeleteRegKey",
                "The System Cannot Find It.\r\n");
}

TEST_F(RegistryFailures, AFailedCloseDecidesADeletion) {
    system.addString(kFullKey, "Name", "x");
    system.failNext("closeKey", registry::invalidHandle);
    const Error error = errorOf([&] { registry.DeleteRegValue(kRoot, kKey, "Name"); });
    EXPECT_EQ(error.number(), 6);
    EXPECT_EQ(error.source(), "Tollvane:DeleteRegValue");
}

TEST_F(RegistryFailures, AFailedCloseDecidesTheDeletionOfAKey) {
    system.addKey(kFullKey + "\\Child");
    system.failNext("closeKey", registry::success); // of the list of the child's own children
    system.failNext("closeKey", registry::invalidHandle);
    expectError([&] { registry.DeleteRegKey(kRoot, kKey, "Child"); }, 6, "Tollvane:DeleteRegKey",
                "The handle is invalid.\r\n");
    EXPECT_FALSE(system.hasKey(kFullKey + "\\Child"));
}

TEST_F(RegistryFailures, AFailedDeletionBehindASuccessfulCloseCountsAsSuccess) {
    system.addString(kFullKey, "Name", "x");
    system.addKey(kFullKey + "\\Child");
    system.failNext("deleteValue", registry::accessDenied);
    EXPECT_TRUE(registry.DeleteRegValue(kRoot, kKey, "Name"));
    system.failNext("deleteKey", registry::accessDenied);
    EXPECT_TRUE(registry.DeleteRegKey(kRoot, kKey, "Child"));
    EXPECT_TRUE(system.hasKey(kFullKey + "\\Child"));
}

TEST_F(RegistryFailures, AnUnknownRootHasNoNameInTheDescription) {
    for (const std::int32_t root : {static_cast<std::int32_t>(0x80000007U), 0}) {
        const Error error = errorOf([&] { registry.GetStringValue(root, kKey, "Name"); });
        EXPECT_EQ(error.description().find("There was an error reading the \\Software\\Shop\\Till "
                                           "registry key, "),
                  0U)
            << error.description();
    }
}

TEST_F(RegistryFailures, EveryPredefinedRootIsNamedInTheDescription) {
    const std::vector<std::pair<std::int32_t, std::string>> roots{
        {rootkey::classesRoot, "HKEY_CLASSES_ROOT"},
        {rootkey::currentUser, "HKEY_CURRENT_USER"},
        {rootkey::localMachine, "HKEY_LOCAL_MACHINE"},
        {rootkey::users, "HKEY_USERS"},
        {rootkey::performanceData, "HKEY_PERFORMANCE_DATA"},
        {rootkey::currentConfig, "HKEY_CURRENT_CONFIG"},
        {rootkey::dynData, "HKEY_DYN_DATA"}};
    for (const auto& [root, name] : roots) {
        system.failNext("openKeyEx", registry::accessDenied);
        const Error error =
            errorOf([&, number = root] { registry.GetStringValue(number, "Key", "Name"); });
        EXPECT_EQ(error.description(), "There was an error reading the " + name +
                                           "\\Key registry key, access is denied.\r\n");
    }
}

TEST_F(RegistryFailures, AnErrorWithoutATextIsDescribedByTheLastSystemError) {
    system.setSystemText(5, "");
    system.setSystemText(317, "No such message.\r\n");
    system.failNext("openKeyEx", registry::accessDenied);
    expectError([&] { registry.DeleteRegValue(kRoot, kKey, "Name"); }, 5, "Tollvane:DeleteRegValue",
                "No such message.\r\n");
}

TEST_F(RegistryFailures, AnErrorThatNothingDescribesSaysSo) {
    system.setSystemText(5, "");
    system.setSystemText(317, "");
    system.failNext("openKeyEx", registry::accessDenied);
    expectError([&] { registry.DeleteRegValue(kRoot, kKey, "Name"); }, 5, "Tollvane:DeleteRegValue",
                "Unable to retrieve error description.");
    system.failNext("openKeyEx", registry::accessDenied);
    expectError([&] { registry.GetStringValue(kRoot, "Key", "Name"); }, 5,
                "Tollvane:GetStringValue",
                "There was an error reading the HKEY_LOCAL_MACHINE\\Key registry key, unable to "
                "retrieve error description.");
}

/// A registry that notes how its error texts are asked for.
class AskedForTexts : public FakeRegistry {
public:
    struct Question {
        std::uint32_t flags;
        const void* source;
        std::uint32_t code;
        std::uint32_t language;
        std::uint32_t size;
        void* arguments;
        bool operator==(const Question&) const = default;
    };

    using FakeRegistry::FakeRegistry;

    std::uint32_t formatMessage(std::uint32_t flags, const void* source, std::uint32_t code,
                                std::uint32_t language, char* buffer, std::uint32_t size,
                                void* arguments) override {
        questions.push_back({flags, source, code, language, size, arguments});
        return FakeRegistry::formatMessage(flags, source, code, language, buffer, size, arguments);
    }

    std::vector<Question> questions;
};

TEST(RegistryErrorTexts, AreAskedOfTheSystemWithoutInserts) {
    FaultPlan faults;
    AskedForTexts system(faults);
    cRegistry registry(system, "Tollvane");
    system.setSystemText(2, "");

    EXPECT_THROW(registry.DeleteRegValue(kRoot, kKey, "Name"), Error);

    EXPECT_EQ(system.questions,
              (std::vector<AskedForTexts::Question>{{0x1200, nullptr, 2, 0, 1024, nullptr},
                                                    {0x1200, nullptr, 317, 0, 1024, nullptr}}));
}

} // namespace
} // namespace tollvane::test
