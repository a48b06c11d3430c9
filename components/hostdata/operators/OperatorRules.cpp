#include "components/hostdata/operators/OperatorRules.h"

#include "components/hostdata/HostDataError.h"

#include <algorithm>

namespace tollvane::hostdata {

namespace {

// UTF-8: a continuation byte is no character of its own.
std::size_t characters(std::string_view text) {
    return static_cast<std::size_t>(std::count_if(text.begin(), text.end(), [](char c) {
        return (static_cast<unsigned char>(c) & 0xC0) != 0x80;
    }));
}

std::string checkedName(const std::string& text, const std::string& what) {
    std::string name = trimmed(text);
    if (name.empty())
        throw HostDataError(Failure::badOperatorData, "Enter the " + what + ".");
    if (characters(name) > kLongestName)
        throw HostDataError(Failure::badOperatorData,
                            "The " + what + " may have at most 40 characters.");
    return name;
}

} // namespace

std::string trimmed(const std::string& text) {
    const auto first = text.find_first_not_of(" \t\r\n");
    if (first == std::string::npos)
        return {};
    return text.substr(first, text.find_last_not_of(" \t\r\n") - first + 1);
}

std::string lowered(std::string text) {
    std::transform(text.begin(), text.end(), text.begin(), [](char c) {
        return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
    });
    return text;
}

OperatorData checkedOperator(const OperatorData& data) {
    return {checkedName(data.firstName, "first name"), checkedName(data.lastName, "last name"),
            checkedName(data.userName, "user name")};
}

void checkPassword(const Secret& password, const std::string& userName) {
    const std::size_t length = characters(password.view());
    if (length < kShortestPassword)
        throw HostDataError(Failure::badOperatorData,
                            "The password must have at least 8 characters.");
    if (length > kLongestPassword)
        throw HostDataError(Failure::badOperatorData,
                            "The password may have at most 128 characters.");
    std::string small = lowered(std::string(password.view()));
    const bool same = small == lowered(userName);
    wipe(small);
    if (same)
        throw HostDataError(Failure::badOperatorData,
                            "The password must not be the user name itself.");
}

} // namespace tollvane::hostdata
