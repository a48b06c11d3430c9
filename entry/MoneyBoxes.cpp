#include "entry/MoneyBoxes.h"

#include "app/CommonRoutines.h"
#include "platform/LocaleStyle.h"
#include "platform/Text.h"

#include <algorithm>

namespace tollvane {

namespace {

constexpr Colour kNegative = Colour::rgb(255, 0, 0);
constexpr int kPointKey = '.';

/// The locale's decimal point. One that is longer than a character cannot be typed.
char decimalPoint(const MoneyStyle& style) {
    return style.decimalSeparator.size() == 1 ? style.decimalSeparator.front() : '.';
}

bool hasDigit(std::string_view text) {
    return std::ranges::any_of(text, [](char c) { return c >= '0' && c <= '9'; });
}

} // namespace

MoneyBoxes::MoneyBoxes(const Desktop& desktop, ChargeInfoControls& controls)
    : desktop_(desktop), controls_(controls) {}

void MoneyBoxes::startEditing(TextBox& box, int longest) {
    const MoneyStyle style = moneyStyle(desktop_.locale);
    box.setForeColour(controls_.txtCardNumber.foreColour());
    box.setMaxLength(std::max(0, longest));
    box.setText(plainMoneyText(moneyFromText(box.text(), style), style));
    SelectAllText(desktop_.mouse, box, false);
}

void MoneyBoxes::finishEditing(TextBox& box) {
    const MoneyStyle style = moneyStyle(desktop_.locale);
    const std::string typed = box.text();
    const Money value = hasDigit(typed) ? moneyFromText(typed, style) : Money();
    const std::string shown = currencyText(value, style);
    box.setMaxLength(static_cast<int>(shown.size()));
    box.setText(shown);
    showSign(box, value);
}

void MoneyBoxes::showSign(TextBox& box, Money value) {
    box.setForeColour(value.isNegative() ? kNegative : Colour(Colour::System::windowText));
}

void MoneyBoxes::recolour() {
    const MoneyStyle style = moneyStyle(desktop_.locale);
    for (TextBox* box : {&controls_.txtAmount, &controls_.txtTaxAmount}) {
        if (!box->enabled() || box->hasFocus()) {
            continue;
        }
        try {
            showSign(*box, moneyFromText(box->text(), style));
        } catch (const Error&) {
            // A text that is no amount has no sign; submission will say so.
            showSign(*box, Money());
        }
    }
}

void MoneyBoxes::filterKey(const TextBox& box, int& keyAscii) {
    const char point = decimalPoint(moneyStyle(desktop_.locale));
    if (keyAscii == kPointKey) {
        // The key beside the digits means the decimal point, whatever sign the locale has for it.
        keyAscii = static_cast<unsigned char>(point);
    }
    const std::string text = box.text();
    switch (judgeMoneyKey({text, box.selStart(), box.selLength(), point}, keyAscii)) {
    case MoneyKey::taken: return;
    case MoneyKey::dropped: break;
    case MoneyKey::droppedWithBeep: desktop_.beeper.beep(); break;
    }
    keyAscii = 0;
}

void MoneyBoxes::filterPaste(const TextBox& box, std::string& text) {
    const char point = decimalPoint(moneyStyle(desktop_.locale));
    const std::string before = box.text();
    text = trimmed(text.substr(0, text.find_first_of("\r\n")));
    const bool fits =
        static_cast<int>(before.size() + text.size()) - box.selLength() <= box.maxLength();
    if (!fits || !mayPasteMoney({before, box.selStart(), box.selLength(), point}, text)) {
        desktop_.beeper.beep();
        text.clear();
    }
}

} // namespace tollvane
