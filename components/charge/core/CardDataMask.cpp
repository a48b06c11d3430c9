#include "components/charge/core/CardDataMask.h"

#include "components/charge/core/CardNumberRules.h"
#include "platform/SecretText.h"

#include <vector>

namespace tollvane::charge {

namespace {

constexpr std::size_t shownDigits = 4;
constexpr std::size_t shortestNumber = 12;
constexpr std::size_t longestNumber = 19;

bool isDigit(char character) {
    return character >= '0' && character <= '9';
}
bool isFiller(char character) {
    return character == ' ' || character == '-';
}

// A run of digits with its places in the text.
struct DigitRun {
    SecretText digits;
    std::vector<std::size_t> places;
};

DigitRun runFrom(std::string_view text, std::size_t start) {
    DigitRun run;
    for (std::size_t i = start; i < text.size() && (isDigit(text[i]) || isFiller(text[i])); ++i) {
        if (isDigit(text[i])) {
            run.digits.append(text[i]);
            run.places.push_back(i);
        }
    }
    return run;
}

// How many digits of a card number start at this place of the run; 0 for none.
std::size_t numberLength(std::string_view digits) {
    for (std::size_t length = longestNumber; length >= shortestNumber; --length) {
        if (digits.size() >= length && acceptableCardNumber(digits.substr(0, length)))
            return length;
    }
    return 0;
}

void maskRun(const DigitRun& run, std::string& text) {
    const std::string_view digits = run.digits.view();
    std::size_t at = 0;
    while (at < digits.size()) {
        const std::size_t length = numberLength(digits.substr(at));
        for (std::size_t i = at; length > 0 && i < at + length - shownDigits; ++i)
            text[run.places[i]] = '*';
        at += length > 0 ? length : 1;
    }
}

} // namespace

std::string withoutCardNumbers(std::string_view text) {
    std::string result(text);
    std::size_t at = 0;
    while (at < text.size()) {
        if (!isDigit(text[at])) {
            ++at;
            continue;
        }
        const DigitRun run = runFrom(text, at);
        maskRun(run, result);
        at = run.places.back() + 1;
    }
    return result;
}

std::string lastFour(std::string_view cardNumber) {
    return std::string(cardNumber.size() > shownDigits
                           ? cardNumber.substr(cardNumber.size() - shownDigits)
                           : cardNumber);
}

} // namespace tollvane::charge
