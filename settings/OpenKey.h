#pragma once

#include "platform/Registry.h"

namespace tollvane {

/// An open registry key that closes itself.
class OpenKey {
public:
    explicit OpenKey(Registry& registry) : registry_(&registry) {}
    OpenKey(const OpenKey&) = delete;
    OpenKey& operator=(const OpenKey&) = delete;
    ~OpenKey() { close(); }

    bool isOpen() const { return key_ != 0; }
    RegistryKey get() const { return key_; }
    /// Where an opening call stores the key; only while this one is not open.
    RegistryKey* receiver() { return &key_; }
    /// The status of closing; 0 when there was nothing to close.
    long close() {
        const RegistryKey key = key_;
        key_ = 0;
        return key == 0 ? 0 : registry_->closeKey(key);
    }

private:
    Registry* registry_;
    RegistryKey key_ = 0;
};

} // namespace tollvane
