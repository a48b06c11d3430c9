#pragma once

#include "platform/Registry.h"
#include "tests/desktop/RegistryTree.h"

#include <array>
#include <map>
#include <optional>
#include <string>
#include <vector>

namespace tollvane::test {

class FaultPlan;

/// Access rights, value types and status codes of the system's registry.
namespace registry {
inline constexpr std::uint32_t queryValue = 0x1;
inline constexpr std::uint32_t setValue = 0x2;
inline constexpr std::uint32_t createSubKey = 0x4;
inline constexpr std::uint32_t enumerateSubKeys = 0x8;
inline constexpr std::uint32_t notify = 0x10;
inline constexpr std::uint32_t deleteKey = 0x10000;
inline constexpr std::uint32_t writeDac = 0x40000;
/// What a user without rights on the machine's branch is refused.
inline constexpr std::uint32_t anyWrite = setValue | createSubKey | deleteKey | writeDac | 0x80000;
inline constexpr std::uint32_t everything = 0xF003F;

inline constexpr std::uint32_t string = 1;
inline constexpr std::uint32_t expandString = 2;
inline constexpr std::uint32_t binary = 3;
inline constexpr std::uint32_t dword = 4;
inline constexpr std::uint32_t multiString = 7;

inline constexpr long success = 0;
inline constexpr long invalidFunction = 1;
inline constexpr long fileNotFound = 2;
inline constexpr long accessDenied = 5;
inline constexpr long invalidHandle = 6;
inline constexpr long invalidParameter = 87;
inline constexpr long badPath = 161;
inline constexpr long moreData = 234;
inline constexpr long noMoreItems = 259;
inline constexpr long keyDeleted = 1018;
} // namespace registry

/// A call of the registry port with its arguments, as it was made.
struct RegistryCall {
    std::string name;   ///< of the port's function
    std::string key;    ///< path of the key argument, or "0x..." when it is no key
    std::string subKey; ///< or the value's name
    std::string className;
    std::uint32_t access = 0;
    std::uint32_t options = 0;
    std::uint32_t index = 0;
    std::uint32_t type = 0;
    std::uint32_t size = 0; ///< buffer or data size handed in
    std::vector<std::uint8_t> data;
    long status = 0;

    bool operator==(const RegistryCall&) const = default;
};

/// The system's registry in memory: a real tree with access rights, and a record of every call.
class FakeRegistry : public Registry {
public:
    explicit FakeRegistry(FaultPlan& faults);

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

    // For tests; paths start with the root's name, "HKEY_LOCAL_MACHINE\\Software".

    /// Creates the key with the keys above it.
    void addKey(const std::string& path);
    void addString(const std::string& path, const std::string& name, const std::string& text);
    void addNumber(const std::string& path, const std::string& name, std::uint32_t number);
    /// A value with the bytes exactly as given.
    void addValue(const std::string& path, const std::string& name, std::uint32_t type,
                  std::vector<std::uint8_t> data);
    bool hasKey(const std::string& path) const { return find(path) != nullptr; }
    const RegistryValue* value(const std::string& path, const std::string& name) const;
    /// The text of a string value, its terminator left out; nothing when it is no string.
    std::optional<std::string> text(const std::string& path, const std::string& name) const;
    std::optional<std::uint32_t> number(const std::string& path, const std::string& name) const;

    /// Refuses these rights on a key (created when missing) and on all below it; 0 grants all.
    void deny(const std::string& path, std::uint32_t mask);
    /// The next call of that name answers this status and does nothing.
    void failNext(const std::string& call, long status) { failures_[call].push_back(status); }
    /// Replaces a system text; an empty one removes it.
    void setSystemText(std::uint32_t code, const std::string& text);

    const std::vector<RegistryCall>& calls() const { return calls_; }
    std::vector<RegistryCall> callsOf(const std::string& name) const;
    void forgetCalls() { calls_.clear(); }
    /// Keys that were opened and not closed again.
    std::size_t openKeys() const { return handles_.size(); }

private:
    struct Handle {
        RegistryNode* node = nullptr;
        std::uint32_t access = 0;
    };

    static constexpr std::size_t kRoots = 7;

    RegistryNode* find(const std::string& path) const;
    RegistryNode* rootOf(RegistryKey key) const;
    /// 0 and the key's handle record, or the status of a handle that cannot be used that way.
    long use(RegistryKey key, std::uint32_t needed, Handle& handle) const;
    long walk(RegistryKey root, const char* subKey, Handle& start, std::vector<std::string>& parts);
    RegistryKey grant(RegistryNode& node, std::uint32_t access);
    std::string describe(RegistryKey key) const;
    RegistryCall& record(const char* name, RegistryKey key, const char* subKey);
    bool planned(RegistryCall& call);
    static long fill(const RegistryValue& value, std::uint32_t* type, std::uint8_t* data,
                     std::uint32_t* size);

    FaultPlan& faults_;
    std::array<std::unique_ptr<RegistryNode>, kRoots> roots_;
    std::map<RegistryKey, Handle> handles_;
    RegistryKey nextHandle_ = 0x100;
    std::vector<RegistryCall> calls_;
    std::map<std::string, std::vector<long>> failures_;
    std::map<std::uint32_t, std::string> texts_;
    std::uint32_t lastError_ = 0;
};

} // namespace tollvane::test
