#include "platform/Error.h"

#include <utility>

namespace tollvane {

namespace {
constexpr long kInternalError = 51;
} // namespace

Error::Error(long number, std::string source, std::string description)
    : number_(number), source_(std::move(source)), description_(std::move(description)) {}

Error Error::trailedBy(std::string_view routine) const {
    return {number_, source_ + ":" + std::string(routine), description_};
}

Error Error::prefixedBy(std::string_view sentence) const {
    return {number_, source_, std::string(sentence) + description_};
}

Error currentError() {
    try {
        throw;
    } catch (const Error& error) {
        return error;
    } catch (const std::exception& other) {
        return {kInternalError, "Tollvane", std::string("Internal error: ") + other.what()};
    } catch (...) {
        return {kInternalError, "Tollvane", "Internal error"};
    }
}

std::string failureText(std::string_view sentence, const Error& error) {
    return std::string(sentence) + "\r\n\r\nError: " + std::to_string(error.number()) + ", " +
           error.description();
}

} // namespace tollvane
