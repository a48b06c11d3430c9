// Deleting and enumerating.

#include "settings/cRegistry.h"

#include "settings/RegistryNumbers.h"

#include <algorithm>
#include <array>

namespace tollvane {

using namespace registrynumber;

namespace {

constexpr std::uint32_t kBufferSize = 2000;
using Buffer = std::array<char, kBufferSize>;

/// The first `length` characters of a buffer, whatever the system claims about them.
std::string textOf(const Buffer& buffer, std::uint32_t length) {
    return {buffer.data(), std::min<std::size_t>(length, buffer.size())};
}

/// Calls `next` with 0, 1, 2 ... and collects the texts that it stores, until there are no more or
/// one fails; what the failing call stored is kept. Returns how many there are.
template <class Next>
std::int32_t collect(std::vector<std::string>& texts, Next next) {
    std::int32_t count = 0;
    long status = kSuccess;
    while (status == kSuccess) {
        std::string text;
        status = next(static_cast<std::uint32_t>(count), text);
        if (status == kNoMoreItems) {
            break;
        }
        texts.resize(static_cast<std::size_t>(count) + 1);
        texts[static_cast<std::size_t>(count)] = text;
        ++count;
    }
    return count;
}

} // namespace

bool cRegistry::DeleteRegValue(std::int32_t hKeyRoot, const std::string& hKeySubKey,
                               const std::string& ValueName) {
    return trailed("DeleteRegValue", [&] {
        OpenKey key(registry_);
        const long opened = open(hKeyRoot, hKeySubKey, kDelete, key);
        if (opened == kSuccess) {
            registry_.deleteValue(key.get(), ValueName.c_str());
        }
        finishDeletion(key, opened);
        return true;
    });
}

bool cRegistry::DeleteRegKey(std::int32_t hKeyRoot, const std::string& hKeySubKey,
                             const std::string& KeyName) {
    return trailed("DeleteRegKey", [&] {
        OpenKey key(registry_);
        const long opened = open(hKeyRoot, hKeySubKey, kDelete, key);
        if (opened == kSuccess) {
            deleteChildren(hKeyRoot, hKeySubKey + "\\" + KeyName);
            registry_.deleteKey(key.get(), KeyName.c_str());
        }
        finishDeletion(key, opened);
        return true;
    });
}

// The last status decides, and that is the closing one: whether there was something to delete, or
// the system refused to delete it, makes no difference to the callers.
void cRegistry::finishDeletion(OpenKey& key, long openStatus) {
    const long status = openStatus == kSuccess ? key.close() : openStatus;
    if (status != kSuccess) {
        throw Error(status, exeName_, GetErrorDescription(status));
    }
}

// The system deletes no key that has sub keys.
void cRegistry::deleteChildren(std::int32_t root, const std::string& path) {
    std::vector<std::string> children;
    const std::int32_t count = EnumSubKeys(root, path, children);
    for (std::int32_t i = 0; i < count; ++i) {
        const std::string& child = children[static_cast<std::size_t>(i)];
        // A failed enumeration leaves a name of NULs, which would mean `path` itself, for ever.
        if (!child.empty() && child.front() != '\0') {
            DeleteRegKey(root, path, child);
        }
    }
}

std::int32_t cRegistry::EnumSubKeys(std::int32_t hKeyRoot, const std::string& hKeySubKey,
                                    std::vector<std::string>& Keys) {
    return trailed("EnumSubKeys", [&]() -> std::int32_t {
        Keys.assign(1, {});
        OpenKey key(registry_);
        if (open(hKeyRoot, hKeySubKey, kRead, key) != kSuccess) {
            return 0;
        }
        return collect(Keys, [&](std::uint32_t index, std::string& text) {
            Buffer name{};
            Buffer className{};
            std::uint32_t nameSize = kBufferSize;
            std::uint32_t classSize = kBufferSize;
            RegistryTime lastWrite;
            const long status =
                registry_.enumKeyEx(key.get(), index, name.data(), &nameSize, nullptr,
                                    className.data(), &classSize, &lastWrite);
            text = textOf(name, nameSize);
            return status;
        });
    });
}

std::int32_t cRegistry::EnumStringValues(std::int32_t hKeyRoot, const std::string& hKeySubKey,
                                         std::vector<std::string>& Values) {
    return trailed("EnumStringValues", [&]() -> std::int32_t {
        Values.assign(1, {});
        OpenKey key(registry_);
        if (open(hKeyRoot, hKeySubKey, kRead, key) != kSuccess) {
            return 0;
        }
        return collect(Values, [&](std::uint32_t index, std::string& text) {
            Buffer name{};
            Buffer data{};
            std::uint32_t nameSize = kBufferSize;
            std::uint32_t dataSize = kBufferSize;
            const long status =
                registry_.enumValue(key.get(), index, name.data(), &nameSize, nullptr, nullptr,
                                    reinterpret_cast<std::uint8_t*>(data.data()), &dataSize);
            text = textOf(data, dataSize == 0 ? 0 : dataSize - 1);
            return status;
        });
    });
}

} // namespace tollvane
