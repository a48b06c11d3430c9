#pragma once

#include <exception>
#include <string>
#include <string_view>

namespace tollvane {

/// A failure as this family of programs reports it: a number, the trail of routines that it passed
/// (source) and a description for the operator.
class Error : public std::exception {
public:
    Error(long number, std::string source, std::string description);

    long number() const noexcept { return number_; }
    const std::string& source() const noexcept { return source_; }
    const std::string& description() const noexcept { return description_; }
    const char* what() const noexcept override { return description_.c_str(); }

    /// The same error with ":" and the routine's name appended to the source.
    Error trailedBy(std::string_view routine) const;
    /// The same error with a sentence put in front of the description.
    Error prefixedBy(std::string_view sentence) const;

private:
    long number_;
    std::string source_;
    std::string description_;
};

/// Numbers that several rooms raise or test.
namespace errornumber {
inline constexpr long overflow = 6;
inline constexpr long subscriptOutOfRange = 9;
inline constexpr long typeMismatch = 13;
inline constexpr long invalidPropertyValue = 380;
inline constexpr long cannotCreateObject = 429;
inline constexpr long memberNotFound = 438;
inline constexpr long invalidProcedureCall = 5;
/// Base of the numbers that the program itself defines (hex 80040000).
inline constexpr long applicationBase = static_cast<long>(static_cast<int>(0x80040000U));
} // namespace errornumber

/// The running exception as an Error; anything that is not one becomes number 51.
/// Call only while an exception is being handled.
Error currentError();

/// "sentence, blank line, Error: n, description": the text of every failure box of the program.
std::string failureText(std::string_view sentence, const Error& error);

/// Runs `body`; an error that leaves it carries ":" and the routine's name in its source.
template <class Body>
decltype(auto) trailed(std::string_view routine, Body&& body) {
    try {
        return body();
    } catch (...) {
        throw currentError().trailedBy(routine);
    }
}

} // namespace tollvane
