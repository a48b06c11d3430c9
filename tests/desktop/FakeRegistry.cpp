#include "tests/desktop/FakeRegistry.h"

#include "tests/desktop/FaultPlan.h"

#include <algorithm>
#include <cstring>
#include <sstream>

namespace tollvane::test {

namespace {

constexpr std::uint32_t kFirstRoot = 0x8000'0000U;
constexpr std::uint32_t kCreatedNew = 1;
constexpr std::uint32_t kOpenedExisting = 2;

bool isText(std::uint32_t type) {
    return type == registry::string || type == registry::expandString ||
           type == registry::multiString;
}

const char* orEmpty(const char* text) {
    return text == nullptr ? "" : text;
}

/// Copies a name into a buffer whose size counts the closing NUL; returns the status.
long fillName(const std::string& name, char* buffer, std::uint32_t* size) {
    if (name.size() + 1 > *size) {
        return registry::moreData;
    }
    std::memcpy(buffer, name.c_str(), name.size() + 1);
    *size = static_cast<std::uint32_t>(name.size());
    return registry::success;
}

} // namespace

RegistryNode* FakeRegistry::rootOf(RegistryKey key) const {
    // The roots are the same number whether or not its sign was extended.
    const auto number = static_cast<std::uint32_t>(key);
    const bool isRoot = (key == static_cast<RegistryKey>(number) ||
                         key == static_cast<RegistryKey>(static_cast<std::int32_t>(number))) &&
                        number >= kFirstRoot && number < kFirstRoot + kRoots;
    return isRoot ? roots_.at(number - kFirstRoot).get() : nullptr;
}

long FakeRegistry::use(RegistryKey key, std::uint32_t needed, Handle& handle) const {
    if (RegistryNode* root = rootOf(key)) {
        handle = {root, registry::everything & ~root->denied()};
    } else {
        const auto found = handles_.find(key);
        if (found == handles_.end()) {
            return registry::invalidHandle;
        }
        handle = found->second;
    }
    if (handle.node->removed()) {
        return registry::keyDeleted;
    }
    return (handle.access & needed) == needed ? registry::success : registry::accessDenied;
}

std::string FakeRegistry::describe(RegistryKey key) const {
    Handle handle;
    const long status = use(key, 0, handle);
    if (status == registry::success || status == registry::keyDeleted) {
        return handle.node->path();
    }
    std::ostringstream text;
    text << "0x" << std::hex << key;
    return text.str();
}

RegistryCall& FakeRegistry::record(const char* name, RegistryKey key, const char* subKey) {
    RegistryCall call;
    call.name = name;
    call.key = describe(key);
    call.subKey = orEmpty(subKey);
    return calls_.emplace_back(std::move(call));
}

bool FakeRegistry::planned(RegistryCall& call) {
    if (faults_.strikes(Port::registry, call.name)) {
        call.status = faults_.number();
        return true;
    }
    auto& waiting = failures_[call.name];
    if (waiting.empty()) {
        return false;
    }
    call.status = waiting.front();
    waiting.erase(waiting.begin());
    return true;
}

RegistryKey FakeRegistry::grant(RegistryNode& node, std::uint32_t access) {
    const RegistryKey key = nextHandle_;
    nextHandle_ += 4;
    handles_[key] = {&node, access};
    return key;
}

long FakeRegistry::walk(RegistryKey root, const char* subKey, Handle& start,
                        std::vector<std::string>& parts) {
    const std::string path = orEmpty(subKey);
    if (!path.empty() && path.front() == '\\') {
        return registry::badPath;
    }
    parts = pathParts(path);
    return use(root, 0, start);
}

long FakeRegistry::openKeyEx(RegistryKey root, const char* subKey, std::uint32_t options,
                             std::uint32_t access, RegistryKey* key) {
    RegistryCall& call = record("openKeyEx", root, subKey);
    call.options = options;
    call.access = access;
    if (planned(call)) {
        return call.status;
    }
    Handle start;
    std::vector<std::string> parts;
    call.status = walk(root, subKey, start, parts);
    RegistryNode* node = start.node;
    for (std::size_t i = 0; call.status == registry::success && i < parts.size(); ++i) {
        node = node->child(parts[i]);
        if (node == nullptr) {
            call.status = registry::fileNotFound;
        }
    }
    if (call.status == registry::success && (node->denied() & access) != 0) {
        call.status = registry::accessDenied;
    }
    *key = call.status == registry::success ? grant(*node, access) : 0;
    return call.status;
}

long FakeRegistry::createKeyEx(RegistryKey root, const char* subKey, std::uint32_t /*reserved*/,
                               const char* className, std::uint32_t options, std::uint32_t access,
                               void* /*security*/, RegistryKey* key, std::uint32_t* disposition) {
    RegistryCall& call = record("createKeyEx", root, subKey);
    call.options = options;
    call.access = access;
    call.className = orEmpty(className);
    if (planned(call)) {
        return call.status;
    }
    Handle start;
    std::vector<std::string> parts;
    call.status = walk(root, subKey, start, parts);
    RegistryNode* node = start.node;
    bool created = false;
    for (std::size_t i = 0; call.status == registry::success && i < parts.size(); ++i) {
        if (RegistryNode* existing = node->child(parts[i])) {
            node = existing;
        } else if ((node->denied() & registry::createSubKey) != 0) {
            call.status = registry::accessDenied;
        } else {
            node = &node->addChild(parts[i], orEmpty(className));
            created = true;
        }
    }
    if (call.status == registry::success && !created && (node->denied() & access) != 0) {
        call.status = registry::accessDenied;
    }
    if (call.status == registry::success && disposition != nullptr) {
        *disposition = created ? kCreatedNew : kOpenedExisting;
    }
    *key = call.status == registry::success ? grant(*node, access) : 0;
    return call.status;
}

long FakeRegistry::fill(const RegistryValue& value, std::uint32_t* type, std::uint8_t* data,
                        std::uint32_t* size) {
    if (type != nullptr) {
        *type = value.type;
    }
    const auto needed = static_cast<std::uint32_t>(value.data.size());
    long status = registry::success;
    if (data != nullptr) {
        if (size == nullptr) {
            return registry::invalidParameter;
        }
        if (*size < needed) {
            status = registry::moreData;
        } else {
            std::copy(value.data.begin(), value.data.end(), data);
            if (isText(value.type) && *size > needed) {
                data[needed] = 0; // the system closes a text that was stored without its NUL
            }
        }
    }
    if (size != nullptr) {
        *size = needed;
    }
    return status;
}

long FakeRegistry::queryValueEx(RegistryKey key, const char* name, std::uint32_t* /*reserved*/,
                                std::uint32_t* type, std::uint8_t* data, std::uint32_t* size) {
    RegistryCall& call = record("queryValueEx", key, name);
    call.size = size == nullptr ? 0 : *size;
    if (planned(call)) {
        return call.status;
    }
    Handle handle;
    call.status = use(key, registry::queryValue, handle);
    if (call.status == registry::success) {
        const RegistryValue* value = handle.node->value(orEmpty(name));
        call.status = value == nullptr ? registry::fileNotFound : fill(*value, type, data, size);
    }
    return call.status;
}

long FakeRegistry::setValueEx(RegistryKey key, const char* name, std::uint32_t /*reserved*/,
                              std::uint32_t type, const std::uint8_t* data, std::uint32_t size) {
    RegistryCall& call = record("setValueEx", key, name);
    call.type = type;
    call.size = size;
    if (data != nullptr) {
        call.data.assign(data, data + size);
    }
    if (planned(call)) {
        return call.status;
    }
    Handle handle;
    call.status = use(key, registry::setValue, handle);
    if (call.status == registry::success && data == nullptr && size != 0) {
        call.status = registry::invalidParameter;
    }
    if (call.status == registry::success) {
        std::vector<std::uint8_t> stored = call.data;
        // The system looks one byte behind a text whose closing NUL was not counted and takes it.
        if (isText(type) && size != 0 && data[size - 1] != 0 && data[size] == 0) {
            stored.push_back(0);
        }
        handle.node->setValue(orEmpty(name), type, std::move(stored));
    }
    return call.status;
}

long FakeRegistry::deleteValue(RegistryKey key, const char* name) {
    RegistryCall& call = record("deleteValue", key, name);
    if (planned(call)) {
        return call.status;
    }
    Handle handle;
    call.status = use(key, registry::setValue, handle);
    if (call.status == registry::success && !handle.node->removeValue(orEmpty(name))) {
        call.status = registry::fileNotFound;
    }
    return call.status;
}

long FakeRegistry::deleteKey(RegistryKey key, const char* subKey) {
    RegistryCall& call = record("deleteKey", key, subKey);
    if (planned(call)) {
        return call.status;
    }
    if (subKey == nullptr) {
        return call.status = registry::invalidParameter;
    }
    Handle start;
    std::vector<std::string> parts;
    call.status = walk(key, subKey, start, parts);
    RegistryNode* node = start.node;
    for (std::size_t i = 0; call.status == registry::success && i < parts.size(); ++i) {
        node = node->child(parts[i]);
        if (node == nullptr) {
            call.status = registry::fileNotFound;
        }
    }
    if (call.status != registry::success) {
        return call.status;
    }
    if (node->parent() == nullptr || node->childCount() != 0 ||
        (node->denied() & registry::deleteKey) != 0) {
        return call.status = registry::accessDenied;
    }
    node->parent()->removeChild(node->name());
    return call.status;
}

long FakeRegistry::enumKeyEx(RegistryKey key, std::uint32_t index, char* name,
                             std::uint32_t* nameSize, std::uint32_t* /*reserved*/, char* className,
                             std::uint32_t* classSize, RegistryTime* lastWrite) {
    RegistryCall& call = record("enumKeyEx", key, nullptr);
    call.index = index;
    call.size = *nameSize;
    if (planned(call)) {
        return call.status;
    }
    Handle handle;
    call.status = use(key, registry::enumerateSubKeys, handle);
    if (call.status != registry::success) {
        return call.status;
    }
    const RegistryNode* child = handle.node->childAt(index);
    if (child == nullptr) {
        return call.status = registry::noMoreItems;
    }
    call.status = fillName(child->name(), name, nameSize);
    if (call.status == registry::success && className != nullptr && classSize != nullptr) {
        call.status = fillName(child->className(), className, classSize);
    }
    if (lastWrite != nullptr) {
        *lastWrite = {};
    }
    return call.status;
}

long FakeRegistry::enumValue(RegistryKey key, std::uint32_t index, char* name,
                             std::uint32_t* nameSize, std::uint32_t* /*reserved*/,
                             std::uint32_t* type, std::uint8_t* data, std::uint32_t* size) {
    RegistryCall& call = record("enumValue", key, nullptr);
    call.index = index;
    call.size = size == nullptr ? 0 : *size;
    if (planned(call)) {
        return call.status;
    }
    Handle handle;
    call.status = use(key, registry::queryValue, handle);
    if (call.status != registry::success) {
        return call.status;
    }
    const auto& values = handle.node->values();
    if (index >= values.size()) {
        return call.status = registry::noMoreItems;
    }
    call.status = fillName(values[index].name, name, nameSize);
    if (call.status == registry::success) {
        call.status = fill(values[index], type, data, size);
    }
    return call.status;
}

long FakeRegistry::closeKey(RegistryKey key) {
    RegistryCall& call = record("closeKey", key, nullptr);
    if (planned(call)) {
        handles_.erase(key); // a close that reports a failure still ends the handle
        return call.status;
    }
    const bool known = rootOf(key) != nullptr || handles_.erase(key) != 0;
    return call.status = known ? registry::success : registry::invalidHandle;
}

} // namespace tollvane::test
