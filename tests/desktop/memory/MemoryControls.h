#pragma once

#include "tests/desktop/memory/ControlCore.h"

#include <cstdint>
#include <memory>
#include <string>
#include <utility>
#include <vector>

namespace tollvane::test {

using MemoryLabel = MemoryCaptioned<Captioned>; ///< labels and frames
using MemoryPicture = MemoryControl<Control>;

class MemoryButton : public MemoryCaptioned<Captioned> {
public:
    using MemoryCaptioned::MemoryCaptioned;
    void pressed() override { raise("Click", on.click); }
    void character(int ascii) override;
};

class MemoryCheckBox : public MemoryCaptioned<CheckBox> {
public:
    using MemoryCaptioned::MemoryCaptioned;
    bool checked() const override { return checked_; }
    void setChecked(bool checked) override;
    void pressed() override { change(!checked_); }
    void character(int ascii) override;

private:
    void change(bool checked);

    bool checked_ = false;
};

class MemoryOptionButton : public MemoryCaptioned<OptionButton> {
public:
    using MemoryCaptioned::MemoryCaptioned;
    bool selected() const override { return selected_; }
    void select() override;
    void pressed() override;
    void character(int ascii) override;
    void command(int keyCode, int shift) override;
    void deselect() { selected_ = false; }

private:
    void choose();

    bool selected_ = false;
};

class MemoryTimer : public MemoryControl<Timer> {
public:
    MemoryTimer(MemoryForm& form, const ControlDescription& description);
    int interval() const override { return interval_; }
    void setInterval(int milliseconds) override;
    void enabledChanged() override { restart(); }

    bool runs() const { return ControlCore::enabled && interval_ > 0; }
    /// Moment of the clock's milliseconds at which it fires next.
    std::uint64_t due() const { return due_; }
    void fire();

private:
    void restart();

    int interval_ = 0;
    std::uint64_t due_ = 0;
};

class MemoryStatusBar : public MemoryControl<StatusBar> {
public:
    MemoryStatusBar(MemoryForm& form, const ControlDescription& description,
                    std::span<const PanelDescription> panels);
    std::string panelText(std::string_view key) const override;
    void setPanelText(std::string_view key, const std::string& text) override;
    void refresh() override { changing("refresh"); }

private:
    std::size_t panel(std::string_view key) const;

    std::vector<std::pair<std::string, std::string>> panels_;
};

class MemoryMenuItem : public MemoryCaptioned<MenuItem> {
public:
    MemoryMenuItem(MemoryForm& form, const ControlDescription& description, int menuLevel)
        : MemoryCaptioned(form, description), level(menuLevel) {}
    bool checked() const override { return checked_; }
    void setChecked(bool checked) override;
    void pressed() override { raise("Click", on.click); }

    const int level;

private:
    bool checked_ = false;
};

class MemoryComboBox : public MemoryControl<ComboBox> {
public:
    using MemoryControl::MemoryControl;
    void clear() override;
    void addItem(const std::string& text, std::int32_t itemData) override;
    int count() const override { return static_cast<int>(items_.size()); }
    std::string itemText(int entry) const override { return at(entry).first; }
    std::int32_t itemData(int entry) const override { return at(entry).second; }
    int listIndex() const override { return selected_; }
    void setListIndex(int entry) override;
    std::string text() const override;

    void clicked() override {}
    void character(int ascii) override;
    void command(int keyCode, int shift) override;
    /// By the user.
    void choose(int entry);

private:
    const std::pair<std::string, std::int32_t>& at(int entry) const;
    void change(int entry);

    std::vector<std::pair<std::string, std::int32_t>> items_;
    int selected_ = -1;
};

/// Makes the control that a row of a form's table describes.
std::unique_ptr<ControlCore> makeControl(MemoryForm& form, const ControlDescription& description,
                                         std::span<const PanelDescription> panels);

} // namespace tollvane::test
