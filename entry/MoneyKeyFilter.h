#pragma once

#include <string_view>

namespace tollvane {

/// A money box at the moment of a key: its text and what is selected in it.
struct MoneyEdit {
    std::string_view text;
    int selStart = 0;
    int selLength = 0;
    char decimalPoint = '.';
};

enum class MoneyKey { taken, dropped, droppedWithBeep };

// The rule of both functions: what stands in a money box after the key never holds two decimal
// points, nor more than seven digits, nor a minus sign anywhere but in front. The selection, which
// the key replaces, does not count; the caret matters only for the minus sign, which must stay the
// first character.

/// Judges a typed character.
MoneyKey judgeMoneyKey(const MoneyEdit& edit, int keyAscii);

/// True when the text may be pasted in place of the selection.
bool mayPasteMoney(const MoneyEdit& edit, std::string_view pasted);

} // namespace tollvane
