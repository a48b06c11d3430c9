#pragma once

#include "platform/Registry.h"

namespace tollvane::win32 {

/// Hands every call to the system as it stands.
class Win32Registry final : public Registry {
public:
    long openKeyEx(RegistryKey root, const char* subKey, std::uint32_t options,
                   std::uint32_t access, RegistryKey* key) override;
    long createKeyEx(RegistryKey root, const char* subKey, std::uint32_t reserved,
                     const char* className, std::uint32_t options, std::uint32_t access,
                     void* security, RegistryKey* key, std::uint32_t* disposition) override;
    long queryValueEx(RegistryKey key, const char* name, std::uint32_t* reserved,
                      std::uint32_t* type, std::uint8_t* data, std::uint32_t* size) override;
    long setValueEx(RegistryKey key, const char* name, std::uint32_t reserved, std::uint32_t type,
                    const std::uint8_t* data, std::uint32_t size) override;
    long deleteValue(RegistryKey key, const char* name) override;
    long deleteKey(RegistryKey key, const char* subKey) override;
    long enumKeyEx(RegistryKey key, std::uint32_t index, char* name, std::uint32_t* nameSize,
                   std::uint32_t* reserved, char* className, std::uint32_t* classSize,
                   RegistryTime* lastWrite) override;
    long enumValue(RegistryKey key, std::uint32_t index, char* name, std::uint32_t* nameSize,
                   std::uint32_t* reserved, std::uint32_t* type, std::uint8_t* data,
                   std::uint32_t* size) override;
    long closeKey(RegistryKey key) override;
    std::uint32_t formatMessage(std::uint32_t flags, const void* source, std::uint32_t code,
                                std::uint32_t language, char* buffer, std::uint32_t size,
                                void* arguments) override;
    std::uint32_t lastError() override { return lastError_; }

private:
    std::uint32_t lastError_ = 0;
};

} // namespace tollvane::win32
