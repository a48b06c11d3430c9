#include "tests/desktop/memory/MemoryControls.h"

#include "tests/desktop/FakeClock.h"
#include "tests/desktop/Robot.h"
#include "tests/desktop/memory/MemoryForm.h"
#include "tests/desktop/memory/MemoryTextBox.h"

#include <algorithm>
#include <cctype>

namespace tollvane::test {

namespace {

constexpr long kInvalidArrayIndex = 381;
constexpr long kElementNotFound = 35601;

} // namespace

void MemoryButton::character(int ascii) {
    if (ascii == keycode::space) {
        pressed();
    }
}

void MemoryCheckBox::setChecked(bool checked) {
    changing("setChecked");
    change(checked);
}

void MemoryCheckBox::change(bool checked) {
    if (std::exchange(checked_, checked) != checked) {
        raise("Click", on.click);
    }
}

void MemoryCheckBox::character(int ascii) {
    if (ascii == keycode::space) {
        pressed();
    }
}

void MemoryOptionButton::select() {
    changing("select");
    choose();
}

void MemoryOptionButton::choose() {
    if (selected_) {
        return;
    }
    for (MemoryOptionButton* other : owner.optionArray(ControlCore::name)) {
        other->deselect();
    }
    selected_ = true;
    raise("Click", on.click);
}

void MemoryOptionButton::pressed() {
    selected_ ? raise("Click", on.click) : choose();
}

void MemoryOptionButton::character(int ascii) {
    if (ascii == keycode::space) {
        pressed();
    }
}

void MemoryOptionButton::command(int keyCode, int /*shift*/) {
    const bool forward = keyCode == keycode::down || keyCode == keycode::right;
    if (!forward && keyCode != keycode::up && keyCode != keycode::left) {
        return;
    }
    std::vector<MemoryOptionButton*> buttons = owner.optionArray(ControlCore::name);
    std::erase_if(buttons, [this](MemoryOptionButton* b) { return b != this && !b->usable(); });
    const auto here = std::find(buttons.begin(), buttons.end(), this) - buttons.begin();
    const auto size = static_cast<std::ptrdiff_t>(buttons.size());
    MemoryOptionButton* next =
        buttons[static_cast<std::size_t>((here + (forward ? 1 : size - 1)) % size)];
    if (next != this && owner.moveFocusByUser(*next)) {
        next->choose();
    }
}

MemoryTimer::MemoryTimer(MemoryForm& form, const ControlDescription& description)
    : MemoryControl(form, description), interval_(description.interval) {
    ControlCore::enabled = false;
}

void MemoryTimer::setInterval(int milliseconds) {
    changing("setInterval");
    interval_ = milliseconds;
    restart();
}

void MemoryTimer::restart() {
    due_ = owner.host().clock().milliseconds() + static_cast<std::uint64_t>(std::max(interval_, 0));
}

void MemoryTimer::fire() {
    due_ += static_cast<std::uint64_t>(interval_);
    raise("Timer", on.timer);
}

MemoryStatusBar::MemoryStatusBar(MemoryForm& form, const ControlDescription& description,
                                 std::span<const PanelDescription> panels)
    : MemoryControl(form, description) {
    for (const PanelDescription& panel : panels) {
        panels_.emplace_back(panel.key, std::string());
    }
}

std::size_t MemoryStatusBar::panel(std::string_view key) const {
    const auto found = std::find_if(panels_.begin(), panels_.end(),
                                    [&](const auto& panel) { return panel.first == key; });
    if (found == panels_.end()) {
        throw Error(kElementNotFound, ControlCore::name, "Element not found");
    }
    return static_cast<std::size_t>(found - panels_.begin());
}

std::string MemoryStatusBar::panelText(std::string_view key) const {
    return panels_[panel(key)].second;
}

void MemoryStatusBar::setPanelText(std::string_view key, const std::string& text) {
    changing("setPanelText");
    panels_[panel(key)].second = text;
}

void MemoryMenuItem::setChecked(bool checked) {
    changing("setChecked");
    checked_ = checked;
}

void MemoryComboBox::clear() {
    changing("clear");
    items_.clear();
    selected_ = -1;
}

void MemoryComboBox::addItem(const std::string& text, std::int32_t itemData) {
    changing("addItem");
    items_.emplace_back(text, itemData);
}

const std::pair<std::string, std::int32_t>& MemoryComboBox::at(int entry) const {
    if (entry < 0 || entry >= count()) {
        throw Error(kInvalidArrayIndex, ControlCore::name, "Invalid property array index");
    }
    return items_[static_cast<std::size_t>(entry)];
}

void MemoryComboBox::setListIndex(int entry) {
    changing("setListIndex");
    if (entry < -1 || entry >= count()) {
        throw Error(errornumber::invalidPropertyValue, ControlCore::name, "Invalid property value");
    }
    change(entry);
}

void MemoryComboBox::change(int entry) {
    if (std::exchange(selected_, entry) != entry && entry >= 0) {
        raise("Click", on.click);
    }
}

std::string MemoryComboBox::text() const {
    return selected_ < 0 ? std::string() : at(selected_).first;
}

void MemoryComboBox::choose(int entry) {
    if (!ControlCore::locked && entry >= 0 && entry < count()) {
        change(entry);
    }
}

void MemoryComboBox::character(int ascii) {
    const auto sameLetter = [&](int entry) {
        const std::string& entryText = items_[static_cast<std::size_t>(entry)].first;
        return !entryText.empty() &&
               std::toupper(static_cast<unsigned char>(entryText[0])) == std::toupper(ascii & 0xFF);
    };
    for (int step = 1; step <= count(); ++step) {
        const int entry = (selected_ + step) % count();
        if (sameLetter(entry)) {
            choose(entry);
            return;
        }
    }
}

void MemoryComboBox::command(int keyCode, int /*shift*/) {
    switch (keyCode) {
    case keycode::up: choose(selected_ - 1); break;
    case keycode::down: choose(selected_ + 1); break;
    case keycode::home: choose(0); break;
    case keycode::end: choose(count() - 1); break;
    default: break;
    }
}

std::unique_ptr<ControlCore> makeControl(MemoryForm& form, const ControlDescription& description,
                                         std::span<const PanelDescription> panels) {
    switch (description.kind) {
    case ControlKind::label:
    case ControlKind::frame: return std::make_unique<MemoryLabel>(form, description);
    case ControlKind::textBox: return std::make_unique<MemoryTextBox>(form, description);
    case ControlKind::comboBox: return std::make_unique<MemoryComboBox>(form, description);
    case ControlKind::checkBox: return std::make_unique<MemoryCheckBox>(form, description);
    case ControlKind::optionButton: return std::make_unique<MemoryOptionButton>(form, description);
    case ControlKind::button: return std::make_unique<MemoryButton>(form, description);
    case ControlKind::timer: return std::make_unique<MemoryTimer>(form, description);
    case ControlKind::statusBar:
        return std::make_unique<MemoryStatusBar>(form, description, panels);
    case ControlKind::picture: return std::make_unique<MemoryPicture>(form, description);
    case ControlKind::menuItem: return std::make_unique<MemoryMenuItem>(form, description, 0);
    }
    return nullptr;
}

} // namespace tollvane::test
