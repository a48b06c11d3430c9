// What the registry's calls do, on the system's own registry and on the one in memory.
#include "tests/desktop/FakeRegistry.h"
#include "tests/desktop/TestRegistry.h"

#include <gtest/gtest.h>

#include <array>
#include <cstring>
#include <string>
#include <vector>

namespace tollvane::test {
namespace {

constexpr auto kCurrentUser = static_cast<RegistryKey>(static_cast<std::int32_t>(0x8000'0001U));
constexpr const char* kTop = "Software\\TollvaneContract";
constexpr std::uint32_t kAll = registry::everything;

class RegistryContract : public testing::Test {
protected:
    void SetUp() override { removeTree(kTop); }
    void TearDown() override { removeTree(kTop); }

    void removeTree(const std::string& path) {
        RegistryKey key = 0;
        if (port->openKeyEx(kCurrentUser, path.c_str(), 0, kAll, &key) != 0) {
            return;
        }
        for (std::string child = childName(key, 0); !child.empty(); child = childName(key, 0)) {
            removeTree(std::string(path).append("\\").append(child));
        }
        port->closeKey(key);
        port->deleteKey(kCurrentUser, path.c_str());
    }

    std::string childName(RegistryKey key, std::uint32_t index) {
        std::array<char, 256> name{};
        std::uint32_t size = name.size();
        const long status =
            port->enumKeyEx(key, index, name.data(), &size, nullptr, nullptr, nullptr, nullptr);
        return status == 0 ? std::string(name.data(), size) : std::string();
    }

    RegistryKey create(const char* path, std::uint32_t access = kAll) {
        RegistryKey key = 0;
        EXPECT_EQ(
            port->createKeyEx(kCurrentUser, path, 0, "REG_SZ", 0, access, nullptr, &key, nullptr),
            0);
        return key;
    }

    long set(RegistryKey key, const char* name, std::uint32_t type, const std::string& bytes) {
        return port->setValueEx(key, name, 0, type,
                                reinterpret_cast<const std::uint8_t*>(bytes.c_str()),
                                static_cast<std::uint32_t>(bytes.size()));
    }

    /// Reads into a buffer of that many bytes.
    struct Read {
        long status = 0;
        std::uint32_t type = 0;
        std::uint32_t size = 0;
        std::string bytes; ///< the whole buffer, '#' where nothing was written
    };
    Read read(RegistryKey key, const char* name, std::uint32_t room) {
        Read got;
        got.bytes.assign(room, '#');
        got.size = room;
        got.status =
            port->queryValueEx(key, name, nullptr, &got.type,
                               reinterpret_cast<std::uint8_t*>(got.bytes.data()), &got.size);
        return got;
    }

    FaultPlan faults;
    std::unique_ptr<Registry> port = makeRegistry(faults);
};

TEST_F(RegistryContract, AMissingKeyIsNotFound) {
    RegistryKey key = 77;
    EXPECT_EQ(port->openKeyEx(kCurrentUser, kTop, 0, registry::queryValue, &key),
              registry::fileNotFound);
}

TEST_F(RegistryContract, CreatingAKeyCreatesTheKeysAboveItAndSaysSo) {
    RegistryKey key = 0;
    std::uint32_t disposition = 0;
    const std::string deep = std::string(kTop) + "\\One\\Two";
    EXPECT_EQ(port->createKeyEx(kCurrentUser, deep.c_str(), 0, "REG_SZ", 0, kAll, nullptr, &key,
                                &disposition),
              0);
    EXPECT_EQ(disposition, 1U);
    EXPECT_EQ(port->closeKey(key), 0);
    EXPECT_EQ(port->createKeyEx(kCurrentUser, deep.c_str(), 0, "REG_SZ", 0, kAll, nullptr, &key,
                                &disposition),
              0);
    EXPECT_EQ(disposition, 2U);
    EXPECT_EQ(port->closeKey(key), 0);
}

TEST_F(RegistryContract, ATextWrittenWithoutItsTerminatorGetsItWhenItFollows) {
    const RegistryKey key = create(kTop);
    EXPECT_EQ(set(key, "Name", registry::string, "shop"), 0);
    const Read got = read(key, "Name", 10);
    EXPECT_EQ(got.status, 0);
    EXPECT_EQ(got.type, registry::string);
    EXPECT_EQ(got.size, 5U);
    EXPECT_EQ(got.bytes.substr(0, 5), std::string("shop\0", 5));
    port->closeKey(key);
}

TEST_F(RegistryContract, AnEmptyTextIsStoredWithoutAByte) {
    const RegistryKey key = create(kTop);
    EXPECT_EQ(set(key, "Name", registry::string, ""), 0);
    const Read got = read(key, "Name", 10);
    EXPECT_EQ(got.status, 0);
    EXPECT_EQ(got.size, 0U);
    port->closeKey(key);
}

TEST_F(RegistryContract, ABufferThatIsTooSmallLearnsTheSize) {
    const RegistryKey key = create(kTop);
    set(key, "Bytes", registry::binary, "12345");
    const Read got = read(key, "Bytes", 4);
    EXPECT_EQ(got.status, registry::moreData);
    EXPECT_EQ(got.size, 5U);
    std::uint32_t size = 0;
    EXPECT_EQ(port->queryValueEx(key, "Bytes", nullptr, nullptr, nullptr, &size), 0);
    EXPECT_EQ(size, 5U);
    port->closeKey(key);
}

TEST_F(RegistryContract, ATextOf254CharactersFillsABufferOf255) {
    const RegistryKey key = create(kTop);
    set(key, "Fits", registry::string, std::string(254, 'x'));
    set(key, "Long", registry::string, std::string(255, 'x'));
    EXPECT_EQ(read(key, "Fits", 255).status, 0);
    EXPECT_EQ(read(key, "Long", 255).status, registry::moreData);
    port->closeKey(key);
}

TEST_F(RegistryContract, NamesOfKeysAndValuesKnowNoCase) {
    RegistryKey key = create(kTop);
    set(key, "Count", registry::dword, std::string("\7\0\0\0", 4));
    EXPECT_EQ(read(key, "COUNT", 4).bytes, std::string("\7\0\0\0", 4));
    port->closeKey(key);
    EXPECT_EQ(
        port->openKeyEx(kCurrentUser, "SOFTWARE\\tollvanecontract", 0, registry::queryValue, &key),
        0);
    port->closeKey(key);
}

TEST_F(RegistryContract, AnEmptyNameIsTheUnnamedValue) {
    const RegistryKey key = create(kTop);
    EXPECT_EQ(read(key, "", 10).status, registry::fileNotFound);
    set(key, "", registry::string, "unnamed");
    EXPECT_EQ(read(key, "", 10).size, 8U);
    EXPECT_EQ(read(key, "default", 10).status, registry::fileNotFound);
    set(key, "default", registry::string, "named");
    EXPECT_EQ(read(key, "default", 10).size, 6U);
    EXPECT_EQ(read(key, "", 10).size, 8U);
    port->closeKey(key);
}

TEST_F(RegistryContract, AKeyOpenedForReadingTakesNoWrites) {
    port->closeKey(create(kTop));
    RegistryKey key = 0;
    ASSERT_EQ(port->openKeyEx(kCurrentUser, kTop, 0, 0x20019, &key), 0);
    EXPECT_EQ(set(key, "Name", registry::string, "x"), registry::accessDenied);
    EXPECT_EQ(port->deleteValue(key, "Name"), registry::accessDenied);
    port->closeKey(key);
}

TEST_F(RegistryContract, AKeyOpenedForWritingGivesNoValues) {
    const RegistryKey key = create(kTop, 0x20006);
    EXPECT_EQ(set(key, "Bytes", registry::binary, "1"), 0);
    EXPECT_EQ(read(key, "Bytes", 4).status, registry::accessDenied);
    port->closeKey(key);
}

TEST_F(RegistryContract, DeletingAMissingValueSaysSo) {
    const RegistryKey key = create(kTop);
    EXPECT_EQ(port->deleteValue(key, "None"), registry::fileNotFound);
    set(key, "Some", registry::string, "x");
    EXPECT_EQ(port->deleteValue(key, "Some"), 0);
    EXPECT_EQ(read(key, "Some", 4).status, registry::fileNotFound);
    port->closeKey(key);
}

TEST_F(RegistryContract, AKeyWithSubKeysCannotBeDeleted) {
    const RegistryKey key = create(kTop);
    port->closeKey(create((std::string(kTop) + "\\One\\Two").c_str()));
    EXPECT_EQ(port->deleteKey(key, "One"), registry::accessDenied);
    EXPECT_EQ(port->deleteKey(key, "One\\Two"), 0);
    EXPECT_EQ(port->deleteKey(key, "One"), 0);
    EXPECT_EQ(port->deleteKey(key, "One"), registry::fileNotFound);
    port->closeKey(key);
}

TEST_F(RegistryContract, ADeletedKeyCannotBeUsedAnyMore) {
    const RegistryKey key = create(kTop);
    const RegistryKey child = create((std::string(kTop) + "\\One").c_str());
    ASSERT_EQ(port->deleteKey(key, "One"), 0);
    EXPECT_EQ(set(child, "Name", registry::string, "x"), registry::keyDeleted);
    EXPECT_EQ(port->closeKey(child), 0);
    port->closeKey(key);
}

TEST_F(RegistryContract, SubKeysAreEnumeratedInTheOrderOfTheirNamesUntilThereAreNoMore) {
    const RegistryKey key = create(kTop);
    for (const char* name : {"beta", "Alpha", "gamma"}) {
        port->closeKey(create((std::string(kTop) + "\\" + name).c_str()));
    }
    EXPECT_EQ(childName(key, 0), "Alpha");
    EXPECT_EQ(childName(key, 1), "beta");
    EXPECT_EQ(childName(key, 2), "gamma");
    std::array<char, 8> name{};
    std::uint32_t size = name.size();
    EXPECT_EQ(port->enumKeyEx(key, 3, name.data(), &size, nullptr, nullptr, nullptr, nullptr),
              registry::noMoreItems);
    size = 3;
    EXPECT_EQ(port->enumKeyEx(key, 0, name.data(), &size, nullptr, nullptr, nullptr, nullptr),
              registry::moreData);
    port->closeKey(key);
}

TEST_F(RegistryContract, ValuesAreEnumeratedWithTheirData) {
    const RegistryKey key = create(kTop);
    set(key, "Only", registry::string, "text");
    std::array<char, 16> name{};
    std::array<std::uint8_t, 16> data{};
    std::uint32_t nameSize = name.size();
    std::uint32_t dataSize = data.size();
    std::uint32_t type = 0;
    ASSERT_EQ(
        port->enumValue(key, 0, name.data(), &nameSize, nullptr, &type, data.data(), &dataSize), 0);
    EXPECT_STREQ(name.data(), "Only");
    EXPECT_EQ(nameSize, 4U);
    EXPECT_EQ(type, registry::string);
    EXPECT_EQ(dataSize, 5U);
    EXPECT_EQ(std::memcmp(data.data(), "text", 5), 0);
    nameSize = name.size();
    EXPECT_EQ(port->enumValue(key, 1, name.data(), &nameSize, nullptr, nullptr, nullptr, nullptr),
              registry::noMoreItems);
    port->closeKey(key);
}

TEST_F(RegistryContract, ARootIsAlwaysOpenAndSomethingElseIsNoHandle) {
    EXPECT_EQ(port->closeKey(kCurrentUser), 0);
    RegistryKey key = 0;
    EXPECT_EQ(port->openKeyEx(0, kTop, 0, registry::queryValue, &key), registry::invalidHandle);
}

TEST_F(RegistryContract, TheSystemsTextEndsWithALineBreakAndAnUnknownCodeHasNone) {
    std::array<char, 1024> text{};
    const std::uint32_t length =
        port->formatMessage(0x1200, nullptr, 5, 0, text.data(), text.size(), nullptr);
    ASSERT_GT(length, 2U);
    EXPECT_EQ(std::string(text.data(), length).substr(length - 2), "\r\n");
    EXPECT_EQ(
        port->formatMessage(0x1200, nullptr, 0x2FFF'FFFF, 0, text.data(), text.size(), nullptr),
        0U);
    EXPECT_NE(port->lastError(), 0U);
}

} // namespace
} // namespace tollvane::test
