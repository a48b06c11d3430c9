#pragma once

#include <cstdint>

namespace tollvane {

/// An open key, or one of the predefined roots; 0 is no key.
using RegistryKey = std::intptr_t;

/// When a key was last written, as the system counts it.
struct RegistryTime {
    std::uint32_t low = 0;
    std::uint32_t high = 0;
};

/// The system's registry calls in their 8-bit forms, argument for argument, so that access masks,
/// types, lengths and status codes can be seen and made to fail in tests. All return the status.
class Registry {
public:
    virtual ~Registry() = default;

    virtual long openKeyEx(RegistryKey root, const char* subKey, std::uint32_t options,
                           std::uint32_t access, RegistryKey* key) = 0;
    virtual long createKeyEx(RegistryKey root, const char* subKey, std::uint32_t reserved,
                             const char* className, std::uint32_t options, std::uint32_t access,
                             void* security, RegistryKey* key, std::uint32_t* disposition) = 0;
    virtual long queryValueEx(RegistryKey key, const char* name, std::uint32_t* reserved,
                              std::uint32_t* type, std::uint8_t* data, std::uint32_t* size) = 0;
    virtual long setValueEx(RegistryKey key, const char* name, std::uint32_t reserved,
                            std::uint32_t type, const std::uint8_t* data, std::uint32_t size) = 0;
    virtual long deleteValue(RegistryKey key, const char* name) = 0;
    virtual long deleteKey(RegistryKey key, const char* subKey) = 0;
    virtual long enumKeyEx(RegistryKey key, std::uint32_t index, char* name,
                           std::uint32_t* nameSize, std::uint32_t* reserved, char* className,
                           std::uint32_t* classSize, RegistryTime* lastWrite) = 0;
    virtual long enumValue(RegistryKey key, std::uint32_t index, char* name,
                           std::uint32_t* nameSize, std::uint32_t* reserved, std::uint32_t* type,
                           std::uint8_t* data, std::uint32_t* size) = 0;
    virtual long closeKey(RegistryKey key) = 0;

    /// The system's message table; returns the number of characters written, 0 on failure.
    virtual std::uint32_t formatMessage(std::uint32_t flags, const void* source, std::uint32_t code,
                                        std::uint32_t language, char* buffer, std::uint32_t size,
                                        void* arguments) = 0;
    /// The system error that the last formatMessage left behind.
    virtual std::uint32_t lastError() = 0;
};

} // namespace tollvane
