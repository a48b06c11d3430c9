// What tests put into the in-memory registry and read from it, and the system's texts.
#include "tests/desktop/FakeRegistry.h"

#include "tests/desktop/FaultPlan.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstring>
#include <iterator>

namespace tollvane::test {

namespace {

constexpr std::uint32_t kFromSystem = 0x1000;
constexpr std::uint32_t kMessageNotFound = 317;
constexpr std::uint32_t kBufferTooSmall = 122;

constexpr const char* kRootNames[] = {
    "HKEY_CLASSES_ROOT",     "HKEY_CURRENT_USER",   "HKEY_LOCAL_MACHINE", "HKEY_USERS",
    "HKEY_PERFORMANCE_DATA", "HKEY_CURRENT_CONFIG", "HKEY_DYN_DATA"};

std::map<std::uint32_t, std::string> systemTexts() {
    return {{0, "The operation completed successfully.\r\n"},
            {1, "Incorrect function.\r\n"},
            {2, "The system cannot find the file specified.\r\n"},
            {5, "Access is denied.\r\n"},
            {6, "The handle is invalid.\r\n"},
            {8, "Not enough memory resources are available to process this command.\r\n"},
            {87, "The parameter is incorrect.\r\n"},
            {234, "More data is available.\r\n"},
            {259, "No more data is available.\r\n"},
            {317, "The system cannot find message text for message number 0x%1 in the message "
                  "file for %2.\r\n"},
            {1018, "Illegal operation attempted on a registry key that has been marked for "
                   "deletion.\r\n"}};
}

} // namespace

FakeRegistry::FakeRegistry(FaultPlan& faults) : faults_(faults), texts_(systemTexts()) {
    for (std::size_t i = 0; i < kRoots; ++i) {
        roots_.at(i) = std::make_unique<RegistryNode>(std::data(kRootNames)[i], nullptr);
    }
    addKey("HKEY_LOCAL_MACHINE\\Software");
    addKey("HKEY_CURRENT_USER\\Software");
}

std::uint32_t FakeRegistry::formatMessage(std::uint32_t flags, const void* /*source*/,
                                          std::uint32_t code, std::uint32_t /*language*/,
                                          char* buffer, std::uint32_t size, void* /*arguments*/) {
    const auto found = texts_.find(code);
    if ((flags & kFromSystem) == 0 || found == texts_.end()) {
        lastError_ = kMessageNotFound;
        return 0;
    }
    const std::string& text = found->second;
    if (text.size() + 1 > size) {
        lastError_ = kBufferTooSmall;
        return 0;
    }
    std::memcpy(buffer, text.c_str(), text.size() + 1);
    return static_cast<std::uint32_t>(text.size());
}

RegistryNode* FakeRegistry::find(const std::string& path) const {
    const std::vector<std::string> parts = pathParts(path);
    const auto root = std::find_if(roots_.begin(), roots_.end(), [&](const auto& candidate) {
        return !parts.empty() && sameName(candidate->name(), parts.front());
    });
    RegistryNode* node = root == roots_.end() ? nullptr : root->get();
    for (std::size_t i = 1; node != nullptr && i < parts.size(); ++i) {
        node = node->child(parts[i]);
    }
    return node;
}

void FakeRegistry::addKey(const std::string& path) {
    const std::vector<std::string> parts = pathParts(path);
    RegistryNode* node = parts.empty() ? nullptr : find(parts.front());
    if (node == nullptr) {
        ADD_FAILURE() << "no root key in the path " << path;
        return;
    }
    for (std::size_t i = 1; i < parts.size(); ++i) {
        RegistryNode* child = node->child(parts[i]);
        node = child == nullptr ? &node->addChild(parts[i], {}) : child;
    }
}

void FakeRegistry::addString(const std::string& path, const std::string& name,
                             const std::string& text) {
    std::vector<std::uint8_t> data(text.begin(), text.end());
    data.push_back(0);
    addValue(path, name, registry::string, std::move(data));
}

void FakeRegistry::addNumber(const std::string& path, const std::string& name,
                             std::uint32_t number) {
    std::vector<std::uint8_t> data(sizeof number);
    std::memcpy(data.data(), &number, sizeof number);
    addValue(path, name, registry::dword, std::move(data));
}

void FakeRegistry::addValue(const std::string& path, const std::string& name, std::uint32_t type,
                            std::vector<std::uint8_t> data) {
    addKey(path);
    if (RegistryNode* node = find(path)) {
        node->setValue(name, type, std::move(data));
    }
}

const RegistryValue* FakeRegistry::value(const std::string& path, const std::string& name) const {
    const RegistryNode* node = find(path);
    return node == nullptr ? nullptr : node->value(name);
}

std::optional<std::string> FakeRegistry::text(const std::string& path,
                                              const std::string& name) const {
    const RegistryValue* found = value(path, name);
    if (found == nullptr || found->type != registry::string) {
        return std::nullopt;
    }
    std::string text(found->data.begin(), found->data.end());
    if (!text.empty() && text.back() == '\0') {
        text.pop_back();
    }
    return text;
}

std::optional<std::uint32_t> FakeRegistry::number(const std::string& path,
                                                  const std::string& name) const {
    const RegistryValue* found = value(path, name);
    std::uint32_t number = 0;
    if (found == nullptr || found->type != registry::dword || found->data.size() != sizeof number) {
        return std::nullopt;
    }
    std::memcpy(&number, found->data.data(), sizeof number);
    return number;
}

void FakeRegistry::deny(const std::string& path, std::uint32_t mask) {
    addKey(path);
    if (RegistryNode* node = find(path)) {
        node->setDenied(mask);
    }
}

void FakeRegistry::setSystemText(std::uint32_t code, const std::string& text) {
    if (text.empty()) {
        texts_.erase(code);
    } else {
        texts_[code] = text;
    }
}

std::vector<RegistryCall> FakeRegistry::callsOf(const std::string& name) const {
    std::vector<RegistryCall> found;
    std::copy_if(calls_.begin(), calls_.end(), std::back_inserter(found),
                 [&](const RegistryCall& call) { return call.name == name; });
    return found;
}

} // namespace tollvane::test
