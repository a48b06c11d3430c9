// What the server asks of the platform's cryptography.
#pragma once

#include "components/hostdata/store/Database.h"

#include <cstdint>
#include <string_view>

namespace tollvane::hostdata {

class Cryptography {
public:
    Cryptography() = default;
    Cryptography(const Cryptography&) = delete;
    Cryptography& operator=(const Cryptography&) = delete;
    virtual ~Cryptography() = default;

    // PBKDF2 with HMAC-SHA256. May be called from several threads at once.
    [[nodiscard]] virtual Bytes derive(std::string_view password, const Bytes& salt,
                                       std::int64_t iterations, std::size_t length) const = 0;
    // Bytes that nobody can predict.
    [[nodiscard]] virtual Bytes random(std::size_t length) const = 0;
};

} // namespace tollvane::hostdata
