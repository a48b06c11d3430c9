// How a password is kept: salted, stretched, never readable.
#pragma once

#include "components/hostdata/operators/Cryptography.h"
#include "components/hostdata/operators/Secret.h"

namespace tollvane::hostdata {

// Iterations for new passwords. Each stored password keeps its own count, so the number may grow.
constexpr std::int64_t kPasswordIterations = 300'000;

struct PasswordHash {
    std::int64_t iterations = 0;
    Bytes salt;
    Bytes hash;
};

[[nodiscard]] PasswordHash hashPassword(const Cryptography& cryptography, const Secret& password,
                                        std::int64_t iterations);

// Takes the same time wherever the first difference lies.
[[nodiscard]] bool matches(const Cryptography& cryptography, const PasswordHash& stored,
                           const Secret& password);

// Lower-case hexadecimal digits.
[[nodiscard]] std::string toHex(const Bytes& bytes);

} // namespace tollvane::hostdata
