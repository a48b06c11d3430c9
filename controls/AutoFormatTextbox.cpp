#include "controls/AutoFormatTextbox.h"

#include "app/CommonRoutines.h"
#include "platform/LocaleStyle.h"

#include <algorithm>
#include <type_traits>
#include <utility>

namespace tollvane {

namespace {

/// The bit that a format type adds to the edit style, or 0.
std::uint32_t styleBit(std::int32_t formatType) {
    switch (formatType) {
    case formattype::lowerCase: return editstyle::lowerCase;
    case formattype::upperCase: return editstyle::upperCase;
    case formattype::digitsOnly: return editstyle::digitsOnly;
    default: return 0;
    }
}

bool isDigit(char character) {
    return character >= '0' && character <= '9';
}

/// The handler in `slot`, followed by `next`.
template <class... Arguments>
void append(std::function<void(Arguments...)>& slot,
            std::type_identity_t<std::function<void(Arguments...)>> next) {
    slot = [first = std::move(slot), next = std::move(next)](Arguments... arguments) {
        if (first) {
            first(arguments...);
        }
        try {
            next(arguments...);
        } catch (...) {
            // How a text looks is a convenience; typing goes on without it.
        }
    };
}

} // namespace

void AutoFormatTextbox::SetTextBox(tollvane::TextBox& box) {
    box_ = &box;
    // A box that was attached earlier still calls: only the present one is listened to.
    append(box.on.gotFocus, [this, &box] {
        if (box_ == &box) {
            gotFocus();
        }
    });
    append(box.on.keyDown, [this, &box](int& keyCode, int) {
        if (box_ == &box) {
            keyDown(keyCode);
        }
    });
    append(box.on.keyPress, [this, &box](int& keyAscii) {
        if (box_ == &box) {
            keyPress(keyAscii);
        }
    });
    append(box.on.paste, [this, &box](std::string& text) {
        if (box_ == &box) {
            paste(text);
        }
    });
}

void AutoFormatTextbox::SetFormatType(std::int32_t formatType) {
    formatType_ = formatType;
    const std::uint32_t bit = styleBit(formatType);
    if (bit == 0 || box_ == nullptr) {
        return;
    }
    if (const std::uint32_t style = box_->windowStyle(); style != 0) {
        box_->setWindowStyle(style | bit);
    }
}

void AutoFormatTextbox::gotFocus() {
    box_->select(0, -1);
    properCase_.gotFocus();
}

void AutoFormatTextbox::keyDown(int keyCode) {
    if (formatType_ == formattype::properCase) {
        const std::string text = box_->text();
        properCase_.keyDown({text, box_->selStart(), box_->selLength()}, keyCode);
    }
}

void AutoFormatTextbox::keyPress(int& keyAscii) {
    if (formatType_ != formattype::properCase && formatType_ != formattype::decimalNumber) {
        return;
    }
    const std::string text = box_->text();
    const TypedInto typed{text, box_->selStart(), box_->selLength()};
    if (formatType_ == formattype::properCase) {
        properCase_.keyPress(typed, keyAscii);
    } else if (!mayTypeDecimal(typed, keyAscii, decimalStyle())) {
        keyAscii = 0;
    }
}

void AutoFormatTextbox::paste(std::string& text) const {
    if (formatType_ == formattype::digitsOnly) {
        std::erase_if(text, [](char character) { return !isDigit(character); });
    }
}

DecimalStyle AutoFormatTextbox::decimalStyle() const {
    const std::string digits = GetLocaleValue(locale_, localeitem::currencyDigits, kSystemLocale);
    const bool numeric = !digits.empty() && std::ranges::all_of(digits, isDigit);
    return {.separator = GetLocaleValue(locale_, localeitem::moneyDecimal, kSystemLocale),
            .digits = numeric ? static_cast<int>(numberFromText(digits)) : 0};
}

} // namespace tollvane
