// Failures of the host data server, each with a number, a source and a readable description.
#pragma once

#include <cstdint>
#include <stdexcept>
#include <string>

namespace tollvane::hostdata {

// The numbers a client sees: the application error base (hex 80040000) plus the value below.
enum class Failure : std::uint32_t {
    storeNotOpened = 3001,
    storeDamaged = 3002,
    storeNotWritable = 3003,
    storeFull = 3004,
    storeBusy = 3005,
    storeInputOutput = 3006,
    storeTooNew = 3007,
    storeOther = 3008,
    backupRefused = 3009,
    unknownKind = 3010,
    unknownField = 3011,
    unknownRecord = 3012,
    noCurrentRecord = 3013,
    badFieldValue = 3014,
    readOnlyField = 3015,
    notSignedIn = 3020,
    privilegeMissing = 3021,
    operatorsExist = 3022,
    userNameTaken = 3023,
    badOperatorData = 3024,
    lastManager = 3025,
    unknownOperator = 3026,
    wrongPassword = 3027,
    cryptography = 3030,
    notAtThisComputer = 3031
};

// A failure on its way to the client. The text is UTF-8, one or two sentences for a cashier.
class HostDataError : public std::runtime_error {
public:
    HostDataError(Failure failure, const std::string& description)
        : std::runtime_error(description), failure_(failure) {}

    [[nodiscard]] Failure failure() const noexcept { return failure_; }

    // The automation error number: hex 80040000 plus the failure's value.
    [[nodiscard]] std::int32_t number() const noexcept {
        return static_cast<std::int32_t>(0x80040000U + static_cast<std::uint32_t>(failure_));
    }

private:
    Failure failure_;
};

} // namespace tollvane::hostdata
