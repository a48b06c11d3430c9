#include "tests/proof/faults/Sabotage.h"

#include <utility>

namespace tollvane::test {

void Sabotage::plan(std::size_t nth, Mode mode) {
    failing_ = nth;
    mode_ = std::move(mode);
}

const Mode* Sabotage::strike(Callee callee, const std::string& name, const std::string& key) {
    if (!watching_) {
        return nullptr;
    }
    calls_.push_back({.callee = callee, .name = name, .step = step_, .key = key});
    if (!mode_ || calls_.size() - 1 != failing_) {
        return nullptr;
    }
    reached_ = true;
    return &*mode_;
}

void Sabotage::nameSetting(const std::string& valueName) {
    if (!watching_ || calls_.empty()) {
        return;
    }
    // The call itself, and the opening of its key right before it.
    calls_.back().setting = valueName;
    if (calls_.size() > 1 && calls_[calls_.size() - 2].callee == Callee::registry &&
        calls_[calls_.size() - 2].setting.empty()) {
        calls_[calls_.size() - 2].setting = valueName;
    }
}

} // namespace tollvane::test
