// What only the in-memory registry offers: rights that are refused, planned failures, the record.
#include "tests/desktop/FakeRegistry.h"
#include "tests/desktop/FaultPlan.h"

#include <gtest/gtest.h>

namespace tollvane::test {
namespace {

constexpr auto kMachine = static_cast<RegistryKey>(0x8000'0002U);
constexpr const char* kPath = "HKEY_LOCAL_MACHINE\\Software\\Shop";

class FakeRegistryTest : public testing::Test {
protected:
    long open(std::uint32_t access) {
        return system.openKeyEx(kMachine, "Software\\Shop", 0, access, &key);
    }
    long create(const char* path, std::uint32_t access) {
        return system.createKeyEx(kMachine, path, 0, "REG_SZ", 0, access, nullptr, &key, nullptr);
    }

    FaultPlan faults;
    FakeRegistry system{faults};
    RegistryKey key = 0;
};

TEST_F(FakeRegistryTest, ARefusedRightMakesOpeningAndCreatingFail) {
    system.deny(kPath, registry::anyWrite);
    EXPECT_EQ(open(0x20019), registry::success);
    EXPECT_EQ(system.closeKey(key), 0);
    EXPECT_EQ(open(0x4001F), registry::accessDenied);
    EXPECT_EQ(create("Software\\Shop", 0x4001F), registry::accessDenied);
    EXPECT_EQ(create("Software\\Shop\\New", 0x4001F), registry::accessDenied);
    EXPECT_FALSE(system.hasKey(std::string(kPath) + "\\New"));
    EXPECT_EQ(system.openKeys(), 0U);
}

TEST_F(FakeRegistryTest, ARefusalHoldsForTheKeysBelowAndCanBeLifted) {
    system.addKey(std::string(kPath) + "\\Options");
    system.deny(kPath, registry::queryValue);
    EXPECT_EQ(system.openKeyEx(kMachine, "Software\\Shop\\Options", 0, 0x20019, &key),
              registry::accessDenied);
    system.deny(kPath, 0);
    EXPECT_EQ(system.openKeyEx(kMachine, "Software\\Shop\\Options", 0, 0x20019, &key),
              registry::success);
    EXPECT_EQ(system.openKeys(), 1U);
    system.closeKey(key);
}

TEST_F(FakeRegistryTest, BothSpellingsOfARootAreTheSameKey) {
    const auto extended = static_cast<RegistryKey>(static_cast<std::int32_t>(0x8000'0002U));
    system.addKey(kPath);
    EXPECT_EQ(open(0x20019), 0);
    system.closeKey(key);
    EXPECT_EQ(system.openKeyEx(extended, "Software\\Shop", 0, 0x20019, &key), 0);
    system.closeKey(key);
    EXPECT_EQ(system.openKeyEx(static_cast<RegistryKey>(0x8000'0007U), "x", 0, 1, &key),
              registry::invalidHandle);
}

TEST_F(FakeRegistryTest, CallsAreRecordedWithTheirArguments) {
    create("Software\\Shop", 0x4001F);
    const std::uint32_t one = 1;
    system.setValueEx(key, "Count", 0, registry::dword, reinterpret_cast<const std::uint8_t*>(&one),
                      sizeof one);
    system.closeKey(key);
    ASSERT_EQ(system.calls().size(), 3U);
    const RegistryCall& created = system.calls()[0];
    EXPECT_EQ(created.name, "createKeyEx");
    EXPECT_EQ(created.key, "HKEY_LOCAL_MACHINE");
    EXPECT_EQ(created.subKey, "Software\\Shop");
    EXPECT_EQ(created.className, "REG_SZ");
    EXPECT_EQ(created.access, 0x4001FU);
    const RegistryCall& set = system.calls()[1];
    EXPECT_EQ(set.key, kPath);
    EXPECT_EQ(set.subKey, "Count");
    EXPECT_EQ(set.type, registry::dword);
    EXPECT_EQ(set.size, 4U);
    EXPECT_EQ(set.data, (std::vector<std::uint8_t>{1, 0, 0, 0}));
    EXPECT_EQ(system.number(kPath, "Count"), 1U);
}

TEST_F(FakeRegistryTest, APlannedFailureHappensOnceAndDoesNothing) {
    system.failNext("createKeyEx", registry::accessDenied);
    EXPECT_EQ(create("Software\\Shop", 0x4001F), registry::accessDenied);
    EXPECT_FALSE(system.hasKey(kPath));
    EXPECT_EQ(create("Software\\Shop", 0x4001F), registry::success);
    system.closeKey(key);
}

TEST_F(FakeRegistryTest, AFailingCloseStillEndsTheHandle) {
    create("Software\\Shop", 0x4001F);
    system.failNext("closeKey", registry::invalidHandle);
    EXPECT_EQ(system.closeKey(key), registry::invalidHandle);
    EXPECT_EQ(system.openKeys(), 0U);
}

TEST_F(FakeRegistryTest, TheFaultPlanStrikesTheNthCall) {
    faults.failAt(Port::registry, 2, registry::moreData);
    EXPECT_EQ(create("Software\\Shop", 0x4001F), registry::success);
    EXPECT_FALSE(faults.reached());
    EXPECT_EQ(system.deleteValue(key, "None"), registry::moreData);
    EXPECT_TRUE(faults.reached());
    EXPECT_EQ(faults.failedCall(), "deleteValue");
    EXPECT_EQ(system.closeKey(key), registry::success);
    EXPECT_EQ(faults.calls(Port::registry), 3);
}

TEST_F(FakeRegistryTest, SystemTextsAreThoseOfTheSystemUnlessRemoved) {
    char buffer[64] = {};
    const std::string denied = "Access is denied.\r\n";
    EXPECT_EQ(system.formatMessage(0x1200, nullptr, 5, 0, buffer, sizeof buffer, nullptr),
              denied.size());
    EXPECT_EQ(std::string(buffer), denied);
    EXPECT_EQ(system.formatMessage(0x1200, nullptr, 5, 0, buffer, 10, nullptr), 0U);
    EXPECT_EQ(system.lastError(), 122U);
    system.setSystemText(5, "");
    EXPECT_EQ(system.formatMessage(0x1200, nullptr, 5, 0, buffer, sizeof buffer, nullptr), 0U);
    EXPECT_EQ(system.lastError(), 317U);
}

} // namespace
} // namespace tollvane::test
