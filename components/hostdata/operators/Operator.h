// Operators and what they may do.
#pragma once

#include <cstdint>
#include <set>
#include <string>

namespace tollvane::hostdata {

// The privilege numbers of the shop's business application that this store knows by name. Other
// positive numbers may be given to an operator as well and keep whatever meaning a client gives.
namespace privilege {
constexpr std::int32_t manageOperators = 1;
constexpr std::int32_t acceptCardPayments = 4;
} // namespace privilege

struct Operator {
    std::int64_t id = 0;
    std::string userName;
    std::string firstName;
    std::string lastName;
    bool enabled = true;
    std::set<std::int32_t> privileges;
};

// Who is to be created. Names are UTF-8.
struct OperatorData {
    std::string firstName;
    std::string lastName;
    std::string userName;
};

} // namespace tollvane::hostdata
