#include "tests/desktop/RegistryTree.h"

#include <algorithm>
#include <utility>

namespace tollvane::test {

namespace {

char lower(char c) {
    return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
}

} // namespace

bool NameLess::operator()(const std::string& one, const std::string& other) const {
    return std::lexicographical_compare(
        one.begin(), one.end(), other.begin(), other.end(), [](char a, char b) {
            return static_cast<unsigned char>(lower(a)) < static_cast<unsigned char>(lower(b));
        });
}

bool sameName(std::string_view one, std::string_view other) {
    return std::equal(one.begin(), one.end(), other.begin(), other.end(),
                      [](char a, char b) { return lower(a) == lower(b); });
}

std::string RegistryNode::path() const {
    return parent_ == nullptr ? name_ : parent_->path() + "\\" + name_;
}

RegistryNode* RegistryNode::child(const std::string& name) const {
    const auto found = children_.find(name);
    return found == children_.end() ? nullptr : found->second.get();
}

RegistryNode& RegistryNode::addChild(const std::string& name, const std::string& className) {
    auto node = std::make_shared<RegistryNode>(name, this);
    node->className_ = className;
    return *children_.emplace(name, std::move(node)).first->second;
}

void RegistryNode::removeChild(const std::string& name) {
    const auto found = children_.find(name);
    if (found != children_.end()) {
        found->second->markRemoved();
        graveyard_.push_back(found->second);
        children_.erase(found);
    }
}

void RegistryNode::markRemoved() {
    removed_ = true;
    for (const auto& [name, node] : children_) {
        node->markRemoved();
    }
}

const RegistryNode* RegistryNode::childAt(std::size_t index) const {
    if (index >= children_.size()) {
        return nullptr;
    }
    return std::next(children_.begin(), static_cast<std::ptrdiff_t>(index))->second.get();
}

const RegistryValue* RegistryNode::value(std::string_view name) const {
    const auto found = std::find_if(values_.begin(), values_.end(),
                                    [&](const RegistryValue& v) { return sameName(v.name, name); });
    return found == values_.end() ? nullptr : &*found;
}

RegistryValue& RegistryNode::setValue(std::string_view name, std::uint32_t type,
                                      std::vector<std::uint8_t> data) {
    for (RegistryValue& existing : values_) {
        if (sameName(existing.name, name)) {
            existing.type = type;
            existing.data = std::move(data);
            return existing;
        }
    }
    return values_.emplace_back(RegistryValue{std::string(name), type, std::move(data)});
}

bool RegistryNode::removeValue(std::string_view name) {
    return std::erase_if(values_, [&](const RegistryValue& v) { return sameName(v.name, name); }) !=
           0;
}

std::uint32_t RegistryNode::denied() const {
    return denied_ | (parent_ == nullptr ? 0 : parent_->denied());
}

std::vector<std::string> pathParts(std::string_view path) {
    std::vector<std::string> parts;
    while (!path.empty()) {
        const std::size_t end = std::min(path.find('\\'), path.size());
        parts.emplace_back(path.substr(0, end));
        path.remove_prefix(std::min(end + 1, path.size()));
    }
    return parts;
}

} // namespace tollvane::test
