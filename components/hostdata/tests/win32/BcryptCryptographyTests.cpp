#include "components/hostdata/operators/PasswordHash.h"
#include "components/hostdata/win/BcryptCryptography.h"
#include "components/hostdata/win/ServerSettings.h"
#include "components/hostdata/win/Utf8.h"

#include <gtest/gtest.h>

namespace tollvane::hostdata {
namespace {

Bytes bytes(std::string_view text) {
    return {text.begin(), text.end()};
}

// Published PBKDF2-HMAC-SHA256 answers for "password" and "salt".
TEST(BcryptCryptography, DerivesThePublishedAnswers) {
    const BcryptCryptography cryptography;
    EXPECT_EQ(toHex(cryptography.derive("password", bytes("salt"), 1, 32)),
              "120fb6cffcf8b32c43e7225256c4f837a86548c92ccc35480805987cb70be17b");
    EXPECT_EQ(toHex(cryptography.derive("password", bytes("salt"), 4096, 32)),
              "c5e478d59288c841aa530db6845c4c8d962893a001ce4e11a4963873aa98134a");
}

TEST(BcryptCryptography, DerivesFromAnEmptyPassword) {
    const BcryptCryptography cryptography;
    EXPECT_EQ(cryptography.derive("", bytes("salt"), 1, 32).size(), 32U);
}

TEST(BcryptCryptography, RandomBytesDiffer) {
    const BcryptCryptography cryptography;
    EXPECT_NE(cryptography.random(16), cryptography.random(16));
}

TEST(PasswordHash, WorksWithThePlatformsCryptography) {
    const BcryptCryptography cryptography;
    const auto hash = hashPassword(cryptography, Secret("counter-one"), 1000);
    EXPECT_TRUE(matches(cryptography, hash, Secret("counter-one")));
    EXPECT_FALSE(matches(cryptography, hash, Secret("counter-two")));
}

TEST(ServerSettings, TheFolderOfAPathHasNoLastBackslash) {
    EXPECT_EQ(folderOf("C:\\Data\\shop one\\hostdata.db"), "C:\\Data\\shop one");
    EXPECT_EQ(folderOf("hostdata.db"), "");
}

TEST(Utf8, TakingAPasswordOverwritesTheCallersText) {
    BSTR password = SysAllocString(L"counter-\u00FC");
    EXPECT_EQ(takeSecret(password).view(), "counter-\xC3\xBC");
    EXPECT_EQ(std::wstring_view(password, SysStringLen(password)),
              std::wstring_view(L"\0\0\0\0\0\0\0\0\0", 9));
    SysFreeString(password);
}

} // namespace
} // namespace tollvane::hostdata
