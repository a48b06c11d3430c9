// The error a component raises towards its caller. Portable: the shells turn it into an HRESULT
// with an error object.
#pragma once

#include <cstdint>
#include <stdexcept>
#include <string>

namespace tollvane::com {

// Base of application-defined numbers (facility "interface"); callers see it as &H80040000.
inline constexpr std::uint32_t applicationErrorBase = 0x80040000u;

// A run-time error number (13 type mismatch, 5 invalid argument ...) as the automation result code
// that scripting hosts show as that number.
constexpr std::uint32_t runtimeError(std::uint16_t number) {
    return 0x800A0000u + number;
}

// number: a failing automation result code. source: "Zendacard", "Zendacard.Ledger" and the like.
// description: a sentence for the person at the counter, in the process's code page.
class ComponentError : public std::runtime_error {
public:
    ComponentError(std::uint32_t number, std::string source, const std::string& description)
        : std::runtime_error(description), number_(number), source_(std::move(source)) {}

    std::uint32_t number() const noexcept { return number_; }
    const std::string& source() const noexcept { return source_; }
    std::string description() const { return what(); }

private:
    std::uint32_t number_;
    std::string source_;
};

} // namespace tollvane::com
