#include "entry/MoneyKeyFilter.h"

#include "platform/Text.h"

#include <algorithm>
#include <string>

namespace tollvane {

namespace {

constexpr int kMostDigits = 7;
constexpr char kMinus = '-';

bool isDigit(int character) {
    return character >= '0' && character <= '9';
}

int digitsIn(std::string_view text) {
    return static_cast<int>(std::ranges::count_if(text, [](char c) { return isDigit(c); }));
}

bool contains(std::string_view text, char character) {
    return text.find(character) != std::string_view::npos;
}

/// Keys that edit and bring no character: Ctrl + A, C, V, X and Z, and Backspace.
bool isEditing(int keyAscii) {
    return keyAscii == 1 || keyAscii == 3 || keyAscii == 8 || keyAscii == 22 || keyAscii == 24 ||
           keyAscii == 26;
}

std::string_view beforeSelection(const MoneyEdit& edit) {
    return edit.text.substr(0, static_cast<std::size_t>(edit.selStart));
}

std::string_view behindSelection(const MoneyEdit& edit) {
    return edit.text.substr(static_cast<std::size_t>(edit.selStart) +
                            static_cast<std::size_t>(edit.selLength));
}

MoneyKey judgeMinus(const MoneyEdit& edit) {
    const bool first = trimmed(beforeSelection(edit)).empty();
    return first && !contains(behindSelection(edit), kMinus) ? MoneyKey::taken : MoneyKey::dropped;
}

/// A digit or the decimal point.
bool mayStand(const MoneyEdit& edit, int keyAscii) {
    const std::string_view before = beforeSelection(edit);
    const std::string_view behind = behindSelection(edit);
    if (contains(behind, kMinus)) {
        return false;
    }
    if (keyAscii == edit.decimalPoint) {
        return !contains(before, edit.decimalPoint) && !contains(behind, edit.decimalPoint);
    }
    return digitsIn(before) + digitsIn(behind) < kMostDigits;
}

} // namespace

MoneyKey judgeMoneyKey(const MoneyEdit& edit, int keyAscii) {
    if (isEditing(keyAscii)) {
        return MoneyKey::taken;
    }
    if (keyAscii == kMinus) {
        return judgeMinus(edit);
    }
    if (isDigit(keyAscii) || keyAscii == edit.decimalPoint) {
        return mayStand(edit, keyAscii) ? MoneyKey::taken : MoneyKey::droppedWithBeep;
    }
    const bool full = edit.selLength == 0 && digitsIn(edit.text) >= kMostDigits;
    return full ? MoneyKey::droppedWithBeep : MoneyKey::dropped;
}

bool mayPasteMoney(const MoneyEdit& edit, std::string_view pasted) {
    const std::string result = std::string(beforeSelection(edit)) + std::string(pasted) +
                               std::string(behindSelection(edit));
    std::string_view number(result);
    if (!number.empty() && number.front() == kMinus) {
        number.remove_prefix(1);
    }
    return digitsIn(number) <= kMostDigits && std::ranges::count(number, edit.decimalPoint) <= 1 &&
           std::ranges::all_of(number,
                               [&](char c) { return isDigit(c) || c == edit.decimalPoint; });
}

} // namespace tollvane
