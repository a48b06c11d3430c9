#pragma once

#include "entry/ChargeInfoControls.h"
#include "entry/MoneyKeyFilter.h"
#include "platform/Desktop.h"

#include <string>

namespace tollvane {

/// The two faces of the amount and tax boxes: a bare number while the operator types in the box,
/// the locale's currency format afterwards.
class MoneyBoxes {
public:
    /// All arguments outlive the object.
    MoneyBoxes(const Desktop& desktop, ChargeInfoControls& controls);

    /// Shows the bare number, selected, in the normal colour. `longest` is how many characters can
    /// be typed.
    void startEditing(TextBox& box, int longest);
    /// Shows the currency format, in red when the value is negative. An empty text, or one without
    /// a single digit, is no amount.
    void finishEditing(TextBox& box);
    void filterKey(const TextBox& box, int& keyAscii);
    /// Refuses, with a beep, what typing could not have brought about.
    void filterPaste(const TextBox& box, std::string& text);
    /// Both boxes were set by the program: gives them the colour of their value.
    void recolour();

private:
    void showSign(TextBox& box, Money value);

    Desktop desktop_;
    ChargeInfoControls& controls_;
};

} // namespace tollvane
