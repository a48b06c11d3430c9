#include "settings/cRegistry.h"

#include "platform/Letters.h"
#include "settings/RegistryNumbers.h"

#include <algorithm>
#include <array>
#include <cstring>
#include <utility>

namespace tollvane {

using namespace registrynumber;

namespace {

bool meansUnnamedValue(const std::string& valueName) {
    return lowerCased(valueName) == "default";
}

/// True is stored as a number with all bits set.
std::int32_t numberOf(bool value) {
    return value ? -1 : 0;
}

} // namespace

cRegistry::cRegistry(Registry& registry, std::string exeName)
    : registry_(registry), exeName_(std::move(exeName)), key_(registry) {}

cRegistry::cRegistry(const Desktop& desktop)
    : cRegistry(desktop.registry, desktop.program.exeName()) {}

long cRegistry::open(std::int32_t root, const std::string& subKey, std::uint32_t access,
                     OpenKey& key) {
    return registry_.openKeyEx(root, subKey.c_str(), 0, access, key.receiver());
}

cRegistry::Query cRegistry::query(std::int32_t root, const std::string& subKey,
                                  const std::string& valueName, std::uint8_t* data,
                                  std::uint32_t size) {
    OpenKey key(registry_);
    Query result;
    result.size = size;
    result.status = open(root, subKey, kRead, key);
    if (result.status == kSuccess) {
        result.status = registry_.queryValueEx(key.get(), valueName.c_str(), nullptr, &result.type,
                                               data, &result.size);
    }
    return result;
}

bool cRegistry::save(std::int32_t root, const std::string& subKey, const std::string& valueName,
                     std::uint32_t access, std::uint32_t type, const void* data, std::size_t size) {
    OpenKey key(registry_);
    std::uint32_t disposition = 0;
    const long created = registry_.createKeyEx(root, subKey.c_str(), 0, "REG_SZ", 0, access,
                                               nullptr, key.receiver(), &disposition);
    if (created != kSuccess) {
        throw accessError("writing", created, root, subKey);
    }
    const long written = registry_.setValueEx(key.get(), valueName.c_str(), 0, type,
                                              static_cast<const std::uint8_t*>(data),
                                              static_cast<std::uint32_t>(size));
    return written == kSuccess;
}

std::string cRegistry::GetStringValue(std::int32_t hKeyRoot, const std::string& hKeySubKey,
                                      const std::string& ValueName, const std::string& Default) {
    return trailed("GetStringValue", [&]() -> std::string {
        std::array<char, 255> buffer{};
        const Query result =
            query(hKeyRoot, hKeySubKey, meansUnnamedValue(ValueName) ? std::string() : ValueName,
                  reinterpret_cast<std::uint8_t*>(buffer.data()), buffer.size());
        if (result.status == kFileNotFound) {
            return Default;
        }
        if (result.status != kSuccess) {
            throw accessError("reading", result.status, hKeyRoot, hKeySubKey);
        }
        if (result.type != kString) {
            throw wrongTypeError();
        }
        const std::size_t size = std::min<std::size_t>(result.size, buffer.size());
        return size == 0 ? Default : std::string(buffer.data(), size - 1);
    });
}

bool cRegistry::SaveStringValue(std::int32_t hKeyRoot, const std::string& hKeySubKey,
                                const std::string& ValueName, const std::string& Value) {
    return trailed("SaveStringValue", [&] {
        return save(hKeyRoot, hKeySubKey, ValueName, kWriteText, kString, Value.c_str(),
                    Value.size());
    });
}

std::int32_t cRegistry::GetNumericValue(std::int32_t hKeyRoot, const std::string& hKeySubKey,
                                        const std::string& ValueName, std::int32_t Default) {
    try {
        std::array<std::uint8_t, sizeof Default> bytes{};
        std::memcpy(bytes.data(), &Default, bytes.size());
        const Query result = query(hKeyRoot, hKeySubKey, ValueName, bytes.data(), bytes.size());
        if (result.status == kFileNotFound) {
            return Default;
        }
        std::int32_t number = 0;
        if (result.status == kSuccess && result.type == kNumber) {
            std::memcpy(&number, bytes.data(), bytes.size());
        }
        return number;
    } catch (...) {
        // A number that cannot be read is 0: the callers have no way to report a failure.
        return 0;
    }
}

bool cRegistry::SaveNumericValue(std::int32_t hKeyRoot, const std::string& hKeySubKey,
                                 const std::string& ValueName, std::int32_t Value) {
    return trailed("SaveNumericValue", [&] {
        return save(hKeyRoot, hKeySubKey, ValueName, kWriteText, kNumber, &Value, sizeof Value);
    });
}

std::vector<std::uint8_t> cRegistry::GetBinaryValue(std::int32_t hKeyRoot,
                                                    const std::string& hKeySubKey,
                                                    const std::string& ValueName) {
    return trailed("GetBinaryValue", [&] {
        constexpr std::size_t kOffered = 1024;
        std::vector<std::uint8_t> bytes(kOffered + 1);
        const Query result = query(hKeyRoot, hKeySubKey, ValueName, bytes.data(), kOffered);
        if (result.status == kFileNotFound) {
            return std::vector<std::uint8_t>();
        }
        if (result.status != kSuccess) {
            throw accessError("reading", result.status, hKeyRoot, hKeySubKey);
        }
        if (result.type != kBinary) {
            throw wrongTypeError();
        }
        bytes.resize(std::min<std::size_t>(result.size, kOffered));
        return bytes;
    });
}

bool cRegistry::SaveBinaryValue(std::int32_t hKeyRoot, const std::string& hKeySubKey,
                                const std::string& ValueName,
                                const std::vector<std::uint8_t>& Value) {
    return trailed("SaveBinaryValue", [&] {
        return save(hKeyRoot, hKeySubKey, ValueName, kWriteBytes, kBinary, Value.data(),
                    Value.size());
    });
}

bool cRegistry::GetBooleanValue(std::int32_t hKeyRoot, const std::string& hKeySubKey,
                                const std::string& ValueName, bool Default) {
    return GetNumericValue(hKeyRoot, hKeySubKey, ValueName, numberOf(Default)) != 0;
}

bool cRegistry::SaveBooleanValue(std::int32_t hKeyRoot, const std::string& hKeySubKey,
                                 const std::string& ValueName, bool Value) {
    // The words behind the name belong to the source that operators know from the box's title.
    return trailed("SaveBooleanValue, Err.Description", [&] {
        return SaveNumericValue(hKeyRoot, hKeySubKey, ValueName, numberOf(Value));
    });
}

Error cRegistry::accessError(const char* doing, long status, std::int32_t root,
                             const std::string& subKey) {
    return {status, exeName_,
            "There was an error " + std::string(doing) + " the " + GetRootKeyName(root) + "\\" +
                subKey + " registry key, " + lowerCased(GetErrorDescription(status))};
}

Error cRegistry::wrongTypeError() {
    return {kInvalidFunction, exeName_, GetErrorDescription(kInvalidFunction)};
}

std::string cRegistry::GetErrorDescription(long code) {
    constexpr std::uint32_t kFromSystemWithoutInserts = 0x1200;
    std::array<char, 1024> buffer{};
    const auto format = [&](std::uint32_t message) {
        const std::uint32_t length = registry_.formatMessage(
            kFromSystemWithoutInserts, nullptr, message, 0, buffer.data(), buffer.size(), nullptr);
        return std::string(buffer.data(), std::min<std::size_t>(length, buffer.size()));
    };
    std::string text;
    try {
        text = format(static_cast<std::uint32_t>(code));
        if (text.empty()) {
            text = format(registry_.lastError());
        }
    } catch (...) {
        // Describing an error must not replace it by another one.
    }
    return text.empty() ? "Unable to retrieve error description." : text;
}

std::string cRegistry::GetRootKeyName(std::int32_t hKeyRoot) {
    constexpr std::array kNames{"HKEY_CLASSES_ROOT", "HKEY_CURRENT_USER",     "HKEY_LOCAL_MACHINE",
                                "HKEY_USERS",        "HKEY_PERFORMANCE_DATA", "HKEY_CURRENT_CONFIG",
                                "HKEY_DYN_DATA"};
    const auto place =
        static_cast<std::uint32_t>(hKeyRoot) - static_cast<std::uint32_t>(rootkey::classesRoot);
    return place < kNames.size() ? kNames[place] : "";
}

} // namespace tollvane
