#include "components/hostdata/operators/PasswordHash.h"

namespace tollvane::hostdata {

namespace {
constexpr std::size_t kSaltLength = 16;
constexpr std::size_t kHashLength = 32;
} // namespace

PasswordHash hashPassword(const Cryptography& cryptography, const Secret& password,
                          std::int64_t iterations) {
    PasswordHash made;
    made.iterations = iterations;
    made.salt = cryptography.random(kSaltLength);
    made.hash = cryptography.derive(password.view(), made.salt, iterations, kHashLength);
    return made;
}

bool matches(const Cryptography& cryptography, const PasswordHash& stored, const Secret& password) {
    const Bytes tried =
        cryptography.derive(password.view(), stored.salt, stored.iterations, kHashLength);
    if (stored.hash.size() != tried.size())
        return false;
    unsigned difference = 0;
    for (std::size_t i = 0; i < tried.size(); ++i)
        difference |= static_cast<unsigned>(tried[i] ^ stored.hash[i]);
    return difference == 0;
}

std::string toHex(const Bytes& bytes) {
    constexpr const char* digits = "0123456789abcdef";
    std::string hex;
    hex.reserve(bytes.size() * 2);
    for (const auto byte : bytes) {
        hex += digits[byte >> 4];
        hex += digits[byte & 0x0F];
    }
    return hex;
}

} // namespace tollvane::hostdata
