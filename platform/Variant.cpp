#include "platform/Variant.h"

#include "platform/Error.h"
#include "platform/NumberText.h"

#include <cmath>
#include <cstdio>
#include <limits>

namespace tollvane {

namespace {

template <class... Cases>
struct Overloaded : Cases... {
    using Cases::operator()...;
};

template <class... Cases>
Overloaded(Cases...) -> Overloaded<Cases...>;

std::int32_t intOf(std::int64_t value) {
    if (value < std::numeric_limits<std::int32_t>::min() ||
        value > std::numeric_limits<std::int32_t>::max()) {
        raiseOverflow();
    }
    return static_cast<std::int32_t>(value);
}

std::int32_t intOf(double value) {
    const double rounded = std::nearbyint(value);
    // Written so that a value that is no number overflows too.
    if (!(rounded >= std::numeric_limits<std::int32_t>::min() &&
          rounded <= std::numeric_limits<std::int32_t>::max())) {
        raiseOverflow();
    }
    return static_cast<std::int32_t>(rounded);
}

ScannedNumber numberOf(const std::string& text) {
    auto number = scanNumber(text, MoneyStyle{});
    if (!number) {
        raiseTypeMismatch();
    }
    return *number;
}

std::int32_t intOf(const std::string& text) {
    const ScannedNumber number = numberOf(text);
    const auto value = scaledInteger(number, 0);
    if (!value) {
        raiseOverflow();
    }
    // A literal of 32 bits names the bits, so that "&HFFFFFFFF" is -1.
    if (number.radixLiteral && !number.negative && *value <= 0xFFFF'FFFFLL) {
        return static_cast<std::int32_t>(static_cast<std::uint32_t>(*value));
    }
    return intOf(*value);
}

std::int32_t intOf(Money amount) {
    const std::int64_t whole = amount.scaled() / Money::scale;
    const std::int64_t rest = std::abs(amount.scaled() % Money::scale);
    const std::int64_t half = Money::scale / 2;
    const bool away = rest > half || (rest == half && whole % 2 != 0);
    return intOf(away ? whole + (amount.isNegative() ? -1 : 1) : whole);
}

bool equalsIgnoringCase(std::string_view text, std::string_view lower) {
    if (text.size() != lower.size()) {
        return false;
    }
    for (std::size_t i = 0; i < text.size(); ++i) {
        const char c =
            text[i] >= 'A' && text[i] <= 'Z' ? static_cast<char>(text[i] + 0x20) : text[i];
        if (c != lower[i]) {
            return false;
        }
    }
    return true;
}

bool boolOf(const std::string& text) {
    if (equalsIgnoringCase(text, "true") || equalsIgnoringCase(text, "#true#")) {
        return true;
    }
    if (equalsIgnoringCase(text, "false") || equalsIgnoringCase(text, "#false#")) {
        return false;
    }
    return nearestDouble(numberOf(text)) != 0;
}

std::string textOf(double value) {
    char buffer[40];
    const int length = std::snprintf(buffer, sizeof buffer, "%.15G", value == 0 ? 0.0 : value);
    return {buffer, static_cast<std::size_t>(length)};
}

/// As many decimal places as it takes, at most four.
std::string textOf(Money amount) {
    const auto bits = static_cast<std::uint64_t>(amount.scaled());
    const std::uint64_t magnitude = amount.isNegative() ? 0 - bits : bits;
    constexpr auto kScale = static_cast<std::uint64_t>(Money::scale);
    std::string text = (amount.isNegative() ? "-" : "") + std::to_string(magnitude / kScale) + "." +
                       std::to_string(kScale + magnitude % kScale).substr(1);
    text.erase(text.find_last_not_of('0') + 1);
    if (text.back() == '.') {
        text.pop_back();
    }
    return text;
}

std::string textOf(const DateTime& date) {
    char buffer[80];
    const int length =
        std::snprintf(buffer, sizeof buffer, "%04d-%02d-%02d %02d:%02d:%02d", date.year, date.month,
                      date.day, date.hour, date.minute, date.second);
    return {buffer, static_cast<std::size_t>(length)};
}

Money moneyOf(double value) {
    const double scaled = std::nearbyint(value * static_cast<double>(Money::scale));
    constexpr double kLimit = 9223372036854775808.0;
    if (!(scaled >= -kLimit && scaled < kLimit)) {
        raiseOverflow();
    }
    return Money::fromScaled(static_cast<std::int64_t>(scaled));
}

/// True travels as -1 wherever it becomes a number.
constexpr std::int32_t numberOf(bool value) {
    return value ? -1 : 0;
}

} // namespace

bool asBool(const Variant& value) {
    return std::visit(Overloaded{[](std::monostate) { return false; }, [](bool b) { return b; },
                                 [](std::int32_t n) { return n != 0; },
                                 [](double n) { return n != 0; },
                                 [](Money m) { return !m.isZero(); },
                                 [](const std::string& text) { return boolOf(text); },
                                 [](const auto&) -> bool { raiseTypeMismatch(); }},
                      value);
}

std::int32_t asInt(const Variant& value) {
    return std::visit(
        Overloaded{[](std::monostate) -> std::int32_t { return 0; },
                   [](bool b) { return numberOf(b); }, [](std::int32_t n) { return n; },
                   [](double n) { return intOf(n); }, [](Money m) { return intOf(m); },
                   [](const std::string& text) { return intOf(text); },
                   [](const auto&) -> std::int32_t { raiseTypeMismatch(); }},
        value);
}

std::string asText(const Variant& value) {
    return std::visit(Overloaded{[](std::monostate) { return std::string(); },
                                 [](bool b) { return std::string(b ? "True" : "False"); },
                                 [](std::int32_t n) { return std::to_string(n); },
                                 [](double n) { return textOf(n); },
                                 [](Money m) { return textOf(m); },
                                 [](const DateTime& date) { return textOf(date); },
                                 [](const std::string& text) { return text; },
                                 [](const auto&) -> std::string { raiseTypeMismatch(); }},
                      value);
}

SecretText asSecret(const Variant& value) {
    if (const auto* secret = std::get_if<SecretText>(&value)) {
        return *secret;
    }
    if (const auto* text = std::get_if<std::string>(&value)) {
        return SecretText(*text);
    }
    std::string text = asText(value);
    SecretText secret(text);
    wipe(text);
    return secret;
}

Money asMoney(const Variant& value, const MoneyStyle& style) {
    return std::visit(
        Overloaded{[](std::monostate) { return Money(); },
                   [](bool b) { return Money::fromUnits(numberOf(b)); },
                   [](std::int32_t n) { return Money::fromUnits(n); },
                   [](double n) { return moneyOf(n); }, [](Money m) { return m; },
                   [&style](const std::string& text) { return moneyFromText(text, style); },
                   [](const auto&) -> Money { raiseTypeMismatch(); }},
        value);
}

ObjectRef asObject(const Variant& value) {
    const auto* object = std::get_if<ObjectRef>(&value);
    if (object == nullptr || *object == nullptr) {
        raiseTypeMismatch();
    }
    return *object;
}

} // namespace tollvane
