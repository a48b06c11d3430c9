#include "tests/unit/FormMonkey.h"

#include "platform/Money.h"

#include <algorithm>
#include <array>
#include <iterator>

namespace tollvane::test {

namespace {

constexpr const char* kCleanSwipe = "%B5555555555554444^LAST/ONE^2803101?";

constexpr std::array kFields{
    "txtCardName",     "txtCardNumber",    "txtCardCode",  "cboExpMonth",         "cboExpYear",
    "txtAmount",       "chkTaxExempt",     "txtTaxAmount", "chkVoiceAuth",        "txtAuthNum",
    "txtBillToStreet", "txtBillToCity",    "txtBillToZip", "cboBillToState",      "txtEMail",
    "txtDescription",  "txtInvoiceNumber", "txtPONumber",  "txtTransactionNumber"};

constexpr std::array kClipboards{"12.50", "-5", "abc", "1.2.3", "123456789", "", "%B;+", "-"};

constexpr std::array kSwipes{
    "%B4111111111111111^SMITH/JOHN^2712101000000?",
    "%B4111111111111111^SMITH/JOHN^2712101000000?\r;4111111111111111=2712101000?\r",
    "%B378282246310005^CHER^2801201?L;378282246310005=2801201000?K+0137=8?\r",
    ";4111111111111111=27121010000000000?\r",
    "%B4111111111111111^SMITH/JO",
    "%B41111111",
    "%B4111111111111111^SMITH/JOHN^27121;41111111111",
    ";42222222",
};

constexpr std::array kKeys{keycode::left,      keycode::right, keycode::home, keycode::end,
                           keycode::deleteKey, keycode::up,    keycode::down};

template <class List>
auto pick(const List& list, unsigned which) {
    return list[which % std::size(list)];
}

bool isDigit(char character) {
    return character >= '0' && character <= '9';
}

/// What may stand in a money box while it is being typed in: seven typed digits, and the two places
/// with which a box shows its number when it is entered.
bool isHalfANumber(std::string_view text) {
    if (!text.empty() && text.front() == '-') {
        text.remove_prefix(1);
    }
    return std::ranges::count_if(text, isDigit) <= 9 && std::ranges::count(text, '.') <= 1 &&
           std::ranges::all_of(text, [](char c) { return isDigit(c) || c == '.'; });
}

} // namespace

FormMonkey::FormMonkey() {
    till_.open();
}

void FormMonkey::complain(const std::string& about) {
    if (complaint_.empty()) {
        complaint_ = about;
    }
}

std::string FormMonkey::play(std::span<const std::uint8_t> script) {
    complaint_.clear();
    rest_ = script;
    startAfresh();
    while (!rest_.empty() && complaint_.empty()) {
        step();
    }
    expectCleanSwipeIsTaken();
    return complaint_;
}

void FormMonkey::startAfresh() {
    till_.desktop.robot->letTimePass(2500);
    till_.program().SetTransType(0);
    till_.program().ClearText();
    till_.list("cboExpMonth").setListIndex(0);
    till_.box("txtCardName").setFocus();
    till_.boxes();
    till_.desktop.record.forget();
    till_.desktop.registry.forgetCalls();
    ownRecord_ = false;
}

std::uint8_t FormMonkey::next() {
    if (rest_.empty()) {
        return 0;
    }
    const std::uint8_t byte = rest_.front();
    rest_ = rest_.subspan(1);
    return byte;
}

void FormMonkey::step() {
    // An expiry without a month is an error by itself.
    if (till_.list("cboExpMonth").listIndex() < 0) {
        till_.list("cboExpMonth").setListIndex(0);
    }
    act(next());
    look();
}

void FormMonkey::act(std::uint8_t byte) {
    const std::uint8_t which = byte % 32;
    if (byte < 128 || byte >= 240) {
        const char character = static_cast<char>(byte == 0 || byte == '\t' ? '\b' : byte);
        ownRecord_ = ownRecord_ || (lastKey_ == '%' && (character == 'B' || character == 'b'));
        type({&character, 1});
    } else if (byte < 160) {
        changeFocus(which);
    } else if (byte < 176) {
        leaveButtons();
        key(pick(kKeys, which), which % 2 == 0 ? 0 : shiftmask::shift);
    } else if (byte < 192) {
        select();
    } else if (byte < 200) {
        paste(which);
    } else if (byte < 216) {
        const std::string_view swipe = pick(kSwipes, which);
        ownRecord_ = ownRecord_ || (swipe.front() == '%' && swipe.find('?') == swipe.npos);
        type(swipe);
    } else if (byte < 224) {
        till_.desktop.robot->letTimePass(which % 2 == 0 ? 350 : 2300);
    } else if (byte < 230) {
        till_.desktop.robot->tab();
    } else if (byte < 236) {
        till_.choose(which % 3);
    } else {
        till_.program().SetTransactionApproved(which % 2 == 0);
    }
}

void FormMonkey::leaveButtons() {
    const Control* active = till_.form().activeControl();
    if (active == nullptr || active->kind() == ControlKind::button) {
        till_.box("txtAmount").setFocus();
    }
}

void FormMonkey::type(std::string_view keys) {
    for (const char character : keys) {
        if (character == ' ') {
            leaveButtons();
        }
        till_.desktop.robot->typeText({&character, 1});
        ++keystrokes_;
        lastKey_ = character == '\r' ? lastKey_ : character;
    }
}

void FormMonkey::key(int code, int shift) {
    till_.desktop.robot->key(code, shift);
    ++keystrokes_;
}

void FormMonkey::changeFocus(std::uint8_t which) {
    Control& control = till_.form().find(pick(kFields, which));
    if (control.enabled()) {
        till_.desktop.mouse.down = which % 2 == 0;
        control.setFocus();
    }
}

void FormMonkey::select() {
    auto* box = dynamic_cast<TextBox*>(till_.form().activeControl());
    const int start = next() % 16;
    const int length = next() % 16;
    if (box != nullptr) {
        box->select(start, length);
    }
}

void FormMonkey::paste(std::uint8_t which) {
    leaveButtons();
    if (dynamic_cast<TextBox*>(till_.form().activeControl()) != nullptr) {
        till_.desktop.robot->paste(pick(kClipboards, which));
    }
}

void FormMonkey::look() {
    lookAtMoney("txtAmount");
    lookAtMoney("txtTaxAmount");
    lookAtCharacters();
    lookAtBoxes();
}

void FormMonkey::lookAtMoney(const char* name) {
    const TextBox& box = till_.box(name);
    const std::string text = box.text();
    if (box.hasFocus()) {
        // A new entry shows the currency format until the box is entered again.
        if (!isHalfANumber(text) && text != "$0.00") {
            complain(std::string(name) + " is being typed: " + text);
        }
        return;
    }
    try {
        const MoneyStyle style;
        moneyFromText(text, style);
        if (text.find(style.currencySymbol) == std::string::npos) {
            complain(std::string(name) + " shows a bare number: " + text);
        }
    } catch (const Error&) {
        complain(std::string(name) + " shows no amount: " + text);
    }
}

void FormMonkey::lookAtCharacters() {
    if (!std::ranges::all_of(till_.text("txtCardCode"), isDigit)) {
        complain("the card code is " + till_.text("txtCardCode"));
    }
    if (!ownRecord_ && !std::ranges::all_of(till_.text("txtCardNumber"), isDigit)) {
        complain("the card number is " + till_.text("txtCardNumber"));
    }
    if (!ownRecord_ && till_.text("txtCardName").find_first_of("-^|abcxyz") != std::string::npos) {
        complain("the name is " + till_.text("txtCardName"));
    }
    for (const char* name : {"txtEMail", "txtDescription", "txtPONumber", "txtBillToStreet"}) {
        if (till_.text(name).find("4111111111") != std::string::npos) {
            complain(std::string(name) + " holds a card number");
        }
    }
    if (till_.text("txtKbBuffer").size() > 1100) {
        complain("the keyboard buffer grows");
    }
}

void FormMonkey::lookAtBoxes() {
    for (const Message& box : till_.boxes()) {
        if (box.title != "Invalid Card Number") {
            complain(box.title + ": " + box.text);
        }
    }
    for (const std::string& error : till_.desktop.escaped.noted()) {
        complain("escaped: " + error);
    }
}

void FormMonkey::expectCleanSwipeIsTaken() {
    type(kCleanSwipe);
    if (till_.text("txtMagStripe") != kCleanSwipe ||
        till_.text("txtCardNumber") != "5555555555554444" ||
        till_.text("txtCardName") != "ONE LAST" || till_.list("cboExpMonth").listIndex() != 2 ||
        till_.list("cboExpYear").text() != "2028" || till_.focus() != "txtAmount") {
        complain("a clean swipe was not taken");
    }
}

} // namespace tollvane::test
