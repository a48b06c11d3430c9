#include "platform/NumberText.h"

#include "platform/Error.h"

#include <algorithm>
#include <charconv>
#include <limits>

namespace tollvane {

namespace {

/// Exponents beyond this decide between zero and overflow whatever the digits are.
constexpr long kExponentLimit = 1'000'000;
constexpr unsigned char kHardBlank = 0xA0;

bool isDigit(char c) {
    return c >= '0' && c <= '9';
}

bool isBlank(char c) {
    return c == ' ' || (c >= '\t' && c <= '\r') || static_cast<unsigned char>(c) == kHardBlank;
}

int digitValue(char c) {
    if (isDigit(c)) {
        return c - '0';
    }
    const char lower = static_cast<char>(c | 0x20);
    return lower >= 'a' && lower <= 'f' ? lower - 'a' + 10 : std::numeric_limits<int>::max();
}

/// One pass over a text. Each sign may stand once in the whole text, each other decoration once in
/// front of the digits and once behind them.
class Scanner {
public:
    Scanner(std::string_view text, const MoneyStyle& style)
        : text_(text), style_(style),
          // Money's own separators count only where the symbol says that this is money: elsewhere
          // they could change the meaning of a plain number.
          money_(!style.currencySymbol.empty() &&
                 text.find(style.currencySymbol) != std::string_view::npos) {}

    std::optional<ScannedNumber> scan() {
        scanFront();
        const bool found = at_ + 1 < text_.size() && text_[at_] == '&' && !symbolInFront_
                               ? scanRadixLiteral()
                               : scanDecimal();
        if (!found || !scanBack()) {
            return std::nullopt;
        }
        number_.negative = minus_ || bracket_;
        return std::move(number_);
    }

private:
    bool take(std::string_view piece) {
        if (piece.empty() || text_.substr(at_, piece.size()) != piece) {
            return false;
        }
        at_ += piece.size();
        return true;
    }

    bool takeOnce(bool& seen, std::string_view piece) {
        if (seen || !take(piece)) {
            return false;
        }
        seen = true;
        return true;
    }

    bool takeBlank() {
        if (at_ >= text_.size() || !isBlank(text_[at_])) {
            return false;
        }
        ++at_;
        return true;
    }

    bool takeSign() {
        return takeOnce(plus_, "+") || takeOnce(minus_, style_.negativeSign) ||
               takeOnce(minus_, "-");
    }

    void scanFront() {
        while (takeOnce(symbolInFront_, style_.currencySymbol) || takeSign() ||
               takeOnce(bracket_, "(") || takeBlank()) {
        }
    }

    bool scanBack() {
        bool symbolBehind = false;
        bool closed = false;
        while (takeOnce(symbolBehind, style_.currencySymbol) || takeSign() ||
               (bracket_ && takeOnce(closed, ")")) || takeGroupSeparator() || takeBlank()) {
        }
        return at_ == text_.size() && bracket_ == closed;
    }

    bool takeDecimalSeparator() {
        return take(style_.decimalSeparator) || (money_ && take(style_.moneyDecimal));
    }

    /// A group separator counts only behind a digit or the decimal separator; where groups are
    /// parted by a blank, any blank between two digits parts them.
    bool takeGroupSeparator() {
        if (take(style_.groupSeparator) || (money_ && take(style_.moneyGroup))) {
            return true;
        }
        const bool blankGroups =
            style_.groupSeparator.size() == 1 && isBlank(style_.groupSeparator[0]);
        if (blankGroups && at_ + 1 < text_.size() && isBlank(text_[at_]) &&
            isDigit(text_[at_ + 1])) {
            ++at_;
            return true;
        }
        return false;
    }

    bool scanDecimal() {
        bool anyDigit = false;
        bool fraction = false;
        while (at_ < text_.size()) {
            if (isDigit(text_[at_])) {
                anyDigit = true;
                addDigit(text_[at_++], fraction);
            } else if (!fraction && takeDecimalSeparator()) {
                fraction = true;
            } else if (!(anyDigit || fraction) || !takeGroupSeparator()) {
                break;
            }
        }
        // A symbol in front says money, and money is not written with an exponent.
        if (anyDigit && !symbolInFront_) {
            scanExponent();
        }
        return anyDigit;
    }

    void addDigit(char digit, bool fraction) {
        if (fraction) {
            --number_.exponent;
        }
        if (digit != '0' || !number_.digits.empty()) {
            number_.digits.push_back(digit);
        }
    }

    /// "e" and "d" both mark an exponent on Windows (Wine knows only "e").
    void scanExponent() {
        std::size_t next = at_;
        if (next >= text_.size() ||
            std::string_view("eEdD").find(text_[next]) == std::string::npos) {
            return;
        }
        ++next;
        const bool negative = next < text_.size() && text_[next] == '-';
        if (negative || (next < text_.size() && text_[next] == '+')) {
            ++next;
        }
        if (next >= text_.size() || !isDigit(text_[next])) {
            return;
        }
        long exponent = 0;
        for (; next < text_.size() && isDigit(text_[next]); ++next) {
            exponent = std::min(exponent * 10 + (text_[next] - '0'), kExponentLimit);
        }
        number_.exponent += negative ? -exponent : exponent;
        at_ = next;
    }

    /// Windows reads these as currency too; Wine reports an overflow for every one of them.
    bool scanRadixLiteral() {
        const char mark = static_cast<char>(text_[at_ + 1] | 0x20);
        if (mark != 'h' && mark != 'o') {
            return false;
        }
        const unsigned shift = mark == 'h' ? 4 : 3;
        const std::size_t first = at_ + 2;
        std::uint64_t value = 0;
        bool tooLarge = false;
        for (at_ = first; at_ < text_.size() && digitValue(text_[at_]) < 1 << shift; ++at_) {
            tooLarge = tooLarge || value >> (64 - shift) != 0;
            value = value << shift | static_cast<unsigned>(digitValue(text_[at_]));
        }
        number_.radixLiteral = true;
        number_.digits = value == 0 ? "" : std::to_string(value);
        if (tooLarge) {
            number_.digits = "1";
            number_.exponent = kExponentLimit;
        }
        return at_ > first;
    }

    std::string_view text_;
    const MoneyStyle& style_;
    bool money_;
    std::size_t at_ = 0;
    bool symbolInFront_ = false;
    bool plus_ = false;
    bool minus_ = false;
    bool bracket_ = false;
    ScannedNumber number_;
};

/// Whether the digits behind the first `kept` ones push the last kept digit up: half to even.
bool roundsUp(std::string_view digits, std::size_t kept) {
    if (kept >= digits.size() || digits[kept] < '5') {
        return false;
    }
    const bool exactHalf =
        digits[kept] == '5' && digits.find_first_not_of('0', kept + 1) == std::string_view::npos;
    const bool odd = kept > 0 && (digits[kept - 1] - '0') % 2 != 0;
    return !exactHalf || odd;
}

} // namespace

std::optional<ScannedNumber> scanNumber(std::string_view text, const MoneyStyle& style) {
    return Scanner(text, style).scan();
}

std::optional<std::int64_t> scaledInteger(const ScannedNumber& number, int places) {
    constexpr long kMostDigits = 19;
    const long wholeDigits = static_cast<long>(number.digits.size()) + number.exponent + places;
    if (number.digits.empty() || wholeDigits < 0) {
        return 0;
    }
    if (wholeDigits > kMostDigits) {
        return std::nullopt;
    }
    const auto kept = static_cast<std::size_t>(wholeDigits);
    std::uint64_t magnitude = 0;
    for (std::size_t i = 0; i < kept; ++i) {
        const int digit = i < number.digits.size() ? number.digits[i] - '0' : 0;
        magnitude = magnitude * 10 + static_cast<unsigned>(digit);
    }
    magnitude += roundsUp(number.digits, kept) ? 1 : 0;
    constexpr auto kMost = static_cast<std::uint64_t>(std::numeric_limits<std::int64_t>::max());
    if (magnitude > kMost + (number.negative ? 1 : 0)) {
        return std::nullopt;
    }
    // Negated as unsigned: the lowest number has no positive twin.
    return static_cast<std::int64_t>(number.negative ? 0 - magnitude : magnitude);
}

double nearestDouble(const ScannedNumber& number) {
    if (number.digits.empty()) {
        return 0;
    }
    const std::string text = number.digits + "e" + std::to_string(number.exponent);
    double value = 0;
    const auto read = std::from_chars(text.data(), text.data() + text.size(), value);
    if (read.ec == std::errc::result_out_of_range) {
        value = number.exponent < 0 ? 0 : std::numeric_limits<double>::infinity();
    }
    return number.negative ? -value : value;
}

void raiseTypeMismatch() {
    throw Error(errornumber::typeMismatch, "Tollvane", "Type mismatch");
}

void raiseOverflow() {
    throw Error(errornumber::overflow, "Tollvane", "Overflow");
}

} // namespace tollvane
