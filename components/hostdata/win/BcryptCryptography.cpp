#include "components/hostdata/win/BcryptCryptography.h"

#include "components/hostdata/HostDataError.h"

#include <windows.h>

#include <bcrypt.h>

#include <cstdio>

namespace tollvane::hostdata {

namespace {

void check(NTSTATUS status) {
    if (status >= 0)
        return;
    char number[16];
    std::snprintf(number, sizeof number, "%08lX", static_cast<unsigned long>(status));
    throw HostDataError(Failure::cryptography,
                        std::string("The system's cryptography failed. (Status ") + number + ")");
}

class HashProvider {
public:
    HashProvider() {
        check(BCryptOpenAlgorithmProvider(&handle_, BCRYPT_SHA256_ALGORITHM, nullptr,
                                          BCRYPT_ALG_HANDLE_HMAC_FLAG));
    }
    HashProvider(const HashProvider&) = delete;
    HashProvider& operator=(const HashProvider&) = delete;
    ~HashProvider() { BCryptCloseAlgorithmProvider(handle_, 0); }
    [[nodiscard]] BCRYPT_ALG_HANDLE get() const noexcept { return handle_; }

private:
    BCRYPT_ALG_HANDLE handle_ = nullptr;
};

// The call takes pointers to changeable bytes, but only reads them.
PUCHAR readOnly(const void* data) {
    return static_cast<PUCHAR>(const_cast<void*>(data));
}

} // namespace

Bytes BcryptCryptography::derive(std::string_view password, const Bytes& salt,
                                 std::int64_t iterations, std::size_t length) const {
    const HashProvider provider;
    Bytes key(length);
    check(BCryptDeriveKeyPBKDF2(provider.get(), readOnly(password.data()),
                                static_cast<ULONG>(password.size()), readOnly(salt.data()),
                                static_cast<ULONG>(salt.size()), static_cast<ULONGLONG>(iterations),
                                key.data(), static_cast<ULONG>(key.size()), 0));
    return key;
}

Bytes BcryptCryptography::random(std::size_t length) const {
    Bytes bytes(length);
    check(BCryptGenRandom(nullptr, bytes.data(), static_cast<ULONG>(bytes.size()),
                          BCRYPT_USE_SYSTEM_PREFERRED_RNG));
    return bytes;
}

} // namespace tollvane::hostdata
