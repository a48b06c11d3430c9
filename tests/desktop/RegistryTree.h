#pragma once

#include <cstdint>
#include <map>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace tollvane::test {

/// A value of a key: type and bytes as stored.
struct RegistryValue {
    std::string name; ///< empty is the key's unnamed value
    std::uint32_t type = 0;
    std::vector<std::uint8_t> data;
};

/// Orders names without regard to case.
struct NameLess {
    bool operator()(const std::string& one, const std::string& other) const;
};
bool sameName(std::string_view one, std::string_view other);

/// One key of the in-memory registry. Sub keys are kept in the order of their names, values in the
/// order in which they were written, as the system enumerates them.
class RegistryNode {
public:
    RegistryNode(std::string name, RegistryNode* parent)
        : name_(std::move(name)), parent_(parent) {}

    const std::string& name() const { return name_; }
    RegistryNode* parent() const { return parent_; }
    /// Full path from the root key's name on.
    std::string path() const;

    RegistryNode* child(const std::string& name) const;
    RegistryNode& addChild(const std::string& name, const std::string& className);
    /// Takes the sub key out of the tree; handles may still hold it.
    void removeChild(const std::string& name);
    const RegistryNode* childAt(std::size_t index) const;
    std::size_t childCount() const { return children_.size(); }

    const RegistryValue* value(std::string_view name) const;
    RegistryValue& setValue(std::string_view name, std::uint32_t type,
                            std::vector<std::uint8_t> data);
    bool removeValue(std::string_view name);
    const std::vector<RegistryValue>& values() const { return values_; }

    /// Access rights that this key refuses, its own and those of the keys above it.
    std::uint32_t denied() const;
    void setDenied(std::uint32_t mask) { denied_ = mask; }
    bool removed() const { return removed_; }
    const std::string& className() const { return className_; }

private:
    void markRemoved();

    std::string name_;
    std::string className_;
    RegistryNode* parent_;
    std::map<std::string, std::shared_ptr<RegistryNode>, NameLess> children_;
    std::vector<std::shared_ptr<RegistryNode>> graveyard_; ///< removed keys that handles may hold
    std::vector<RegistryValue> values_;
    std::uint32_t denied_ = 0;
    bool removed_ = false;
};

/// The parts of a path between backslashes.
std::vector<std::string> pathParts(std::string_view path);

} // namespace tollvane::test
