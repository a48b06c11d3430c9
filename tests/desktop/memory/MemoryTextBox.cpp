#include "tests/desktop/memory/MemoryTextBox.h"

#include "platform/Letters.h"
#include "tests/desktop/Robot.h"
#include "tests/desktop/memory/MemoryForm.h"

#include <algorithm>
#include <cctype>
#include <utility>

namespace tollvane::test {

namespace {
constexpr int kSelectAll = 1;
constexpr int kPaste = 22;
constexpr int kFirstPrintable = 32;
constexpr int kDelete = 127;
} // namespace

void MemoryTextBox::setText(std::string_view text) {
    changing("setText");
    change(std::string(text), 0);
}

void MemoryTextBox::change(std::string text, int caret) {
    const bool differs = text != text_;
    wipe(text_);
    text_ = std::move(text);
    anchor_ = caret_ = caret;
    if (differs) {
        raise("Change", on.change);
    }
}

void MemoryTextBox::wipeText() {
    changing("wipeText");
    change({}, 0);
}

void MemoryTextBox::setMaxLength(int length) {
    changing("setMaxLength");
    maxLength_ = length;
}

void MemoryTextBox::select(int start, int length) {
    changing("select");
    anchor_ = std::clamp(start, 0, size());
    caret_ = length < 0 ? size() : std::min(anchor_ + length, size());
}

std::uint32_t MemoryTextBox::setWindowStyle(std::uint32_t style) {
    changing("setWindowStyle");
    return std::exchange(style_, style);
}

void MemoryTextBox::place(int caret, bool extend) {
    caret_ = std::clamp(caret, 0, size());
    if (!extend) {
        anchor_ = caret_;
    }
}

void MemoryTextBox::character(int ascii) {
    if (ascii == kSelectAll) {
        place(0, false);
        place(size(), true);
    } else if (ControlCore::locked) {
        return;
    } else if (ascii == kPaste) {
        pasted(owner.host().clipboard);
    } else if (ascii == keycode::backspace) {
        erase(false);
    } else if (ascii >= kFirstPrintable && ascii != kDelete) {
        type(ascii);
    }
}

void MemoryTextBox::type(int ascii) {
    const bool isLong = ascii > kLargestByte;
    if ((style_ & editstyle::digitsOnly) != 0 && (isLong || std::isdigit(ascii) == 0)) {
        return;
    }
    if (!isLong && (style_ & editstyle::upperCase) != 0) {
        ascii = std::toupper(ascii);
    } else if (!isLong && (style_ & editstyle::lowerCase) != 0) {
        ascii = std::tolower(ascii);
    }
    const std::string typed = typedBytes(ascii);
    if (size() - selLength() + static_cast<int>(typed.size()) > maxLength_) {
        return;
    }
    replaceSelection(typed);
}

void MemoryTextBox::erase(bool forward) {
    if (selLength() == 0) {
        const std::string_view text(text_);
        const auto at = static_cast<std::size_t>(caret_);
        const std::size_t erased =
            forward ? characterLength(text.substr(at)) : lastCharacter(text.substr(0, at)).size();
        if (erased == 0) {
            return;
        }
        anchor_ = forward ? caret_ : caret_ - static_cast<int>(erased);
        caret_ = anchor_ + static_cast<int>(erased);
    }
    replaceSelection({});
}

void MemoryTextBox::replaceSelection(const std::string& with) {
    const int start = selStart();
    const int room = std::max(0, maxLength_ - (size() - selLength()));
    const std::string fitting =
        with.substr(0, wholeCharacters(with, static_cast<std::size_t>(room)));
    std::string replaced = text_;
    replaced.replace(static_cast<std::size_t>(start), static_cast<std::size_t>(selLength()),
                     fitting);
    change(std::move(replaced), start + static_cast<int>(fitting.size()));
}

void MemoryTextBox::command(int keyCode, int shift) {
    const bool extend = (shift & shiftmask::shift) != 0;
    switch (keyCode) {
    case keycode::left:
    case keycode::up: place(extend || selLength() == 0 ? caret_ - 1 : selStart(), extend); break;
    case keycode::right:
    case keycode::down:
        place(extend || selLength() == 0 ? caret_ + 1 : selStart() + selLength(), extend);
        break;
    case keycode::home: place(0, extend); break;
    case keycode::end: place(size(), extend); break;
    case keycode::deleteKey:
        if (!ControlCore::locked && !extend) {
            erase(true);
        }
        break;
    default: break;
    }
}

void MemoryTextBox::pasted(const std::string& clipboard) {
    if (ControlCore::locked) {
        return;
    }
    std::string text = clipboard;
    raise("Paste", on.paste, text);
    if (!text.empty()) {
        replaceSelection(text);
    }
}

} // namespace tollvane::test
