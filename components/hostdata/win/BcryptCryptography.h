// The platform's cryptography.
#pragma once

#include "components/hostdata/operators/Cryptography.h"

namespace tollvane::hostdata {

// Raises HostDataError when the platform refuses.
class BcryptCryptography final : public Cryptography {
public:
    [[nodiscard]] Bytes derive(std::string_view password, const Bytes& salt,
                               std::int64_t iterations, std::size_t length) const override;
    [[nodiscard]] Bytes random(std::size_t length) const override;
};

} // namespace tollvane::hostdata
