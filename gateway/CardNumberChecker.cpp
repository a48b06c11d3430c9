#include "gateway/CardNumberChecker.h"

namespace tollvane {

namespace {
constexpr const char* kClassId = "{B0FF1329-8BB0-4C7B-BE63-416A3AEAA8D3}";
constexpr const char* kInterfaceId = "{6FDC8BBD-2006-4705-A971-5484FF971CBD}";
} // namespace

CardNumberChecker::CardNumberChecker(Automation& automation)
    : checker_(automation.createClass(kClassId, kInterfaceId)) {}

bool CardNumberChecker::CheckCardNumber(const SecretText& pan) {
    return asBool(checker_->call("CheckCardNumber", {{pan}}));
}

} // namespace tollvane
