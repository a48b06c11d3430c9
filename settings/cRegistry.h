#pragma once

#include "platform/Desktop.h"
#include "platform/Error.h"
#include "settings/OpenKey.h"

#include <cstdint>
#include <string>
#include <vector>

namespace tollvane {

/// The predefined root keys as the signed numbers that cRegistry takes.
namespace rootkey {
inline constexpr std::int32_t classesRoot = static_cast<std::int32_t>(0x80000000U);
inline constexpr std::int32_t currentUser = static_cast<std::int32_t>(0x80000001U);
inline constexpr std::int32_t localMachine = static_cast<std::int32_t>(0x80000002U);
inline constexpr std::int32_t users = static_cast<std::int32_t>(0x80000003U);
inline constexpr std::int32_t performanceData = static_cast<std::int32_t>(0x80000004U);
inline constexpr std::int32_t currentConfig = static_cast<std::int32_t>(0x80000005U);
inline constexpr std::int32_t dynData = static_cast<std::int32_t>(0x80000006U);
} // namespace rootkey

/// Access to the registry, one operation at a time: each opens its key, does its one job and closes
/// the key again. Failures are raised with the system's status as number, the executable's name and
/// ":" and the operation's name as source, and a readable description. A Save operation answers
/// false, and raises nothing, when the key could be opened but not written.
///
/// The sub key is a path below the root without a backslash in front.
class cRegistry {
public:
    /// `exeName` is the source of the errors that are raised here.
    cRegistry(Registry& registry, std::string exeName);
    explicit cRegistry(const Desktop& desktop);

    /// `Default` when key or value is missing or the value is empty. Reads up to 254 characters;
    /// a longer value raises 234, another type than REG_SZ raises 1. The value name "default" in
    /// any case means the key's unnamed value.
    std::string GetStringValue(std::int32_t hKeyRoot, const std::string& hKeySubKey,
                               const std::string& ValueName, const std::string& Default = {});
    /// Writes REG_SZ without a terminator; creates the key. "default" is an ordinary name here.
    bool SaveStringValue(std::int32_t hKeyRoot, const std::string& hKeySubKey,
                         const std::string& ValueName, const std::string& Value);
    /// `Default` when key or value is missing, 0 for another type than REG_DWORD and after every
    /// other failure. Raises nothing.
    std::int32_t GetNumericValue(std::int32_t hKeyRoot, const std::string& hKeySubKey,
                                 const std::string& ValueName, std::int32_t Default = 0);
    bool SaveNumericValue(std::int32_t hKeyRoot, const std::string& hKeySubKey,
                          const std::string& ValueName, std::int32_t Value);
    /// Up to 1024 bytes; empty when key or value is missing.
    std::vector<std::uint8_t> GetBinaryValue(std::int32_t hKeyRoot, const std::string& hKeySubKey,
                                             const std::string& ValueName);
    bool SaveBinaryValue(std::int32_t hKeyRoot, const std::string& hKeySubKey,
                         const std::string& ValueName, const std::vector<std::uint8_t>& Value);
    /// True also when there was no such value.
    bool DeleteRegValue(std::int32_t hKeyRoot, const std::string& hKeySubKey,
                        const std::string& ValueName);
    /// Deletes the child key `KeyName` of `hKeySubKey` with everything below it; true also when
    /// there was none.
    bool DeleteRegKey(std::int32_t hKeyRoot, const std::string& hKeySubKey,
                      const std::string& KeyName);
    /// Fills `Keys` with the names of the sub keys and returns their number. With none, `Keys`
    /// holds one empty text.
    std::int32_t EnumSubKeys(std::int32_t hKeyRoot, const std::string& hKeySubKey,
                             std::vector<std::string>& Keys);
    /// False after every failure but a missing key or value, which reads as `Default`.
    bool GetBooleanValue(std::int32_t hKeyRoot, const std::string& hKeySubKey,
                         const std::string& ValueName, bool Default = false);
    bool SaveBooleanValue(std::int32_t hKeyRoot, const std::string& hKeySubKey,
                          const std::string& ValueName, bool Value);
    /// Fills `Values` with the texts (not the names) of all values, whatever their type, and
    /// returns their number. With none, `Values` holds one empty text.
    std::int32_t EnumStringValues(std::int32_t hKeyRoot, const std::string& hKeySubKey,
                                  std::vector<std::string>& Values);

    /// The system's text for a status code.
    std::string GetErrorDescription(long code);

private:
    /// What a value query needs and gives back.
    struct Query {
        long status = 0;
        std::uint32_t type = 0;
        std::uint32_t size = 0;
    };

    long open(std::int32_t root, const std::string& subKey, std::uint32_t access, OpenKey& key);
    Query query(std::int32_t root, const std::string& subKey, const std::string& valueName,
                std::uint8_t* data, std::uint32_t size);
    bool save(std::int32_t root, const std::string& subKey, const std::string& valueName,
              std::uint32_t access, std::uint32_t type, const void* data, std::size_t size);
    /// Closes the key and raises the status that decides a deletion.
    void finishDeletion(OpenKey& key, long openStatus);
    void deleteChildren(std::int32_t root, const std::string& path);

    static std::string GetRootKeyName(std::int32_t hKeyRoot);

    /// "There was an error <doing> the <key> registry key, <system text>".
    Error accessError(const char* doing, long status, std::int32_t root, const std::string& subKey);
    Error wrongTypeError();

    Registry& registry_;
    std::string exeName_;
    /// The object's own handle. The operations each work on a key of their own and leave it empty.
    OpenKey key_;
};

} // namespace tollvane
