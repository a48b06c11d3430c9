#include "settings/cRegistry.h"
#include "tests/desktop/FakeRegistry.h"
#include "tests/desktop/FaultPlan.h"

#include <gtest/gtest.h>

namespace tollvane::test {
namespace {

const std::string kKey = "Software\\Shop";
const std::string kFullKey = "HKEY_CURRENT_USER\\" + kKey;
constexpr auto kRoot = rootkey::currentUser;
using Texts = std::vector<std::string>;

class RegistryKeys : public testing::Test {
protected:
    void TearDown() override { EXPECT_EQ(system.openKeys(), 0U) << "a key stayed open"; }

    FaultPlan faults;
    FakeRegistry system{faults};
    cRegistry registry{system, "Tollvane"};
};

TEST_F(RegistryKeys, DeletingAValueRemovesIt) {
    system.addString(kFullKey, "Name", "x");
    EXPECT_TRUE(registry.DeleteRegValue(kRoot, kKey, "Name"));
    EXPECT_EQ(system.value(kFullKey, "Name"), nullptr);
    EXPECT_EQ(system.callsOf("openKeyEx").at(0).access, 0x4001FU);
}

TEST_F(RegistryKeys, DeletingAValueThatDoesNotExistIsTrueAndRaisesNothing) {
    system.addKey(kFullKey);
    EXPECT_TRUE(registry.DeleteRegValue(kRoot, kKey, "Name"));
}

TEST_F(RegistryKeys, DeletingAKeyRemovesTheWholeTreeDeepestFirst) {
    for (const char* child : {"\\Tree\\A\\Deep", "\\Tree\\A\\Deeper\\Deepest", "\\Tree\\B"}) {
        system.addKey(kFullKey + child);
    }
    system.addKey(kFullKey + "\\Neighbour");
    EXPECT_TRUE(registry.DeleteRegKey(kRoot, kKey, "Tree"));
    EXPECT_FALSE(system.hasKey(kFullKey + "\\Tree"));
    EXPECT_TRUE(system.hasKey(kFullKey + "\\Neighbour"));
    Texts deleted;
    for (const RegistryCall& call : system.callsOf("deleteKey")) {
        EXPECT_EQ(call.status, registry::success) << call.subKey;
        deleted.push_back(call.subKey);
    }
    EXPECT_EQ(deleted, (Texts{"Deep", "Deepest", "Deeper", "A", "B", "Tree"}));
}

TEST_F(RegistryKeys, KeysAreDeletedThroughTheirParentsOpenedForDeletion) {
    system.addKey(kFullKey + "\\Tree");
    EXPECT_TRUE(registry.DeleteRegKey(kRoot, kKey, "Tree"));
    const auto opened = system.callsOf("openKeyEx");
    ASSERT_EQ(opened.size(), 2U);
    EXPECT_EQ(opened[0].subKey, kKey);
    EXPECT_EQ(opened[0].access, 0x4001FU);
    EXPECT_EQ(opened[1].subKey, kKey + "\\Tree");
    EXPECT_EQ(opened[1].access, 0x20019U);
}

TEST_F(RegistryKeys, DeletingAKeyThatDoesNotExistIsTrue) {
    system.addKey(kFullKey);
    EXPECT_TRUE(registry.DeleteRegKey(kRoot, kKey, "Tree"));
}

TEST_F(RegistryKeys, AFailureDeepInATreeCarriesEveryLevelInItsTrail) {
    system.addKey(kFullKey + "\\Tree\\A");
    // Opened in this order: the parent, "Tree" for its children, "Tree" again to delete "A".
    faults.failAt(Port::registry, 6, registry::accessDenied);
    try {
        registry.DeleteRegKey(kRoot, kKey, "Tree");
        FAIL() << "no error";
    } catch (const Error& error) {
        EXPECT_EQ(faults.failedCall(), "openKeyEx");
        EXPECT_EQ(error.number(), 5);
        EXPECT_EQ(error.source(), "Tollvane:DeleteRegKey:DeleteRegKey");
        EXPECT_EQ(error.description(), "Access is denied.\r\n");
    }
}

TEST_F(RegistryKeys, AFailedEnumerationEndsADeletionInsteadOfRepeatingIt) {
    system.addKey(kFullKey + "\\Tree\\A");
    system.failNext("enumKeyEx", registry::keyDeleted);
    EXPECT_TRUE(registry.DeleteRegKey(kRoot, kKey, "Tree"));
    EXPECT_TRUE(system.hasKey(kFullKey + "\\Tree\\A"));
}

TEST_F(RegistryKeys, SubKeysAreListedByName) {
    system.addKey(kFullKey + "\\One");
    system.addKey(kFullKey + "\\Two");
    Texts keys{"left", "over", "from", "before"};
    EXPECT_EQ(registry.EnumSubKeys(kRoot, kKey, keys), 2);
    EXPECT_EQ(keys, (Texts{"One", "Two"}));
    EXPECT_EQ(system.callsOf("enumKeyEx").at(0).size, 2000U);
    EXPECT_EQ(system.callsOf("openKeyEx").at(0).access, 0x20019U);
}

TEST_F(RegistryKeys, AKeyWithoutSubKeysLeavesOneEmptyTextAndCountsNone) {
    system.addKey(kFullKey);
    Texts keys;
    EXPECT_EQ(registry.EnumSubKeys(kRoot, kKey, keys), 0);
    EXPECT_EQ(keys, Texts{""});
}

TEST_F(RegistryKeys, AMissingKeyListsNothingAndRaisesNothing) {
    Texts texts;
    EXPECT_EQ(registry.EnumSubKeys(kRoot, kKey, texts), 0);
    EXPECT_EQ(texts, Texts{""});
    EXPECT_EQ(registry.EnumStringValues(kRoot, kKey, texts), 0);
    EXPECT_EQ(texts, Texts{""});
}

TEST_F(RegistryKeys, AFailureWhileListingKeepsItsBufferAsTheLastName) {
    system.addKey(kFullKey + "\\One");
    system.failNext("enumKeyEx", registry::keyDeleted);
    Texts keys;
    EXPECT_EQ(registry.EnumSubKeys(kRoot, kKey, keys), 1);
    EXPECT_EQ(keys, Texts{std::string(2000, '\0')});
}

TEST_F(RegistryKeys, ValuesAreListedByTheirTextsNotTheirNames) {
    system.addString(kFullKey, "First", "one");
    system.addString(kFullKey, "Second", "two");
    Texts texts;
    EXPECT_EQ(registry.EnumStringValues(kRoot, kKey, texts), 2);
    EXPECT_EQ(texts, (Texts{"one", "two"}));
    EXPECT_EQ(system.callsOf("enumValue").at(0).size, 2000U);
}

TEST_F(RegistryKeys, ListingValuesDoesNotLookAtTheirTypes) {
    system.addValue(kFullKey, "Bytes", registry::binary, {'a', 'b', 'c'});
    system.addNumber(kFullKey, "Number", 0x44434241);
    Texts texts;
    EXPECT_EQ(registry.EnumStringValues(kRoot, kKey, texts), 2);
    EXPECT_EQ(texts, (Texts{"ab", "ABC"}));
}

TEST_F(RegistryKeys, AListedValueWithoutBytesIsEmpty) {
    system.addValue(kFullKey, "Name", registry::string, {});
    Texts texts;
    EXPECT_EQ(registry.EnumStringValues(kRoot, kKey, texts), 1);
    EXPECT_EQ(texts, Texts{""});
}

/// Names its first sub key with no characters at all.
class NamelessKeys : public FakeRegistry {
public:
    using FakeRegistry::FakeRegistry;
    long enumKeyEx(RegistryKey key, std::uint32_t index, char* name, std::uint32_t* nameSize,
                   std::uint32_t* reserved, char* className, std::uint32_t* classSize,
                   RegistryTime* lastWrite) override {
        const long status = FakeRegistry::enumKeyEx(key, index, name, nameSize, reserved, className,
                                                    classSize, lastWrite);
        if (index == 0 && status == registry::success) {
            *nameSize = 0;
        }
        return status;
    }
};

TEST(RegistryKeysWithoutNames, AreLeftAloneByADeletion) {
    FaultPlan faults;
    NamelessKeys system(faults);
    system.addKey(kFullKey + "\\Tree\\A");
    system.addKey(kFullKey + "\\Tree\\B");
    cRegistry registry(system, "Tollvane");

    EXPECT_TRUE(registry.DeleteRegKey(kRoot, kKey, "Tree"));

    EXPECT_TRUE(system.hasKey(kFullKey + "\\Tree\\A"));
    EXPECT_FALSE(system.hasKey(kFullKey + "\\Tree\\B"));
    EXPECT_EQ(system.openKeys(), 0U);
}

} // namespace
} // namespace tollvane::test
